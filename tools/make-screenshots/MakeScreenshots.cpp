// Takes pictures of the module's dialogs as its user sees them, without a display, and checks their layout.
//
// usage: screenshots LANGUAGE FOLDER
//
// Writes FOLDER/<name>.png for each dialog, in the language "zh" or "en". Each run gives the same bytes: style, font,
// colours, locale and date are fixed, the settings are those that ship, and nobody's own settings are read or written.
// Exit code 1, with the list of them, when texts are cut off, controls overlap, or a dialog did not come.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>

#include "Album.h"
#include "Scenes.h"
#include "Studio.h"
#include "platform/base/Language.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: screenshots LANGUAGE FOLDER\n");
        return 1;
    }
    const QTemporaryDir settings;
    FixEnvironment(settings, "1", {});
    QApplication application(argc, argv);
    FixAppearance(false);
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
