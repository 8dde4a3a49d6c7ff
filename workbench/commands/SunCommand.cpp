// orvo sun: from the options to the moments of the day.
#include "workbench/commands/SunCommand.h"

#include "facts/NumberText.h"
#include "platform/host/ExitCode.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedSettings.h"
#include "workbench/commands/SunAnswer.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Complaint.h"

namespace {

constexpr int kUsualStep = 60;

int Refuse(int code, const CString& text) {
    Complain(text);
    return code;
}

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
