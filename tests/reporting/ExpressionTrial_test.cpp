#include "reporting/ExpressionTrial.h"

#include "platform/report/paginate/CsvSource.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(ExpressionTrial, TellsTheValuesOrWhatIsWrong)
{
    const test::TestEnvironment environment;
    const report::CsvSource rows("PartID,Price\nA,2\nB,10\n");
    report::Layout layout;
    layout.formulas = {{u"Twice"_s, u"number(Price) * 2"_s}, {u"Broken"_s, u"number("_s}};
    report::Parameter most;
    most.name = u"Most"_s;
    most.type = report::ParameterType::Number;
    most.usual = u"3 + 4"_s;
    layout.parameters = {most};

    struct Row
    {
        QString text;
        bool isWords;
        QString values;
        QString error; ///< a part of it
    };
    for (const Row &row : {Row{u"PartID & '!'"_s, false, u"A!|B!"_s, {}},
                           {u"Twice + 1"_s, false, u"5|21"_s, {}},
                           {u"Most"_s, false, u"7|7"_s, {}},
                           {u"sum(number(Price))"_s, false, u"2|12"_s, {}},
                           {u"Part {PartID}, {{x"_s, true, u"Part A, {x|Part B, {x"_s, {}},
                           {u"PartID &"_s, false, {}, u"character"_s},
                           {u"Part {PartID"_s, true, {}, u"brace"_s},
                           {u"Colour"_s, false, {}, u"there is no field \"colour\""_s},
                           {u"{Colour}"_s, true, {}, u"there is no field \"colour\""_s},
                           {u"OfFurtherRows & 'x'"_s, false, {}, {}},
                           {u"  "_s, false, {}, {}}}) {
        const expressions::Trial trial =
            expressions::tried(row.text, row.isWords, layout, rows, {u"offurtherrows"_s});
        EXPECT_EQ(trial.values.join(u'|'), row.values) << qPrintable(row.text);
        EXPECT_TRUE(row.error.isEmpty() ? trial.error.isEmpty() : trial.error.contains(row.error))
            << qPrintable(row.text) << ": " << qPrintable(trial.error);
    }
    const report::CsvSource many("Price\n" + QByteArray("1\n").repeated(1000));
    EXPECT_EQ(expressions::tried(u"RowNumber"_s, false, {}, many, {}).values.join(u' '),
              u"1 2 3 4 5 6 7 8"_s)
        << "a few are enough";
}

} // namespace
