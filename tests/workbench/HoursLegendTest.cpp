// What the colours of windows mean, and where enough begins.
#include "workbench/view/HoursLegend.h"

#include <gtest/gtest.h>

#include "workbench/AnalysisPanelStage.h"
#include "workbench/panel/AnalysisPanel.h"

namespace {

const std::vector<TimeColor> kColors = {{0.0, 1}, {1.0, 2}, {2.0, 3}};

// The colours' texts without blanks, a mark as |.
std::string RowsFor(std::optional<double> need) {
    std::string text;
    for (const PlateRow& row : HoursLegend(kColors, need))
        text += row.isMark ? "|" : row.text.toStdString() + ",";
    return text;
}

}  // namespace

TEST(HoursLegendTest, MarksWhereEnoughBegins) {
    EXPECT_EQ(RowsFor({}), "≥ 0,≥ 1,≥ 2,");
    EXPECT_EQ(RowsFor(2.0), "≥ 0,≥ 1,|≥ 2,");
    EXPECT_EQ(RowsFor(1.5), "≥ 0,≥ 1,|≥ 2,") << "some of the second are enough";
    EXPECT_EQ(RowsFor(0.5), "≥ 0,|≥ 1,≥ 2,");
    EXPECT_EQ(RowsFor(3.0), "≥ 0,≥ 1,≥ 2,|") << "none is surely enough";
    EXPECT_TRUE(HoursLegend({}, 2.0).empty());
    const auto rows = HoursLegend(kColors, 1.5);
    EXPECT_EQ(rows[2].text.toStdString(), "需要 1.5");
    EXPECT_EQ(rows[0].rgb, 0xFF0000);
    EXPECT_EQ(rows[3].rgb, 0x00FF00);
}

TEST_F(AnalysisPanelTest, MarksWhatIsNeededInItsLegend) {
    EXPECT_FALSE(Find<QLabel>("AnalysisLegend")->isVisible());
    Run();
    const std::string legend = Text("AnalysisLegend");
    const auto mark = legend.find("需要&nbsp;2");
    ASSERT_NE(mark, std::string::npos) << legend;
    EXPECT_LT(legend.find("≥1"), mark);
    EXPECT_GT(legend.find("≥2"), mark);
    Set("Need", "");
    Run();
    EXPECT_EQ(Text("AnalysisLegend").find("需要"), std::string::npos);
}
