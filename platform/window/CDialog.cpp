// A dialog's life: made, initialised, shown, answered, destroyed.
#include "platform/window/CDialog.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/host/ExtensionModule.h"
#include "platform/window/toolkit/Application.h"
#include "platform/window/toolkit/DialogBuilder.h"
#include "platform/window/toolkit/ModalRun.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

int g_unseen = 0;

// The first control that the keyboard can reach gets the focus, its text selected as with Tab.
void FocusFirst(const QWidget* dialog) {
    for (const WindowLink* control : WindowLink::Controls(dialog)) {
        QWidget* widget = control->m_widget;
        if (widget->isEnabled() && !widget->isHidden() && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus) {
            widget->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

// What a driver's command does: presses the button of that number, or leaves the dialog as Escape does. False when it
// is the number of no button that a person could press.
bool Press(QDialog* dialog, int command) {
    const WindowLink* control = WindowLink::Find(dialog, static_cast<UINT>(command));
    auto* button = control ? qobject_cast<QAbstractButton*>(control->m_widget) : nullptr;
    if (button != nullptr && button->isEnabled() && !button->isHidden()) {
        button->click();
        return true;
    }
    dialog->reject();
    return command == IDCANCEL || command == ModalDriver::kCareful;
}

}  // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
    ON_WM_CLOSE()
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : m_pParentWnd(parent), m_templateId(templateId) {}

CDialog::~CDialog() {
    DestroyWindow();
}

INT_PTR CDialog::DoModal() {
    if (m_hWnd != nullptr)
        return -1;  // it is running already
    if (!CanBeAnswered()) {
        ++g_unseen;
        ReportMessage(UnseenText());
        return -1;
    }
    if (!CreateFromTemplate())
        return -1;
    const INT_PTR result = RunModal();
    DestroyWindow();
    return result;
}

int CDialog::GetUnseenCount() {
    return g_unseen;
}

CString CDialog::UnseenText() const {
    DialogTemplate source;
    CString text;
    if (FindDialogTemplate(AfxGetResourceHandle(), m_templateId, source, text))
        text.Format(PlatformText(L"没有显示器，无法显示对话框“%s”。"),
                    source.caption.IsEmpty() ? source.caption : PlatformText(source.caption));
    return text;
}

bool CDialog::CreateFromTemplate() {
    DialogTemplate source;
    CString message;
    if (!FindDialogTemplate(AfxGetResourceHandle(), m_templateId, source, message)) {
        ReportMessage(message);
        return false;
    }
    QWidget* owner = m_pParentWnd ? WidgetOf(m_pParentWnd->m_hWnd) : QApplication::activeWindow();
    QDialog* dialog = BuildDialog(source, owner ? owner->window() : nullptr);
    return SubclassWindow(WindowLink::HandleOf(dialog)) != FALSE;
}

INT_PTR CDialog::RunModal() {
    const WindowLink* link = WindowLink::Of(m_hWnd);
    const QPointer<QDialog> dialog = static_cast<QDialog*>(link->m_widget);
    m_result = IDCANCEL;
    m_hasEnded = false;
    const bool focus = SendMessage(WM_INITDIALOG) != 0;
    if (m_hasEnded || dialog.isNull())
        return m_result;
    if (focus)
        FocusFirst(dialog);
    const HWND owner = m_pParentWnd ? m_pParentWnd->m_hWnd : nullptr;
    ::RunModal(dialog, {FromQString(dialog->windowTitle()), CString(), owner, nullptr},
               [&dialog](int command) { return Press(dialog, command); });
    return m_result;
}

void CDialog::EndDialog(int result) {
    WindowLink* link = WindowLink::Of(m_hWnd);
    if (link == nullptr || m_hasEnded)
        return;
    m_hasEnded = true;
    m_result = result;
    static_cast<QDialog*>(link->m_widget)->done(result);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::OnClose() {
    OnCancel();
}

LRESULT CDialog::HandleInitDialog(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    return OnInitDialog();
}
