// Where the window's file dialogs begin, and which names they suggest.
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

#include "workbench/WindowStage.h"
#include "workbench/window/WindowMemory.h"

namespace {

class WindowFolders : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        for (const char* name : {"site", "elsewhere"})
            std::filesystem::create_directory(m_folder / name);
        m_drawing = WriteDrawing("site/house.dxf");
    }
    std::string In(const char* name) const { return (m_folder / name).string(); }
    bool Open(const std::filesystem::path& path) const { return m_window->OpenFile(FromUtf8(path.string())); }
    // What the dialog shows that these keys open: folder and name.
    std::pair<std::string, std::string> Shown(const QKeySequence& keys) const {
        std::pair<std::string, std::string> shown;
        const ModalDriver driver([&shown](const ModalWindow& window) {
            const auto* dialog = qobject_cast<QFileDialog*>(static_cast<QWidget*>(window.widget));
            if (dialog != nullptr)
                shown = {dialog->directory().path().toStdString(),
                         dialog->findChild<QLineEdit*>("fileNameEdit")->text().toStdString()};
            return int{IDCANCEL};
        });
        QTest::keySequence(m_window.get(), keys);
        EXPECT_EQ(driver.GetCount(), 1);
        m_window->activateWindow();  // as a desktop does when the dialog is gone
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        return shown;
    }
    // Saves the drawing there by its key.
    void SaveAs(const std::string& path) const {
        CFileDialog::SetNextFileForTest(FromUtf8(path).GetString());
        QTest::keySequence(m_window.get(), QKeySequence("Ctrl+Shift+S"));
        CFileDialog::ShowDialogsAgainForTest();
    }
    void Restart() {
        m_window->close();
        m_window.reset();
        CFileDialog::SetFolder(L"");
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    std::filesystem::path m_drawing;
};

using Start = std::pair<std::string, std::string>;

}  // namespace

TEST_F(WindowFolders, AreThoseOfTheDrawingAndOfWhatWasChosenSince) {
    ASSERT_TRUE(Open(m_drawing));
    EXPECT_EQ(Shown(QKeySequence::Open), Start(In("site"), ""));
    EXPECT_EQ(Shown(QKeySequence("Ctrl+Shift+S")), Start(In("site"), "house.dxf"));
    SaveAs(In("elsewhere/copy.dxf"));
    EXPECT_EQ(Shown(QKeySequence::Open), Start(In("elsewhere"), ""));
    ASSERT_TRUE(Open(m_drawing));
    EXPECT_EQ(Shown(QKeySequence::Open), Start(In("site"), "")) << "the later one";
}

TEST_F(WindowFolders, AreSuggestedWithANameForAPicture) {
    ASSERT_TRUE(Open(m_drawing));
    if (Find<SceneView>("SceneView")->GetPicture().isNull())
        GTEST_SKIP() << "no EGL";
    EXPECT_EQ(Shown(QKeySequence("Ctrl+Shift+P")), Start(In("site"), "house.png"));
}

TEST_F(WindowFolders, ComeBackWithTheNextStart) {
    ASSERT_TRUE(Open(m_drawing));
    SaveAs(In("elsewhere/copy.dxf"));
    Restart();
    EXPECT_EQ(Shown(QKeySequence::Open), Start(In("elsewhere"), ""));
    std::filesystem::remove_all(m_folder / "elsewhere");
    Restart();
    EXPECT_TRUE(QDir(QString::fromStdString(Shown(QKeySequence::Open).first)).exists()) << "not one that is gone";
}

TEST_F(WindowFolders, OfTwoWindowsAreThoseOfTheOneThatChose) {
    WindowMemory first;
    WindowMemory second;
    first.Load();
    second.Load();
    first.KeepFolder(L"/chosen");
    second.KeepFolder(L"");
    WindowMemory next;
    next.Load();
    EXPECT_EQ(ToUtf8(next.Get().folder.View()), "/chosen") << "the other one has chosen none";
}

TEST_F(WindowFolders, AndFieldsAreThoseOfTheWindowThatChangedThem) {
    WindowMemory before;
    before.Load();
    before.KeepFields({{L"Need", L"2"}, {L"Sill", L""}, {L"North", L""}});
    WindowMemory first;
    WindowMemory second;
    first.Load();
    second.Load();
    first.KeepFields({{L"Need", L"3"}, {L"Sill", L""}, {L"North", L"5"}});
    second.KeepFields({{L"Need", L"2"}, {L"Sill", L"0.9"}, {L"North", L"7"}});
    WindowMemory next;
    next.Load();
    const std::vector<std::pair<CString, CString>> expected{{L"Need", L"3"}, {L"Sill", L"0.9"}, {L"North", L"7"}};
    EXPECT_EQ(next.Get().fields.size(), expected.size());
    for (const auto& field : expected)
        EXPECT_NE(std::find(next.Get().fields.begin(), next.Get().fields.end(), field), next.Get().fields.end())
            << ToUtf8(field.first.View());
    first.KeepFields({{L"Need", L"3"}, {L"Sill", L""}, {L"North", L""}});
    next.Load();
    EXPECT_EQ(next.Get().fields.size(), expected.size());
    EXPECT_NE(std::find(next.Get().fields.begin(), next.Get().fields.end(), std::pair<CString, CString>(L"North", L"")),
              next.Get().fields.end())
        << "changed back after it was kept";
}
