#include "equipment/Depreciation.h"

#include <gtest/gtest.h>

namespace {

using depreciation::schedule;
using depreciation::Year;

TEST(Depreciation, EndsAtTheSalvageValueAndLosesTheCentsBeforeItDivides)
{
    EXPECT_EQ(schedule(2004, 10000, 2000, 4), (std::vector<Year>{{2004, 2000, 2000, 8000},
                                                                 {2005, 2000, 4000, 6000},
                                                                 {2006, 2000, 6000, 4000},
                                                                 {2007, 2000, 8000, 2000}}));
    EXPECT_EQ(schedule(2020, 1000.50, 0, 1).front().AnnualDepreciation, 1000);
    EXPECT_EQ(schedule(2020, 1001.50, 0, 1).front().AnnualDepreciation, 1002);
    EXPECT_EQ(schedule(2020, 1000.49, 1000.30, 1).front().AnnualDepreciation, 0);
}

TEST(Depreciation, KeepsFractionsAndHasNoRowsWithoutALife)
{
    const auto years = schedule(2020, 1000, 0, 3);
    ASSERT_EQ(years.size(), 3u);
    EXPECT_DOUBLE_EQ(years[0].AnnualDepreciation, 1000.0 / 3);
    EXPECT_DOUBLE_EQ(years[1].AccumualtedDepreciation, 2000.0 / 3);
    EXPECT_NEAR(years[2].BookValue, 0, 1e-9);
    EXPECT_TRUE(schedule(2020, 1000, 0, 0).empty());
    EXPECT_TRUE(schedule(2020, 1000, 0, -3).empty());
}

} // namespace
