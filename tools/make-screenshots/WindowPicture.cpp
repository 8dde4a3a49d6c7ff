// Takes a picture of the program's window as its user sees it, without a display, and checks that its texts can be
// read.
//
// usage: window-picture SCENE LANGUAGE light|dark WIDTHxHEIGHT SCALE FILE
//
// Writes one picture; each run gives the same bytes where the graphics are the same. Exit code 1, with the list of
// them, when texts are cut off.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <optional>

#include "LayoutCheck.h"
#include "Studio.h"
#include "TitledPicture.h"
#include "WindowScenes.h"
#include "platform/base/Language.h"
#include "platform/window/HostFrame.h"
#include "platform/window/ModalDriver.h"
#include "settings/OrvoDataSet.h"
#include "workbench/commands/PromptLine.h"
#include "workbench/entry/OwnSubcommands.h"
#include "workbench/terminal/CollectedOutput.h"
#include "workbench/terminal/OutputSink.h"
#include "workbench/window/MainWindow.h"

namespace {

constexpr int kArguments = 7;

std::optional<QSize> SizeOf(const QString& text) {
    const QStringList sides = text.split('x');
    if (sides.size() != 2)
        return {};
    const QSize size(sides[0].toInt(), sides[1].toInt());
    return size.width() > 0 && size.height() > 0 ? std::optional(size) : std::nullopt;
}

// What is answered before the window is there belongs in no picture.
class Silence : private OutputSink {
public:
    Silence() { SetOutputSink(this); }
    ~Silence() override { SetOutputSink(nullptr); }

private:
    void TakeAnswer(std::string_view) override {}
    void TakeComplaint(std::string_view text) override {
        std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
    }
};

// The standard and the place of the sample, as somebody has set them before.
void SetUp() {
    const Silence silence;
    CollectedOutput output;
    RunPromptLine(L"set --standard 国标大寒日 --place 北京", output);
}

// Whether the picture was taken and nothing in it is cut off.
bool Take(const QString& scene, const QSize& size, const QString& file) {
    MainWindow window;
    window.resize(size);
    window.show();
    QStringList faults;
    const bool isShown = ShowScene(scene, window, [&](QWidget& shown) {
        faults = WindowFaults(shown);
        constexpr int kSmallest = 0;
        if (!QDir().mkpath(QFileInfo(file).path()) || !TitledPicture(shown, nullptr).save(file, "PNG", kSmallest))
            faults << "cannot be written to " + file;
    });
    if (!isShown)
        faults << "did not come";
    for (const QString& fault : faults)
        std::fprintf(stderr, "%s: %s\n", qPrintable(scene), qPrintable(fault));
    return faults.isEmpty();
}

}  // namespace

int main(int argc, char** argv) {
    const std::optional<QSize> size = argc == kArguments ? SizeOf(argv[4]) : std::nullopt;
    const bool isKnown =
        size && WindowScenes().contains(argv[1]) && (QByteArray(argv[3]) == "light" || QByteArray(argv[3]) == "dark");
    if (!isKnown) {
        std::fprintf(stderr, "usage: window-picture SCENE LANGUAGE light|dark WIDTHxHEIGHT SCALE FILE\nscenes: %s\n",
                     qPrintable(WindowScenes().join(' ')));
        return 1;
    }
    const QTemporaryDir settings;
    FixEnvironment(settings, argv[5], (QSizeF(*size) * QByteArray(argv[5]).toDouble()).toSize());
    QApplication application(argc, argv);
    FixAppearance(QByteArray(argv[3]) == "dark");
    // Somebody sees the windows, then, and answers what nobody expects.
    const ModalDriver driver([](const ModalWindow&) { return ModalDriver::kCareful; });
    CString reason;
    if (!settings.isValid() || !StartModule(argv[2]) || !AddOwnSubcommands(&g_SunDataSet, reason) ||
        !PrepareWindows(reason)) {
        std::fprintf(stderr, "window-picture: the language %s cannot be used\n", argv[2]);
        return 1;
    }
    SetUp();
    const bool isGood = Take(argv[1], *size, QFileInfo(QString::fromLocal8Bit(argv[6])).absoluteFilePath());
    g_pTeskLangSwitch = nullptr;
    return isGood ? 0 : 1;
}
