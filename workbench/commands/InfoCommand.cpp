// orvo info: overlays the options on a copy of the settings and asks the module.
#include "workbench/commands/InfoCommand.h"

#include <cmath>

#include "facts/PlaceSearch.h"
#include "facts/SettingsEdit.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "platform/host/ExitCode.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/InfoAnswer.h"
#include "workbench/commands/ValueErrors.h"
#include "workbench/terminal/Output.h"

namespace {

// The settings' own place, which stays unknown when the zone file does not have it (any more).
std::optional<OrvoZoneRecord> LocateOwnPlace() {
    std::optional<OrvoZoneRecord> place = FindPlace(g_SunDataSet.m_strCurCity);
    if (place)
        static_cast<OrvoZoneRecord&>(g_SunDataSet) = *place;  // a question changes nothing that is saved
    else
        Complain(UnknownPlaceText(g_SunDataSet.m_strCurCity));
    return place;
}

// Puts the options over the settings. Gives the exit code when one of them cannot be.
int Overlay(const InfoOptions& options, OrvoDataSet& settings) {
    if (options.standard) {
        const int index = settings.FindStd(*options.standard);
        if (index < 0) {
            Complain(UnknownStandardText(settings, *options.standard));
            return kExitFailed;
        }
        UseStandard(settings, index);
    }
    if (options.date) {
        const std::optional<Day> day = ParseDay(*options.date);
        if (!day) {
            Complain(BadDateText(*options.date));
            return kExitUsage;
        }
        SetDay(settings, *day);
    }
    return kExitOk;
}

Day DayOf(const OrvoDate& date) {
    return {date.m_nYear, date.m_nMonth, date.m_nDay};
}

// What the sun does on a day, from the term file. False when its numbers are beyond reason.
bool AskTheCalendar(const OrvoDate& day, InfoAnswer& answer) {
    OrvoDate date(day.m_nYear, day.m_nMonth, day.m_nDay);
    FillTerms(date);
    answer.day = DayOf(date);
    answer.dayText = date.GetDateString();
    answer.term = FindTermInForce(date);
    answer.declination = date.GetDgLat();
    answer.equationOfTime = date.GetDgTime();
    constexpr double kMostEquation = 24.0;
    return std::abs(answer.declination) <= 90.0 && std::abs(answer.equationOfTime) <= kMostEquation;
}

void FollowTheSun(InfoAnswer& answer) {
    if (answer.place)
        answer.sun = ComputeSunDay(answer.declination, answer.equationOfTime, answer.place->GetTotalLong(),
                                   answer.place->GetTotalLat());
}

}  // namespace

int RunInfo(const InfoOptions& options, Output& output) {
    OrvoDataSet settings(g_SunDataSet);
    if (const int code = Overlay(options, settings))
        return code;

    InfoAnswer answer = {};
    answer.place = options.place ? FindPlace(*options.place) : LocateOwnPlace();
    if (options.place && !answer.place) {
        Complain(UnknownPlaceText(*options.place));
        return kExitFailed;
    }
    if (answer.place)
        SetPlace(settings, *answer.place);
    int code = answer.place ? kExitOk : kExitFailed;
    if (answer.place && !IsOnTheGlobe(*answer.place)) {
        Complain(SayFormat(L"地区“%s”的位置不在地球上，算不出太阳的时刻。", FullName(*answer.place)));
        return kExitFailed;
    }

    const bool hasStandard = HasCurrentStandard(settings);
    if (!AskTheCalendar(hasStandard ? settings.CurDate() : settings.m_date, answer)) {
        Complain(Say(L"节气文件中的赤纬或时差不合理，算不出太阳的时刻。"));
        return kExitFailed;
    }
    FollowTheSun(answer);
    answer.note = settings.GetNoteString();
    answer.placeName = settings.m_strCurCity;
    answer.ownDay = DayOf(settings.m_date);
    // The copy has default colours, so the colours to show are those of the settings themselves.
    OrvoStdSet& current = settings.CurStd();
    if (hasStandard) {
        const OrvoStdSet& kept = g_SunDataSet.GetStd(settings.m_nCurStd);
        current.m_colors = kept.m_colors;
        answer.changes = ChangesFromShipped(kept, ReadShippedSettings().get());
    }
    answer.standard = hasStandard ? &current : nullptr;
    answer.facings = MainFacings();
    if (options.isJson)
        answer.PrintAsJson(output);
    else
        answer.PrintAsText(output);
    return code;
}
