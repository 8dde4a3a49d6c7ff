// A view of its own, 400 by 300, for tests of what it shows and takes.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <memory>

#include "platform/base/CString.h"
#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"
#include "workbench/view/ScenePainter.h"
#include "workbench/view/SceneView.h"

// How many pixels of a picture pass.
template <class Test>
int Count(const QImage& image, Test test) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += test(image.pixel(x, y)) ? 1 : 0;
    return count;
}

class ViewStage : public testing::Test {
protected:
    // Skips the test where nothing can be drawn; the view is null then.
    void OpenView(const std::shared_ptr<const Scene>& scene, StandardView look) {
        CString reason;
        const ModalDriver nobody([](const ModalWindow&) { return 0; });
        ASSERT_TRUE(PrepareWindows(reason));
        if (!ScenePainter::Open(reason))
            GTEST_SKIP() << "no EGL: what is drawn was not looked at";
        m_view = std::make_unique<SceneView>();
        m_view->resize(400, 300);
        m_view->SetScene(scene);
        m_view->Look(look);
    }
    // The pixel of a place; (-1, -1) for one behind the eye.
    QPoint Where(const QcGePoint& point) const {
        const auto pixel = m_view->GetCamera().Project(point);
        return pixel ? QPointF(pixel->x, pixel->y).toPoint() : QPoint(-1, -1);
    }
    void Click(const QcGePoint& point) const {
        ASSERT_NE(Where(point), QPoint(-1, -1));
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, Where(point));
    }

    std::unique_ptr<SceneView> m_view;
};
