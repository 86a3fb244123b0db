#include "platform/grid/CellMask.h"

#include <gtest/gtest.h>

namespace {

using grid::CellMask;

TEST(CellMask, JudgesATextAsFarAsItGoes)
{
    using enum CellMask::State;
    using Case = std::tuple<const char *, const char *, CellMask::State>;
    constexpr const char *Quantity = "{0,99999}.{0,99}";
    const Case cases[] = {
        // Whole and fraction; what is behind may be missing, and so may the whole.
        Case{Quantity, "", Complete}, Case{Quantity, "0", Complete},
        Case{Quantity, "99999", Complete}, Case{Quantity, "99999.99", Complete},
        Case{Quantity, "7.", Complete}, Case{Quantity, "7.5", Complete},
        Case{Quantity, "7.05", Complete}, Case{Quantity, ".25", Complete},
        Case{Quantity, "00012", Complete}, Case{Quantity, ".", Unfinished},
        Case{Quantity, "100000", Invalid}, Case{Quantity, "7.125", Invalid},
        Case{Quantity, "7..", Invalid}, Case{Quantity, "7,5", Invalid},
        Case{Quantity, "-1", Invalid}, Case{Quantity, "1e3", Invalid},
        Case{Quantity, " 1", Invalid}, Case{Quantity, "000001", Invalid},
        // A lower bound: too small so far, more digits may follow.
        Case{"{1,99999}", "0", Unfinished}, Case{"{1,99999}", "01", Complete},
        Case{"{1,99999}", "1", Complete}, Case{"{1,99999}", "1.", Invalid},
        Case{"{1,999999999}", "999999999", Complete}, Case{"{1,999999999}", "1000000000", Invalid},
        Case{"{10,20}", "1", Unfinished}, Case{"{10,20}", "21", Invalid},
        Case{"{10,20}", "20", Complete}, Case{"{10,20}", "09", Invalid},
        // Digits that may be missing, and fixed characters.
        Case{"{0,99999}.##", "12", Complete}, Case{"{0,99999}.##", "12.3", Complete},
        Case{"{0,99999}.##", "12.34", Complete}, Case{"{0,99999}.##", "12.345", Invalid},
        Case{"##:##", "12:30", Complete}, Case{"##:##", "12-30", Invalid},
        Case{"{5", "{5", Complete}, Case{"", "anything", Complete}};
    for (const auto &[mask, text, expected] : cases)
        EXPECT_EQ(CellMask(QString::fromLatin1(mask)).check(QString::fromLatin1(text)), expected)
            << mask << " with \"" << text << '"';
}

} // namespace
