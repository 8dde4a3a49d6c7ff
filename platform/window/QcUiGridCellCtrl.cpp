// What all cell editors share: whether a window is theirs.
#include "platform/window/QcUiGridCellCtrl.h"

#include "platform/window/CWnd.h"

QcUiGridCellCtrl::~QcUiGridCellCtrl() = default;

bool QcUiGridCellCtrl::IsMyFocus(CWnd* window) {
    CWnd* own = GetWnd();
    if (window == nullptr || own == nullptr || window->m_hWnd == nullptr)
        return false;
    return window->m_hWnd == own->m_hWnd || own->IsChild(window);
}
