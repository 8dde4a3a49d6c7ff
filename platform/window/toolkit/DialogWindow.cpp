// The toolkit's dialog, which leaves every decision to the framework's.
#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QWhatsThis>

#include "platform/window/MessageBox.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

class DialogWindow : public QDialog {
public:
    explicit DialogWindow(QWidget* owner) : QDialog(owner) {}

    void reject() override { Command(IDCANCEL); }
    void accept() override { Command(IDOK); }

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        if (WindowLink* link = WindowLink::Of(this))
            Dispatch(*link, WM_CLOSE, 0, 0);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F1 && windowFlags().testFlag(Qt::WindowContextHelpButtonHint)) {
            Explain(focusWidget());
            return;
        }
        QDialog::keyPressEvent(event);
    }

private:
    void Command(int command) {
        if (WindowLink* link = WindowLink::Of(this))
            Dispatch(*link, WM_COMMAND, MAKEWPARAM(static_cast<UINT>(command), BN_CLICKED), 0);
    }

    static void Explain(QWidget* control) {
        if (control != nullptr && !control->whatsThis().isEmpty())
            QWhatsThis::showText(control->mapToGlobal(control->rect().bottomLeft()), control->whatsThis(), control);
    }
};

}  // namespace

WindowLink& MakeDialog(const ControlRequest& request) {
    auto* dialog = new DialogWindow(request.parent);  // the framework's dialog deletes it
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    dialog->setModal(true);
    dialog->setWindowTitle(ToQString(request.text));
    WindowLink& link = MakeWindow(dialog, request.id, request.style, &CommonProcedure);
    link.m_isDialog = true;
    dialog->setObjectName(QString("IDD_%1").arg(request.id));
    return link;
}

void SetContextHelp(QWidget* dialog, bool help) {
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, help);
}
