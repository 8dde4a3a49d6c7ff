// What a CWnd asks of its widget: text, state, place, controls.
#include <QApplication>
#include <QLineEdit>
#include <QWidget>
#include <utility>

#include "platform/window/CWnd.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

QWidget* Widget(HWND window) {
    const WindowLink* link = WindowLink::Of(window);
    return link ? link->m_widget : nullptr;
}

RECT ToRect(const QPoint& corner, const QSize& size) {
    return {corner.x(), corner.y(), corner.x() + size.width(), corner.y() + size.height()};
}

}  // namespace

// A font is the toolkit's, handed round without being looked into.
struct CFont::Impl {
    QFont font;
};

CFont::CFont() : m_impl(new Impl) {}

CFont::~CFont() {
    delete m_impl;
}

namespace {

struct FontOfWindow final : WindowCompanion {
    CFont font;
};

}  // namespace

void CWnd::SetWindowText(const wchar_t* text) {
    SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : L""));
}

void CWnd::GetWindowText(CString& text) const {
    text = TextOf(m_hWnd);
}

int CWnd::GetWindowTextLength() const {
    return static_cast<int>(SendMessage(WM_GETTEXTLENGTH));
}

DWORD CWnd::GetStyle() const {
    const WindowLink* link = WindowLink::Of(m_hWnd);
    if (link == nullptr)
        return 0;
    DWORD style = link->m_style & ~(WS_VISIBLE | WS_DISABLED);
    if (!link->m_widget->isHidden())
        style |= WS_VISIBLE;
    if (!IsWindowEnabled())
        style |= WS_DISABLED;
    return style;
}

int CWnd::GetDlgCtrlID() const {
    const WindowLink* link = WindowLink::Of(m_hWnd);
    return link ? static_cast<int>(link->m_id) : 0;
}

BOOL CWnd::EnableWindow(BOOL enable) {
    QWidget* widget = Widget(m_hWnd);
    if (widget == nullptr)
        return FALSE;
    const BOOL wasDisabled = IsWindowEnabled() ? FALSE : TRUE;
    widget->setEnabled(enable != FALSE);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const {
    const QWidget* widget = Widget(m_hWnd);
    return widget && widget->isEnabledTo(widget->parentWidget()) ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int command) {
    QWidget* widget = Widget(m_hWnd);
    if (widget == nullptr)
        return FALSE;
    const BOOL wasVisible = widget->isHidden() ? FALSE : TRUE;
    widget->setVisible(command != SW_HIDE);
    return wasVisible;
}

BOOL CWnd::IsWindowVisible() const {
    const QWidget* widget = Widget(m_hWnd);
    return widget && widget->isVisible() ? TRUE : FALSE;
}

CWnd* CWnd::SetFocus() {
    CWnd* before = GetFocus();
    if (QWidget* widget = Widget(m_hWnd))
        widget->setFocus(Qt::OtherFocusReason);
    return before;
}

CWnd* CWnd::GetFocus() {
    const WindowLink* link = WindowLink::Around(QApplication::focusWidget());
    return link ? FromHandle(link->Handle()) : nullptr;
}

CWnd* CWnd::GetParent() const {
    const WindowLink* link = WindowLink::Of(m_hWnd);
    const WindowLink* parent = link ? link->Parent() : nullptr;
    return parent ? FromHandle(parent->Handle()) : nullptr;
}

BOOL CWnd::IsChild(const CWnd* window) const {
    const QWidget* outer = Widget(m_hWnd);
    const QWidget* inner = window ? Widget(window->m_hWnd) : nullptr;
    return outer && inner && outer != inner && outer->isAncestorOf(inner) ? TRUE : FALSE;
}

void CWnd::GetClientRect(RECT* rect) const {
    const QWidget* widget = Widget(m_hWnd);
    *rect = widget ? ToRect({0, 0}, widget->size()) : RECT{};
}

void CWnd::GetWindowRect(RECT* rect) const {
    const QWidget* widget = Widget(m_hWnd);
    *rect = widget ? ToRect(widget->mapToGlobal(QPoint(0, 0)), widget->size()) : RECT{};
}

void CWnd::ScreenToClient(RECT* rect) const {
    const QWidget* widget = Widget(m_hWnd);
    if (widget == nullptr)
        return;
    const QPoint corner = widget->mapFromGlobal(QPoint(rect->left, rect->top));
    *rect = ToRect(corner, {rect->right - rect->left, rect->bottom - rect->top});
}

void CWnd::MoveWindow(const RECT* rect, BOOL /*repaint*/) {
    if (QWidget* widget = Widget(m_hWnd))
        widget->setGeometry(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top);
}

CFont* CWnd::GetFont() const {
    WindowLink* link = WindowLink::Of(m_hWnd);
    if (link == nullptr)
        return nullptr;
    if (!link->m_font)
        link->m_font = std::make_unique<FontOfWindow>();
    CFont& font = static_cast<FontOfWindow&>(*link->m_font).font;
    font.m_impl->font = link->m_widget->font();
    return &font;
}

void CWnd::SetFont(CFont* font, BOOL /*redraw*/) {
    QWidget* widget = Widget(m_hWnd);
    if (widget == nullptr)
        return;
    QFont whole = font ? font->m_impl->font : QFont();
    // What a font has not been told by itself would come from the toolkit's font for this class of widgets.
    if (font != nullptr)
        whole.setResolveMask(QFont::AllPropertiesResolved);
    widget->setFont(whole);
}

CWnd* CWnd::GetDlgItem(int id) const {
    const QWidget* widget = Widget(m_hWnd);
    const WindowLink* control = widget ? WindowLink::Find(widget, static_cast<UINT>(id)) : nullptr;
    return control ? FromHandle(control->Handle()) : nullptr;
}

void CWnd::SetDlgItemText(int id, const wchar_t* text) {
    if (CWnd* control = GetDlgItem(id))
        control->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    text.Empty();
    if (const CWnd* control = GetDlgItem(id))
        control->GetWindowText(text);
    return text.GetLength();
}

void CWnd::CheckDlgButton(int id, UINT check) {
    if (CWnd* control = GetDlgItem(id))
        control->SendMessage(BM_SETCHECK, check);
}

UINT CWnd::IsDlgButtonChecked(int id) const {
    const CWnd* control = GetDlgItem(id);
    return control ? static_cast<UINT>(control->SendMessage(BM_GETCHECK)) : 0;
}

int CWnd::MessageBox(const wchar_t* text, const wchar_t* caption, UINT type) {
    const QWidget* widget = Widget(m_hWnd);
    const CString title = widget ? FromQString(widget->window()->windowTitle()) : CString();
    return ::MessageBox(m_hWnd, text, caption ? caption : title.GetString(), type);
}
