// Work that takes its time: the window lives while a drawing is read or saved, reading is cancelled, and the window is
// closed meanwhile.
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
