// The day of a window in words, what hides it at a time, and what makes an answer out of date.
#include "workbench/panel/DayStretches.h"

#include <gtest/gtest.h>

#include "analysis/TuningParameters.h"
#include "facts/Settings.h"
#include "scene/Scene.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/panel/AskedState.h"

namespace {

CString NameOf(std::uint64_t handle) {
    return handle == 0x2F ? L"tower" : L"wall";
}

std::string Text(const DayStretch& stretch) {
    return ToUtf8(stretch.text.View());
}

}  // namespace

TEST(DayStretches, TellEachStretchWithBothTimesAndItsReason) {
    WindowResult window = LitWindow(1, L"A");
    window.dropped = {{{11.0, 11.5}, DropReason::Short}};
    const std::vector<DayStretch> stretches = StretchesOf(window, {{{9.0, 9.5}, {0x2F}}}, 0.25, NameOf);
    ASSERT_EQ(stretches.size(), 6U);
    EXPECT_EQ(Text(stretches[0]), "日照：真太阳时 09:00:00-12:00:00，北京时间 09:15:00-12:15:00，3:00:00");
    EXPECT_EQ(stretches[1].kind, DayStretch::Kind::Counted);
    EXPECT_EQ(Text(stretches[2]), "不计：真太阳时 11:00:00-11:30:00，北京时间 11:15:00-11:45:00，0:30:00\n时间段太短");
    EXPECT_EQ(Text(stretches[4]),
              "遮挡：真太阳时 12:00:00-16:00:00，北京时间 12:15:00-16:15:00，4:00:00\n被 tower, wall");
    EXPECT_EQ(Text(stretches[5]), "夺去：真太阳时 09:00:00-09:30:00，北京时间 09:15:00-09:45:00，0:30:00\n被 tower");
}

// On the equinox at 40 degrees of latitude the sun rises at 6 in the east; at 9 it is in the south-east, at an azimuth
// of 180 - atan(tan 45 / sin 40) = 122.7 degrees, and asin(cos 40 cos 45) = 32.8 degrees high.
class SunAtATime : public testing::Test {
protected:
    SunThen At(const WindowHours& hours, double time) const { return SunAt(hours, m_sun, time); }
    SunThen::State StateAt(double time) const { return At(m_window, time).state; }

    SeenSun m_sun = {ComputeSunDay(0.0, 0.0, 120.0, 40.0), {5.0, 16.0}, 0.0, {0.0, -1.0, 0.0}};
    WindowHours m_window = LitWindow(1, L"A");
};

TEST_F(SunAtATime, IsLitOrHiddenByTheLists) {
    EXPECT_EQ(StateAt(10.0), SunThen::State::Lit);
    EXPECT_EQ(StateAt(8.5), SunThen::State::Hidden);
    EXPECT_EQ(At(m_window, 8.5).by, std::vector<std::uint64_t>{0x2F});
    EXPECT_EQ(At(m_window, 13.0).by, (std::vector<std::uint64_t>{0x2F, 0x30}));
    m_window.dropped = {{{9.0, 9.5}, DropReason::Facing}};
    EXPECT_EQ(StateAt(9.25), SunThen::State::Dropped);
    EXPECT_EQ(ToUtf8(SunThenText(At(m_window, 9.25)).View()), "太阳照到这里，但不计：不在该朝向的有效时段内");
}

TEST_F(SunAtATime, IsToldApartWhereTheListsHaveNothing) {
    EXPECT_EQ(StateAt(4.9), SunThen::State::Outside);
    EXPECT_EQ(StateAt(16.1), SunThen::State::Outside);
    EXPECT_EQ(StateAt(5.5), SunThen::State::Down);
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Invalid) << "the sun is before it";
    m_sun.leastAltitude = 32.0;
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Invalid);
    m_sun.leastAltitude = 33.5;
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Low);
    m_sun.leastAltitude = 0.0;
    m_sun.outward = {-1.0, 0.0, 0.0};
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Behind);
    EXPECT_EQ(At({}, 15.0).state, SunThen::State::Invalid) << "in the west by then";
    m_sun.outward = {-0.9, 0.0, 0.5};
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Behind) << "a roof that slopes westwards by 61 degrees";
    m_sun.outward = {-0.5, 0.0, 0.9};
    EXPECT_EQ(At({}, 9.0).state, SunThen::State::Invalid) << "and one by 29";
}

TEST(AskedStateTest, SeesEveryChangeOfSettings) {
    const Settings settings = BareReport().request.settings;
    const TuningParameters tuning;
    const std::string state = SettingsState(settings, tuning);
    EXPECT_EQ(SettingsState(Settings(settings), tuning), state);
    const auto differs = [&](const auto& change) {
        Settings other = settings;
        change(other);
        return SettingsState(other, tuning) != state;
    };
    EXPECT_TRUE(differs([](Settings& other) { other.place->latitude += 1e-6; }));
    EXPECT_TRUE(differs([](Settings& other) { other.place.reset(); }));
    EXPECT_TRUE(differs([](Settings& other) { other.standard->day.day = 21; }));
    EXPECT_TRUE(differs([](Settings& other) { other.standard->minValidTime = 5; }));
    EXPECT_TRUE(differs([](Settings& other) { other.standard->step = 2.0; }));
    EXPECT_TRUE(differs([](Settings& other) { other.standard->timeColors.push_back({3.0, 5}); }));
    EXPECT_TRUE(differs([](Settings& other) { other.end.hour += 1; }));
    TuningParameters thinner;
    thinner.windowOffset = 6.0;
    EXPECT_NE(SettingsState(settings, thinner), state);
}

TEST(AskedStateTest, TellsInWordsWhatHasChanged) {
    const AskedState then{std::make_shared<Scene>(), "settings", {"2"}};
    EXPECT_TRUE(ChangesBetween(then, then).IsEmpty());
    AskedState now = then;
    now.fields = QStringList{"3"};
    EXPECT_EQ(ToUtf8(ChangesBetween(then, now).View()), "上面的要求改动了");
    now.scene = std::make_shared<Scene>();
    const std::string both = ToUtf8(ChangesBetween(then, now).View());
    EXPECT_NE(both.find("图形改动了"), std::string::npos);
    EXPECT_NE(both.find("上面的要求改动了"), std::string::npos);
    EXPECT_EQ(both.find("设置改动了"), std::string::npos);
}
