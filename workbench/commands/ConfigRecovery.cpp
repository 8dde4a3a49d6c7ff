// Judges the three configuration files after the module has read them, and loads the shipped ones.
#include "workbench/commands/ConfigRecovery.h"

#include "facts/DayTerms.h"
#include "facts/PlaceSearch.h"
#include "facts/ShippedSettings.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/DictionaryFault.h"
#include "platform/base/PlainText.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"

namespace {

const wchar_t* const kZoneTag = L"ORVO_ZONEDATA";

// A file of configuration: what it is read into, and what there is to say when it is of no use.
struct ConfigFile {
    const wchar_t* name;
    QcDtDictionary* dictionary;
    bool (*isUsable)();
    const wchar_t* lacking;  // what a file of another content lacks
    const wchar_t* wayBack;  // what is in force, and how to get the file right
};

std::vector<CString>& Messages() {
    static std::vector<CString> messages;
    return messages;
}

void Tell(const CString& message) {
    Complain(message);
    Messages().push_back(message);
}

// A file that was refused leaves nothing, not even the name of its root.
bool IsRefused(const QcDtDictionary& dictionary) {
    return dictionary.GetTag().IsEmpty() && dictionary.GetCount() == 0;
}

bool HasPlaces() {
    return !AllPlaces().empty() || g_dictSunZone.GetTag() == kZoneTag;
}

bool HasSettings() {
    const QcDtDictItem* settings = g_dictSunSet.FindItem(L"CUR_SUNSETDATA");
    return settings && settings->GetType() == QcDtKindDictionary;
}

// False when the shipped file is of no use either; defaults are then in force.
bool UseShipped(const ConfigFile& file) {
    if (!file.dictionary->ReadFromXML(ShippedPath(file.name)) || !file.isUsable())
        return false;
    if (file.dictionary == &g_dictSunSet)
        g_SunDataSet.LoadSunDataSetDict(&g_dictSunSet);
    return true;
}

void Replace(const ConfigFile& file) {
    CString path;
    if (file.isUsable() || !FindFile(file.name, path))
        return;
    const CString cause = IsRefused(*file.dictionary) ? DictionaryFaultText(path) : Say(file.lacking);
    const bool isReplaced = UseShipped(file);
    Tell(SayFormat(L"%s 不可用：%s。", Printable(path), Printable(cause)) +
         (isReplaced ? SayFormat(file.wayBack, CString(file.name))
                     : Say(L"随程序提供的文件也不可用，改用默认值；请重新安装程序。")));
}

void ReportOddPlaces() {
    CString path;
    if (!FindFile(L"zone.xml", path) || IsRefused(g_dictSunZone))
        return;
    if (AllPlaces().empty())
        Tell(SayFormat(L"%s 中没有任何地区。要恢复出厂的地区，请移走这个文件再启动程序。", Printable(path)));
    else if (g_dictSunZone.GetTag() != kZoneTag)
        Tell(SayFormat(L"%s 的根元素不是 ORVO_ZONEDATA，恐怕不是地区文件。", Printable(path)));
}

}  // namespace

void ReplaceUnusableFiles() {
    Messages().clear();
    const ConfigFile files[] = {
        {L"zone.xml", &g_dictSunZone, HasPlaces, L"其中没有任何地区",
         L"现在使用随程序提供的地区。移走这个文件再启动程序，就恢复出厂的地区；在此之前保存地区时，它留作 "
         L"%s.refused-1（或下一个空号）或 .bak。"},
        {L"SunTerm.xml", &g_dictSunSterm, HasUsableTermFile, L"其中没有完整的节气表",
         L"现在使用随程序提供的节气表。移走 %s 再启动程序，就恢复出厂的节气表。"},
        {L"SunSet.xml", &g_dictSunSet, HasSettings, L"其中没有当前设置",
         L"现在使用随程序提供的设置和标准；保存设置时（至迟在程序结束时）它们写入这个文件，原来的文件留作 "
         L"%s.refused-1（或下一个空号），修好后可改回原名。"},
    };
    for (const ConfigFile& file : files)
        Replace(file);
    ReportOddPlaces();
}

const std::vector<CString>& MessagesOnUnusableFiles() {
    return Messages();
}
