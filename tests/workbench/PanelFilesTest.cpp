// Reports and films that the panel of analyses makes: those of the subcommand, refused in its words, cancelled, opened.
#include <fstream>

#include "platform/host/ExitCode.h"
#include "platform/host/Progress.h"
#include "workbench/AnalysisPanelStage.h"
#include "workbench/MoveFirstCorner.h"
#include "workbench/commands/AnalyseCommand.h"
#include "workbench/commands/PointsCommand.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/panel/ResultFiles.h"
#include "workbench/terminal/CollectedOutput.h"

namespace {

namespace fs = std::filesystem;

class NoProgress : public Progress {
public:
    bool Show(int /*done*/, int /*total*/, const CString& /*text*/) override { return true; }
};

class PanelFilesTest : public AnalysisPanelTest {
protected:
    fs::path In(const char* name) const { return fs::path(m_folder.Path()) / name; }
    // The dialog that a button opens is answered with this path; null cancels it.
    static void Answer(const fs::path& path) { CFileDialog::SetNextFileForTest(FromUtf8(path.string()).GetString()); }
    ResultFiles& Files() const { return Find<AnalysisPanel>("AnalysisPanel")->GetFiles(); }
    // What the subcommand makes of the same drawing.
    int Analyse(AnalyseOptions options) const {
        options.file = FromUtf8(m_path.string());
        options.day.need = L"2";
        CollectedOutput output;
        NoProgress progress;
        return RunAnalyse(options, output, progress);
    }
    int AnalyseWithReport(const fs::path& folder) const {
        AnalyseOptions options;
        options.page.folder = FromUtf8(folder.string());
        return Analyse(options);
    }
};

}  // namespace

TEST_F(PanelFilesTest, MakesTheReportOfTheSubcommand) {
    Answer(In("report"));
    Press("MakeReport");
    ASSERT_TRUE(fs::exists(In("report/index.html"))) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 2) << "there was no answer before";
    EXPECT_TRUE(HasLogged("报告已写到 ")) << Log();
    ASSERT_EQ(AnalyseWithReport(In("other")), kExitOk);
    const std::string page = FileBytes(In("report/index.html"));
    EXPECT_EQ(page, FileBytes(In("other/index.html")));
    EXPECT_NE(page.find("B2"), std::string::npos);
    EXPECT_TRUE(Find<QLabel>("MadeFile")->isVisible());
    EXPECT_NE(Text("MadeFile").find("report/index.html"), std::string::npos);
}

TEST_F(PanelFilesTest, ReportsTheAnswerThatHolds) {
    Run();
    Set("Need", "0.5");  // and the answer no longer holds
    Answer(In("report"));
    QTest::keyClick(m_window.get(), Qt::Key_R, Qt::ControlModifier);
    ASSERT_TRUE(fs::exists(In("report/index.html"))) << Log();
    EXPECT_EQ(Cell(1, WindowModel::Verdict), "达标");
    const std::string page = FileBytes(In("report/index.html"));
    EXPECT_NE(page.find("0:30:00（时:分:秒）"), std::string::npos);
}

TEST_F(PanelFilesTest, NamesProjectAndAuthorOnTheReport) {
    Set("ReportProject", "东院 <1>");
    Set("ReportAuthor", "王工");
    Answer(In("report"));
    Press("MakeReport");
    const std::string page = FileBytes(In("report/index.html"));
    EXPECT_NE(page.find("东院 &lt;1&gt;"), std::string::npos);
    EXPECT_NE(page.find("王工"), std::string::npos);
}

TEST_F(PanelFilesTest, RefusesAFolderInTheWordsOfTheSubcommandBeforeTheAnalysis) {
    fs::create_directory(In("full"));
    std::ofstream(In("full/mine.txt")) << "x";
    Answer(In("full"));
    Press("MakeReport");
    EXPECT_TRUE(HasLogged("里有别的文件，而没有以前的报告，没有写出报告")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0);
    EXPECT_FALSE(fs::exists(In("full/index.html")));
    EXPECT_FALSE(Find<QLabel>("MadeFile")->isVisible());
    CFileDialog::SetNextFileForTest(nullptr);
    Press("MakeReport");
    EXPECT_EQ(Table()->model()->rowCount(), 0) << "cancelled in the dialog";
}

TEST_F(PanelFilesTest, LeavesAReportOffWhenItIsTold) {
    Run();
    Answer(In("report"));
    WhenRunning([this] { PressEscape(); });
    Press("MakeReport");
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消，没有写出报告")) << Log();
    EXPECT_FALSE(fs::exists(In("report")));
    EXPECT_FALSE(Find<QLabel>("MadeFile")->isVisible());
}

