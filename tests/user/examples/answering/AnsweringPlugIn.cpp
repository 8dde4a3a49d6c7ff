// A plug-in that sits before the dialogs in place of a person: it tells what they show, types what the environment says
// and presses OK.
//
// ANSWERS holds ITEM=TEXT;ITEM=TEXT ...: an edit gets the text, a combo box the entry of that text.
#include <QComboBox>
#include <QLineEdit>
#include <QStringList>
#include <QWidget>
#include <cstdio>
#include <memory>

#include "platform/host/DynamicLinker.h"
#include "platform/host/HostMessages.h"
#include "platform/window/ModalDriver.h"

namespace {

constexpr int kOk = 1;
std::unique_ptr<ModalDriver> g_driver;

void Tell(const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

void TellItems(const QWidget& dialog) {
    for (const QComboBox* box : dialog.findChildren<QComboBox*>()) {
        QStringList entries;
        for (int i = 0; i < box->count(); ++i)
            entries.append(box->itemText(i));
        Tell(box->objectName() + " shows <" + box->currentText() + "> of " + entries.join("|"));
    }
    for (const QLineEdit* edit : dialog.findChildren<QLineEdit*>())
        Tell(edit->objectName() + " shows <" + edit->text() + ">");
}

void Type(const QWidget& dialog, const QString& item, const QString& text) {
    if (auto* box = dialog.findChild<QComboBox*>(item)) {
        box->setCurrentIndex(box->findText(text));
        emit box->activated(box->currentIndex());
    } else if (auto* edit = dialog.findChild<QLineEdit*>(item)) {
        edit->setText(text);
    } else {
        Tell("there is no " + item);
    }
}

int Answer(const ModalWindow& window) {
    const QWidget& dialog = *static_cast<QWidget*>(window.widget);
    Tell(QString::fromWCharArray(window.caption.GetString()) + ": " + QString::fromWCharArray(window.text.GetString()));
    if (window.text.IsEmpty()) {
        TellItems(dialog);
        for (const QString& answer : qEnvironmentVariable("ANSWERS").split(';', Qt::SkipEmptyParts))
            Type(dialog, answer.section('=', 0, 0), answer.section('=', 1));
    }
    return kOk;
}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        g_driver = std::make_unique<ModalDriver>(Answer);
        ModalDriver::SetMistakeHandler([](const char*) noexcept { Tell("it stayed open"); });
    } else if (message == AcRx::kUnloadAppMsg) {
        ModalDriver::SetMistakeHandler(nullptr);
        g_driver.reset();
    }
    return AcRx::kRetOK;
}
