// The colour of a duration, by a standard as a value and by the module's own table.
#include "facts/Standard.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "settings/OrvoStdSet.h"

TEST(StandardColors, BelongToTheLastRowThatIsReached) {
    Standard standard;
    standard.timeColors = {{0.0, 1}, {1.0, 2}, {3.0, 4}};
    EXPECT_EQ(standard.TimeColorOf(-0.5), 256);
    EXPECT_EQ(standard.TimeColorOf(0.0), 1);
    EXPECT_EQ(standard.TimeColorOf(1.0 - 1.1e-6), 1);
    EXPECT_EQ(standard.TimeColorOf(1.0 - 0.9e-6), 2);
    EXPECT_EQ(standard.TimeColorOf(100.0), 4);
    standard.timeColors = {{3.0, 4}, {1.0, 2}};
    EXPECT_EQ(standard.TimeColorOf(5.0), 2) << "rows are taken as they stand";
    standard.timeColors.clear();
    EXPECT_EQ(standard.TimeColorOf(5.0), 256);
}

TEST(StandardColors, AreTheModulesOwn) {
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -1e300};
    std::mt19937 random(24);
    for (int round = 0; round < 2000; ++round) {
        OrvoStdSet module;
        if (round > 0) {
            module.m_colors.Reset();
            for (std::size_t row = random() % 6; row > 0; --row) {
                if (random() % 8 == 0)
                    module.m_colors.Append(nullptr);
                const double bound = random() % 16 == 0 ? odd[random() % 3] : static_cast<double>(random() % 40) * 0.2;
                module.m_colors.Append(new OrvoColorMap(bound, static_cast<int>(random() % 300)));
            }
        }
        const Standard value = StandardOf(module);
        for (int tenth = -5; tenth < 90; ++tenth)
            for (const double off : {0.0, -1.1e-6, -0.9e-6, 0.05})
                ASSERT_EQ(value.TimeColorOf(tenth / 10.0 + off), module.m_colors.GetTimeColor(tenth / 10.0 + off))
                    << round << " " << tenth << " " << off;
        for (const double hours : odd)
            ASSERT_EQ(value.TimeColorOf(hours), module.m_colors.GetTimeColor(hours)) << round;
    }
}
