#include "platform/grid/CellMask.h"

#include <gtest/gtest.h>

namespace {

using grid::CellMask;

TEST(CellMask, JudgesATextAsFarAsItGoes)
{
    using enum CellMask::State;
    constexpr const char *Quantity = "{0,99999}.{0,99}";
    // A mask, a judgement, and the texts that get it.
    const std::tuple<const char *, CellMask::State, const char *> cases[] = {
        // Whole and fraction; what is behind may be missing, and so may the whole.
        {Quantity, Complete, "|0|99999|99999.99|7.|7.5|7.05|.25|00012"},
        {Quantity, Unfinished, "."},
        {Quantity, Invalid, "100000|7.125|7..|7,5|-1|1e3| 1|000001"},
        // A lower bound: too small so far, more digits may follow.
        {"{1,99999}", Unfinished, "0"},
        {"{1,99999}", Complete, "01|1"},
        {"{1,99999}", Invalid, "1."},
        {"{1,999999999}", Complete, "999999999"},
        {"{1,999999999}", Invalid, "1000000000"},
        {"{10,20}", Unfinished, "1"},
        {"{10,20}", Complete, "20"},
        {"{10,20}", Invalid, "21|09"},
        // Digits that may be missing, and fixed characters.
        {"{0,99999}.##", Complete, "12|12.3|12.34"},
        {"{0,99999}.##", Invalid, "12.345"},
        {"##:##", Complete, "12:30"},
        {"##:##", Invalid, "12-30"},
        {"{5", Complete, "{5"},
        {"", Complete, "anything"}};
    for (const auto &[mask, expected, texts] : cases) {
        for (const QString &text : QString::fromLatin1(texts).split(u'|'))
            EXPECT_EQ(CellMask(QString::fromLatin1(mask)).check(text), expected)
                << mask << " with \"" << qPrintable(text) << '"';
    }
}

} // namespace
