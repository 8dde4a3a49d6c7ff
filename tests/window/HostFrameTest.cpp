// A host's widget as a window of the framework.
#include "platform/window/HostFrame.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <memory>

#include "platform/window/CWnd.h"
#include "platform/window/ModalDriver.h"

namespace {

const ModalDriver::Answer kNoAnswer = [](const ModalWindow&) { return 0; };

}  // namespace

TEST(HostFrame, IsReadyWhereSomebodySeesWindows) {
    const ModalDriver driver(kNoAnswer);
    CString reason;
    EXPECT_TRUE(PrepareWindows(reason));
    EXPECT_TRUE(reason.IsEmpty());
}

TEST(HostFrame, IsNotReadyWhereNobodySeesWindows) {
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        GTEST_SKIP() << "there is a display";
    CString reason;
    EXPECT_FALSE(PrepareWindows(reason));
    EXPECT_EQ(reason, L"没有显示器，无法打开窗口。");
}

TEST(HostFrame, IsAttachedUntilItsWidgetGoes) {
    const ModalDriver driver(kNoAnswer);
    CString reason;
    ASSERT_TRUE(PrepareWindows(reason));
    auto widget = std::make_unique<QWidget>();
    CWnd frame;
    ASSERT_TRUE(AttachFrame(frame, widget.get()));
    EXPECT_EQ(CWnd::FromHandlePermanent(frame.m_hWnd), &frame);
    widget.reset();
    EXPECT_EQ(frame.m_hWnd, nullptr);
}

TEST(HostFrame, HasOnePartner) {
    const ModalDriver driver(kNoAnswer);
    CString reason;
    ASSERT_TRUE(PrepareWindows(reason));
    QWidget widget;
    QWidget another;
    CWnd frame;
    CWnd second;
    EXPECT_FALSE(AttachFrame(frame, nullptr));
    ASSERT_TRUE(AttachFrame(frame, &widget));
    EXPECT_FALSE(AttachFrame(second, &widget));
    EXPECT_EQ(second.m_hWnd, nullptr);
    EXPECT_FALSE(AttachFrame(frame, &another));
    EXPECT_EQ(CWnd::FromHandlePermanent(frame.m_hWnd), &frame);
}
