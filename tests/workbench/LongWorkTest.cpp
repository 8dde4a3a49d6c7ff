// Large drawings in the window: it lives while they are read, reading is cancelled, and the window is closed meanwhile.
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include "workbench/WindowStage.h"
#include "workbench/window/LongWork.h"

namespace {

class WindowWhileReading : public WindowStage {
protected:
    // So many boxes that reading takes longer than a moment.
    std::filesystem::path WriteTown(int boxes) const {
        std::string text = "0\nSECTION\n2\nENTITIES\n";
        for (int i = 0; i < boxes; ++i) {
            const std::string x = std::to_string(i % 300 * 20);
            const std::string y = std::to_string(i / 300 * 20);
            text += "0\nLWPOLYLINE\n8\n0\n39\n9\n70\n1\n90\n3\n10\n" + x + "\n20\n" + y + "\n10\n" + x + "5\n20\n" + y +
                    "\n10\n" + x + "\n20\n" + y + "7\n";
        }
        return m_folder.Write("town.dxf", text + "0\nENDSEC\n0\nEOF\n");
    }
    // Calls this once the bar of the progress is there.
    void WhenReading(const std::function<void()>& act) {
        m_timer.setInterval(5);
        m_timer.callOnTimeout([this, act] {
            if (!Find<QProgressBar>("Progress")->isVisible())
                return;
            m_timer.stop();
            m_hasActed = true;
            act();
        });
        m_timer.start();
    }
    bool Open(const std::filesystem::path& path) const { return m_window->OpenFile(FromUtf8(path.string())); }

    QTimer m_timer;
    bool m_hasActed = false;
};

}  // namespace

TEST_F(WindowWhileReading, LivesAndShowsHowFarItIs) {
    const auto town = WriteTown(200'000);
    WhenReading([this] {
        EXPECT_TRUE(Find<QPushButton>("CancelWork")->isVisible());
        EXPECT_FALSE(Edit()->isEnabled());
        m_window->RunLine(L"help");
        EXPECT_TRUE(HasLogged("上一条命令还没有结束"));
    });
    EXPECT_TRUE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("实体 200000 个")) << Log();
    EXPECT_FALSE(Find<QProgressBar>("Progress")->isVisible());
    EXPECT_TRUE(Edit()->isEnabled());
}

TEST_F(WindowWhileReading, GivesTheFocusBack) {
    const auto house = WriteDrawing("house.dxf");
    m_window->hide();  // the focus of a window that is not the active one, as at the start of the program
    Edit()->setFocus();
    ASSERT_TRUE(Open(house));
    EXPECT_EQ(m_window->focusWidget(), Edit());
    Find<SceneView>("SceneView")->setFocus();
    ASSERT_TRUE(Open(house));
    EXPECT_EQ(m_window->focusWidget(), Find<SceneView>("SceneView"));
}

TEST_F(WindowWhileReading, CanBeToldToLeaveOff) {
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    const auto town = WriteTown(200'000);
    WhenReading([this] { QTest::keyClick(m_window.get(), Qt::Key_Escape); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消打开")) << Log();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "house.dxf[*] - orvo");
    EXPECT_EQ(acdbCurDwg()->GetEntityCount(), 2u);
}

TEST_F(WindowWhileReading, CanBeClosed) {
    const auto town = WriteTown(200'000);
    WhenReading([this] { m_window->close(); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(WindowWhileReading, ClosesWhenItIsAskedFromOutside) {
    const auto town = WriteTown(200'000);
    WhenReading([this] { m_window->CloseSoon(); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(WindowWhileReading, PassesOnWhatTheWorkThrew) {
    QStatusBar bar;
    LongWork work(bar);
    EXPECT_THROW(work.Run("x", {}, [](SceneProgress&) { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_FALSE(work.IsRunning());
    work.Cancel();  // nothing runs
}
