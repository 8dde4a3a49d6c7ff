// Counts on until a name is free.
#include "workbench/panel/SuggestedName.h"

#include <QDir>
#include <QFileInfo>

#include "facts/DayText.h"
#include "workbench/view/WidgetText.h"

CString SuggestedName(const CString& drawing, CalendarDay day, const wchar_t* ending) {
    constexpr int kLongest = 60;  // of the drawing's own name: file systems end somewhere above 80 Chinese letters
    const QFileInfo file(Shown(drawing));
    const QDir beside = file.dir();
    const bool canWrite = QFileInfo(beside.absolutePath()).isWritable();
    const QDir folder = canWrite ? QDir(beside.absolutePath()) : QDir::home();
    const QString name = file.completeBaseName().left(kLongest) + "-" + QString::fromStdString(IsoDay(day));
    QString path = folder.filePath(name + Shown(ending));
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = folder.filePath(name + "-" + QString::number(number) + Shown(ending));
    return Typed(path);
}
