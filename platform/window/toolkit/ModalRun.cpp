// The event loop of a modal window, with the moment in which a driver may answer.
#include "platform/window/toolkit/ModalRun.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include "platform/window/toolkit/Application.h"

namespace {

// Some window systems activate nothing: after so many turns of the event loop the driver is asked all the same.
constexpr int kMostWaits = 1000;

}  // namespace

bool CanBeAnswered() {
    return NeedApplication() && (CanBeSeen() || ModalDriver::IsThere());
}

bool RunModal(QDialog* dialog, ModalWindow window, const std::function<bool(int)>& press) {
    const QPointer<QDialog> box = dialog;
    window.widget = static_cast<QWidget*>(dialog);
    int waits = 0;
    QTimer timer;
    timer.callOnTimeout(dialog, [&] {
        // Keys would be lost in a window that is not active yet.
        if (!box->isVisible() || (!box->isActiveWindow() && ++waits < kMostWaits))
            return;
        timer.stop();
        const int command = ModalDriver::Ask(window);
        if (command == 0 || box.isNull() || !box->isVisible())
            return;
        if (!press(command))
            ModalDriver::ReportUnknown(window, command);
        if (box.isNull() || !box->isVisible())
            return;
        ModalDriver::ReportOpen(window, command);
        box->reject();
    });
    if (ModalDriver::IsThere())
        timer.start(0);
    dialog->exec();
    return !box.isNull();
}