TEST_F(PanelFilesTest, OpensWhatWasMade) {
    Answer(In("report"));
    Press("MakeReport");
    std::vector<QUrl> opened;
    bool isThere = true;
    Files().m_open = [&](const QUrl& url, const std::function<void()>& onFailed) {
        opened.push_back(url);
        if (!isThere)
            onFailed();
    };
    Press("OpenMade");
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_EQ(opened[0].toLocalFile().toStdString(), In("report/index.html").string());
    EXPECT_FALSE(HasLogged("没有打开"));
    isThere = false;
    Press("OpenMade");
    EXPECT_TRUE(HasLogged(("没有打开“" + In("report/index.html").string()).c_str())) << Log();
    isThere = true;
    Press("OpenFolder");
    EXPECT_EQ(opened.back().toLocalFile().toStdString(), In("report").string());
    const std::size_t before = opened.size();
    std::filesystem::remove_all(In("report"));
    Press("OpenMade");
    EXPECT_EQ(opened.size(), before);
    EXPECT_TRUE(HasLogged((In("report/index.html").string() + " 已经不在了").c_str())) << Log();
    ASSERT_TRUE(m_window->OpenFile(FromUtf8(WriteDrawing("house.dxf").string())));
    EXPECT_FALSE(Find<QPushButton>("OpenMade")->isVisible()) << "it was another drawing's";
}

TEST_F(PanelFilesTest, SaysOnTheReportThatTheDrawingHasUnsavedChanges) {
    AnalysisPanel& panel = *Find<AnalysisPanel>("AnalysisPanel");
    MoveFirstCorner();
    Answer(In("report"));
    panel.MakeReport();
    const std::string page = FileBytes(In("report/index.html"));
    EXPECT_NE(page.find("图形有没有保存的改动"), std::string::npos);
}

TEST_F(PanelFilesTest, ReportsTheIsolines) {
    EXPECT_FALSE(Find<QPushButton>("MakeLinesReport")->isVisible()) << "there are none";
    Set("Areas", "LAWN");
    Press("RunIsolines");
    Answer(In("report"));
    Press("MakeLinesReport");
    ASSERT_TRUE(fs::exists(In("report/index.html"))) << Log();
    PointsOptions options;
    options.file = FromUtf8(m_path.string());
    options.day.need = L"2";
    options.areas = {L"LAWN"};
    options.page.folder = FromUtf8(In("other").string());
    CollectedOutput output;
    NoProgress progress;
    ASSERT_EQ(RunPoints(options, output, progress), kExitOk);
    EXPECT_EQ(FileBytes(In("report/index.html")), FileBytes(In("other/index.html")));
}

TEST_F(PanelFilesTest, MakesTheFilmOfTheSubcommand) {
    View()->Look(StandardView::Top);
    Set("FilmEvery", "120");
    Set("FilmSize", "320x240");
    Answer(In("sun.avi"));
    QTest::keyClick(m_window.get(), Qt::Key_M, Qt::ControlModifier);
    ASSERT_TRUE(fs::exists(In("sun.avi"))) << Log();
    EXPECT_TRUE(HasLogged("幅画面录入")) << Log();
    EXPECT_NE(Text("MadeFile").find("sun.avi"), std::string::npos);
    AnalyseOptions options;
    options.film.file = FromUtf8(In("other.avi").string());
    options.film.every = L"120";
    options.film.size = L"320x240";
    options.film.view = L"top";
    ASSERT_EQ(Analyse(options), kExitOk);
    EXPECT_EQ(FileBytes(In("sun.avi")), FileBytes(In("other.avi")));
    View()->Look(StandardView::SouthEast);
    Press("MakeFilm");
    EXPECT_NE(FileBytes(In("sun.avi")), FileBytes(In("other.avi"))) << "from where the view looks";
}

TEST_F(PanelFilesTest, RefusesAFilmInTheWordsOfTheSubcommand) {
    Answer(In("sun.mp4"));
    Press("MakeFilm");
    EXPECT_TRUE(HasLogged("录像是 AVI 文件，不能取名“")) << Log();
    Set("FilmEvery", "0");
    Answer(In("sun.avi"));
    Press("MakeFilm");
    EXPECT_TRUE(HasLogged("“录像每隔（分）” 的值“0”不对")) << Log();
    EXPECT_EQ(Table()->model()->rowCount(), 0) << "before the analysis";
    EXPECT_FALSE(fs::exists(In("sun.avi")));
}

TEST_F(PanelFilesTest, LeavesAFilmOffWhenItIsTold) {
    Run();
    Set("FilmSize", "320x240");
    Answer(In("sun.avi"));
    WhenRunning([this] {
        EXPECT_FALSE(Find<QPushButton>("MakeFilm")->isEnabled());
        PressEscape();
    });
    Press("MakeFilm");
    EXPECT_TRUE(m_hasActed);
    EXPECT_TRUE(HasLogged("已取消，没有录像")) << Log();
    EXPECT_FALSE(fs::exists(In("sun.avi")));
    EXPECT_TRUE(Find<QPushButton>("MakeFilm")->isEnabled());
}
