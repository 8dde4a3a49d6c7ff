// The operations of buttons, each of which sends a message.
#include "platform/window/CButton.h"

BEGIN_MESSAGE_MAP(CButton, CWnd)
END_MESSAGE_MAP()

int CButton::GetCheck() const {
    return static_cast<int>(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}
