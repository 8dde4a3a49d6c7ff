// A plug-in with an analysis of its own: the subcommand "orvo low-sun" tells, month by month, how long the sun's centre
// stands above a skyline that is equally high all around.
#include <array>
#include <optional>
#include <variant>

#include "calendar/CalendarDay.h"
#include "facts/DayTerms.h"
#include "facts/NumberText.h"
#include "facts/PlaceSearch.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "platform/host/CommandLine.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExitCode.h"
#include "platform/host/HostMessages.h"
#include "platform/host/Output.h"
#include "platform/host/Progress.h"
#include "platform/host/Subcommands.h"

namespace {

constexpr int kMonths = 12;
constexpr std::array<int, kMonths> kDaysOfMonth = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int kDaysOfYear = 365;
constexpr int kSecondsOfDay = 24 * 3600;

// What was asked, once it makes sense.
struct Question {
    Place place;
    double altitude = 0.0;  // of the skyline, degrees
    int step = 60;          // between two looks at the sun, seconds
};

// The place that was named, else the current one. Without one the answer is a message that names similar ones.
std::optional<Place> PlaceOf(SubcommandCall& call) {
    const CString name = call.GetValue(L"--place").value_or(CurrentSettings().placeName);
    std::optional<Place> place = FindPlace(name);
    if (!place) {
        call.GetOutput().Complain(UnknownPlaceText(name));
    } else if (!place->IsOnTheGlobe()) {
        call.GetOutput().Complain(place->FullName() + L" is not on the globe: mend it in the place database");
        place.reset();
    }
    return place;
}

void Refuse(SubcommandCall& call, const wchar_t* option, const wchar_t* values) {
    call.GetOutput().Complain(CString(option) + L" takes " + values);
}

// What was asked, or an exit code once the message is out.
std::variant<Question, ExitCode> QuestionOf(SubcommandCall& call) {
    const std::optional<Place> place = PlaceOf(call);
    if (!place)
        return kExitFailed;
    const std::optional<double> altitude = ParseDecimal(call.GetValue(L"--altitude").value_or(L"10"));
    if (!altitude || *altitude < 0.0 || *altitude > 90.0) {
        Refuse(call, L"--altitude", L"degrees from 0 to 90, such as 10");
        return kExitUsage;
    }
    const std::optional<int> step = ParseWhole(call.GetValue(L"--step").value_or(L"60"), 1, 3600);
    if (!step) {
        Refuse(call, L"--step", L"whole seconds from 1 to 3600, such as 60");
        return kExitUsage;
    }
    return Question{*place, *altitude, *step};
}

// Hours of one day. Times are true solar times, so that the place's longitude does not matter.
double HoursAbove(const Question& question, const CalendarDay& day) {
    const SunDay sun = ComputeSunDay(TermsFor(day), question.place);
    int count = 0;
    for (int second = 0; second < kSecondsOfDay; second += question.step)
        if (PositionOfSun(sun, second / 3600.0).altitude > question.altitude)
            ++count;
    return count * question.step / 3600.0;
}

// Hours of each month of a common year. Nothing once the user wants the work to stop.
std::optional<std::array<double, kMonths>> HoursOfYear(const Question& question, Progress& progress) {
    std::array<double, kMonths> hours = {};
    int done = 0;
    for (int month = 0; month < kMonths; ++month)
        for (int day = 1; day <= kDaysOfMonth[month]; ++day) {
            if (!progress.Show(++done, kDaysOfYear, L"day %d of %d"))
                return std::nullopt;
            hours[month] += HoursAbove(question, CalendarDay{2025, month + 1, day});
        }
    return hours;
}

int LowSun(SubcommandCall& call) {
    const std::variant<Question, ExitCode> question = QuestionOf(call);
    if (const ExitCode* code = std::get_if<ExitCode>(&question))
        return *code;
    const auto hours = HoursOfYear(std::get<Question>(question), call.GetProgress());
    if (!hours) {
        call.GetOutput().Complain(L"cancelled");
        return kExitFailed;
    }
    for (int month = 0; month < kMonths; ++month) {
        CString line;
        line.Format(L"%2d  %.1f h", month + 1, (*hours)[month]);
        call.GetOutput().Line(line);
    }
    return kExitOk;
}

// The words that "--place" is completed to.
std::vector<CString> PlaceNames() {
    std::vector<CString> names;
    for (const Place& place : AllPlaces())
        names.push_back(place.city);
    return names;
}

Subcommand Row() {
    Subcommand row;
    row.name = L"low-sun";
    row.description = L"tells for how many hours of each month the sun stands above a skyline";
    row.options = {ValueOption(L"-p,--place", L"NAME", L"over this place instead of the current one", PlaceNames),
                   ValueOption(L"-a,--altitude", L"DEGREES", L"how high the skyline is, 10 unless given"),
                   ValueOption(L"--step", L"SECONDS", L"between two looks at the sun, 60 unless given")};
    row.examples = {L"orvo low-sun --place 上海 --altitude 15"};
    row.run = LowSun;
    return row;
}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    if (message != AcRx::kInitAppMsg)
        return AcRx::kRetOK;  // the host takes the row away itself
    acrxUnlockApplication(applicationHandle);
    CString reason;
    if (HostSubcommands().Add(Row(), applicationHandle, reason))
        return AcRx::kRetOK;
    acutPrintf(L"\nlow-sun: %s", reason);
    return AcRx::kRetError;
}
