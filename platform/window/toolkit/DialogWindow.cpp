// The toolkit's dialog, which leaves every decision to the framework's.
#include "platform/window/toolkit/DialogWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QKeyEvent>
#include <QWhatsThis>

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

WindowLink& MakeDialogWindow(const DialogTemplate& source, QWidget* owner) {
    auto* dialog = new DialogWindow(owner);  // the framework's dialog deletes it
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    dialog->setModal(true);
    WindowLink& link = WindowLink::Make(dialog, source.nID, source.dwStyle, &CommonProcedure);
    dialog->setObjectName(QString("IDD_%1").arg(source.nID));
    return link;
}

void SetContextHelp(QWidget* dialog, bool help) {
    dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, help);
}

bool IsInDialog(const QWidget& widget) {
    for (const QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget())
        if (dynamic_cast<const DialogWindow*>(around) != nullptr)
            return true;
    return false;
}

bool ChangesOnWheel(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) != nullptr || qobject_cast<const QDateEdit*>(&widget) != nullptr;
}
