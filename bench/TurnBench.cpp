// How long the window's own thread works at a stretch, while a large drawing is opened, turned, picked in and hidden,
// and while a sample is analysed, reported and filmed: the longest turns of its event loop, by the clock and by what
// the thread itself computed in them.
#include <time.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "platform/base/Language.h"
#include "platform/base/Support.h"
#include "platform/host/HostMessages.h"
#include "platform/window/CFileDialog.h"
#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"
#include "settings/OrvoDataSet.h"
#include "workbench/entry/OwnSubcommands.h"
#include "workbench/panel/AnalysisPanel.h"
#include "workbench/view/SceneView.h"
#include "workbench/window/MainWindow.h"

namespace {

constexpr int kBoxes = 100'000;
constexpr int kRow = 316;  // a square of them

double Milliseconds(clockid_t clock) {
    timespec now = {};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// From the first event after a wait until the next wait, also in loops within loops: so long nobody is heard.
class Turns : public QApplication {
public:
    Turns(int& argc, char** argv) : QApplication(argc, argv) {
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, [this] {
            if (!m_isOn)
                return;
            m_isOn = false;
            ++m_count;
            m_longest = std::max(m_longest, Milliseconds(CLOCK_MONOTONIC) - m_elapsed);
            m_busiest = std::max(m_busiest, Milliseconds(CLOCK_THREAD_CPUTIME_ID) - m_computed);
        });
    }
    bool notify(QObject* receiver, QEvent* event) override {
        if (!m_isOn && thread() == QThread::currentThread()) {
            m_isOn = true;
            m_elapsed = Milliseconds(CLOCK_MONOTONIC);
            m_computed = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
        }
        return QApplication::notify(receiver, event);
    }
    void Tell(const char* step) {
        std::printf("%-28s %5d turns, longest %6.1f ms by the clock, %6.1f ms computed\n", step, m_count, m_longest,
                    m_busiest);
        std::fflush(stdout);
        m_longest = m_busiest = 0.0;
        m_count = 0;
    }

private:
    bool m_isOn = false;
    double m_elapsed = 0.0;
    double m_computed = 0.0;
    double m_longest = 0.0;
    double m_busiest = 0.0;
    int m_count = 0;
};

void WriteDrawing(const std::string& path) {
    std::ofstream file(path);
    file << "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < kBoxes; ++i) {
        const int x = i % kRow * 20;
        const int y = i / kRow * 20;
        file << "0\nLWPOLYLINE\n5\n"
             << std::hex << i + 256 << std::dec << "\n8\nHOUSES" << i % 4 << "\n39\n"
             << 6 + i % 30 << "\n90\n4\n70\n1\n10\n"
             << x << "\n20\n"
             << y << "\n10\n"
             << x + 10 << "\n20\n"
             << y << "\n10\n"
             << x + 10 << "\n20\n"
             << y + 10 << "\n10\n"
             << x << "\n20\n"
             << y + 10 << "\n";
    }
    file << "0\nENDSEC\n0\nEOF\n";
}

// Does something in a turn of its own, and lets the loop run.
void Do(Turns& turns, const char* step, int milliseconds, const std::function<void()>& work) {
    QEventLoop loop;
    QTimer::singleShot(0, [&] {
        work();
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    });
    loop.exec();
    turns.Tell(step);
}

// Some presses, so slowly that each has a turn of its own.
void Press(QWidget& widget, Qt::Key key, int count) {
    constexpr int kBetween = 500;
    for (int i = 0; i < count; ++i)
        QTimer::singleShot(kBetween * i, &widget, [&widget, key] { QTest::keyClick(&widget, key); });
}

bool Start() {
    static TeskLanguageSwitch languages;
    g_pTeskLangSwitch = &languages;
    CString reason;
    return languages.SetLanguage(L"en") && CopyShippedFiles() &&
           acrxEntryPoint(AcRx::kInitAppMsg, &g_SunDataSet) == AcRx::kRetOK &&
           AddOwnSubcommands(&g_SunDataSet, reason) && PrepareWindows(reason);
}

void Measure(Turns& turns, const QString& drawing) {
    MainWindow window;
    window.resize(1280, 800);
    window.show();
    auto& view = *window.findChild<SceneView*>("SceneView");
    constexpr int kLong = 6000;
    Do(turns, "shown again", 500, [] {});
    Do(turns, "opened", kLong, [&] { window.OpenFile(FromUtf8(drawing.toStdString())); });
    Do(turns, "turned", kLong, [&] { Press(view, Qt::Key_Left, 10); });
    Do(turns, "picked one by one", kLong, [&] { Press(view, Qt::Key_Period, 10); });
    Do(turns, "picked in the middle", kLong, [&] { Press(view, Qt::Key_Space, 10); });
    Do(turns, "in the sun", kLong, [&] { QTest::keyClick(&window, Qt::Key_F6); });
    Do(turns, "turned in the sun", kLong, [&] { Press(view, Qt::Key_Left, 10); });
    Do(turns, "closed", 10, [&] { window.close(); });
}

// What the panel makes of a sample, small files of it.
void MeasureAnalysis(Turns& turns, const QTemporaryDir& folder) {
    MainWindow window;
    window.resize(1280, 800);
    window.show();
    auto& panel = *window.findChild<AnalysisPanel*>("AnalysisPanel");
    constexpr int kShort = 1500;
    const CString sample = InstalledDataFolder() + L"/samples/courtyard.dxf";
    Do(turns, "shown", 500, [] {});
    Do(turns, "sample opened", kShort, [&] { window.OpenFile(sample); });
    Do(turns, "analysis run", kShort, [&] { panel.RunWindows(); });
    Do(turns, "isolines drawn", kShort, [&] {
        window.findChild<QLineEdit*>("Areas")->setText(QString::fromUtf8("地面"));
        panel.RunIsolines();
    });
    const auto answer = [&](const char* name) {
        CFileDialog::SetNextFileForTest(FromUtf8(folder.filePath(name).toStdString()).GetString());
    };
    Do(turns, "report made", kShort, [&] {
        answer("report");
        panel.MakeReport();
    });
    Do(turns, "report of isolines made", kShort, [&] {
        answer("lines");
        panel.MakeLinesReport();
    });
    Do(turns, "film made", kShort, [&] {
        window.findChild<QLineEdit*>("FilmEvery")->setText("30");
        answer("film.avi");
        panel.MakeFilm();
    });
    CFileDialog::ShowDialogsAgainForTest();
    for (const char* made : {"report/index.html", "lines/index.html", "film.avi"})
        if (!QFile::exists(folder.filePath(made)))
            std::fprintf(stderr, "There is no %s.\n", made);
    window.close();
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Turns turns(argc, argv);
    // Somebody sees the window, then.
    const ModalDriver driver([](const ModalWindow&) { return ModalDriver::kCareful; });
    if (!folder.isValid() || !Start()) {
        std::fprintf(stderr, "There can be no window here.\n");
        return 1;
    }
    WriteDrawing(folder.filePath("boxes.dxf").toStdString());
    MeasureAnalysis(turns, folder);
    Measure(turns, folder.filePath("boxes.dxf"));
    g_pTeskLangSwitch = nullptr;
    return 0;
}
