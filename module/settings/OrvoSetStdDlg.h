// Choosing, making, renaming, deleting and editing the standards.
// Why: docs/decisions/settings.md
#pragma once

#include "platform/base/Api.h"
#include "platform/window/QcUiDialog.h"
#include "settings/OrvoDataSetDlgBase.h"
#include "settings/OrvoStdSet.h"

// Edits the current standard of g_SunDataSet itself, not a copy: what a button or a list has changed stays so after
// Cancel; numbers, names and times that are typed are taken over when the controls are read. To be run within the
// module's resources.
//
// Works without standards and with a current index that none has: the controls then edit defaults, from which a new
// standard can be made.
class ORVO_API OrvoSetStdDlg : public QcUiDialog, public OrvoDataSetDlgBase {
public:
    // To be run over a parent; null: over the window that is active then.
    explicit OrvoSetStdDlg(CWnd* parent = nullptr);
    ~OrvoSetStdDlg() override;

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    afx_msg void OnAllMaxContinueTime();
    afx_msg void OnLimitWidth();
    afx_msg void OnLongestSunlight();
    afx_msg void OnTotalSunlight();
    afx_msg void OnWholeWindow();
    afx_msg void OnSillMidpoint();
    afx_msg void OnNew();
    afx_msg void OnRename();
    afx_msg void OnDelete();
    afx_msg void OnSelchangeSolarTerm();
    afx_msg void OnSelchangeStandard();
    afx_msg void OnSelchangeValidRule();
    afx_msg void OnDateChange(NMHDR* notification, LRESULT* result);

    DECLARE_MESSAGE_MAP()

private:
    OrvoStdSet& Standard();
    void ShowData();
    void EnableByWindow();
    void EnableByCount();
    void EnableByRule();
    void Enable(int id, bool enable);
    void AddTips();
    void ExchangeDate(CDataExchange* exchange, OrvoDate& date);
    void ExchangeTime(CDataExchange* exchange, int id, OrvoTimeEdit& edit, OrvoDegree& time);

    CComboBox m_comboValidRule;
    OrvoStdSet m_stdNone;  // what the controls edit while there is no current standard; kept nowhere
};

// Runs the dialog over a parent; gives its result.
ORVO_API INT_PTR SunStdDlgDoModal(CWnd* parent);
