// What the panel of analyses says in words: of the sun at a time, of what counts, and of what it refuses.
#include <QTimeEdit>

#include "workbench/AnalysisPanelStage.h"

using PanelWordsTest = AnalysisPanelTest;

// With true north where the drawing has west, what looks down the drawing looks west: the sun comes there in the
// afternoon.
TEST_F(PanelWordsTest, TellsWhereTheSunIsThatIsInNoList) {
    const auto isBehindAt = [this](int hour) {
        Find<QTimeEdit>("Moment")->setTime(QTime(hour, 30));
        return Text("MomentText").find("太阳在背后") != std::string::npos;
    };
    Set("North", "90");
    Run();
    ClickRow(0);
    EXPECT_TRUE(isBehindAt(9)) << Text("MomentText");
    EXPECT_FALSE(isBehindAt(14)) << Text("MomentText");
    View()->Choose({}, false);
    View()->Look(StandardView::South);
    ClickIn({8, 0, 5});
    ASSERT_NE(Text("WindowTitle").find("A1"), std::string::npos) << Text("WindowTitle");
    EXPECT_TRUE(isBehindAt(9)) << Text("MomentText");
    EXPECT_FALSE(isBehindAt(14)) << Text("MomentText");
}
