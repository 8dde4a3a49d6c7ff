// The dialog of the standards. What its controls exchange with the current standard is in OrvoSetStdDlgExchange.cpp.
#include "settings/OrvoSetStdDlg.h"

#include "frame/Resources.h"
#include "resources/Resource.h"
#include "settings/OrvoDataSet.h"
#include "settings/QNewSetStdDlg.h"

BEGIN_MESSAGE_MAP(OrvoSetStdDlg, QcUiDialog)
    ON_BN_CLICKED(IDC_OVER_THRESHOLD, &OrvoSetStdDlg::OnAllMaxContinueTime)
    ON_BN_CLICKED(IDC_LIMIT_WIDTH, &OrvoSetStdDlg::OnLimitWidth)
    ON_BN_CLICKED(IDC_LONGEST_SUNLIGHT, &OrvoSetStdDlg::OnLongestSunlight)
    ON_BN_CLICKED(IDC_TOTAL_SUNLIGHT, &OrvoSetStdDlg::OnTotalSunlight)
    ON_BN_CLICKED(IDC_WHOLE_WINDOW, &OrvoSetStdDlg::OnWholeWindow)
    ON_BN_CLICKED(IDC_SILL_MIDPOINT, &OrvoSetStdDlg::OnSillMidpoint)
    ON_BN_CLICKED(IDC_NEW_STANDARD, &OrvoSetStdDlg::OnNew)
    ON_BN_CLICKED(IDC_RENAME_STANDARD, &OrvoSetStdDlg::OnRename)
    ON_BN_CLICKED(IDC_DELETE_STANDARD, &OrvoSetStdDlg::OnDelete)
    ON_CBN_SELCHANGE(IDC_SOLAR_TERM, &OrvoSetStdDlg::OnSelchangeSolarTerm)
    ON_CBN_SELCHANGE(IDC_STANDARD, &OrvoSetStdDlg::OnSelchangeStandard)
    ON_CBN_SELCHANGE(IDC_VALID_RULE, &OrvoSetStdDlg::OnSelchangeValidRule)
    ON_NOTIFY(DTN_DATETIMECHANGE, IDC_DATE, &OrvoSetStdDlg::OnDateChange)
END_MESSAGE_MAP()

OrvoSetStdDlg::OrvoSetStdDlg(CWnd* parent) : QcUiDialog(ChooseTemplate(IDD_STANDARDS, IDD_STANDARDS_WIDE), parent) {}

OrvoSetStdDlg::~OrvoSetStdDlg() = default;

BOOL OrvoSetStdDlg::OnInitDialog() {
    QcUiDialog::OnInitDialog();
    InitDlgBaseData(true);
    m_comboValidRule.AddString(TranslateText(L"上海规定"));
    m_comboValidRule.AddString(TranslateText(L"自定义"));
    ShowData();
    AddTips();
    return TRUE;
}

void OrvoSetStdDlg::AddTips() {
    AddTip(IDC_WHOLE_WINDOW, TranslateText(L"要求光照覆盖整个日照窗"));
    AddTip(IDC_SILL_MIDPOINT, TranslateText(L"要求光线照射到日照窗的中心点"));
    AddTip(IDC_LIMIT_WIDTH,
           TranslateText(L"使用满窗日照计算方法时，窗越大，计算所得的日照时间却可能越短,因此要考虑限定宽度"));
    AddTip(IDC_LONGEST_SUNLIGHT, TranslateText(L"以最长、连续、有效日照时间段作为日照分析的依据"));
    AddTip(IDC_TOTAL_SUNLIGHT, TranslateText(L"以所有有效日照时间段的时间累计作为日照分析的依据"));
}

OrvoStdSet& OrvoSetStdDlg::Standard() {
    OrvoStdSet** slot = g_SunDataSet.m_listStd.GetAt(g_SunDataSet.GetCurStdIndex());
    return slot && *slot ? **slot : m_stdNone;
}

void OrvoSetStdDlg::ShowData() {
    UpdateData(FALSE);
    EnableByWindow();
    EnableByCount();
    EnableByRule();
}

void OrvoSetStdDlg::Enable(int id, bool enable) {
    if (CWnd* control = GetDlgItem(id))
        control->EnableWindow(enable);
}

// Widths count for whole windows alone, and when they are limited.
void OrvoSetStdDlg::EnableByWindow() {
    const OrvoStdSet& standard = Standard();
    const bool whole = standard.m_nFullWin != 0;
    const bool limited = whole && standard.m_nLimitWidth != 0;
    Enable(IDC_LIMIT_WIDTH, whole);
    Enable(IDC_MAX_WIDTH, limited);
    Enable(IDC_MIN_WIDTH, limited);
}

