// Closing the window while an analysis, a report or a film is made: asked about by every way, and nothing half-made is
// left.
#include <fstream>

#include "workbench/AnalysisPanelStage.h"

namespace {

namespace fs = std::filesystem;

class WindowLeaving : public AnalysisPanelTest {
protected:
    fs::path In(const char* name) const { return fs::path(m_folder.Path()) / name; }
    static void Answer(const fs::path& path) { CFileDialog::SetNextFileForTest(FromUtf8(path.string()).GetString()); }
    // Does this while the next work runs, and answers the question with it.
    void LeaveWhenRunning(const std::function<void()>& leave, int answer) {
        WhenRunning([this, leave, answer] {
            const ModalDriver driver([this, answer](const ModalWindow& window) {
                m_question = ToUtf8(window.text.View());
                return answer;
            });
            leave();
            m_asked += driver.GetCount();
        });
    }
    bool IsClosedAtLast() const {
        QApplication::processEvents();
        return !m_window->isVisible();
    }
    std::vector<std::string> Left() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.Path()))
            if (const std::string name = entry.path().filename(); name.find("sun.avi") != std::string::npos)
                names.push_back(name);
        return names;
    }
    void SetSmallFilm() const {
        Set("FilmEvery", "1");
        Set("FilmSize", "320x240");
    }

    // Does this once some of the film's pictures have been taken, and not yet all of them.
    const bool& ActAmongPictures(const std::function<void()>& act) {
        m_timer.setInterval(5);
        m_timer.callOnTimeout(m_window.get(), [this, act] {
            const auto* bar = Find<QProgressBar>("Progress");
            if (m_isAmong || !bar->isVisible() || bar->value() == 0 || bar->value() > bar->maximum() / 2)
                return;
            m_isAmong = true;
            act();
        });
        m_timer.start();
        return m_isAmong;
    }

    std::string m_question;
    bool m_isAmong = false;
    int m_asked = 0;
};

}  // namespace

TEST_F(WindowLeaving, AsksDuringAnAnalysisAndGoes) {
    LeaveWhenRunning([this] { m_window->close(); }, IDOK);
    Run();
    EXPECT_TRUE(m_hasActed);
    EXPECT_EQ(m_asked, 1);
    EXPECT_NE(m_question.find("分析日照"), std::string::npos) << m_question;
    EXPECT_EQ(Table()->model()->rowCount(), 0) << "it was stopped";
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, StaysWhenTheQuestionIsAnsweredSo) {
    LeaveWhenRunning([this] { m_window->close(); }, IDCANCEL);
    Run();
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(Table()->model()->rowCount(), 2) << "and the analysis comes to its end";
    EXPECT_FALSE(IsClosedAtLast());
}

TEST_F(WindowLeaving, AsksByTheKeyAsByTheFrame) {
    LeaveWhenRunning([this] { QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier); }, IDOK);
    Run();
    EXPECT_EQ(m_asked, 1);
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, DoesNotAskWhoHasCancelledAlready) {
    LeaveWhenRunning(
        [this] {
            PressEscape();
            m_window->close();
        },
        IDCANCEL);
    Run();
    EXPECT_TRUE(m_hasActed);
    EXPECT_EQ(m_asked, 0);
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, LeavesNothingOfAFilmThatIsGivenUp) {
    Run();
    SetSmallFilm();
    std::ofstream(In("sun.avi")) << "before";
    Answer(In("sun.avi"));
    const bool& hasLeft = ActAmongPictures([this] { m_window->CloseSoon(); });
    Press("MakeFilm");
    EXPECT_TRUE(hasLeft) << "while pictures were taken";
    EXPECT_EQ(Left(), std::vector<std::string>{"sun.avi"});
    EXPECT_EQ(FileBytes(In("sun.avi")), "before");
    EXPECT_FALSE(HasLogged("里有前")) << Log();
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, LeavesThePicturesOfAFilmThatIsCancelled) {
    Run();
    SetSmallFilm();
    Answer(In("sun.avi"));
    const bool& hasCancelled = ActAmongPictures([this] { PressEscape(); });
    Press("MakeFilm");
    EXPECT_TRUE(hasCancelled);
    EXPECT_EQ(Left(), std::vector<std::string>{"sun.avi"});
    EXPECT_TRUE(HasLogged("里有前")) << Log();
    EXPECT_FALSE(IsClosedAtLast());
}

TEST_F(WindowLeaving, DoesNotAskWhenItIsAskedFromOutside) {
    LeaveWhenRunning([this] { m_window->CloseSoon(); }, IDCANCEL);
    Answer(In("report"));
    Press("MakeReport");
    EXPECT_TRUE(m_hasActed);
    EXPECT_EQ(m_asked, 0);
    EXPECT_FALSE(fs::exists(In("report")));
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, GoesOverItsOwnQuestionWhenItIsAskedFromOutside) {
    WhenRunning([this] {
        const ModalDriver driver([this](const ModalWindow&) {
            ++m_asked;
            m_window->CloseSoon();
            return 0;  // the box has been closed
        });
        m_window->close();
    });
    Run();
    EXPECT_EQ(m_asked, 1);
    EXPECT_TRUE(IsClosedAtLast());
}

TEST_F(WindowLeaving, BeginsNothingMoreOnceItIsToBeClosed) {
    WhenRunning([this] {
        const ModalDriver driver([this](const ModalWindow&) {
            ++m_asked;
            m_hasActed = true;
            constexpr int kEnough = 500;
            QTest::qWait(kEnough);  // the analysis ends while somebody reads the question
            return int{IDOK};
        });
        m_window->close();
    });
    Answer(In("sun.avi"));
    Press("MakeFilm");  // whose analysis comes first
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(Table()->model()->rowCount(), 2);
    EXPECT_TRUE(Left().empty());
    EXPECT_TRUE(IsClosedAtLast());
}
