// The dialog of the precisions.
#include "settings/OrvoDataPrecisSetDlg.h"

#include "frame/ConfigDictionaries.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/DrawingUnits.h"
#include "platform/window/DataExchange.h"
#include "records/ExactText.h"
#include "resources/Resource.h"
#include "settings/AnalysisParameters.h"
#include "settings/OrvoDataSet.h"
#include "settings/OrvoSetStdDlg.h"

namespace {

constexpr double kMillimetresPerMetre = 1000.0;

// How many of the drawing's units a millimetre is.
double UnitFactor() {
    return QcDbGetDrawUnit() != 0 ? 0.001 : 1.0;
}

UINT TemplateFor(bool lightPollution) {
    return lightPollution ? ChooseTemplate(IDD_GLARE_SETTINGS, IDD_GLARE_SETTINGS_WIDE)
                          : ChooseTemplate(IDD_SETTINGS, IDD_SETTINGS_WIDE);
}

}  // namespace

BEGIN_MESSAGE_MAP(OrvoDataPrecisSetDlg, QcUiDialog)
    ON_CBN_SELCHANGE(IDC_STANDARD, &OrvoDataPrecisSetDlg::OnSelchangeStandard)
    ON_BN_CLICKED(IDC_ANNOTATE, &OrvoDataPrecisSetDlg::OnAnnotate)
    ON_CBN_SELCHANGE(IDC_DRAWING_UNIT, &OrvoDataPrecisSetDlg::OnSelchangeUnit)
    ON_CBN_SELCHANGE(IDC_PLACE, &OrvoDataPrecisSetDlg::OnSelchangePlace)
    ON_CONTROL(CBN_EDITCHANGE, IDC_PLACE, &OrvoDataPrecisSetDlg::ShowPlace)
END_MESSAGE_MAP()

OrvoDataPrecisSetDlg::OrvoDataPrecisSetDlg(CWnd* parent, bool lightPollution)
    : QcUiDialog(TemplateFor(lightPollution), parent),
      m_dWinOffset(5.0 * UnitFactor()),
      m_dAnglePrec(0.00001),
      m_dDistancePrec(0.05 * UnitFactor()),
      m_dArcPrec(50.0 * UnitFactor()),
      m_nUnit(g_bMeterUnitDraw ? 1 : 0),
      m_bLightPollution(lightPollution) {}

OrvoDataPrecisSetDlg::~OrvoDataPrecisSetDlg() = default;

void OrvoDataPrecisSetDlg::DoDataExchange(CDataExchange* exchange) {
    QcUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_STANDARD, m_comboStd);
    DDX_Control(exchange, IDC_PLACE, m_comboPlace);
    constexpr double kLeast = 1e-9;
    DDX_Text(exchange, IDC_ANGLE_PRECISION, m_dAnglePrec);
    DDV_MinMaxDouble(exchange, m_dAnglePrec, kLeast, 360.0);
    DDX_Text(exchange, IDC_DISTANCE_PRECISION, m_dDistancePrec);
    DDV_MinMaxDouble(exchange, m_dDistancePrec, kLeast, 1e7);
    DDX_Text(exchange, IDC_ARC_PRECISION, m_dArcPrec);
    DDV_MinMaxDouble(exchange, m_dArcPrec, kLeast, 1e10);
    DDX_Text(exchange, IDC_WINDOW_OFFSET, m_dWinOffset);
    DDV_MinMaxDouble(exchange, m_dWinOffset, kLeast, 1000.0);
    DDX_CBIndex(exchange, IDC_DRAWING_UNIT, m_nUnit);
}

BOOL OrvoDataPrecisSetDlg::OnInitDialog() {
    // The entries come before the first exchange, which selects one.
    CComboBox units;
    units.SubclassDlgItem(IDC_DRAWING_UNIT, this);
    units.AddString(TranslateText(L"毫米"));
    units.AddString(TranslateText(L"米"));
    units.UnsubclassWindow();
    QcUiDialog::OnInitDialog();
    CreatPlaceDlg(nullptr);
    m_pPlaceDlg->FindZone(g_SunDataSet.CurCity(), g_SunDataSet);
    CheckCity();
    InitDlgBaseData(false);
    m_comboStd.AddString(TranslateText(L"配置管理器..."));
    return TRUE;
}

void OrvoDataPrecisSetDlg::CheckCity() {
    const CString city = g_SunDataSet.CurCity();
    if (!m_pPlaceDlg->IsZoneDBReady())
        ShowMessage(TranslateText(L"未能打开地区数据库Zone.xml!"));
    else if (!m_pPlaceDlg->FindZone(city, g_SunDataSet))
        ShowUnknownCity(city);
}

void OrvoDataPrecisSetDlg::ShowUnknownCity(const CString& city) {
    ShowMessage(TranslateText(L"请在地区数据库中建立") + city + TranslateText(L"的位置数据"));
}

