// Moves values between the controls of the standards' dialog and the fields of the current standard.
#include "frame/Resources.h"
#include "platform/window/DataExchange.h"
#include "resources/Resource.h"
#include "settings/OrvoDataSet.h"
#include "settings/OrvoSetStdDlg.h"

namespace {

// A choice that the dialog cannot show, as a foreign file may hold it, stays until the user makes another.
void ExchangeRadio(CDataExchange* exchange, int id, int& value) {
    int choice = value;
    DDX_Radio(exchange, id, choice);
    if (choice >= 0)
        value = choice;
}

void ExchangeEntry(CDataExchange* exchange, int id, int& value) {
    int entry = value;
    DDX_CBIndex(exchange, id, entry);
    if (entry >= 0)
        value = entry;
}

}  // namespace

void OrvoSetStdDlg::DoDataExchange(CDataExchange* exchange) {
    QcUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_STANDARD, m_comboStd);
    DDX_Control(exchange, IDC_DATE, m_datePicker);
    DDX_Control(exchange, IDC_SOLAR_TERM, m_comboTerm);
    DDX_Control(exchange, IDC_START_TIME, m_editStart);
    DDX_Control(exchange, IDC_END_TIME, m_editEnd);
    DDX_Control(exchange, IDC_TIME_STEP_SPIN, m_spinSpace);
    DDX_Control(exchange, IDC_VALID_RULE, m_comboValidRule);

    OrvoStdSet& standard = Standard();
    ExchangeRadio(exchange, IDC_TOTAL_SUNLIGHT, standard.m_nMaxContinue);
    // The first button is the whole window, and gives 0: the inverse of the field's meaning, which the buttons' own
    // handlers follow. Both stay so, since saved standards have come about this way.
    ExchangeRadio(exchange, IDC_WHOLE_WINDOW, standard.m_nFullWin);
    DDX_Check(exchange, IDC_LIMIT_WIDTH, standard.m_nLimitWidth);
    DDX_Text(exchange, IDC_MAX_WIDTH, standard.m_dMaxWidth);
    DDX_Text(exchange, IDC_MIN_WIDTH, standard.m_dMinWidth);
    ExchangeDate(exchange, standard.m_date);
    ExchangeRadio(exchange, IDC_SOLAR_TIME, standard.m_nBJTime);
    ExchangeTime(exchange, IDC_START_TIME, m_editStart, standard.m_dgStartTime);
    ExchangeTime(exchange, IDC_END_TIME, m_editEnd, standard.m_dgEndTime);
    DDX_Text(exchange, IDC_TIME_STEP, standard.m_dSpace);
    DDX_Check(exchange, IDC_OVER_THRESHOLD, standard.m_nAllMaxContinueTime);
    DDX_Text(exchange, IDC_THRESHOLD, standard.m_nMinContinueTime);
    DDX_Text(exchange, IDC_MIN_ANGLE, standard.m_nMinValidAngle);
    ExchangeEntry(exchange, IDC_VALID_RULE, standard.m_nValidSunType);
    DDX_Text(exchange, IDC_MIN_PERIOD, standard.m_nMinValidTime);
    DDX_Text(exchange, IDC_MIN_LONGEST_PERIOD, standard.m_nMinMaxValidTime);
    ExchangeRadio(exchange, IDC_ALL_PERIODS, standard.m_nTotalTimeType);
}

// The picker tells of each change itself; one that is still being typed counts, too. A date that it cannot show stays.
void OrvoSetStdDlg::ExchangeDate(CDataExchange* exchange, OrvoDate& date) {
    SYSTEMTIME time = {};
    if (exchange->m_bSaveAndValidate)
        m_datePicker.GetTime(&time);
    else
        ShowDate(date);
}

// Hours and minutes; what is typed and no clock shows is refused. A time of a foreign file that no clock shows stays
// until the user types another.
void OrvoSetStdDlg::ExchangeTime(CDataExchange* exchange, int id, OrvoTimeEdit& edit, OrvoDegree& time) {
    exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        ShowTime(edit, time);
        return;
    }
    if (!edit.GetModify())
        return;
    if (!edit.IsValid()) {
        MessageBox(TranslateText(L"时间应在00:00到23:59之间"));
        exchange->Fail();
    }
    time.setDegree(edit.GetHour(), edit.GetMinute(), 0);
}
