// The two hours of docs/precision.md, whose tables a script computed by formulas, by what the analysis answers.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "JudgedScene.h"
#include "facts/DayTerms.h"
#include "support/Folders.h"

namespace {

// A row of the page.
struct TwoHours {
    CalendarDay day = {};
    double almanacDeclination = 0.0;
    double angle = 0.0;    // of the parapet that leaves two hours of the almanac's sun
    double minutes = 0.0;  // by the program
    double programsAngle = 0.0;
};

std::vector<TwoHours> RowsOfThePage() {
    std::ifstream file(SourceFolder() + "/docs/precision.md");
    std::vector<TwoHours> rows;
    for (std::string line; std::getline(file, line);) {
        TwoHours row;
        const int read = std::sscanf(line.c_str(), "| %d-%d-%d | \u2212%lf | %*s | %lf\u00b0 | %lf | %lf\u00b0",
                                     &row.day.year, &row.day.month, &row.day.day, &row.almanacDeclination, &row.angle,
                                     &row.minutes, &row.programsAngle);
        row.almanacDeclination = -row.almanacDeclination;
        if (read == 7)
            rows.push_back(row);
    }
    return rows;
}

// Of the sill of a window, 1 m up, over a parapet 20 m away and so long that it ends nowhere.
double MinutesOver(double angle, double declination) {
    constexpr double kAway = 20000.0, kSill = 1000.0;
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 9000);
    scene.Window(-750, 0, kSill, 1500, 1500);
    scene.Box(-1e7, -kAway - 300, 0, 1e7, -kAway, kSill + kAway * std::tan(angle * std::numbers::pi / 180.0));
    AnalysisRequest request = RequestFor(40.0, declination);
    request.settings.standard->fullWindow = 0;
    double minutes = 0.0;
    for (const SunPeriod& period : Only(Answer(scene, request)).sunlit)
        minutes += period.Minutes();
    return minutes;
}

}  // namespace

// Angles and declinations stand on the page with two digits; near two hours a hundredth of a degree is worth a minute.
TEST(PrecisionPage, SaysWhatTheAnalysisFindsOfTwoHours) {
    const std::vector<TwoHours> rows = RowsOfThePage();
    ASSERT_EQ(rows.size(), 4U);
    for (const TwoHours& row : rows) {
        SCOPED_TRACE(row.day.year * 100 + row.day.month);
        const double declination = TermsFor(row.day).declination;
        EXPECT_NEAR(MinutesOver(row.angle, row.almanacDeclination), 120.0, 1.5);
        EXPECT_NEAR(MinutesOver(row.angle, declination), row.minutes, 1.5);
        EXPECT_NEAR(MinutesOver(row.programsAngle, declination), 120.0, 1.5);
    }
}
