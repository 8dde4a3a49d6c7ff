// Values that were read on the module's thread serve any other, whatever becomes of the module meanwhile.
#include <array>
#include <thread>

#include "facts/DayTerms.h"
#include "facts/FactsStage.h"
#include "facts/Settings.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"

namespace {

class FactsOnThreads : public FactsStage {};

// The sum of all that a day's work makes of the values.
double DaysWork(Settings settings, const DayTerms& terms) {
    double sum = settings.standard.value().step + static_cast<double>(terms.table.size());
    for (const SolarTerm& term : terms.table)
        sum += term.declination * term.name.GetLength();
    const SunDay day = ComputeSunDay(terms, *settings.place);
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const SunPosition position = PositionOfSun(day, day.TrueSolarTime(minute / 60.0));
        sum += position.altitude * position.azimuth + ShadowLength(position).value_or(0.0);
    }
    settings.UseDay({2030, 1, 1});
    return sum + settings.Day().year;
}

}  // namespace

TEST_F(FactsOnThreads, AreTheSameWithoutTheModule) {
    Read(g_dictSunZone,
         "<ORVO_ZONEDATA><省 type=\"PROVINCE\"><城 type=\"CITY\" longitude=\"100\" "
         "latitude=\"30\"/></省></ORVO_ZONEDATA>");
    g_SunDataSet.m_strCurCity = L"城";
    g_SunDataSet.NewStd(OrvoStdSet());
    const Settings settings = CurrentSettings();
    const DayTerms terms = TermsFor({2025, 2, 28});
    const double expected = DaysWork(settings, terms);

    std::array<double, 4> found = {};
    std::vector<std::thread> threads;
    for (double& each : found)
        threads.emplace_back([&settings, &terms, &each] { each = DaysWork(settings, terms); });
    g_dictSunZone.ReadFromXML(nullptr);
    g_SunDataSet = OrvoDataSet();
    for (std::thread& thread : threads)
        thread.join();
    for (const double each : found)
        EXPECT_EQ(each, expected);
}
