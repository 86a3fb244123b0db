#include "platform/grid/CellMask.h"

#include <gtest/gtest.h>

namespace {

using grid::CellMask;
using State = CellMask::State;

TEST(CellMask, JudgesATextAsFarAsItGoes)
{
    struct Case
    {
        const char *mask, *text;
        State expected;
    };
    constexpr const char *Quantity = "{0,99999}.{0,99}";
    const Case cases[] = {
        // Whole and fraction; what is behind may be missing, and so may the whole.
        Case{Quantity, "", State::Complete}, Case{Quantity, "0", State::Complete},
        Case{Quantity, "99999", State::Complete}, Case{Quantity, "99999.99", State::Complete},
        Case{Quantity, "7.", State::Complete}, Case{Quantity, "7.5", State::Complete},
        Case{Quantity, "7.05", State::Complete}, Case{Quantity, ".25", State::Complete},
        Case{Quantity, "00012", State::Complete}, Case{Quantity, ".", State::Unfinished},
        Case{Quantity, "100000", State::Invalid}, Case{Quantity, "7.125", State::Invalid},
        Case{Quantity, "7..", State::Invalid}, Case{Quantity, "7,5", State::Invalid},
        Case{Quantity, "-1", State::Invalid}, Case{Quantity, "1e3", State::Invalid},
        Case{Quantity, " 1", State::Invalid}, Case{Quantity, "000001", State::Invalid},
        // A lower bound: too small so far, more digits may follow.
        Case{"{1,99999}", "0", State::Unfinished}, Case{"{1,99999}", "01", State::Complete},
        Case{"{1,99999}", "1", State::Complete}, Case{"{1,99999}", "1.", State::Invalid},
        Case{"{1,999999999}", "999999999", State::Complete},
        Case{"{1,999999999}", "1000000000", State::Invalid},
        Case{"{10,20}", "1", State::Unfinished}, Case{"{10,20}", "21", State::Invalid},
        Case{"{10,20}", "20", State::Complete}, Case{"{10,20}", "09", State::Invalid},
        // Digits that may be missing, and fixed characters.
        Case{"{0,99999}.##", "12", State::Complete}, Case{"{0,99999}.##", "12.3", State::Complete},
        Case{"{0,99999}.##", "12.34", State::Complete},
        Case{"{0,99999}.##", "12.345", State::Invalid}, Case{"##:##", "12:30", State::Complete},
        Case{"##:##", "12-30", State::Invalid}, Case{"{5", "{5", State::Complete},
        Case{"", "anything", State::Complete}};
    for (const Case &c : cases) {
        EXPECT_EQ(CellMask(QString::fromLatin1(c.mask)).check(QString::fromLatin1(c.text)),
                  c.expected)
            << c.mask << " with \"" << c.text << '"';
    }
}

} // namespace
