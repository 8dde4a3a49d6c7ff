// What the panel of analyses offers and tells when it makes files: names to begin with, sizes, what went well, and that
// nothing opens them.
#include <QComboBox>
#include <QLineEdit>
#include <QTextBlock>
#include <filesystem>

#include "facts/DayText.h"
#include "facts/Settings.h"
#include "support/Environment.h"
#include "workbench/AnalysisPanelStage.h"
#include "workbench/panel/DesktopOpener.h"
#include "workbench/panel/SuggestedName.h"

namespace {

namespace fs = std::filesystem;

class PanelNames : public AnalysisPanelTest {
protected:
    fs::path In(const std::string& name) const { return fs::path(m_folder.Path()) / name; }
    static std::string Today() { return IsoDay(CurrentSettings().Day()); }
    // The name and the type of file that stand in the dialog which a button opens; it is cancelled.
    std::pair<std::string, std::string> Offered(const char* button) const {
        std::pair<std::string, std::string> offered;
        const ModalDriver driver([&](const ModalWindow& window) {
            auto* dialog = static_cast<QWidget*>(window.widget);
            offered.first = dialog->findChild<QLineEdit*>("fileNameEdit")->text().toStdString();
            offered.second = dialog->findChild<QComboBox*>("fileTypeCombo")->currentText().toStdString();
            return int{IDCANCEL};
        });
        Press(button);
        EXPECT_EQ(driver.GetCount(), 1);
        return offered;
    }
    QColor ColorOf(const char* text) const {
        const auto* log = Find<CommandLog>("CommandLog");
        for (QTextBlock block = log->document()->begin(); block.isValid(); block = block.next())
            if (block.text().contains(QString::fromUtf8(text)))
                return block.begin().fragment().charFormat().foreground().color();
        ADD_FAILURE() << "not in the log: " << text;
        return {};
    }
    // A program of this name, first in the search for programs, that notes what it is to open and ends with this code.
    void WriteOpener(int code) const {
        const fs::path file = m_folder.Write("bin/xdg-open", "#!/bin/sh\necho \"$1\" >> '" + In("opened").string() +
                                                                 "'\nexit " + std::to_string(code) + "\n");
        fs::permissions(file, fs::perms::owner_all);
    }
};

}  // namespace

TEST_F(PanelNames, OfferAFileOfTheDrawingsNameAndTheDay) {
    const std::string name = "yard-" + Today();
    EXPECT_EQ(Offered("MakeFilm").first, name + ".avi");
    EXPECT_EQ(Offered("MakeReport").first, name);
    m_folder.Write((name + ".avi").c_str(), "x");
    m_folder.Write((name + "-2.avi").c_str(), "x");
    EXPECT_EQ(Offered("MakeFilm").first, name + "-3.avi") << "those are there";
    EXPECT_EQ(Offered("MakeReport").first, name);
}

TEST_F(PanelNames, StandBesideTheDrawingOrAtHome) {
    const CalendarDay day = {2026, 12, 22};
    const auto suggested = [&](const fs::path& drawing) {
        return ToUtf8(SuggestedName(FromUtf8(drawing.string()), day, L".avi").View());
    };
    EXPECT_EQ(suggested(m_path), In("yard-2026-12-22.avi").string());
    fs::create_directory(In("home"));
    const EnvironmentVariable home("HOME", In("home").c_str());
    EXPECT_EQ(suggested("/no such folder/yard.dxf"), In("home/yard-2026-12-22.avi").string());
    EXPECT_EQ(suggested(In("a.b.dxf")), In("a.b-2026-12-22.avi").string());
    const std::string shortened = fs::path(suggested(In(std::string(200, 'x') + ".dxf"))).filename().string();
    EXPECT_EQ(shortened, std::string(60, 'x') + "-2026-12-22.avi") << "no file system takes names of any length";
}

// From 8 to 16 by two hours there are five pictures; 320 x 240 x 3 bytes of each are 230400.
TEST_F(PanelNames, SayHowLongAndLargeAFilmWillBeBeforeItIsNamed) {
    Type("set --start 8:00 --end 16:00");
    Set("FilmEvery", "120");
    Set("FilmSize", "320x240");
    const std::string type = Offered("MakeFilm").second;
    EXPECT_NE(type.find("5 幅画面，每幅 1 秒，320 x 240，约 1.2 MB"), std::string::npos) << type << Log();
    Set("FilmEvery", "60");
    EXPECT_NE(Offered("MakeFilm").second.find("9 幅画面"), std::string::npos);
    Set("FilmEvery", "0");
    Press("MakeFilm");  // a dialog would be unexpected
    EXPECT_TRUE(HasLogged("“录像每隔（分）” 的值“0”不对")) << Log();
}

TEST_F(PanelNames, TellWhatWentWellInAnotherColourThanFaults) {
    Set("FilmEvery", "120");
    Set("FilmSize", "320x240");
    CFileDialog::SetNextFileForTest(FromUtf8(In("sun.avi").string()).GetString());
    Press("MakeFilm");
    ASSERT_TRUE(HasLogged("幅画面录入“")) << Log();
    CFileDialog::SetNextFileForTest(FromUtf8(In("sun.mp4").string()).GetString());
    Press("MakeFilm");
    const QColor fault = ColorOf("录像是 AVI 文件，不能取名");
    const QColor plain = ColorOf("已打开：");
    ASSERT_NE(fault, plain);
    EXPECT_EQ(ColorOf("不压缩，约"), plain) << "how large it will be";
    EXPECT_EQ(ColorOf("幅画面录入“"), plain) << "that it is done";
}

TEST_F(PanelNames, SayThatNothingOpensAFile) {
    fs::create_directory(In("bin"));
    const EnvironmentVariable path("PATH", (In("bin").string() + ":/bin:/usr/bin").c_str());
    for (const int code : {0, 3}) {
        WriteOpener(code);
        std::error_code none;
        fs::remove(In("opened"), none);
        bool hasFailed = false;
        QObject owner;
        OpenOnDesktop(QUrl::fromLocalFile("/tmp/a b.html"), owner, [&] { hasFailed = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(In("opened")) && fs::file_size(In("opened")) > 0; }));
        EXPECT_EQ(FileBytes(In("opened")), "/tmp/a b.html\n");
        if (code == 0)
            QTest::qWait(200);
        EXPECT_EQ(QTest::qWaitFor([&] { return hasFailed; }, code == 0 ? 0 : 5000), code != 0);
    }
}

TEST_F(PanelNames, OpenThePictureOfTheView) {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !View()->GetPicture().isNull(); }));
    CFileDialog::SetNextFileForTest(FromUtf8(In("view.png").string()).GetString());
    QTest::keyClick(m_window.get(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(fs::exists(In("view.png"))) << Log();
    EXPECT_NE(Text("MadeFile").find("view.png"), std::string::npos);
    EXPECT_TRUE(Find<QPushButton>("OpenFolder")->isVisible());
}
