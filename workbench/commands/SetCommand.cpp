// Checking, writing and saving of settings.
#include "workbench/commands/SetCommand.h"

#include "facts/ClockText.h"
#include "facts/NumberText.h"
#include "facts/PlaceSearch.h"
#include "facts/Settings.h"
#include "facts/SettingsEdit.h"
#include "facts/SettingsSnapshot.h"
#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/ResetCommands.h"
#include "workbench/commands/ToldChange.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

// The options as values.
struct Changes {
    std::optional<Place> place;
    std::optional<CalendarDay> day;
    std::optional<int> start;  // minutes since midnight
    std::optional<int> end;
    std::optional<int> step;
    std::optional<int> standard;  // index

    void ApplyTo(OrvoDataSet& settings) const;
};

void Changes::ApplyTo(OrvoDataSet& settings) const {
    if (standard)
        UseStandard(settings, *standard);
    if (place)
        SetPlace(settings, *place);
    if (day)
        SetDay(settings, *day);
    if (start)
        SetStart(settings, *start);
    if (end)
        SetEnd(settings, *end);
    if (step)
        SetStep(settings, *step);
}

// Gives an exit code, like the following ones.
int ReadPlace(const std::optional<CString>& name, Changes& changes) {
    if (!name)
        return kExitOk;
    if (const int code = ReadAskedPlace(*name, changes.place))
        return code;
    if (changes.place->province.IsEmpty() && !FindPlace(changes.place->city))
        return Refuse(kExitFailed, SayFormat(L"设置只保存地区名，不能设为位置 %s：先用命令 QcCityData "
                                             L"把它加为一个地区，或只在提问时用 --place 给出它。",
                                             changes.place->city));
    const CString city = Printable(changes.place->city);
    // The file keeps the city's name alone, which later finds the first city of that name.
    const std::optional<Place> first = FindPlace(changes.place->city);
    if (first && first->province != changes.place->province)
        return Refuse(kExitFailed, SayFormat(L"设置只保存地区名，而“%s”首先指 %s，所以不能设为 %s。", city,
                                             Printable(first->FullName()), Printable(changes.place->FullName())));
    return kExitOk;
}

int ReadStandard(const std::optional<CString>& name, Changes& changes) {
    if (!name)
        return kExitOk;
    const int index = g_SunDataSet.FindStd(*name);
    if (index < 0)
        return Refuse(kExitFailed, UnknownStandardText(g_SunDataSet, *name));
    changes.standard = index;
    return kExitOk;
}

int ReadDay(const std::optional<CString>& text, Changes& changes) {
    if (!text)
        return kExitOk;
    // A term without a year is that of the year in which the day was so far, the asked standard's where one is asked.
    Settings settings = CurrentSettings();
    const OrvoStdSet* standard = changes.standard ? StandardAt(g_SunDataSet, *changes.standard) : nullptr;
    if (standard)
        settings.UseStandard(StandardOf(*standard));
    CalendarDay day = {};
    const int code = ReadAskedDate(*text, settings.Day().year, day);
    if (!code)
        changes.day = day;
    return code;
}

int ReadTimes(const SetOptions& options, Changes& changes) {
    changes.start = options.start ? ParseClock(*options.start) : std::nullopt;
    if (options.start && !changes.start)
        return Refuse(kExitUsage, BadClockText(L"--start", *options.start));
    changes.end = options.end ? ParseClock(*options.end) : std::nullopt;
    if (options.end && !changes.end)
        return Refuse(kExitUsage, BadClockText(L"--end", *options.end));
    changes.step = options.step ? ParseWhole(*options.step, kLeastStep, kMostStep) : std::nullopt;
    if (options.step && !changes.step)
        return Refuse(kExitUsage, BadNumberText(L"--step", *options.step, kLeastStep, kMostStep));
    return kExitOk;
}

// Looks at the settings as they would be.
int CheckSpan(const Changes& changes) {
    if (!changes.start && !changes.end)
        return kExitOk;
    OrvoDataSet trial(g_SunDataSet);
    changes.ApplyTo(trial);
    if (trial.m_dgStartTime.getDegree() < trial.m_dgEndTime.getDegree())
        return kExitOk;
    return Refuse(kExitUsage, SayFormat(L"分析时段的开始 %s 必须早于结束 %s", trial.m_dgStartTime.TimeFormat(false),
                                        trial.m_dgEndTime.TimeFormat(false)));
}

