// One run of a data exchange. A refused entry ends it by an exception, which begins and ends in here.
#include "platform/window/CWnd.h"

namespace {

struct RunEnded {};

}  // namespace

bool CDataExchange::Run() {
    try {
        m_pDlgWnd->DoDataExchange(this);
    } catch (const RunEnded&) {
        return false;
    }
    return true;
}

CWnd* CDataExchange::PrepareCtrl(int id) {
    CWnd* control = m_pDlgWnd->GetDlgItem(id);
    if (control == nullptr)
        throw RunEnded();
    m_lastControl = control->m_hWnd;
    m_isEditLast = false;
    return control;
}

CWnd* CDataExchange::PrepareEditCtrl(int id) {
    CWnd* control = PrepareCtrl(id);
    m_isEditLast = true;
    return control;
}

void CDataExchange::Fail() {
    CWnd* control = m_bSaveAndValidate ? CWnd::FromHandle(m_lastControl) : nullptr;
    if (control != nullptr) {
        control->SetFocus();
        if (m_isEditLast)
            ::SendMessage(m_lastControl, EM_SETSEL, 0, -1);
    }
    throw RunEnded();
}
