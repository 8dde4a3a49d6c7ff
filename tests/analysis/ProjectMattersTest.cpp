// Where a project is found not to matter for a window, its hours are the same with it and without it, to the last bit.
#include <gtest/gtest.h>

#include "AnswerText.h"
#include "RandomScene.h"
#include "analysis/BoxTree.h"
#include "analysis/Boxes.h"
#include "analysis/DrawnWindows.h"
#include "analysis/WindowDay.h"
#include "analysis/WindowSides.h"
#include "host/DrawingText.h"
#include "scene/Scene.h"

namespace {

struct Counts {
    int same = 0;
    int matters = 0;
};

void Compare(const DayOfAnalysis& day, const DrawnWindow& window, Counts& counts) {
    const OccluderSet& set = day.occluders;
    const HourSpans valid = ValidHours(day, window);
    const WindowQuestion question = {window, valid};
    if (MayMatter(day, question, [&](std::uint32_t entity) { return set.IsProposed(entity); })) {
        ++counts.matters;
        return;
    }
    ++counts.same;
    WindowHours all;
    AnalyseDay(day, question, nullptr, all);
    WindowHours standing;
    AnalyseDay(
        day, question, [&](std::uint32_t entity) { return !set.IsProposed(entity); }, standing);
    EXPECT_EQ(TextOf(all), TextOf(standing));
}

void Compare(unsigned seed, Counts& counts) {
    RandomScene made = MakeRandomScene(seed);
    ProposeSome(made, seed);
    SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
    const OpenDrawing drawing(made.scene.Text());
    const OccluderSet set =
        MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0, made.request.proposedLayers);
    std::vector<DrawnWindow> windows = FindWindows(drawing.database, {}, 1.0, 200.0).windows;
    TellSides(windows, set, {200.0, 0.05, 5.0, made.request.facing});
    const SunPath path(made.request.terms.declination, made.request.settings.place->latitude, 0.0);
    const SunPeriod span{4.0, 20.0};
    const HourSpans up = path.HoursBefore({0.0, 0.0, 1.0}, 0.0, span);
    const ShadowCaster caster(set, path, up, 0.05);
    const BoxTree faces(BoxesAround(set.faces));
    DayOfAnalysis day{*made.request.settings.standard, set, faces, caster, path};
    day.span = span;
    day.up = up;
    day.offset = 5.0;
    day.precision = 0.05;
    for (const DrawnWindow& window : windows)
        Compare(day, window, counts);
}

}  // namespace

TEST(ProjectMatters, OrTheHoursAreTheSame) {
    Counts counts;
    for (unsigned seed = 1; seed <= 150; ++seed)
        Compare(seed, counts);
    EXPECT_GT(counts.same, 20);
    EXPECT_GT(counts.matters, 20);
}
