// The CWnd side of a window: attaching, messages and their maps. State and text of the widget are in CWndState.cpp.
#include "platform/window/CWnd.h"

#include <QPointer>
#include <QWidget>
#include <memory>
#include <utility>

#include "platform/window/toolkit/DispatchContext.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

CWnd* s_pFrame = nullptr;

// A CWnd as its window knows it. Its handlers may detach it, with which this goes while they run.
class Attached final : public MessageTarget {
public:
    explicit Attached(CWnd& window) : m_window(window) {}

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        return m_window.WindowProc(message, wParam, lParam);
    }
    void LoseWindow() override {
        m_window.m_hWnd = nullptr;
        m_window.PostNcDestroy();
    }
    CWnd& Window() const { return m_window; }

private:
    CWnd& m_window;
};

// Nothing else is ever attached; null when nothing is.
CWnd* AttachedTo(const WindowLink& link) {
    return link.m_target ? &static_cast<const Attached&>(*link.m_target).Window() : nullptr;
}

// Stands for a window that has no CWnd of the program's own.
struct Temporary final : WindowCompanion {
    CWnd window;
};

// Tells a window and everything in it that it goes, the window first.
void SendDestroy(WindowLink& link) {
    const HWND handle = link.Handle();
    Dispatch(link, WM_DESTROY, 0, 0);
    if (WindowLink::Of(handle) == nullptr)
        return;
    std::vector<HWND> inside;
    for (const WindowLink* control : WindowLink::Controls(link.m_widget))
        inside.push_back(control->Handle());
    for (const HWND control : inside)
        if (WindowLink* still = WindowLink::Of(control))
            SendDestroy(*still);
}

// Whether a handler of the window or of one in it is running.
bool IsRunning(const WindowLink& link) {
    if (link.m_running > 0)
        return true;
    for (const WindowLink* control : WindowLink::Controls(link.m_widget))
        if (IsRunning(*control))
            return true;
    return false;
}

// Lets the attached object go before the widget does, which may be later.
void Release(WindowLink& link) {
    for (WindowLink* control : WindowLink::Controls(link.m_widget))
        Release(*control);
    if (CWnd* attached = AttachedTo(link)) {
        attached->Detach();
        attached->PostNcDestroy();
    }
}

const AFX_MSGMAP_ENTRY* FindHandler(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    for (; map != nullptr; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfnCall != nullptr; ++entry)
            if (entry->nMessage == message && entry->nCode == code && entry->nID == id)
                return entry;
    return nullptr;
}

}  // namespace

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return Dispatch(window, message, wParam, lParam);
}

CWnd::~CWnd() {
    Detach();
}

CWnd* CWnd::FromHandle(HWND window) {
    WindowLink* link = WindowLink::Of(window);
    if (link == nullptr)
        return nullptr;
    if (CWnd* attached = AttachedTo(*link))
        return attached;
    if (!link->m_temporary) {
        auto made = std::make_unique<Temporary>();
        made->window.m_hWnd = window;
        link->m_temporary = std::move(made);
    }
    return &static_cast<Temporary&>(*link->m_temporary).window;
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    const WindowLink* link = WindowLink::Of(window);
    return link ? AttachedTo(*link) : nullptr;
}

BOOL CWnd::Attach(HWND window) {
    WindowLink* link = WindowLink::Of(window);
    if (link == nullptr || link->m_target || m_hWnd != nullptr)
        return FALSE;
    link->m_target = std::make_unique<Attached>(*this);
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND window = m_hWnd;
    if (WindowLink* link = WindowLink::Of(window))
        if (AttachedTo(*link) == this)
            link->m_target.reset();
    m_hWnd = nullptr;
    return window;
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!Attach(window))
        return FALSE;
    PreSubclassWindow();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    const WindowLink* around = parent ? WindowLink::Of(parent->m_hWnd) : nullptr;
    const WindowLink* control = around ? WindowLink::Find(around->m_widget, id) : nullptr;
    return control && SubclassWindow(control->Handle());
}

HWND CWnd::UnsubclassWindow() {
    return Detach();
}

BOOL CWnd::DestroyWindow() {
    WindowLink* link = WindowLink::Of(m_hWnd);
    if (link == nullptr)
        return FALSE;
    const QPointer<QWidget> widget = link->m_widget;
    SendDestroy(*link);
    link = WindowLink::Of(widget.data());
    if (widget.isNull() || link == nullptr)
        return TRUE;
    const bool running = IsRunning(*link);
    Release(*link);
    if (widget.isNull())
        return TRUE;
    widget->hide();
    if (running)
        widget->deleteLater();
    else
        delete widget.data();
    return TRUE;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    if (WindowLink::Of(m_hWnd) == nullptr)
        return FALSE;
    return CDataExchange(this, saveAndValidate).Run() ? TRUE : FALSE;
}

void CWnd::DoDataExchange(CDataExchange* /*exchange*/) {}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    WindowLink* link = WindowLink::Of(m_hWnd);
    return link ? link->m_procedure(*link, message, wParam, lParam) : 0;
}

LRESULT CWnd::Default() {
    const DispatchContext::Message message = DispatchContext::Current().message;
    return DefWindowProc(message.id, message.wParam, message.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND)
        return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY)
        return OnNotify(wParam, lParam, result);
    const AFX_MSGMAP_ENTRY* entry = FindHandler(GetMessageMap(), message, 0, 0);
    if (entry == nullptr)
        return FALSE;
    *result = entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const AFX_MSGMAP_ENTRY* entry = FindHandler(GetMessageMap(), WM_COMMAND, HIWORD(wParam), LOWORD(wParam));
    if (entry == nullptr)
        return FALSE;
    entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* head = reinterpret_cast<const NMHDR*>(lParam);
    if (head == nullptr)
        return FALSE;
    const AFX_MSGMAP_ENTRY* entry =
        FindHandler(GetMessageMap(), WM_NOTIFY, head->code, static_cast<UINT>(head->idFrom));
    if (entry == nullptr)
        return FALSE;
    *result = entry->pfnCall(this, wParam, lParam);
    return TRUE;
}

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static constexpr AFX_MSGMAP_ENTRY s_none[] = {{0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP s_map = {nullptr, s_none};
    return &s_map;
}

const AFX_MSGMAP* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

void CWnd::OnChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) {
    Default();
}

void CWnd::OnKeyDown(UINT /*key*/, UINT /*repeatCount*/, UINT /*flags*/) {
    Default();
}

void CWnd::OnSetFocus(CWnd* /*oldWindow*/) {
    Default();
}

void CWnd::OnKillFocus(CWnd* /*newWindow*/) {
    Default();
}

BOOL CWnd::OnSetCursor(CWnd* /*window*/, UINT /*hitTest*/, UINT /*message*/) {
    return static_cast<BOOL>(Default());
}

void CWnd::OnDestroy() {
    Default();
}

void CWnd::OnClose() {
    Default();
}

CWnd* acedGetAcadFrame() {
    return s_pFrame;
}

void acedSetAcadFrame(CWnd* frame) {
    s_pFrame = frame;
}
