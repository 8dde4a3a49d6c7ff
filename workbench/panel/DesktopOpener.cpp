// Asks the desktop's own opener, and listens to what it says. The toolkit only looks whether that could be started.
#include "workbench/panel/DesktopOpener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

void OpenOnDesktop(const QUrl& url, QObject& owner, const std::function<void()>& onFailed) {
    const QString opener = QStandardPaths::findExecutable("xdg-open");
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(url))
            onFailed();
        return;
    }
    // Without a parent: it may be the browser itself, which is to stay when the window goes.
    auto* process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(process, &QProcess::finished, &owner, [onFailed](int code, QProcess::ExitStatus) {
        if (code != 0)
            onFailed();
    });
    QObject::connect(process, &QProcess::errorOccurred, &owner, [onFailed](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            onFailed();
    });
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            process->deleteLater();
    });
    process->start(opener, {url.toLocalFile()});
}
