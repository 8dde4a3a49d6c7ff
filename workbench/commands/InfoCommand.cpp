// orvo info: the settings asked about, the day's terms, the sun over the place, and what was changed in the standard.
#include "workbench/commands/InfoCommand.h"

#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/commands/AskedSettings.h"
#include "workbench/commands/InfoAnswer.h"
#include "workbench/commands/NameLists.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

// Of the standard that is kept: what was asked for this once is no change.
StandardChanges ChangesOf(const Settings& settings) {
    const OrvoStdSet* kept = settings.standard ? FindStandard(g_SunDataSet, settings.standard->name) : nullptr;
    return kept ? ChangesFromShipped(*kept, ReadShippedSettings().get()) : StandardChanges();
}

}  // namespace

int RunInfo(const InfoOptions& options, Output& output) {
    const AskedSettings asked = ReadAskedSettings({options.place, options.date, options.standard});
    if (asked.code)
        return asked.code;
    InfoAnswer answer;
    answer.settings = asked.settings;
    answer.terms = TermsFor(answer.settings.Day());
    if (!answer.terms.IsReasonable()) {
        Complain(UnreasonableTermsText());
        return kExitFailed;
    }
    if (answer.settings.place)
        answer.sun = ComputeSunDay(answer.terms, *answer.settings.place);
    answer.changes = ChangesOf(answer.settings);
    if (options.isJson)
        answer.PrintAsJson(output);
    else
        answer.PrintAsText(output);
    return answer.settings.place ? kExitOk : kExitFailed;
}

Subcommand InfoSubcommand() {
    return {L"info",
            L"显示地区位置、太阳、当前标准和有效时段",
            {PlaceOption(), DateOption(), ValueOption(L"--standard", L"NAME", L"日照标准名", StandardNames),
             FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo info", L"orvo info --place 浙江/杭州 --date 2025-1-20", L"orvo info --standard 国标大寒日 --json"},
            [](SubcommandCall& call) {
                return RunInfo({call.GetValue(L"--place"), call.GetValue(L"--date"), call.GetValue(L"--standard"),
                                call.HasFlag(L"--json")},
                               call.GetOutput());
            },
            Say};
}