// What is right or wrong by itself.
int ReadValues(const SetOptions& options, Changes& changes) {
    const int code = ReadDay(options.date, changes);
    return code ? code : ReadTimes(options, changes);
}

// What the settings have to say to it.
int ReadChoices(const SetOptions& options, Changes& changes) {
    if (const int code = ReadPlace(options.place, changes))
        return code;
    if (const int code = ReadStandard(options.standard, changes))
        return code;
    // Once more: only now is it known of which year a term without one is.
    if (const int code = ReadDay(options.date, changes))
        return code;
    return CheckSpan(changes);
}

void PrintChanges(const Changes& changes, Output& output) {
    OrvoDataSet& settings = g_SunDataSet;
    if (changes.standard)
        output.Line(SayFormat(L"当前标准：%s（日期、时段和精度随之采用）", Printable(settings.CurStd().m_strName)));
    if (changes.place)
        output.Line(SayFormat(L"地区：%s", Printable(changes.place->FullName())));
    if (changes.day)
        output.Line(SayFormat(L"分析日期：%s", settings.m_date.GetDateString()));
    if (changes.start || changes.end)
        output.Line(SayFormat(L"分析时段：%s～%s", settings.m_dgStartTime.TimeFormat(false),
                              settings.m_dgEndTime.TimeFormat(false)));
    if (changes.step)
        output.Line(SayFormat(L"计算精度：%d 分钟", settings.m_nSpace));
    if (!changes.day && !changes.start && !changes.end && !changes.step)
        return;
    if (HasCurrentStandard(settings))
        output.Line(
            SayFormat(L"日期、时段和精度同时写入了设置和当前标准“%s”。", Printable(settings.CurStd().m_strName)));
    else
        output.Line(Say(L"日期、时段和精度只写入了设置：没有当前标准。"));
}

}  // namespace

int RunSet(const SetOptions& options, Output& output) {
    if (options.isReset) {
        if (options.HasValues())
            return Refuse(kExitUsage, Say(L"--reset 恢复全部设置，不能和别的选项一起给出"));
        return RunReset(output);
    }
    if (!options.HasValues())
        return Refuse(kExitUsage,
                      Say(L"没有要设置的内容：请给出 --place、--date、--start、--end、--step、--standard 或 --reset"));
    Changes changes;
    if (const int code = ReadValues(options, changes))
        return code;
    SettingsChange change;
    if (!BeginTelling(change))
        return kExitFailed;
    if (const int code = ReadChoices(options, changes))
        return code;
    const SettingsSnapshot before(g_SunDataSet);
    changes.ApplyTo(g_SunDataSet);
    if (!SaveTelling(change)) {
        before.Restore(g_SunDataSet);
        return kExitFailed;
    }
    PrintChanges(changes, output);
    output.Line(SayFormat(L"已保存到 %s", Printable(change.Path())));
    output.Line(Printable(g_SunDataSet.GetNoteString()));
    return kExitOk;
}

Subcommand SetSubcommand() {
    return {L"set",
            L"更改当前设置并保存",
            {PlaceOption(), DateOption(), ValueOption(L"--start", L"H:MM", L"分析时段的开始"),
             ValueOption(L"--end", L"H:MM", L"分析时段的结束"),
             ValueOption(L"--step", L"MINUTES", L"计算精度，从 1 到 60 分钟"),
             ValueOption(L"--standard", L"NAME", L"当前标准；它的日期、时段和精度随之采用", StandardNames),
             FlagOption(L"--reset", L"把设置和标准全部恢复为出厂值；原来的文件留作 .bak")},
            {L"orvo set --place 上海 --standard 上海标准",
             L"orvo set --date 2025-12-22 --start 9:00 --end 15:00 --step 5", L"orvo set --reset"},
            [](SubcommandCall& call) {
                return RunSet({call.GetValue(L"--place"), call.GetValue(L"--date"), call.GetValue(L"--start"),
                               call.GetValue(L"--end"), call.GetValue(L"--step"), call.GetValue(L"--standard"),
                               call.HasFlag(L"--reset")},
                              call.GetOutput());
            },
            Say};
}
