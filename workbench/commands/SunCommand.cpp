// orvo sun: from the options to the moments of the day.
#include "workbench/commands/SunCommand.h"

#include "facts/NumberText.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/commands/AskedSettings.h"
#include "workbench/commands/SunAnswer.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kUsualStep = 60;

}  // namespace

int RunSun(const SunOptions& options, Output& output) {
    int step = kUsualStep;
    if (options.step) {
        const std::optional<int> wanted = ParseWhole(*options.step, kLeastStep, kMostStep);
        if (!wanted)
            return Refuse(kExitUsage, BadNumberText(L"--step", *options.step, kLeastStep, kMostStep));
        step = *wanted;
    }
    const AskedSettings asked = ReadAskedSettings({options.place, options.date, std::nullopt});
    if (asked.code)
        return asked.code;
    if (!asked.settings.place)
        return kExitFailed;  // why has been said
    const DayTerms terms = TermsFor(asked.settings.Day());
    if (!terms.IsReasonable())
        return Refuse(kExitFailed, UnreasonableTermsText());
    const SunAnswer answer(asked.settings, terms, step);
    if (options.isJson)
        answer.PrintAsJson(output);
    else
        answer.PrintAsText(output);
    return kExitOk;
}

Subcommand SunSubcommand() {
    return {L"sun",
            L"显示一天中太阳的高度角、方位角和影长",
            {PlaceOption(), DateOption(),
             ValueOption(L"--step", L"MINUTES", L"每隔多少分钟一行，从 1 到 60；不给出时为 60"),
             FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo sun", L"orvo sun --place 浙江/杭州 --date 2025-1-20 --step 10"},
            [](SubcommandCall& call) {
                return RunSun({call.GetValue(L"--place"), call.GetValue(L"--date"), call.GetValue(L"--step"),
                               call.HasFlag(L"--json")},
                              call.GetOutput());
            },
            Say};
}
