// The settings, on places that were analysed before.
#include "Album.h"
#include "Hands.h"
#include "Scenes.h"
#include "frame/Commands.h"
#include "frame/ConfigDictionaries.h"
#include "frame/ConfigFiles.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "resources/Resource.h"
#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoDataSet.h"

namespace {

void EditSettings() {
    g_commandTable[1].m_pFunction();
}

void EditGlareSettings() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    OrvoDataPrecisSetDlg dialog(nullptr, true);
    dialog.DoModal();
}

}  // namespace

void TakeSettings(Album& album) {
    for (const wchar_t* city : {L"北京", L"上海", L"宁波"})
        g_SunDataSet.m_listCity.Append(new OrvoCity(city));
    album.Show("settings", &EditSettings, [&](const ModalWindow& window) {
        album.Take("settings", window);
        album.Take("settings-standards", window, &OpenList(window, IDC_STANDARD));
        CloseList(window, IDC_STANDARD);
        album.Take("settings-places", window, &OpenList(window, IDC_PLACE));
        CloseList(window, IDC_PLACE);
    });
    album.Show("glare-settings", &EditGlareSettings,
               [&](const ModalWindow& window) { album.Take("glare-settings", window); });
    LoadSunSet();
}

void TakeSettingsMessages(Album& album) {
    album.Show("message-range", &EditSettings, [&](const ModalWindow& window) {
        Type(window, IDC_ANGLE_PRECISION, "400");
        album.TakeBox("message-range", [&] { Click(window, IDOK); });
    });
    g_SunDataSet.CurCity() = L"桃花源";
    album.TakeBox("message-unknown-place", &EditSettings);
    g_dictSunZone.RemoveAll();
    album.TakeBox("message-no-database", &EditSettings);
    LoadSunData();
    LoadSunSet();
}
