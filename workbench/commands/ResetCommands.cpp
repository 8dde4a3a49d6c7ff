// Putting shipped values in force and saving them.
#include "workbench/commands/ResetCommands.h"

#include <nlohmann/json.hpp>

#include "facts/NearestNames.h"
#include "facts/SettingsEdit.h"
#include "facts/SettingsForm.h"
#include "facts/SettingsSnapshot.h"
#include "facts/ShippedSettings.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "platform/base/AtomicFile.h"
#include "platform/base/PlainText.h"
#include "platform/base/Support.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/StandardRules.h"
#include "workbench/commands/ToldChange.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/JsonOutput.h"

namespace {

using Json = nlohmann::ordered_json;

// What the program came with, and the change begun; null when one of the two fails, which is then told.
std::unique_ptr<OrvoDataSet> BeginReset(SettingsChange& change) {
    std::unique_ptr<OrvoDataSet> shipped = ReadShippedSettings();
    if (shipped)
        return BeginTelling(change) ? std::move(shipped) : nullptr;
    Complain(
        SayFormat(L"读不了随程序提供的 %s，无法恢复出厂值；请重新安装程序。", Printable(ShippedPath(L"SunSet.xml"))));
    return nullptr;
}

int RefuseStandard(const CString& name, const OrvoDataSet& shipped) {
    if (FindStandard(g_SunDataSet, name))
        return Refuse(kExitFailed, SayFormat(L"标准“%s”不是随程序提供的，没有出厂值。随程序提供的有：%s",
                                             Printable(name), JoinNames(NamesOfStandards(shipped))));
    return Refuse(kExitFailed, UnknownStandardText(shipped, name));
}

// Standards that were never shipped.
std::vector<CString> OwnStandards(const OrvoDataSet& shipped) {
    std::vector<CString> own;
    for (const CString& name : NamesOfStandards(g_SunDataSet))
        if (!FindStandard(shipped, name))
            own.push_back(name);
    return own;
}

// What was in the file that was replaced is kept beside it, or beside what a link leads to; under which name depends on
// whether it was sound.
CString KeptWords(const CString& path, bool wasSound) {
    const CString backup = BackupPath(path);
    if (wasSound)
        return SayFormat(L"原来的文件留作 %s", Printable(backup));
    const CString target = backup.Left(backup.ReverseFind(L'.'));
    return SayFormat(L"原来的文件已损坏，留作 %s.refused-1（或下一个空号）", Printable(target));
}

void TellReset(const CString& name, const std::vector<const StandardField*>& fields, bool wasThere, Output& output) {
    if (!wasThere) {
        output.Line(SayFormat(L"标准“%s”已恢复：它曾被删除。", Printable(name)));
        return;
    }
    std::vector<CString> labels;
    for (const StandardField* field : fields)
        labels.push_back(Say(field->label));
    if (labels.empty())
        output.Line(SayFormat(L"标准“%s”本来就是出厂值。", Printable(name)));
    else
        output.Line(SayFormat(L"标准“%s”已恢复出厂值：%s", Printable(name), JoinNames(labels)));
}

}  // namespace

int RunReset(Output& output) {
    SettingsChange change;
    const std::unique_ptr<OrvoDataSet> shipped = BeginReset(change);
    if (!shipped)
        return kExitFailed;
    const bool wasSound = SharedSettingsFile().IsSound();
    const SettingsSnapshot before(g_SunDataSet);
    const std::unique_ptr<QcDtDictionary> form = FormOf(*shipped);
    const bool isChange = !IsSameItem(FormOf(g_SunDataSet).get(), form.get()) || !wasSound;
    const std::vector<CString> own = OwnStandards(*shipped);
    PutInForce(*form, g_SunDataSet);
    if (!SaveTelling(change)) {
        before.Restore(g_SunDataSet);
        return kExitFailed;
    }
    if (isChange) {
        output.Line(
            SayFormat(L"设置和标准已恢复出厂值（标准 %d 个）。", static_cast<int>(g_SunDataSet.m_listStd.GetLength())));
        if (!own.empty())
            output.Line(SayFormat(L"不是随程序提供的标准已删除：%s", JoinNames(own)));
        output.Line(SayFormat(L"已保存到 %s，%s", Printable(change.Path()), KeptWords(change.Path(), wasSound)));
    } else {
        output.Line(Say(L"设置和标准本来就是出厂值。"));
    }
    output.Line(Printable(g_SunDataSet.GetNoteString()));
    return kExitOk;
}

int RunStandardReset(const CString& name, bool isJson, Output& output) {
    SettingsChange change;
    const std::unique_ptr<OrvoDataSet> shipped = BeginReset(change);
    if (!shipped)
        return kExitFailed;
    const OrvoStdSet* original = FindStandard(*shipped, name);
    if (!original)
        return RefuseStandard(name, *shipped);
    const SettingsSnapshot before(g_SunDataSet);
    const std::unique_ptr<QcDtDictionary> formBefore = FormOf(g_SunDataSet);
    const OrvoStdSet* kept = FindStandard(g_SunDataSet, name);
    const bool wasThere = kept != nullptr;
    const std::vector<const StandardField*> fields =
        kept ? DifferingFields(*kept, *original) : std::vector<const StandardField*>();
    const bool hadCurrent = HasCurrentStandard(g_SunDataSet);
    const int index = ResetStandard(g_SunDataSet, *original);
    if (!hadCurrent)
        g_SunDataSet.m_nCurStd = kNoStandard;  // no index of a longer list may come to mean one
    const bool isCurrent = index == g_SunDataSet.m_nCurStd;
    if (isCurrent)
        UseStandard(g_SunDataSet, index);
    const bool isChange = !IsSameItem(formBefore.get(), FormOf(g_SunDataSet).get());
    if (!SaveTelling(change)) {
        before.Restore(g_SunDataSet);
        return kExitFailed;
    }
    if (isJson) {
        Json document = {{"index", index}, {"current", isCurrent}};
        document.update(RulesAsJson(StandardOf(g_SunDataSet.GetStd(index)),
                                    DifferingFields(g_SunDataSet.GetStd(index), *original)));
        document["reset"] = Json::array();
        for (const StandardField* field : fields)
            document["reset"].push_back(field->jsonKey);
        document["restored"] = !wasThere;
        PrintJson(output, document);
        return kExitOk;
    }
    TellReset(name, fields, wasThere, output);
    if (!isChange)
        return kExitOk;
    if (isCurrent)
        output.Line(Say(L"它是当前标准：设置采用了它的日期、时段和精度。"));
    output.Line(SayFormat(L"已保存到 %s", Printable(change.Path())));
    return kExitOk;
}