// Either all periods count in some way, or the longest one, perhaps with those over a threshold.
void OrvoSetStdDlg::EnableByCount() {
    const OrvoStdSet& standard = Standard();
    const bool total = standard.m_nMaxContinue == 0;
    for (const int id :
         {IDC_MIN_PERIOD, IDC_MIN_LONGEST_PERIOD, IDC_ALL_PERIODS, IDC_TWO_LONGEST_PERIODS, IDC_THREE_LONGEST_PERIODS})
        Enable(id, total);
    Enable(IDC_OVER_THRESHOLD, !total);
    Enable(IDC_THRESHOLD, !total && standard.m_nAllMaxContinueTime != 0);
}

void OrvoSetStdDlg::EnableByRule() {
    Enable(IDC_MIN_ANGLE, Standard().m_nValidSunType != 0);
}

void OrvoSetStdDlg::OnWholeWindow() {
    Standard().m_nFullWin = 1;
    EnableByWindow();
}

void OrvoSetStdDlg::OnSillMidpoint() {
    Standard().m_nFullWin = 0;
    EnableByWindow();
}

void OrvoSetStdDlg::OnLimitWidth() {
    UpdateData(TRUE);
    const bool limited = Standard().m_nLimitWidth != 0;
    Enable(IDC_MAX_WIDTH, limited);
    Enable(IDC_MIN_WIDTH, limited);
}

void OrvoSetStdDlg::OnTotalSunlight() {
    Standard().m_nMaxContinue = 0;
    EnableByCount();
}

void OrvoSetStdDlg::OnLongestSunlight() {
    Standard().m_nMaxContinue = 1;
    EnableByCount();
}

void OrvoSetStdDlg::OnAllMaxContinueTime() {
    OrvoStdSet& standard = Standard();
    standard.m_nAllMaxContinueTime = standard.m_nAllMaxContinueTime != 0 ? 0 : 1;
    Enable(IDC_THRESHOLD, standard.m_nAllMaxContinueTime != 0);
}

void OrvoSetStdDlg::OnSelchangeValidRule() {
    const int selected = m_comboValidRule.GetCurSel();
    if (selected < 0)
        return;
    Standard().m_nValidSunType = selected;
    EnableByRule();
}

void OrvoSetStdDlg::OnSelchangeStandard() {
    const int selected = m_comboStd.GetCurSel();
    if (selected < 0)
        return;
    if (UpdateData(TRUE)) {
        g_SunDataSet.SetCurStdIndex(selected);
        ShowData();
    } else {
        m_comboStd.SetCurSel(g_SunDataSet.GetCurStdIndex());
    }
}

void OrvoSetStdDlg::OnSelchangeSolarTerm() {
    const int selected = m_comboTerm.GetCurSel();
    if (selected < 0)
        return;
    OrvoDate& date = Standard().m_date;
    if (const OrvoSTerm* term = date.GetTerm(selected)) {
        const int year = date.GetYear();
        date.SetDate(term->m_strDate);
        date.SetYear(year);
    }
    ShowDate(date);
}

void OrvoSetStdDlg::OnDateChange(NMHDR* /*notification*/, LRESULT* /*result*/) {
    SYSTEMTIME time = {};
    if (m_datePicker.GetTime(&time) != GDT_VALID)
        return;
    OrvoDate& date = Standard().m_date;
    date.SetYear(time.wYear);
    date.SetMonth(time.wMonth);
    date.SetDay(time.wDay);
    ShowSolarTerm(date);  // the picker is left alone: its user may be typing in it
}

void OrvoSetStdDlg::OnNew() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    QNewSetStdDlg dialog(this);
    if (dialog.DoModal() != IDOK)
        return;
    m_comboStd.SetCurSel(m_comboStd.AddString(dialog.m_strName));
    g_SunDataSet.NewStd(Standard());
    g_SunDataSet.SetCurStdIndex(m_comboStd.GetCurSel());
    Standard().m_strName = dialog.m_strName;
}

void OrvoSetStdDlg::OnRename() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    QNewSetStdDlg dialog(this);
    dialog.m_bRename = true;
    dialog.m_strName = Standard().m_strName;
    if (dialog.DoModal() != IDOK)
        return;
    Standard().m_strName = dialog.m_strName;
    RefreshStdCombo();
}

void OrvoSetStdDlg::OnDelete() {
    if (m_comboStd.GetCount() == 1) {
        MessageBox(TranslateText(L"标准列表不能空!"));
        return;
    }
    const int selected = m_comboStd.GetCurSel();
    g_SunDataSet.RemoveStd(selected);
    m_comboStd.DeleteString(selected);
    m_comboStd.SetCurSel(0);
    g_SunDataSet.SetCurStdIndex(0);
    ShowData();
}

INT_PTR SunStdDlgDoModal(CWnd* parent) {
    const QcUtPushResource scope(GetModuleResourceHandle());
    OrvoSetStdDlg dialog(parent);
    return dialog.DoModal();
}
