// Filling the controls that the dialogs of the settings share.
#include "settings/OrvoDataSetDlgBase.h"

#include <utility>

#include "frame/Resources.h"
#include "platform/base/Abandon.h"
#include "platform/window/MessageBox.h"
#include "records/ExactText.h"
#include "settings/OrvoDataSet.h"

namespace {

constexpr int kShortestStep = 1;
constexpr int kLongestStep = 60;
constexpr int kMinutesPerHour = 60;
constexpr int kHoursPerDay = 24;

// A fresh edit has no text that hour and minute could be put into.
void ShowOwnText(OrvoTimeEdit& edit) {
    CString text;
    edit.GetWindowText(text);
    if (text.IsEmpty())
        edit.SetDefault();
    else
        edit.SetWindowText(text);
}

// A time that no clock shows leaves the edit as it is.
void SetClock(OrvoTimeEdit& edit, const OrvoDegree& time) {
    int hour = 0;
    int minute = 0;
    int second = 0;
    time.getDegree(hour, minute, second);
    if (minute == kMinutesPerHour) {  // angles carry seconds into minutes, and no further
        minute = 0;
        ++hour;
    }
    if (hour < 0 || hour >= kHoursPerDay || minute < 0)
        return;
    edit.SetHour(hour);
    edit.SetMinute(minute);
}

// Dates hold any numbers; false for those that would become others in the picker's fields.
bool ToSystemTime(const OrvoDate& date, SYSTEMTIME& time) {
    const auto fits = [](int number) { return number >= 0 && number <= 0xFFFF; };
    if (!fits(date.m_nYear) || !fits(date.m_nMonth) || !fits(date.m_nDay))
        return false;
    time = {};
    time.wYear = static_cast<WORD>(date.m_nYear);
    time.wMonth = static_cast<WORD>(date.m_nMonth);
    time.wDay = static_cast<WORD>(date.m_nDay);
    return true;
}

}  // namespace

OrvoDataSetDlgBase::OrvoDataSetDlgBase() = default;

OrvoDataSetDlgBase::~OrvoDataSetDlgBase() {
    delete m_pPlaceDlg;
}

void OrvoDataSetDlgBase::ShowMessage(const wchar_t* text) {
    auto* owner = dynamic_cast<CWnd*>(this);
    if (owner == nullptr)
        owner = acedGetAcadFrame();
    if (owner != nullptr)
        owner->MessageBox(text);
    else
        MessageBox(nullptr, text, L"", MB_OK);
}

void OrvoDataSetDlgBase::InitDlgBaseData(bool standardsMode) {
    if (!standardsMode && m_pPlaceDlg != nullptr) {
        CheckPlace();
        FillPlaces();
    }
    RefreshStdCombo();
    if (m_comboTerm.GetSafeHwnd() != nullptr) {
        m_comboTerm.ResetContent();
        g_SunDataSet.CurDate().InitStermCombo(m_comboTerm);
    }
    for (OrvoTimeEdit* edit : {&m_editStart, &m_editEnd})
        if (edit->GetSafeHwnd() != nullptr)
            ShowOwnText(*edit);
    if (m_spinSpace.GetSafeHwnd() != nullptr)
        m_spinSpace.SetRange(kShortestStep, kLongestStep);
    if (standardsMode) {
        OrvoStdSet& standard = g_SunDataSet.CurStd();
        ShowDate(standard.m_date);
        ShowTimes(standard.m_dgStartTime, standard.m_dgEndTime);
    } else {
        ShowDate(g_SunDataSet.m_date);
        ShowTimes(g_SunDataSet.m_dgStartTime, g_SunDataSet.m_dgEndTime);
    }
}

