// Which widgets are windows, and how a message reaches them.
#include "platform/window/toolkit/WindowLink.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <unordered_map>
#include <utility>

#include "platform/window/toolkit/DispatchContext.h"
#include "platform/window/toolkit/LiveEvent.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/VirtualKeys.h"

namespace {

// Windows may outlive every static object, so the table does too.
std::unordered_map<const QWidget*, WindowLink*>& Table() {
    static auto& table = *new std::unordered_map<const QWidget*, WindowLink*>;
    return table;
}

int s_nLastOrder = 0;

// A message is the one that is being handled for as long as this lives.
class Handling {
public:
    explicit Handling(const DispatchContext::Message& message)
        : m_outer(std::exchange(DispatchContext::Current().message, message)) {}
    ~Handling() { DispatchContext::Current().message = m_outer; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

private:
    DispatchContext::Message m_outer;
};

}  // namespace

WindowLink::WindowLink(QWidget* widget, UINT id, DWORD style, Procedure procedure)
    : m_widget(widget),
      m_id(id),
      m_style(style),
      m_procedure(procedure),
      m_order(++s_nLastOrder),
      m_kind(widget->metaObject()) {
    Table()[widget] = this;
}

bool WindowLink::IsGoing() const {
    return m_widget->metaObject() != m_kind;
}

WindowLink::~WindowLink() {
    Table().erase(m_widget);
    if (const std::unique_ptr<MessageTarget> target = std::move(m_target))
        target->LoseWindow();
}

WindowLink* WindowLink::Of(HWND window) {
    return Of(reinterpret_cast<const QWidget*>(window));
}

WindowLink* WindowLink::Of(const QWidget* widget) {
    const auto found = Table().find(widget);
    return found == Table().end() ? nullptr : found->second;
}

WindowLink* WindowLink::Around(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (WindowLink* link = Of(widget))
            return link;
    return nullptr;
}

std::vector<WindowLink*> WindowLink::Controls(const QWidget* dialog) {
    std::vector<WindowLink*> controls;
    for (QObject* child : dialog->children())
        if (child->isWidgetType())
            if (WindowLink* link = Of(static_cast<QWidget*>(child)))
                controls.push_back(link);
    std::sort(controls.begin(), controls.end(),
              [](const WindowLink* left, const WindowLink* right) { return left->m_order < right->m_order; });
    return controls;
}

WindowLink* WindowLink::Find(const QWidget* dialog, UINT id) {
    for (WindowLink* link : Controls(dialog))
        if (link->m_id == id)
            return link;
    return nullptr;
}

HWND WindowLink::HandleOf(const QWidget* widget) {
    return reinterpret_cast<HWND>(const_cast<QWidget*>(widget));
}

WindowLink* WindowLink::Parent() const {
    return Around(m_widget->parentWidget());
}

bool WindowLink::IsInDialog() const {
    for (const WindowLink* around = Parent(); around != nullptr; around = around->Parent())
        if (around->m_isDialog)
            return true;
    return false;
}

void WindowLink::NotifyParent(UINT code) {
    const WindowAtWork atWork(*this);
    if (WindowLink* parent = Parent())
        Dispatch(*parent, WM_COMMAND, MAKEWPARAM(m_id, code), reinterpret_cast<LPARAM>(Handle()));
}

LRESULT WindowLink::NotifyParent(NMHDR& head) {
    const WindowAtWork atWork(*this);
    head.hwndFrom = Handle();
    head.idFrom = m_id;
    WindowLink* parent = Parent();
    return parent ? Dispatch(*parent, WM_NOTIFY, m_id, reinterpret_cast<LPARAM>(&head)) : 0;
}

bool WindowLink::DeliverEvent(UINT message, WPARAM wParam) {
    return LiveEvent::Deliver(m_widget, message, wParam);
}

void WindowLink::IgnoreEvent() {
    LiveEvent::Ignore(m_widget);
}

void WindowLink::TypeKey(UINT virtualKey) {
    QKeyEvent event(QEvent::KeyPress, ToQtKey(virtualKey), Qt::NoModifier);
    static_cast<QObject*>(m_widget)->event(&event);
}

void WindowLink::TypeCharacter(wchar_t character) {
    // Control characters are what Ctrl and a letter give; Backspace is a key of its own.
    constexpr wchar_t kControlCharacters = 0x20;
    constexpr int kLetterBit = 0x40;
    const bool control = character < kControlCharacters && character != VK_BACK;
    const int key = character == VK_BACK ? Qt::Key_Backspace : control ? (character | kLetterBit) : 0;
    QKeyEvent event(QEvent::KeyPress, key, control ? Qt::ControlModifier : Qt::NoModifier,
                    QString::fromWCharArray(&character, 1));
    static_cast<QObject*>(m_widget)->event(&event);
}

WindowAtWork::~WindowAtWork() {
    if (WindowLink* still = WindowLink::Of(m_window))
        --still->m_running;
}

LRESULT Dispatch(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    if (link.IsGoing())
        return 0;
    const WindowAtWork atWork(link);
    if (!link.m_target)
        return link.m_procedure(link, message, wParam, lParam);
    const Handling handling({message, wParam, lParam});
    return link.m_target->Handle(message, wParam, lParam);
}

LRESULT Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WindowLink* link = WindowLink::Of(window);
    return link ? Dispatch(*link, message, wParam, lParam) : 0;
}

CString TextOf(HWND window) {
    const auto length = static_cast<std::size_t>(Dispatch(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring buffer(length + 1, L'\0');
    const LRESULT copied = Dispatch(window, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return CString(std::wstring_view(buffer.data(), static_cast<std::size_t>(copied)));
}

LRESULT CopyText(const CString& text, WPARAM room, LPARAM buffer) {
    auto* target = reinterpret_cast<wchar_t*>(buffer);
    if (target == nullptr || room == 0)
        return 0;
    const std::size_t count = std::min(static_cast<std::size_t>(text.GetLength()), static_cast<std::size_t>(room - 1));
    std::copy_n(text.GetString(), count, target);
    target[count] = L'\0';
    return static_cast<LRESULT>(count);
}

LRESULT CommonProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT:
            link.m_widget->setWindowTitle(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            return TRUE;
        case WM_GETTEXT:
            return CopyText(FromQString(link.m_widget->windowTitle()), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return FromQString(link.m_widget->windowTitle()).GetLength();
        case WM_KEYDOWN:
            if (!link.DeliverEvent(message, wParam))
                link.TypeKey(static_cast<UINT>(wParam));
            return 0;
        case WM_CHAR:
            if (!link.DeliverEvent(message, wParam))
                link.TypeCharacter(static_cast<wchar_t>(wParam));
            return 0;
        default:
            link.DeliverEvent(message, wParam);
            return 0;
    }
}
