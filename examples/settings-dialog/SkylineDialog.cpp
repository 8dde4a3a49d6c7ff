// The dialog of the skyline.
#include "SkylineDialog.h"

#include "Skyline.h"
#include "facts/PlaceSearch.h"
#include "facts/SettingsEdit.h"
#include "platform/window/DataExchange.h"
#include "settings/OrvoDataSet.h"

namespace {

// Any address in a library stands for it: in whose resources the template is looked up.
const char g_here = 0;

}  // namespace

BEGIN_MESSAGE_MAP(SkylineDialog, QcUiDialog)
    ON_CBN_SELCHANGE(IDC_SKYLINE_PLACE, &SkylineDialog::OnSelchangePlace)
END_MESSAGE_MAP()

SkylineDialog::SkylineDialog(CWnd* parent, double height)
    : QcUiDialog(IDD_SKYLINE, parent, &g_here), m_strPlace(g_SunDataSet.CurCity()), m_dHeight(height) {}

// The controls of the base are attached to those of the template; what the template lacks stays away.
void SkylineDialog::DoDataExchange(CDataExchange* exchange) {
    QcUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_SKYLINE_STANDARD, m_comboStd);
    DDX_Control(exchange, IDC_SKYLINE_PLACE, m_comboPlace);
    DDX_Control(exchange, IDC_SKYLINE_START, m_editStart);
    DDX_Control(exchange, IDC_SKYLINE_END, m_editEnd);
    DDX_Text(exchange, IDC_SKYLINE_HEIGHT, m_dHeight);
    DDV_MinMaxDouble(exchange, m_dHeight, 0.0, 90.0);
}

BOOL SkylineDialog::OnInitDialog() {
    QcUiDialog::OnInitDialog();
    CreatPlaceDlg(this);     // the base asks it for the current place, and owns it
    InitDlgBaseData(false);  // fills the controls
    ShowPlace(m_strPlace);
    return TRUE;
}

// A place that was never analysed is not in the list yet.
void SkylineDialog::ShowPlace(const CString& name) {
    for (int entry = 0; entry < m_comboPlace.GetCount() - 1; ++entry) {
        CString text;
        m_comboPlace.GetLBText(entry, text);
        if (text == name) {
            m_comboPlace.SetCurSel(entry);
            return;
        }
    }
    m_comboPlace.SetCurSel(m_comboPlace.InsertString(0, name));
}

// The last entry leads to all places.
void SkylineDialog::OnSelchangePlace() {
    const int entry = m_comboPlace.GetCurSel();
    if (entry < m_comboPlace.GetCount() - 1) {
        m_comboPlace.GetLBText(entry, m_strPlace);
        return;
    }
    CString province;
    CString city = m_strPlace;
    if (SunZoneDlgDoModal(province, city, this) == IDOK)
        m_strPlace = city;
    ShowPlace(m_strPlace);
}

// Nothing is written before everything is known to be right.
void SkylineDialog::OnOK() {
    if (!UpdateData(TRUE))
        return;
    if (!m_editStart.IsValid() || !m_editEnd.IsValid() || m_editEnd.GetMinuteNum() <= m_editStart.GetMinuteNum()) {
        ShowMessage(L"The span has to begin before it ends, from 00:00 to 23:59.");
        return;
    }
    const std::optional<Place> place = FindPlace(m_strPlace);
    if (!place) {
        ShowMessage(UnknownPlaceText(m_strPlace));
        return;
    }
    SetPlace(g_SunDataSet, *place);
    if (m_comboStd.GetCurSel() >= 0)
        UseStandard(g_SunDataSet, m_comboStd.GetCurSel());
    SetOwnStart(g_SunDataSet, m_editStart.GetMinuteNum());
    SetOwnEnd(g_SunDataSet, m_editEnd.GetMinuteNum());
    EndDialog(IDOK);
}
