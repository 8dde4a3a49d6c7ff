// Work that takes its time: the window lives while a drawing is read or saved, reading is cancelled, and the window is
// closed meanwhile.
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

#include "workbench/WindowStage.h"
#include "workbench/window/LongWork.h"

namespace {

class WindowAtWork : public WindowStage {
protected:
    bool Open(const std::filesystem::path& path) const { return m_window->OpenFile(FromUtf8(path.string())); }
};

}  // namespace

TEST_F(WindowAtWork, LivesAndShowsHowFarItIs) {
    const auto town = WriteDrawing("town.dxf");
    WhenRunning([this] {
        EXPECT_TRUE(Find<QPushButton>("CancelWork")->isVisible());
        EXPECT_FALSE(Edit()->isEnabled());
        m_window->RunLine(L"help");
        EXPECT_TRUE(HasLogged("上一条命令还没有结束"));
    });
    EXPECT_TRUE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("实体 2 个")) << Log();
    EXPECT_FALSE(Find<QProgressBar>("Progress")->isVisible());
    EXPECT_TRUE(Edit()->isEnabled());
}

TEST_F(WindowAtWork, GivesTheFocusBack) {
    const auto house = WriteDrawing("house.dxf");
    m_window->hide();  // the focus of a window that is not the active one, as at the start of the program
    Edit()->setFocus();
    ASSERT_TRUE(Open(house));
    EXPECT_EQ(m_window->focusWidget(), Edit());
    Find<SceneView>("SceneView")->setFocus();
    ASSERT_TRUE(Open(house));
    EXPECT_EQ(m_window->focusWidget(), Find<SceneView>("SceneView"));
}

TEST_F(WindowAtWork, CanBeToldToLeaveOff) {
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    const auto town = WriteDrawing("town.dxf");
    WhenRunning([this] { PressEscape(); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消打开")) << Log();
    EXPECT_EQ(m_window->windowTitle().toStdString(), "house.dxf[*] - orvo");
    EXPECT_EQ(acdbCurDwg()->GetEntityCount(), 2u);
}

TEST_F(WindowAtWork, SavesAsideAndToTheEnd) {
    const auto house = WriteDrawing("house.dxf");
    ASSERT_TRUE(Open(house));
    const auto copy = std::filesystem::path(m_folder.Path()) / "copy.dxf";
    CFileDialog::SetNextFileForTest(FromUtf8(copy.string()).GetString());
    WhenRunning([this] {
        EXPECT_FALSE(Find<QPushButton>("CancelWork")->isVisible()) << "half a drawing is of no use";
        EXPECT_FALSE(Edit()->isEnabled());
        m_window->close();
        EXPECT_TRUE(m_window->isVisible()) << "not before it is saved";
    });
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(m_hasActed);
    EXPECT_EQ(FileBytes(copy), FileBytes(house));
    QApplication::processEvents();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(WindowAtWork, CanBeClosed) {
    const auto town = WriteDrawing("town.dxf");
    WhenRunning([this] { m_window->close(); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(WindowAtWork, ClosesWhenItIsAskedFromOutside) {
    const auto town = WriteDrawing("town.dxf");
    WhenRunning([this] { m_window->CloseSoon(); });
    EXPECT_FALSE(Open(town));
    EXPECT_TRUE(m_hasActed);
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(WindowAtWork, PassesOnWhatTheWorkThrew) {
    QStatusBar bar;
    LongWork work(bar);
    EXPECT_THROW(work.Run("x", {}, [](SceneProgress&) { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_FALSE(work.IsRunning());
    work.Cancel();  // nothing runs
}

// At one line the bar shows it, whatever it says; the toolkit would break and clip what is longer than the bar.
TEST_F(WindowAtWork, SaysWhatItDoesInOneLine) {
    for (const double scale : {1.0, 2.0})
        for (const char* title :
             {"画等时线", "Drawing isolines", "Recording a film of the whole day, and of the night"}) {
            QMainWindow host;
            QFont font = host.font();
            font.setPointSizeF(font.pointSizeF() * scale);
            host.setFont(font);
            host.resize(1100, 300);
            LongWork work(*host.statusBar());
            const auto* bar = host.findChild<QProgressBar*>("Progress");
            host.show();
            std::atomic<bool> isSeen = false;
            QTimer look;
            look.callOnTimeout(&host, [&] {
                if (!bar->isVisible())
                    return;
                look.stop();
                QString text = bar->format();
                EXPECT_TRUE(text.endsWith(" %p%")) << text.toStdString();
                EXPECT_EQ(text.left(2), QString::fromUtf8(title).left(2)) << text.toStdString();
                text.replace("%p%", "100%");
                EXPECT_LE(bar->fontMetrics().horizontalAdvance(text), bar->width() - 4) << text.toStdString();
                EXPECT_GE(bar->height(), bar->fontMetrics().height());
                EXPECT_EQ(bar->toolTip(), QString::fromUtf8(title));
                EXPECT_LE(bar->width(), host.width() / 2);
                isSeen = true;
            });
            look.start(5);
            work.Run(QString::fromUtf8(title), {}, [&](SceneProgress& progress) {
                progress.total = 10;
                progress.done = 9;
                for (int i = 0; i < 6000 && !isSeen; ++i)
                    std::this_thread::sleep_for(std::chrono::milliseconds(10));
            });
            EXPECT_TRUE(isSeen);
        }
}

TEST_F(WindowAtWork, LeavesDisabledWhatWasDisabled) {
    QMainWindow host;
    LongWork work(*host.statusBar());
    QPushButton idle(&host);
    QPushButton ready(&host);
    idle.setEnabled(false);
    work.Run("work", {&idle, &ready}, [](SceneProgress&) {});
    EXPECT_FALSE(idle.isEnabled());
    EXPECT_TRUE(ready.isEnabled());
}
