// The dialog of the precisions, which also chooses the current standard and place.
// Why: docs/decisions/settings.md
#pragma once

#include "platform/base/Api.h"
#include "platform/window/QcUiDialog.h"
#include "settings/OrvoDataSetDlgBase.h"

// Shows lengths in the drawing's unit; OK writes them, in millimetres, to the parameters that all analyses share, and
// the choices of standard and place to g_dictSunSet. To be run within the module's resources.
class ORVO_API OrvoDataPrecisSetDlg : public QcUiDialog, public OrvoDataSetDlgBase {
public:
    // For sunlight, or for the glare of curtain walls.
    explicit OrvoDataPrecisSetDlg(CWnd* parent, bool lightPollution = false);
    ~OrvoDataPrecisSetDlg() override;

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    afx_msg void OnSelchangeStandard();
    afx_msg void OnAnnotate();
    afx_msg void OnSelchangeUnit();
    afx_msg void OnSelchangePlace();
    afx_msg void ShowPlace();

    DECLARE_MESSAGE_MAP()

private:
    void CheckCity();
    void ShowUnknownCity(const CString& city);
    void ShowStandards();
    void RunStandards();
    void ChoosePlaceFromDatabase();
    int FindPlace(const CString& city) const;
    void SaveChoices() const;

    double m_dWinOffset;  // in the drawing's unit, like the other lengths
    double m_dAnglePrec;  // degrees
    double m_dDistancePrec;
    double m_dArcPrec;  // shown and scaled, and kept nowhere
    int m_nUnit;        // 0: millimetres, 1: metres
    bool m_bLightPollution;
};
