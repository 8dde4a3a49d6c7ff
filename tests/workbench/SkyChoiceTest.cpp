// Which skies a report shows: those asked for, else those of windows that lack sun.
#include "workbench/commands/SkyChoice.h"

#include <gtest/gtest.h>

#include "workbench/AnalysisForTests.h"

namespace {

using Places = std::vector<std::size_t>;

WindowResult Window(std::uint64_t handle, const CString& name, double minutes, std::optional<bool> passes) {
    WindowResult window = LitWindow(handle, name);
    window.judged = minutes;
    window.passes = passes;
    return window;
}

}  // namespace

TEST(SkyChoice, TakesThoseThatFailWithTheFewestHoursFirst) {
    const std::vector<WindowResult> windows = {Window(1, L"a", 90, false), Window(2, L"b", 10, true),
                                               Window(3, L"c", 30, false), Window(4, L"d", 30, false),
                                               WindowWithoutSide(5, L"e")};
    EXPECT_EQ(ChooseSkies(windows, {}).windows, (Places{2, 3, 0}));
    EXPECT_TRUE(ChooseSkies(windows, {}).unknown.empty());
}

TEST(SkyChoice, TakesNoMoreThanEight) {
    std::vector<WindowResult> windows;
    for (int i = 0; i < 20; ++i)
        windows.push_back(Window(100, L"same", 100.0 - i, false));
    EXPECT_EQ(ChooseSkies(windows, {}).windows, (Places{19, 18, 17, 16, 15, 14, 13, 12}));
    EXPECT_EQ(ChooseSkies(windows, {L"same"}).windows, (Places{19, 18, 17, 16, 15, 14, 13, 12}));
}

TEST(SkyChoice, TakesTheOneWithTheFewestHoursWhereNoneFails) {
    EXPECT_EQ(ChooseSkies({Window(1, L"a", 90, true), Window(2, L"b", 60, true)}, {}).windows, Places{1});
    EXPECT_EQ(ChooseSkies({WindowWithoutSide(5, L"e"), Window(1, L"a", 90, {}), Window(2, L"b", 90, {})}, {}).windows,
              Places{1});
    EXPECT_EQ(ChooseSkies({WindowWithoutSide(5, L"e")}, {}).windows, Places{});
    EXPECT_EQ(ChooseSkies({}, {}).windows, Places{});
}

TEST(SkyChoice, TakesWhatIsAskedForByNameElseByHandle) {
    const std::vector<WindowResult> windows = {Window(0x2A, L"1-101-1", 90, true), Window(0x2B, L"2A", 10, true),
                                               Window(0x2C, L"c", 30, false), WindowWithoutSide(0x2D, L"e"),
                                               Window(0, L"none", 1, true)};
    EXPECT_EQ(ChooseSkies(windows, {L"2A"}).windows, Places{1}) << "a name comes before a handle";
    const SkyChoice choice = ChooseSkies(windows, {L"2d", L" 1-101-1 ", L"2D", L"nowhere", L"-", L"2b"});
    EXPECT_EQ(choice.windows, (Places{3, 0, 1}));
    ASSERT_EQ(choice.unknown.size(), 2U);
    EXPECT_EQ(choice.unknown[0], L"nowhere");
    EXPECT_EQ(choice.unknown[1], L"-");
}
