// The maker's dialog: tips, and its own module's resources.
#include "platform/window/QcUiDialog.h"

#include <QWidget>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

BEGIN_MESSAGE_MAP(QcUiDialog, CDialog)
END_MESSAGE_MAP()

QcUiDialog::QcUiDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CDialog(templateId, parent), m_resources(resources) {}

QcUiDialog::~QcUiDialog() = default;

INT_PTR QcUiDialog::DoModal() {
    const HINSTANCE before = AfxGetResourceHandle();
    if (m_resources != nullptr)
        AfxSetResourceHandle(m_resources);
    const INT_PTR result = CDialog::DoModal();
    AfxSetResourceHandle(before);
    return result;
}

BOOL QcUiDialog::OnInitDialog() {
    InitCaptionButton(this);
    return CDialog::OnInitDialog();
}

BOOL QcUiDialog::AddTip(int id, const wchar_t* text) {
    const CWnd* control = GetDlgItem(id);
    if (control == nullptr)
        return FALSE;
    QWidget* widget = WindowLink::Of(control->m_hWnd)->m_widget;
    // Plain text would be shown on one line, however long: as rich text it is wrapped. Its own line ends stay.
    const QString plain = ToQString(text).toHtmlEscaped();
    const QString shown = plain.isEmpty() ? QString() : "<p style='white-space:pre-wrap'>" + plain + "</p>";
    widget->setToolTip(shown);
    widget->setWhatsThis(shown);
    widget->setAccessibleDescription(ToQString(text));
    return TRUE;
}
