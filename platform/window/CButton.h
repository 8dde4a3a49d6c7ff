// Push buttons, check boxes, radio buttons.
#pragma once

#include "platform/window/CWnd.h"

// Check boxes and radio buttons switch themselves. Notification to the parent: BN_CLICKED, for the user's clicks and
// keys and for BM_CLICK, not for SetCheck.
class ORVO_API CButton : public CWnd {
public:
    int GetCheck() const;      // BST_CHECKED or BST_UNCHECKED
    void SetCheck(int check);  // the same; the parent is not told

protected:
    DECLARE_MESSAGE_MAP()
};
