// The names of failing windows on a plan: each is there, beside its window or at the end of a line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analysis/OccluderSet.h"
#include "workbench/SvgForTests.h"
#include "workbench/report/PlanPicture.h"

namespace {

// Windows of 1.5 m that fail, so close in a row that their names are wider than they.
std::vector<PlanWindow> Row(int count, double apart, const std::string& name) {
    std::vector<PlanWindow> windows;
    for (int i = 0; i < count; ++i) {
        PlanWindow window;
        const double x = apart * i;
        window.corners = {QcGePoint(x, 0, 1), QcGePoint(x + 1.5, 0, 1), QcGePoint(x + 1.5, 0, 2.5),
                          QcGePoint(x, 0, 2.5)};
        window.name = FromUtf8(name + std::to_string(100 + i));
        window.minutes = 65.0;
        window.passes = false;
        windows.push_back(window);
    }
    return windows;
}

std::vector<SvgElement> PlanOf(const std::vector<PlanWindow>& windows, double width = 174.0) {
    static const OccluderSet kNothing;
    PlanPicture picture{kNothing};
    picture.id = "p";
    picture.width = width;
    picture.windows = windows;
    return ReadSvg(DrawPlan(picture));
}

int CountNamed(const std::vector<SvgElement>& plan, const std::vector<PlanWindow>& windows) {
    const std::vector<SvgElement> texts = Pick(plan, "text", "names");
    return static_cast<int>(std::count_if(windows.begin(), windows.end(), [&](const PlanWindow& window) {
        const QString name = QString::fromStdString(ToUtf8(window.name.View()));
        return std::count_if(texts.begin(), texts.end(),
                             [&](const SvgElement& each) { return each.text.startsWith(name); }) == 1;
    }));
}

QString LeftOutText(const std::vector<SvgElement>& plan) {
    for (const SvgElement& text : Pick(plan, "text", "legend"))
        if (text.text.contains(QString::fromUtf8("写不下窗名")))
            return text.text;
    return {};
}

}  // namespace

TEST(PlanNames, AreAllThereWhereWindowsStandClose) {
    const std::vector<PlanWindow> windows = Row(40, 2.0, "1-12-");
    const std::vector<SvgElement> plan = PlanOf(windows);
    EXPECT_EQ(CountNamed(plan, windows), 40);
    EXPECT_EQ(LeftOutText(plan), "");
    const std::vector<SvgElement> paths = Pick(plan, "path", "leaders");
    ASSERT_EQ(paths.size(), 1U);
    const std::vector<SvgLine> leaders = LinesOf(paths[0].Get("d"));
    EXPECT_GT(leaders.size(), 5U);
    // Each goes from a window to a name.
    const std::vector<SvgLine> rims = LinesOf(Pick(plan, "path", "rims").at(0).Get("d"));
    const std::vector<SvgElement> texts = Pick(plan, "text", "names");
    for (const SvgLine& leader : leaders) {
        EXPECT_TRUE(std::any_of(rims.begin(), rims.end(), [&](const SvgLine& rim) {
            const double middle = 0.5 * (rim[0].x + rim[1].x);
            return std::abs(middle - leader[0].x) <= 2.0 && std::abs(rim[0].y - leader[0].y) < 300.0;
        }));
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [&](const SvgElement& text) {
            return std::abs(text.Number("x") - leader[1].x) < 1500.0 &&
                   std::abs(text.Number("y") - leader[1].y) < 300.0;
        }));
    }
    // No two texts meet: letters are about 0.65 of the size wide, the size being 2.1 mm.
    for (const SvgElement& one : texts)
        for (const SvgElement& other : texts) {
            const double apart = 0.5 * 0.65 * 210.0 * static_cast<double>(one.text.size() + other.text.size());
            EXPECT_TRUE(&one == &other || std::abs(one.Number("x") - other.Number("x")) >= apart - 4.0 ||
                        std::abs(one.Number("y") - other.Number("y")) >= 206.0)
                << one.text.toStdString() << " and " << other.text.toStdString();
        }
}

TEST(PlanNames, NeedNoLineWhereThereIsRoom) {
    const std::vector<PlanWindow> windows = Row(3, 20.0, "1-12-");
    const std::vector<SvgElement> plan = PlanOf(windows);
    EXPECT_EQ(CountNamed(plan, windows), 3);
    EXPECT_TRUE(Pick(plan, "path", "leaders").empty());
}

// On a site of two kilometres a window is 0.6 mm long.
TEST(PlanNames, StandAtALineFromAWindowThatIsTooSmallForOne) {
    std::vector<PlanWindow> windows = Row(2, 2000.0, "1-12-");
    const std::vector<SvgElement> plan = PlanOf(windows);
    EXPECT_EQ(CountNamed(plan, windows), 2);
    EXPECT_EQ(LinesOf(Pick(plan, "path", "leaders").at(0).Get("d")).size(), 2U);
}

TEST(PlanNames, TakeTheirRoomBeforeTheHoursOfOthers) {
    std::vector<PlanWindow> windows = Row(40, 2.0, "1-12-");
    for (std::size_t i = 0; i < windows.size(); i += 2)
        windows[i].passes = true;
    const std::vector<SvgElement> plan = PlanOf(windows);
    EXPECT_EQ(CountNamed(plan, windows), 20);
}

TEST(PlanNames, AreCountedWhereThereIsNoRoomAtAll) {
    const std::string endless(400, 'n');
    EXPECT_EQ(LeftOutText(PlanOf(Row(3, 20.0, endless))), QString::fromUtf8("有 3 个日照不足的窗写不下窗名，见表"));
    const std::vector<PlanWindow> nameless = Row(1, 1.0, "");
    EXPECT_EQ(LeftOutText(PlanOf(nameless)), "");
}
