// The operations of spin buttons, which the arrows on the screen carry out.
#include "platform/window/CSpinButtonCtrl.h"

#include "platform/window/toolkit/SpinArrows.h"
#include "platform/window/toolkit/WindowLink.h"

BEGIN_MESSAGE_MAP(CSpinButtonCtrl, CWnd)
END_MESSAGE_MAP()

void CSpinButtonCtrl::SetRange(int lower, int upper) {
    if (SpinArrows* arrows = SpinArrows::Of(m_hWnd))
        arrows->SetRange(lower, upper);
}

void CSpinButtonCtrl::GetRange(int& lower, int& upper) const {
    lower = upper = 0;
    if (const SpinArrows* arrows = SpinArrows::Of(m_hWnd))
        arrows->GetRange(lower, upper);
}

int CSpinButtonCtrl::SetPos(int position) {
    SpinArrows* arrows = SpinArrows::Of(m_hWnd);
    return arrows ? arrows->SetPos(position) : 0;
}

int CSpinButtonCtrl::GetPos() const {
    const SpinArrows* arrows = SpinArrows::Of(m_hWnd);
    return arrows ? arrows->GetPos() : 0;
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* buddy) {
    CWnd* before = GetBuddy();
    const WindowLink* link = buddy ? WindowLink::Of(buddy->m_hWnd) : nullptr;
    if (SpinArrows* arrows = SpinArrows::Of(m_hWnd))
        arrows->SetBuddy(link ? link->m_widget : nullptr);
    return before;
}

CWnd* CSpinButtonCtrl::GetBuddy() const {
    const SpinArrows* arrows = SpinArrows::Of(m_hWnd);
    return arrows ? FromHandle(WindowLink::HandleOf(arrows->GetBuddy())) : nullptr;
}