void OrvoDataSetDlgBase::CheckPlace() {
    if (!m_pPlaceDlg->IsZoneDBReady()) {
        // The name is that of the file in which places once were, and stays.
        ShowMessage(TranslateText(L"未能打开地区数据库Zone.dbf!"));
        return;
    }
    const CString city = g_SunDataSet.CurCity();
    if (!m_pPlaceDlg->FindZone(city, g_SunDataSet))
        ShowMessage(FormatTranslated(L"请在地区数据库中建立 %s 的位置数据", city));
}

void OrvoDataSetDlgBase::FillPlaces() {
    if (m_comboPlace.GetSafeHwnd() == nullptr)
        return;
    m_comboPlace.ResetContent();
    for (OrvoCity** slot = g_SunDataSet.m_listCity.GetFirst(); slot; slot = g_SunDataSet.m_listCity.GetNext(slot))
        if (*slot)
            m_comboPlace.AddString((*slot)->m_strName);
    SelectString(m_comboPlace, g_SunDataSet.CurCity());
    m_comboPlace.SetWindowText(g_SunDataSet.CurCity());
    m_comboPlace.AddString(TranslateText(L"地区数据库..."));
}

void OrvoDataSetDlgBase::RefreshStdCombo() {
    if (m_comboStd.GetSafeHwnd() == nullptr)
        return;
    m_comboStd.ResetContent();
    for (OrvoStdSet** slot = g_SunDataSet.m_listStd.GetFirst(); slot; slot = g_SunDataSet.m_listStd.GetNext(slot))
        m_comboStd.AddString(*slot ? (*slot)->m_strName : CString());
    m_comboStd.SetCurSel(g_SunDataSet.GetCurStdIndex());
}

void OrvoDataSetDlgBase::ShowDate(OrvoDate& date) {
    ShowSolarTerm(date);
    SYSTEMTIME time = {};
    if (ToSystemTime(date, time))
        m_datePicker.SetTime(&time);
}

void OrvoDataSetDlgBase::ShowSolarTerm(OrvoDate& date) {
    bool exact = false;
    const int term = date.GetSTermIndex(exact);
    m_comboTerm.SetCurSel(exact ? term : -1);
}

void OrvoDataSetDlgBase::ShowTime(OrvoTimeEdit& edit, const OrvoDegree& time) {
    edit.SetDefault();
    SetClock(edit, time);
}

void OrvoDataSetDlgBase::ShowTimes(const OrvoDegree& start, const OrvoDegree& end) {
    if (m_editStart.GetSafeHwnd() != nullptr)
        SetClock(m_editStart, start);
    if (m_editEnd.GetSafeHwnd() != nullptr)
        SetClock(m_editEnd, end);
}

OrvoPlaceDlg* OrvoDataSetDlgBase::CreatPlaceDlg(CWnd* parent) {
    Abandon(m_pPlaceDlg);
    m_pPlaceDlg = new OrvoPlaceDlg(parent);
    return m_pPlaceDlg;
}

bool OrvoDataSetDlgBase::FindPlaceDlgZone(CString name, OrvoZoneRecord& zone) {
    return m_pPlaceDlg != nullptr && m_pPlaceDlg->FindZone(std::move(name), zone);
}

OrvoZoneRecord OrvoDataSetDlgBase::GetPlaceDlgCurZone() {
    return m_pPlaceDlg != nullptr ? m_pPlaceDlg->GetCurZone() : OrvoZoneRecord();
}

INT_PTR OrvoDataSetDlgBase::PlaceDlgDoModal() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    if (m_pPlaceDlg == nullptr)
        return 0;
    CWnd* parent = m_pPlaceDlg->GetParentWindow();
    const INT_PTR result = m_pPlaceDlg->DoModal();
    if (result == IDOK) {
        static_cast<OrvoZoneRecord&>(g_SunDataSet) = GetPlaceDlgCurZone();
        g_SunDataSet.CurCity() = g_SunDataSet.m_strCity;
    }
    delete m_pPlaceDlg;
    m_pPlaceDlg = nullptr;
    CreatPlaceDlg(parent);
    return result;
}
