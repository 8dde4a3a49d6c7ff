// The toolkit's menu, made anew each time it is shown.
#include "platform/window/CMenu.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>

#include "platform/window/toolkit/Application.h"
#include "platform/window/toolkit/ModalRun.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

QAction* ActionOf(const QMenu& menu, int command) {
    for (QAction* action : menu.actions())
        if (action->data().toInt() == command && action->isEnabled() && !action->isSeparator())
            return action;
    return nullptr;
}

// Shows the menu, answered by a person or a driver; 0 when nothing is chosen. The menu goes with its owner, should that
// be destroyed meanwhile.
int Choose(const QPointer<QMenu>& menu, const QPoint& place, ModalWindow window) {
    window.widget = static_cast<QWidget*>(menu.data());
    QTimer timer;
    int command = 0;
    timer.callOnTimeout(menu, [&] {
        if (!menu->isVisible())
            return;
        timer.stop();
        command = ModalDriver::Ask(window);
        if (command != 0 && !menu.isNull())
            menu->close();
    });
    if (ModalDriver::IsThere())
        timer.start(0);
    const QAction* chosen = menu->exec(place);
    if (menu.isNull())
        return 0;
    if (command != 0)
        chosen = ActionOf(*menu, command);
    if (command != 0 && !chosen && command != IDCANCEL && command != ModalDriver::kCareful)
        ModalDriver::ReportUnknown(window, command);
    return chosen ? chosen->data().toInt() : 0;
}

}  // namespace

BOOL CMenu::CreatePopupMenu() {
    if (m_isCreated)
        return FALSE;
    m_isCreated = true;
    return TRUE;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text) {
    if (!m_isCreated)
        return FALSE;
    m_items.push_back({flags, static_cast<UINT>(id), text});
    return TRUE;
}

int CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner) {
    if (!m_isCreated || !CanBeAnswered())
        return 0;
    const HWND ownerWindow = owner ? owner->m_hWnd : nullptr;
    const QPointer<QMenu> menu = new QMenu(WidgetOf(ownerWindow));
    menu->setObjectName("PopupMenu");
    CString entries;
    for (const Item& item : m_items) {
        if ((item.flags & MF_SEPARATOR) != 0) {
            entries += L"\n";
            menu->addSeparator();
            continue;
        }
        entries += item.text + L"\n";
        QAction* action = menu->addAction(ToQString(item.text));
        action->setData(static_cast<int>(item.id));
        action->setEnabled((item.flags & MF_GRAYED) == 0);
        action->setCheckable((item.flags & MF_CHECKED) != 0);
        action->setChecked((item.flags & MF_CHECKED) != 0);
    }
    const int command = Choose(menu, {x, y}, {CString(), entries, ownerWindow, nullptr});
    delete menu.data();
    if ((flags & TPM_RETURNCMD) != 0 || command == 0)
        return command;
    ::SendMessage(ownerWindow, WM_COMMAND, MAKEWPARAM(static_cast<UINT>(command), 0), 0);
    return TRUE;
}
