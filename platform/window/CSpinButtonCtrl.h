// The pair of arrows beside an edit.
// Why: docs/decisions/window.md
#pragma once

#include "platform/window/CWnd.h"

// With UDS_AUTOBUDDY the arrows belong to the control before them in the template, and with UDS_SETBUDDYINT they read
// and write the number in it; UDS_ARROWKEYS lets the up and down keys do the same there. Each step asks the parent
// first (UDN_DELTAPOS). The range is 0 to 100 at first. Where the upper end is below the lower one, up counts down.
class ORVO_API CSpinButtonCtrl : public CWnd {
public:
    // The range, both ends included.
    void SetRange(int lower, int upper);
    void GetRange(int& lower, int& upper) const;
    int SetPos(int position);  // gives the position before; clamped to the range
    int GetPos() const;        // the number in the buddy, clamped; the last position where that is no number
    // The control that the arrows belong to, null for none; setting gives the one before. It stays its owner's.
    CWnd* SetBuddy(CWnd* buddy);
    CWnd* GetBuddy() const;

protected:
    DECLARE_MESSAGE_MAP()
};
