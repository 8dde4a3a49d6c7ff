// Drawings in the window: opening, dropping, saving, and what happens to changes that are not saved.
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include "support/RecordingPlugIn.h"
#include "workbench/MoveFirstCorner.h"
#include "workbench/WindowStage.h"

namespace {

class WindowFiles : public WindowStage {
protected:
    bool Open(const std::filesystem::path& path) const { return m_window->OpenFile(FromUtf8(path.string())); }
    void Press(const QKeySequence& keys) const { QTest::keySequence(m_window.get(), keys); }
    std::string Title() const { return m_window->windowTitle().toStdString(); }
    void Drop(const QMimeData& data) const {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &drop);
    }
};

}  // namespace

TEST_F(WindowFiles, OpensADrawing) {
    EXPECT_EQ(Title(), "orvo");
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    EXPECT_EQ(Title(), "house.dxf[*] - orvo");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_EQ(Find<QLabel>("Counts")->text().toStdString(), "实体：2　面：1");
    EXPECT_FALSE(Find<SceneView>("SceneView")->GetPicture().isNull())
        << Find<SceneView>("SceneView")->GetProblem().toStdString();
    EXPECT_NE(acdbCurDwg(), nullptr);
}

TEST_F(WindowFiles, TellsPlugInsOfTheDrawingAndOfTheOneThatACommandOpens) {
    const RecordingPlugIn plugIn;
    const auto path = WriteDrawing("house.dxf");
    ASSERT_TRUE(Open(path));
    EXPECT_EQ(plugIn.Take(), "3 of 2;");
    m_folder.Write("empty.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
    Type(("entity " + (m_folder / "empty.dxf").string()).c_str());
    EXPECT_EQ(plugIn.Take(), "3 of 0;4 of 0;") << "the window's own stays open";
    EXPECT_EQ(acdbCurDwg()->GetEntityCount(), 2u);
    Type("entity nowhere.dxf");
    EXPECT_EQ(plugIn.Take(), "");
    m_window.reset();
    EXPECT_EQ(plugIn.Take(), "4 of 2;") << "before the plug-in goes";
    EXPECT_EQ(acdbCurDwg(), nullptr);
}

TEST_F(WindowFiles, OpensFromTheMenuAndItsShortcut) {
    const auto path = FromUtf8(WriteDrawing("house.dxf").string());
    CFileDialog::SetNextFileForTest(path.GetString());
    Press(QKeySequence::Open);
    EXPECT_EQ(Title(), "house.dxf[*] - orvo");
}

TEST_F(WindowFiles, StaysAsItIsWhenNoFileIsChosen) {
    CFileDialog::SetNextFileForTest(nullptr);
    Press(QKeySequence::Open);
    EXPECT_EQ(Title(), "orvo");
    EXPECT_EQ(Log(), "");
}

TEST_F(WindowFiles, SaysWhyItCannotOpenAndKeepsWhatIsOpen) {
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    EXPECT_FALSE(Open(m_folder.Write("noise.dxf", "noise")));
    EXPECT_TRUE(HasLogged("noise.dxf")) << Log();
    EXPECT_FALSE(Open(m_folder / "missing.dxf"));
    EXPECT_FALSE(Open(m_folder.Path()));
    EXPECT_EQ(Title(), "house.dxf[*] - orvo");
    EXPECT_NE(acdbCurDwg(), nullptr);
}

TEST_F(WindowFiles, TakesADroppedFile) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(WriteDrawing("house.dxf").string()))});
    Drop(data);
    EXPECT_EQ(Title(), "house.dxf[*] - orvo");
}

TEST_F(WindowFiles, TakesNothingElseThatIsDropped) {
    QMimeData text;
    text.setText("house.dxf");
    Drop(text);
    QMimeData page;
    page.setUrls({QUrl("https://example.invalid/house.dxf")});
    Drop(page);
    EXPECT_EQ(Title(), "orvo");
    EXPECT_EQ(Log(), "");
}

TEST_F(WindowFiles, SavesWhatWasChanged) {
    const auto path = WriteDrawing("house.dxf");
    const std::string before = FileBytes(path);
    ASSERT_TRUE(Open(path));
    MoveFirstCorner();
    const QImage picture = Find<SceneView>("SceneView")->GetPicture();
    Type("# a line after which the window looks");
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_NE(Find<SceneView>("SceneView")->GetPicture(), picture) << "the view shows the change";
    Press(QKeySequence::Save);
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_NE(FileBytes(path), before);
    EXPECT_EQ(FileBytes(path.string() + ".bak"), before);
}

TEST_F(WindowFiles, SavesUnderAnotherName) {
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    CFileDialog::SetNextFileForTest(m_folder.File("copy.dxf").GetString());
    Press(QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(m_folder.Read("copy.dxf"), m_folder.Read("house.dxf"));
    EXPECT_EQ(Title(), "copy.dxf[*] - orvo");
}

TEST_F(WindowFiles, SaysWhyItCannotSave) {
    ASSERT_TRUE(Open(WriteDrawing("house.dxf")));
    CFileDialog::SetNextFileForTest(m_folder.File("nowhere/copy.dxf").GetString());
    Press(QKeySequence("Ctrl+Shift+S"));
    EXPECT_TRUE(HasLogged("nowhere/copy.dxf")) << Log();
    EXPECT_EQ(Title(), "house.dxf[*] - orvo");
}

TEST_F(WindowFiles, AsksBeforeChangesOfSomebodyElseAreReplaced) {
    const auto path = WriteDrawing("house.dxf");
    ASSERT_TRUE(Open(path));
    MoveFirstCorner();
    m_folder.Write("house.dxf", "theirs");
    {
        const ModalDriver driver([](const ModalWindow& window) {
            EXPECT_NE(window.text.Find(L"house.dxf"), -1);
            return int{IDNO};
        });
        Press(QKeySequence::Save);
        EXPECT_EQ(driver.GetCount(), 1);
        EXPECT_EQ(FileBytes(path), "theirs");
    }
    m_window->activateWindow();  // as a desktop does when the box is gone
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    const ModalDriver driver([](const ModalWindow&) { return int{IDYES}; });
    Press(QKeySequence::Save);
    EXPECT_NE(FileBytes(path), "theirs") << Log();
    EXPECT_EQ(FileBytes(path.string() + ".bak"), "theirs");
}

TEST_F(WindowFiles, AsksBeforeUnsavedChangesAreLost) {
    const auto path = WriteDrawing("house.dxf");
    const auto other = WriteDrawing("other.dxf");
    const std::string before = FileBytes(path);
    ASSERT_TRUE(Open(path));
    MoveFirstCorner();
    {
        const ModalDriver driver([](const ModalWindow&) { return int{IDCANCEL}; });
        EXPECT_FALSE(Open(other));
        EXPECT_FALSE(m_window->close());
        EXPECT_EQ(driver.GetCount(), 2);
        EXPECT_TRUE(m_window->isVisible());
    }
    EXPECT_EQ(FileBytes(path), before);
    {
        const ModalDriver driver([](const ModalWindow&) { return int{IDYES}; });
        EXPECT_TRUE(Open(other));
    }
    EXPECT_NE(FileBytes(path), before) << "saved first";
    MoveFirstCorner();
    const ModalDriver driver([](const ModalWindow&) { return int{IDNO}; });
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(FileBytes(other), before) << "given up";
}

TEST_F(WindowFiles, CannotSaveWhatIsNotOpen) {
    Press(QKeySequence::Save);
    Press(QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(Log(), "");
}
