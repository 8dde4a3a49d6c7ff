// The editor of the places.
// Why: docs/decisions/zone.md
#pragma once

#include "platform/base/Api.h"
#include "platform/window/QcUiDialog.h"
#include "zone/OrvoZoneWDGrid.h"

// Shows g_dictSunZone in a grid. OK writes the grid back into it and saves zone.xml; until then, whatever is edited or
// imported stays in the grid. To be run within the module's resources.
class ORVO_API OrvoZoneDbSetDlg : public QcUiDialog {
public:
    // To be run over a parent; null: over the window that is active then.
    explicit OrvoZoneDbSetDlg(CWnd* parent = nullptr);
    ~OrvoZoneDbSetDlg() override;

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnImport();

    DECLARE_MESSAGE_MAP()

private:
    OrvoZoneWDGrid m_grid;
};

// Runs the editor over the host's main window, whatever the parent given; gives its result, 0 where there is no memory
// for it.
ORVO_API INT_PTR SunZoneDbDoModal(CWnd* parent);
