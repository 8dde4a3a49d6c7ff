// A page of a property sheet: tells the sheet that something has changed.
#include "platform/window/CPropertyPage.h"

CPropertyPage::~CPropertyPage() = default;

void CPropertyPage::SetModified(BOOL changed) {
    m_isModified = changed;
    if (CWnd* sheet = GetParent())
        sheet->SendMessage(changed ? PSM_CHANGED : PSM_UNCHANGED, reinterpret_cast<WPARAM>(m_hWnd));
}
