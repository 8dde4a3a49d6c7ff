// The nearest of the eight main directions.
#include "workbench/commands/CompassWords.h"

#include <gtest/gtest.h>

#include <string>

TEST(CompassWords, NameTheNearestDirection) {
    const std::pair<double, std::string> directions[] = {
        {0.0, "东"},     {22.4, "东"},    {22.6, "东北"},  {45.0, "东北"},  {90.0, "北"},
        {135.0, "西北"}, {180.0, "西"},   {202.4, "西"},   {202.6, "西南"}, {225.0, "西南"},
        {270.0, "南"},   {315.0, "东南"}, {337.4, "东南"}, {337.6, "东"},   {359.9, "东"},
        {-90.0, "南"},   {-180.0, "西"},  {450.0, "北"},   {-450.0, "南"},  {-22.6, "东南"}};
    for (const auto& [direction, word] : directions)
        EXPECT_EQ(ToUtf8(CompassWord(direction).View()), word) << direction;
}
