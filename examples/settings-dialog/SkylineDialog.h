// A settings dialog of one's own: what all analyses share comes from the base, the skyline's height is the plug-in's.
#pragma once

#include "platform/window/QcUiDialog.h"
#include "settings/OrvoDataSetDlgBase.h"

// OK writes the choices into g_SunDataSet, which the module saves at the end of the program.
class SkylineDialog : public QcUiDialog, public OrvoDataSetDlgBase {
public:
    explicit SkylineDialog(CWnd* parent, double height);

    double GetHeight() const { return m_dHeight; }  // degrees

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    afx_msg void OnSelchangePlace();

    DECLARE_MESSAGE_MAP()

private:
    void ShowPlace(const CString& name);

    CString m_strPlace;  // the one that is chosen
    double m_dHeight;
};
