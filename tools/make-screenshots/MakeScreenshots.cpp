// Takes pictures of the module's dialogs as its user sees them, without a display, and checks their layout.
//
// usage: screenshots LANGUAGE FOLDER
//
// Writes FOLDER/<name>.png for each dialog, in the language "zh" or "en". Each run gives the same bytes: style, font,
// colours, locale and date are fixed, the settings are those that ship, and nobody's own settings are read or written.
// Exit code 1, with the list of them, when texts are cut off, controls overlap, or a dialog did not come.
#include <QApplication>
#include <QDir>
#include <QFont>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>

#include "Album.h"
#include "Scenes.h"
#include "calendar/Today.h"
#include "platform/base/Language.h"
#include "platform/base/Support.h"
#include "platform/host/HostMessages.h"

namespace {

constexpr int kPointSize = 9;

CalendarDay FixedToday() {
    return {2026, 12, 1};
}

// Off-screen some of what a window asks for cannot be done, which changes no picture.
void TellOfOthers(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

// Everything of a person's desktop and session that could show in a picture, or be changed by taking it.
void FixEnvironment(const QTemporaryDir& settings) {
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", settings.path().toLocal8Bit());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* name : {"QT_STYLE_OVERRIDE", "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
                             "QT_QPA_PLATFORMTHEME", "QT_AUTO_SCREEN_SCALE_FACTOR"})
        qunsetenv(name);
    qInstallMessageHandler(&TellOfOthers);
}

void FixAppearance() {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont("Noto Sans CJK SC", kPointSize));
    QApplication::setCursorFlashTime(0);
    for (const Qt::UIEffect effect : {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo})
        QApplication::setEffectEnabled(effect, false);
}

void TakeAll(Album& album) {
    TakeZoneEditor(album);
    TakeImports(album);
    TakePlace(album);
    TakeStandards(album);
    TakeStandardNames(album);
    TakeStandardMessages(album);
    TakeSettings(album);
    TakeSettingsMessages(album);
}

// Starts the module as a host does, with the shipped settings in a folder of their own.
bool StartModule(const char* language) {
    static TeskLanguageSwitch languages;
    g_pTeskLangSwitch = &languages;
    g_pfnToday = &FixedToday;
    return languages.SetLanguage(FromUtf8(language)) && CopyShippedFiles() &&
           acrxEntryPoint(AcRx::kInitAppMsg, &languages) == AcRx::kRetOK;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: screenshots LANGUAGE FOLDER\n");
        return 1;
    }
    const QTemporaryDir settings;
    FixEnvironment(settings);
    QApplication application(argc, argv);
    FixAppearance();
    if (!QDir().mkpath(argv[2]) || !settings.isValid() || !StartModule(argv[1])) {
        std::fprintf(stderr, "screenshots: %s or the language %s cannot be used\n", argv[2], argv[1]);
        return 1;
    }
    Album album(QString::fromLocal8Bit(argv[2]));
    TakeAll(album);
    for (const QString& fault : album.Faults())
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(fault));
    g_pTeskLangSwitch = nullptr;
    std::printf("%s: %d pictures\n", argv[1], album.Count());
    return album.Faults().isEmpty() ? 0 : 1;
}
