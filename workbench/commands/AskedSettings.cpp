// Laying the options of a question over the settings.
#include "workbench/commands/AskedSettings.h"

#include "facts/PlaceSearch.h"
#include "facts/StandardSearch.h"
#include "platform/host/ExitCode.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/AskedDate.h"
#include "workbench/commands/AskedPlace.h"
#include "workbench/terminal/Complaint.h"

namespace {

// Gives an exit code, like the following ones.
int LayStandard(const CString& name, Settings& settings) {
    const OrvoStdSet* standard = FindStandard(g_SunDataSet, name);
    if (!standard)
        return Refuse(kExitFailed, UnknownStandardText(g_SunDataSet, name));
    settings.UseStandard(StandardOf(*standard));
    return kExitOk;
}

int LayDay(const CString& text, Settings& settings) {
    CalendarDay day = {};
    const int code = ReadAskedDate(text, settings.Day().year, day);
    if (!code)
        settings.UseDay(day);
    return code;
}

int LayPlace(const std::optional<CString>& name, Settings& settings) {
    if (name) {
        std::optional<Place> place;
        if (const int code = ReadAskedPlace(*name, place))
            return code;
        settings.UsePlace(*place);
    }
    if (!settings.place)
        Complain(UnknownPlaceText(settings.placeName));
    else if (!settings.place->IsOnTheGlobe())
        return Refuse(kExitFailed,
                      SayFormat(L"地区“%s”的位置不在地球上，算不出太阳的时刻。", settings.place->FullName()));
    return kExitOk;
}

}  // namespace

AskedSettings ReadAskedSettings(const AskedFor& asked) {
    AskedSettings answer = {kExitOk, CurrentSettings()};
    if (asked.standard)
        answer.code = LayStandard(*asked.standard, answer.settings);
    if (!answer.code && asked.date)
        answer.code = LayDay(*asked.date, answer.settings);
    if (!answer.code)
        answer.code = LayPlace(asked.place, answer.settings);
    return answer;
}
