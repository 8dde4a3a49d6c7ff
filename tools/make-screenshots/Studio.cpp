// Names every variable that steers the toolkit's looks.
#include "Studio.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>

#include "calendar/Today.h"
#include "platform/base/Language.h"
#include "platform/base/Support.h"
#include "platform/host/HostMessages.h"
#include "settings/OrvoDataSet.h"

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

// As the dark looks of common desktops.
QPalette DarkPalette() {
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2D, 0x2D, 0x2D));
    palette.setColor(QPalette::Base, QColor(0x24, 0x24, 0x24));
    palette.setColor(QPalette::AlternateBase, QColor(0x2B, 0x2B, 0x2B));
    palette.setColor(QPalette::Text, QColor(0xF0, 0xF0, 0xF0));
    palette.setColor(QPalette::WindowText, QColor(0xF0, 0xF0, 0xF0));
    palette.setColor(QPalette::ButtonText, QColor(0xF0, 0xF0, 0xF0));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9A, 0x9A));
    palette.setColor(QPalette::Highlight, QColor(0x2A, 0x82, 0xDA));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x5C, 0xB0, 0xFF));
    palette.setColor(QPalette::ToolTipBase, QColor(0x45, 0x45, 0x45));
    palette.setColor(QPalette::ToolTipText, QColor(0xF0, 0xF0, 0xF0));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return palette;
}

// Off-screen there is one screen of a usual size, unless a file lists others.
QByteArray PlatformWith(const QTemporaryDir& folder, const QSize& screen) {
    if (screen.isEmpty())
        return "offscreen";
    const QString path = folder.filePath("screens.json");
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(QString(R"({"screens": [{"name": "1", "x": 0, "y": 0, "width": %1, "height": %2, "dpr": 1,
                               "logicalDpi": 96, "logicalBaseDpi": 96}]})")
                       .arg(screen.width())
                       .arg(screen.height())
                       .toUtf8());
    return ("offscreen:configfile=" + path).toLocal8Bit();
}

}  // namespace

void FixEnvironment(const QTemporaryDir& settings, const char* scale, const QSize& screen) {
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", settings.path().toLocal8Bit());
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", PlatformWith(settings, screen));
    for (const char* name : {"QT_STYLE_OVERRIDE", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_QPA_PLATFORMTHEME",
                             "QT_AUTO_SCREEN_SCALE_FACTOR"})
        qunsetenv(name);
    qputenv("QT_SCALE_FACTOR", scale);
    qInstallMessageHandler(&TellOfOthers);
}

void FixAppearance(bool isDark) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(isDark ? DarkPalette() : QApplication::style()->standardPalette());
    QApplication::setFont(QFont("Noto Sans CJK SC", kPointSize));
    QApplication::setCursorFlashTime(0);
    for (const Qt::UIEffect effect : {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo})
        QApplication::setEffectEnabled(effect, false);
}

bool StartModule(const char* language) {
    static TeskLanguageSwitch languages;
    g_pTeskLangSwitch = &languages;
    g_pfnToday = &FixedToday;
    return languages.SetLanguage(FromUtf8(language)) && CopyShippedFiles() &&
           acrxEntryPoint(AcRx::kInitAppMsg, &g_SunDataSet) == AcRx::kRetOK;
}