void OrvoDataPrecisSetDlg::OnSelchangeUnit() {
    const int before = m_nUnit;
    if (!UpdateData(TRUE)) {
        // The lengths are still in the unit from before, and the choice of it must not look different.
        if (CWnd* units = GetDlgItem(IDC_DRAWING_UNIT))
            units->SendMessage(CB_SETCURSEL, static_cast<WPARAM>(before));
        m_nUnit = before;
        return;
    }
    if (m_nUnit != before)
        for (double* length : {&m_dDistancePrec, &m_dWinOffset, &m_dArcPrec})
            *length = m_nUnit != 0 ? *length / kMillimetresPerMetre : *length * kMillimetresPerMetre;
    UpdateData(FALSE);
}

void OrvoDataPrecisSetDlg::ShowStandards() {
    RefreshStdCombo();
    m_comboStd.AddString(TranslateText(L"配置管理器..."));
}

void OrvoDataPrecisSetDlg::OnSelchangeStandard() {
    const int selected = m_comboStd.GetCurSel();
    if (selected < 0)
        return;
    if (selected != m_comboStd.GetCount() - 1)
        g_SunDataSet.SetCurStdIndex(selected);
    else if (!m_bLightPollution)
        RunStandards();
    else
        ShowStandards();
}

// Standards change in place, also when their dialog is cancelled: they are shown anew either way.
void OrvoDataPrecisSetDlg::RunStandards() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    OrvoSetStdDlg dialog(this);
    dialog.DoModal();
    ShowStandards();
}

void OrvoDataPrecisSetDlg::OnSelchangePlace() {
    const int selected = m_comboPlace.GetCurSel();
    if (selected < 0)
        return;
    if (selected == m_comboPlace.GetCount() - 1) {
        ChoosePlaceFromDatabase();
        ShowPlace();
        return;
    }
    CString city;
    m_comboPlace.GetLBText(selected, city);
    if (FindPlaceDlgZone(city, g_SunDataSet)) {
        g_SunDataSet.CurCity() = city;
        if (UpdateData(TRUE))
            UpdateData(FALSE);
    } else {
        ShowUnknownCity(city);
        ShowPlace();
    }
}

void OrvoDataPrecisSetDlg::ChoosePlaceFromDatabase() {
    OrvoZoneRecord preset;
    FindPlaceDlgZone(g_SunDataSet.CurCity(), preset);  // where the place dialog opens
    if (PlaceDlgDoModal() != IDOK)
        return;
    const CString city = g_SunDataSet.CurCity();
    if (FindPlace(city) >= 0)
        return;
    m_comboPlace.SetCurSel(m_comboPlace.InsertString(m_comboPlace.GetCount() - 1, city));
    g_SunDataSet.m_listCity.Append(new OrvoCity(city));
}

// The last entry is none of the places, whatever they are called.
int OrvoDataPrecisSetDlg::FindPlace(const CString& city) const {
    const int entry = FindString(m_comboPlace, city);
    return entry < m_comboPlace.GetCount() - 1 ? entry : -1;
}

// A current place that was never analysed is none of the entries and is shown all the same. Also when somebody types:
// places are chosen.
void OrvoDataPrecisSetDlg::ShowPlace() {
    const CString city = g_SunDataSet.CurCity();
    const int entry = FindPlace(city);
    m_comboPlace.SetCurSel(entry);
    if (entry < 0)
        m_comboPlace.SetWindowText(city);
}

void OrvoDataPrecisSetDlg::OnAnnotate() {
    OnOK();
}

void OrvoDataPrecisSetDlg::OnOK() {
    if (!UpdateData(TRUE))
        return;
    EndDialog(IDOK);
    const double factor = UnitFactor();
    g_nSunAngPrec = m_dAnglePrec;
    g_nSunDistPrec = m_dDistancePrec / factor;
    g_nSunWinOffset = m_dWinOffset / factor;
    SaveChoices();
}

void OrvoDataPrecisSetDlg::SaveChoices() const {
    QcDtDictionary* settings = g_dictSunSet.FindOrAddDict(L"CUR_SUNSETDATA");
    if (settings == nullptr)
        return;
    settings->SetLocalName(TranslateText(L"当前日照设置数据"));
    settings->SetAttributeValue(L"localname", TranslateText(L"当前日照设置数据"));
    if (QcDtDictItem* city = settings->FindOrAddItem(L"CUR_CITY", QcDtKindString)) {
        city->SetAttributeValue(L"localname", TranslateText(L"当前城市"));
        city->SetStringValue(g_SunDataSet.CurCity());
    }
    // Never added here: the settings' own saving does that.
    if (QcDtDictItem* index = settings->FindItem(L"CUR_STDINDEX"))
        index->SetIntValue(g_SunDataSet.GetCurStdIndex());
    if (QcDtDictItem* cities = settings->FindOrAddItem(L"ANALYSISED_CITY", QcDtKindString))
        cities->SetStringValue(g_SunDataSet.JoinCities());
}
