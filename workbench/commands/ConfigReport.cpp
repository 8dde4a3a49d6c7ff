// Files that were found and are of no use.
#include "workbench/commands/ConfigReport.h"

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "workbench/commands/Output.h"
#include "workbench/commands/PlaceSearch.h"
#include "workbench/commands/PlainText.h"
#include "workbench/commands/TermCalendar.h"
#include "workbench/commands/Texts.h"

namespace {

// A file that was refused leaves nothing, not even the name of its root.
bool IsRefused(const QcDtDictionary& dictionary) {
    return dictionary.GetTag().IsEmpty() && dictionary.GetCount() == 0;
}

void Report(const wchar_t* file, const QcDtDictionary& dictionary, bool isUsable, const wchar_t* foreign) {
    CString path;
    if (isUsable || !FindFile(file, path))
        return;
    if (IsRefused(dictionary))
        Complain(SayFormat(L"读不了 %s（不是完好的配置文件），改用默认值。", Printable(path)));
    else
        Complain(SayFormat(foreign, Printable(path)));
}

}  // namespace

void ReportUnusableFiles() {
    Report(L"zone.xml", g_dictSunZone, !AllPlaces().empty(), L"%s 中没有任何地区。");
    Report(L"zone.xml", g_dictSunZone, g_dictSunZone.GetTag() == L"ORVO_ZONEDATA" || AllPlaces().empty(),
           L"%s 的根元素不是 ORVO_ZONEDATA，恐怕不是地区文件。");
    Report(L"SunTerm.xml", g_dictSunSterm, HasUsableTermFile(), L"%s 中没有完整的节气表，改用内置的节气表。");
    const QcDtDictionary* settings = g_dictSunSet.FindDict(L"CUR_SUNSETDATA");
    Report(L"SunSet.xml", g_dictSunSet, settings != nullptr, L"%s 中没有当前设置，改用默认值。");
}
