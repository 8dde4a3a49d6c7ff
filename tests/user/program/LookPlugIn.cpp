// A plug-in that reads the window as screen readers do: its subcommand writes what is seen into a file, as JSON.
#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWidget>

#include "platform/host/ExitCode.h"
#include "platform/host/HostMessages.h"
#include "platform/host/Output.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"

namespace {

void Tell(QAccessibleInterface& seen, QJsonArray& all) {
    if (seen.state().invisible)
        return;
    // As long as the desktop has no reader, tables do not notice what changes in them.
    if (QAccessibleTableInterface* table = seen.tableInterface()) {
        QAccessibleTableModelChangeEvent anew(seen.object(), QAccessibleTableModelChangeEvent::ModelReset);
        table->modelChange(&anew);
    }
    const QRect place = seen.rect();
    all.append(QJsonObject{{"role", static_cast<int>(seen.role())},
                           {"name", seen.text(QAccessible::Name)},
                           {"value", seen.text(QAccessible::Value)},
                           {"description", seen.text(QAccessible::Description)},
                           {"enabled", !seen.state().disabled},
                           {"x", place.x()},
                           {"y", place.y()},
                           {"width", place.width()},
                           {"height", place.height()}});
    for (int i = 0; i < seen.childCount(); ++i)
        if (QAccessibleInterface* child = seen.child(i))
            Tell(*child, all);
}

// Renamed at the end, so that nobody reads half of it.
int Look(SubcommandCall& call) {
    QJsonArray all;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            if (QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(window))
                Tell(*seen, all);
    const QString name = QString::fromStdString(ToUtf8(call.GetValue(L"FILE").value_or(L"").View()));
    QFile file(name + ".part");
    const bool isWritten = file.open(QFile::WriteOnly) && file.write(QJsonDocument(all).toJson()) >= 0 && file.flush();
    return isWritten && file.rename(name) ? kExitOk : kExitFailed;
}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        Subcommand row;
        row.name = L"look";
        row.description = L"writes what is seen";
        row.options = {ValueOption(L"FILE", L"", L"where to")};
        row.run = Look;
        CString reason;
        HostSubcommands().Add(row, applicationHandle, reason);
    }
    return AcRx::kRetOK;
}
