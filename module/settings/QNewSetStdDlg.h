// Asks for the name of a standard.
// Why: docs/decisions/settings.md
#pragma once

#include "platform/base/Api.h"
#include "platform/window/CDialog.h"

// A name that a standard of g_SunDataSet bears already is refused, and so is one that cannot be a standard's. To be run
// within the module's resources.
class ORVO_API QNewSetStdDlg : public CDialog {
public:
    // To be run over a parent; null: over the window that is active then.
    explicit QNewSetStdDlg(CWnd* parent = nullptr);
    ~QNewSetStdDlg() override;

    CString m_strName;  // what the edit shows, and the user's entry after OK; "新建标准"
    bool m_bRename =
        false;  // the dialog says that it renames. The name that is shown is refused then, too, on purpose.

    BOOL OnInitDialog() override;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
};
