// The analysis of a whole district against rays, in several places, on several days and with north in several
// directions.
#include <gtest/gtest.h>

#include <iterator>

#include "DistrictJudge.h"
#include "facts/DayTerms.h"
#include "settings/OrvoStdSet.h"
#include "support/SlowTier.h"

namespace {

struct City {
    double latitude;
    double longitude;
};
constexpr City kBeijing = {39.9, 116.4};
constexpr City kHarbin = {45.8, 126.6};
constexpr City kGuangzhou = {23.1, 113.3};

struct Sample {
    const char* about;
    City city;
    CalendarDay day;
    double north;
    bool isWhole;
    SunPeriod clock;
    int leastAngle;
};
constexpr Sample kSamples[] = {
    {"Beijing, Greater Cold", kBeijing, {2026, 1, 20}, 0.0, true, {8.0, 16.0}, 0},
    {"Harbin, Greater Cold, sills", kHarbin, {2026, 1, 20}, 23.0, false, {8.0, 16.0}, 0},
    {"Guangzhou, winter solstice", kGuangzhou, {2025, 12, 22}, -40.0, true, {9.0, 15.0}, 0},
    {"Harbin, spring, sills and flat sun in vain", kHarbin, {2026, 3, 21}, 200.0, false, {0.0, 24.0}, 15},
    {"Guangzhou, summer, sun north of the zenith", kGuangzhou, {2024, 6, 21}, 90.0, true, {0.0, 24.0}, 0},
};
// In the usual tier each window is judged in one of the samples, in the slow one in all of them.
constexpr std::size_t kSampleCount = std::size(kSamples);

AnalysisRequest RequestOf(const Sample& sample) {
    const DayTerms terms = TermsFor(sample.day);
    AnalysisRequest request = RequestFor(sample.city.latitude, terms.declination);
    request.terms = terms;
    request.settings.place->longitude = sample.city.longitude;
    request.north = sample.north;
    Standard& standard = *request.settings.standard;
    standard.start = sample.clock.start;
    standard.end = sample.clock.end;
    standard.beijingTime = ORVO_BEIJING_TIME;
    standard.fullWindow = sample.isWhole ? 1 : 0;
    standard.minValidAngle = sample.leastAngle;
    return request;
}

void ExpectMuchWasCompared(const DistrictJudge::Tally& tally, const Sample& sample) {
    EXPECT_EQ(tally.wrong, 0U);
    EXPECT_GT(tally.none, 50'000U);
    EXPECT_GT(tally.sunlit, 50'000U);
    EXPECT_GT(tally.hidden, 50'000U);
    EXPECT_GT(tally.stoppers, 10'000U);
    EXPECT_EQ(tally.betweenRays != 0, sample.isWhole);
    EXPECT_LT(tally.betweenRays * 50, tally.hidden);
    EXPECT_EQ(tally.inVain > 10'000U, sample.leastAngle != 0);
    EXPECT_LT(tally.nearChanges * 50, tally.none + tally.sunlit + tally.hidden);
}

class DistrictRays : public testing::TestWithParam<std::size_t> {};

}  // namespace

TEST_P(DistrictRays, SayTheSameAtEveryMark) {
    const Sample& sample = kSamples[GetParam()];
    SCOPED_TRACE(sample.about);
    const District district = ReadDistrict("plain");
    ASSERT_EQ(district.windows.size(), 5000U);
    const RayScene rays(district.triangles);
    const AnalysisRequest request = RequestOf(sample);
    const AnalysisAnswer answer = AnalyseDistrict("plain", request);
    ASSERT_EQ(answer.failure, AnalysisFailure::None);
    ASSERT_EQ(answer.windows.size(), district.windows.size());
    DistrictJudge judge(district, rays, request, answer.span);
    for (std::size_t i = 0; i < district.windows.size(); ++i) {
        const WindowResult& window = answer.windows[i];
        ASSERT_EQ(window.handle, district.windows[i].handle);
        EXPECT_TRUE(window.notes.empty()) << std::hex << window.handle << " has a note";
        if (IsSlowTier() || i % kSampleCount == GetParam())
            judge.Judge(district.windows[i], window);
    }
    ExpectMuchWasCompared(judge.Tallied(), sample);
}

INSTANTIATE_TEST_SUITE_P(Samples, DistrictRays, testing::Range<std::size_t>(0, kSampleCount));
