// Turns a widget's events into its window's messages; CWnd.h says which becomes which.
#include "platform/window/toolkit/WindowEvents.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QWidget>
#include <memory>
#include <utility>

#include "platform/window/toolkit/DispatchContext.h"
#include "platform/window/toolkit/LiveEvent.h"
#include "platform/window/toolkit/VirtualKeys.h"

namespace {

// A menu or a drop-down list borrows the focus; the window has it still.
bool IsBorrowed(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason;
}

bool IsDialogKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            return true;
        default:
            return false;
    }
}

bool WantsDialogKey(WindowLink& link, const QKeyEvent& event) {
    const LRESULT wanted = Dispatch(link, WM_GETDLGCODE, ToVirtualKey(event), 0);
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    return (wanted & (DLGC_WANTALLKEYS | (tab ? DLGC_WANTTAB : 0))) != 0;
}

bool ChangesOnWheel(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) != nullptr || qobject_cast<const QDateEdit*>(&widget) != nullptr;
}

class WindowEvents : public QObject {
public:
    explicit WindowEvents(std::unique_ptr<WindowLink> link) : QObject(link->m_widget), m_link(std::move(link)) {
        m_link->m_widget->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != m_link->m_widget || m_link->IsGoing())
            return false;
        switch (event->type()) {
            case QEvent::KeyPress:
                return Key(static_cast<QKeyEvent*>(event));
            case QEvent::FocusIn:
                return Focus(static_cast<QFocusEvent*>(event), WM_SETFOCUS, DispatchContext::Current().lastFocus);
            case QEvent::FocusOut:
                DispatchContext::Current().lastFocus = m_link->Handle();
                return Focus(static_cast<QFocusEvent*>(event), WM_KILLFOCUS, FocusedWindow());
            case QEvent::MouseMove:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
                return Mouse(static_cast<QMouseEvent*>(event));
            case QEvent::ContextMenu:
                return ContextMenu(static_cast<QContextMenuEvent*>(event));
            case QEvent::InputMethod:
                return Compose(static_cast<QInputMethodEvent*>(event));
            case QEvent::Wheel:
                return Wheel(event);
            case QEvent::Resize:
                return Resize(static_cast<QResizeEvent*>(event));
            default:
                return false;
        }
    }

private:
    static HWND FocusedWindow() {
        const WindowLink* link = WindowLink::Around(QApplication::focusWidget());
        return link ? link->Handle() : nullptr;
    }

    // One event, one message. What the handlers keep to themselves counts as done.
    bool Pass(QEvent* event, UINT message, WPARAM wParam, LPARAM lParam) {
        LiveEvent live(m_link->m_widget, event);
        live.Allow(message, wParam);
        Dispatch(*m_link, message, wParam, lParam);
        if (!live.IsDelivered())
            event->accept();
        return true;
    }

    bool Focus(QFocusEvent* event, UINT message, HWND other) {
        if (IsBorrowed(*event))
            return false;
        return Pass(event, message, reinterpret_cast<WPARAM>(other), 0);
    }

    bool Key(QKeyEvent* event) {
        if (IsDialogKey(*event) && m_link->IsInDialog() && !WantsDialogKey(*m_link, *event))
            return false;
        const UINT key = ToVirtualKey(*event);
        if (event->modifiers().testFlag(Qt::AltModifier) && !event->modifiers().testFlag(Qt::ControlModifier))
            return Pass(event, WM_SYSKEYDOWN, key, 1);
        const std::wstring characters = CharactersOf(*event).toStdWString();
        if (characters.empty())
            return Pass(event, WM_KEYDOWN, key, 1);
        return Characters(event, key, characters);
    }

    // The widget gets the event with the character, so that whoever refuses that refuses the key.
    bool Characters(QKeyEvent* event, UINT key, const std::wstring& characters) {
        const HWND handle = m_link->Handle();
        LiveEvent live(m_link->m_widget, event);
        live.Precede(WM_KEYDOWN, key);
        Dispatch(*m_link, WM_KEYDOWN, key, 1);
        // Several characters of one key are typed one by one.
        live.Allow(characters.size() == 1 ? WM_CHAR : 0, static_cast<WPARAM>(characters.front()));
        for (const wchar_t character : characters)
            if (WindowLink* link = WindowLink::Of(handle))
                Dispatch(*link, WM_CHAR, static_cast<WPARAM>(character), 1);
        if (!live.IsDelivered())
            event->accept();
        return true;
    }

    // A window that keeps what is being composed shows none of it, and gets what comes of it as if it were typed.
    bool Compose(QInputMethodEvent* event) {
        const HWND handle = m_link->Handle();
        const std::wstring committed = event->commitString().toStdWString();
        LiveEvent live(m_link->m_widget, event);
        live.Allow(WM_IME_COMPOSITION, 0);
        Dispatch(*m_link, WM_IME_COMPOSITION, 0, 0);
        if (live.IsDelivered())
            return true;
        event->accept();
        for (const wchar_t character : committed)
            if (WindowLink* link = WindowLink::Of(handle))
                Dispatch(*link, WM_CHAR, static_cast<WPARAM>(character), 1);
        return true;
    }

    void AskForCursor(UINT mouseMessage) {
        Dispatch(*m_link, WM_SETCURSOR, reinterpret_cast<WPARAM>(m_link->Handle()),
                 MAKELONG(HTCLIENT, static_cast<int>(mouseMessage)));
    }

    // While a button is held down the mouse belongs to the window, and its cursor is not asked for.
    bool Mouse(QMouseEvent* event) {
        const HWND handle = m_link->Handle();
        if (event->type() != QEvent::MouseButtonRelease) {
            if (event->type() == QEvent::MouseButtonPress || event->buttons() == Qt::NoButton)
                AskForCursor(event->type() == QEvent::MouseMove ? WM_MOUSEMOVE : WM_LBUTTONDOWN);
            return WindowLink::Of(handle) == nullptr;
        }
        if (event->button() == Qt::MiddleButton)
            Pass(event, WM_PASTE, 0, 0);
        else
            static_cast<QObject*>(m_link->m_widget)->event(event);
        if (WindowLink::Of(handle) != nullptr)
            AskForCursor(WM_MOUSEMOVE);
        return true;
    }

    bool ContextMenu(QContextMenuEvent* event) {
        return Pass(event, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_link->Handle()),
                    MAKELONG(event->globalX(), event->globalY()));
    }

    // Scrolling a dialog must not change the value of whatever comes under the mouse.
    bool Wheel(QEvent* event) {
        if (!ChangesOnWheel(*m_link->m_widget) || m_link->m_widget->hasFocus())
            return false;
        event->ignore();
        return true;
    }

    bool Resize(QResizeEvent* event) {
        static_cast<QObject*>(m_link->m_widget)->event(event);
        Dispatch(*m_link, WM_SIZE, 0, MAKELONG(event->size().width(), event->size().height()));
        return true;
    }

    std::unique_ptr<WindowLink> m_link;
};

}  // namespace

WindowLink& MakeWindow(QWidget* widget, UINT id, DWORD style, WindowLink::Procedure procedure) {
    auto made = std::make_unique<WindowLink>(widget, id, style, procedure);
    WindowLink& link = *made;
    widget->setObjectName(QString("IDC_%1").arg(id));
    new WindowEvents(std::move(made));  // a child of the widget
    return link;
}
