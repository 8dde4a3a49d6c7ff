// A parent that edits here never have.
#pragma once

#include "platform/window/CEdit.h"

class CPropertyPage : public CWnd {
public:
    void SetModified(BOOL) {}
};
