// The dialog of the standards, on those that ship.
#include "Album.h"
#include "Hands.h"
#include "Scenes.h"
#include "frame/ConfigFiles.h"
#include "platform/window/CWnd.h"
#include "resources/Resource.h"
#include "settings/OrvoDataSet.h"
#include "settings/OrvoSetStdDlg.h"

namespace {

void EditStandards() {
    SunStdDlgDoModal(nullptr);
}

void PressOk(const ModalWindow& window) {
    Click(window, IDOK);
}

}  // namespace

void TakeStandards(Album& album) {
    album.Show("standards", &EditStandards, [&](const ModalWindow& window) {
        album.Take("standards", window);
        album.Take("standards-terms", window, &OpenList(window, IDC_SOLAR_TERM));
        CloseList(window, IDC_SOLAR_TERM);
        Choose(window, IDC_STANDARD, 1);
        album.Take("standards-total", window);
    });
    LoadSunSet();
}

void TakeStandardNames(Album& album) {
    album.Show("standard-new", &EditStandards, [&](const ModalWindow& window) {
        album.TakeBox("standard-new", [&] { Click(window, IDC_NEW_STANDARD); });
        album.TakeBox("standard-rename", [&] { Click(window, IDC_RENAME_STANDARD); });
        // The name that is shown for renaming is taken: by the standard itself.
        album.Show(
            "message-name-used", [&] { Click(window, IDC_RENAME_STANDARD); },
            [&](const ModalWindow& name) {
                album.TakeBox("message-name-used", [&] { PressOk(name); });
                Type(name, IDC_STANDARD_NAME, " ");
                album.TakeBox("message-no-name", [&] { PressOk(name); });
            });
    });
    LoadSunSet();
}

void TakeStandardMessages(Album& album) {
    album.Show("message-time", &EditStandards, [&](const ModalWindow& window) {
        TypeDigits(window, IDC_START_TIME, "2400");
        album.TakeBox("message-time", [&] { PressOk(window); });
        TypeDigits(window, IDC_START_TIME, "0900");
        Type(window, IDC_TIME_STEP, "ten");
        album.TakeBox("message-number", [&] { PressOk(window); });
        Type(window, IDC_TIME_STEP, "10");
    });
    while (g_SunDataSet.m_listStd.GetLength() > 1)
        g_SunDataSet.RemoveStd(1);
    album.Show("message-last-standard", &EditStandards, [&](const ModalWindow& window) {
        album.TakeBox("message-last-standard", [&] { Click(window, IDC_DELETE_STANDARD); });
    });
    LoadSunSet();
}
