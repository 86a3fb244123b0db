#include "platform/report/expr/Expression.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"

#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// A machine's row.
class Machine final : public EvaluationContext
{
public:
    [[nodiscard]] std::optional<QVariant> value(const QString &name) const override
    {
        static const QHash<QString, QVariant> fields{
            {u"price"_s, 12.5},
            {u"quantity"_s, qint64(3)},
            {u"name"_s, u"Mower"_s},
            {u"labor cost"_s, 7.25},
            {u"skip"_s, qint64(-1)},
            {u"note"_s, QVariant()},
            {u"due"_s, base::wallClock(QDate(2024, 3, 15))},
            {u"started"_s, base::wallClock(QDate(2024, 3, 1), QTime(13, 5))},
            {u"workhrs"_s, u"1:45"_s},
            {u"tblpart.bin"_s, u"B-7"_s}};
        const auto found = fields.constFind(name.toLower());
        return found == fields.cend() ? std::nullopt : std::optional(*found);
    }
    [[nodiscard]] QVariant aggregate(int number) const override { return 100 + number; }
};

/// Zeros behind a digit.
#define PLENTY                                                                                     \
    "00000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"

TEST(Expression, HasTheValueWorkedOutByHand)
{
    struct Case
    {
        const char *expression;
        const char *text; ///< of the value, by base::toText
    };
    const Case cases[] = {
        // Operators.
        Case{"1 + 2 * 3", "7"}, Case{"(1 + 2) * 3", "9"}, Case{"10 - 4 - 3", "3"},
        Case{"20 / 4 / 2", "2.5"}, Case{"7 mod 4", "3"}, Case{"-2 * -3", "6"}, Case{"- -4", "4"},
        Case{"1 / 0", ""}, Case{"5 mod 0", ""}, Case{"Price * Quantity", "37.5"},
        Case{"[Labor Cost] + 1", "8.25"}, Case{"{Labor Cost}", "7.25"}, Case{"tblPart.Bin", "B-7"},
        Case{"Name & ' ' & Quantity", "Mower 3"}, Case{"'No ' & 1 + 2", "No 3"},
        Case{"Name + '!'", "Mower!"}, Case{"'it''s'", "it's"},
        Case{"\"say \"\"hi\"\"\"", "say \"hi\""}, Case{".5 + .25", "0.75"},
        // Null.
        Case{"Note + 1", ""}, Case{"Note & 'x'", "x"}, Case{"Note = Note", ""},
        Case{"not Note", "True"}, Case{"isnull(Note)", "True"}, Case{"nz(Note)", "0"},
        Case{"nz(Note, 'none')", "none"}, Case{"left(Note, 2)", ""},
        Case{"if(Note, 'a', 'b')", "b"}, Case{"-Note", ""}, Case{"missing", ""},
        // Comparisons.
        Case{"2 < 10", "True"}, Case{"'2' < '10'", "False"}, Case{"'abc' = 'ABC'", "True"},
        Case{"Quantity >= 3 and Price <> 12.5", "False"}, Case{"1 = 2 or 2 = 2 and 3 = 3", "True"},
        Case{"not 1 = 2", "True"}, Case{"Due > #03/01/2024#", "True"},
        Case{"Due = #3-15-2024#", "True"}, Case{"Due <= Started", "False"},
        Case{"0.1 + 0.2 > 0.4", "False"},
        // Functions.
        Case{"if(Skip <> 0, 'skipped', 'done')", "skipped"}, Case{"IIF(Quantity > 5, 1, 2)", "2"},
        Case{"if(False1, 1)", ""}, Case{"left(Name, 3) & mid(Name, 4)", "Mower"},
        Case{"mid(Name, 2, 2)", "ow"}, Case{"right(Name, 2)", "er"}, Case{"left(Name, -1)", ""},
        Case{"len(Name)", "5"}, Case{"upper(Name) & lower(Name)", "MOWERmower"},
        Case{"trim('  a ')", "a"}, Case{"round(1.005, 2)", "1.01"}, Case{"round(-2.5)", "-3"},
        Case{"int(-1.2)", "-2"}, Case{"abs(-4.5)", "4.5"}, Case{"number('12.50') * 2", "25"},
        Case{"number('x')", ""}, Case{"text(Price) & 'x'", "12.5x"},
        Case{"year(Due) * 100 + month(Due)", "202403"}, Case{"day(Note)", ""},
        Case{"days(Started, Due)", "14"}, Case{"Due + 1", "3/16/2024"},
        Case{"Due - 15", "2/29/2024"}, Case{"Due - #03/05/2024#", "10"},
        Case{"minutes(Workhrs)", "105"}, Case{"hours(minutes(Workhrs) + 30)", "2:15"},
        Case{"minutes('soon')", ""}, Case{"format(Price, '$0.00')", "$12.50"},
        // Decimals, whatever their binary neighbours are.
        Case{"0.1 + 0.2 = 0.3", "True"}, Case{"1000000.1 - 1000000", "0.1"},
        Case{"1.5 * 17.35", "26.025"}, Case{"format(1.5 * 17.35, '$0.00')", "$26.03"},
        Case{"format(-1234567.005, '#,##0.00')", "-1,234,567.01"},
        Case{"format(0.285, '0%')", "29%"}, Case{"round(0.5 * 0.33, 2)", "0.17"},
        Case{"format(-0.001, '$0.00')", "$0.00"},
        // What leads out of all bounds.
        Case{"left(Name, 1" PLENTY ")", "Mower"}, Case{"mid(Name, 1" PLENTY ", 1" PLENTY ")", ""},
        Case{"right(Name, -1" PLENTY ")", ""}, Case{"Due + 1" PLENTY, ""},
        Case{"Due - 1" PLENTY, ""}, Case{"Due + 3000000", ""}, Case{"Due - 800000", ""},
        Case{"round(1.5, 1" PLENTY ")", "1.5"}, Case{"round(1.5, -1" PLENTY ")", "0"},
        Case{"hours(1" PLENTY ")", ""}, Case{"minutes('9000000000000000000:1')", ""},
        Case{"1" PLENTY " * 1" PLENTY " * 1" PLENTY " * 1" PLENTY, ""},
        // Aggregates.
        Case{"sum(Price)", "100"}, Case{"sum(Price) + count(*) * 0 + avg(Quantity)", "202"},
        Case{"if(max(Due) > 5, min(Due), 0)", "101"}};
    for (const Case &c : cases) {
        QString error;
        const Expression expression = Expression::parse(QString::fromUtf8(c.expression), &error);
        EXPECT_EQ(error.toStdString(), "") << c.expression;
        EXPECT_EQ(base::toText(expression.evaluate(Machine())).toStdString(), c.text)
            << c.expression;
    }
}

TEST(Expression, TellsWhatItReads)
{
    const Expression expression =
        Expression::parse(u"sum(Price * [Labor Cost], 'order') / count(*) + Quantity"_s);
    ASSERT_EQ(expression.aggregates().size(), 2);
    EXPECT_EQ(expression.aggregates()[0].argument, u"Price * [Labor Cost]");
    EXPECT_EQ(expression.aggregates()[0].scope, u"order");
    EXPECT_EQ(expression.aggregates()[1].function, AggregateFunction::Count);
    EXPECT_EQ(expression.aggregateArgument(0).evaluate(Machine()).toDouble(), 12.5 * 7.25);
    for (const QString &name : {u"price"_s, u"labor cost"_s, u"quantity"_s})
        EXPECT_TRUE(expression.names().contains(name)) << name.toStdString();
}

TEST(Expression, ErrorsNameTheCharacter)
{
    const std::pair<const char *, const char *> cases[] = {
        {"1 +", "the expression ends too early (character 4 of"},
        {"(1 + 2", "\")\" is missing (character 7 of"},
        {"1 2", "this is not expected here (character 3 of"},
        {"Price & 'abc", "the text has no closing quote (character 9 of"},
        {"[Unit No", "the name has no closing bracket (character 1 of"},
        {"#13/45/2024#", "this is no date (character 1 of"},
        {"1.2.3", "this is no number (character 1 of"},
        {"frobnicate(1)", "there is no function \"frobnicate\" (character 1 of"},
        {"left(Name)", "\"left\" has another number of arguments (character 1 of"},
        {"sum(max(Price))", "an aggregate can't stand within another (character 5 of"},
        {"sum(Price, order)", "the scope of an aggregate is a text (character 12 of"}};
    for (const auto &[text, message] : cases) {
        QString error;
        const Expression expression = Expression::parse(QString::fromUtf8(text), &error);
        EXPECT_THAT(error.toStdString(), testing::StartsWith(message));
        EXPECT_TRUE(expression.evaluate(Machine()).isNull()) << text;
    }
}

QVariant accumulated(AggregateFunction function, const QVariantList &values)
{
    Accumulator accumulator(function);
    for (const QVariant &value : values)
        accumulator.add(value);
    return accumulator.result();
}

TEST(Accumulator, SumsExactlyAndLeavesNullOut)
{
    EXPECT_EQ(accumulated(AggregateFunction::Sum, QVariantList(1000, 0.1)), QVariant(qint64(100)));
    EXPECT_EQ(accumulated(AggregateFunction::Sum, {0.1, 0.2, -0.3}), QVariant(qint64(0)));
    EXPECT_EQ(accumulated(AggregateFunction::Sum, {99999999.99, 0.01}),
              QVariant(qint64(100000000)));
    EXPECT_EQ(accumulated(AggregateFunction::Average, {0.1, 0.2}).toDouble(), 0.15);

    EXPECT_DOUBLE_EQ(accumulated(AggregateFunction::Sum, {123456.78905, 1.0}).toDouble(),
                     123457.78905);
    EXPECT_DOUBLE_EQ(accumulated(AggregateFunction::Sum, {1e14, 1e14}).toDouble(), 2e14);
    EXPECT_DOUBLE_EQ(accumulated(AggregateFunction::Sum, {0.00001, 0.00001}).toDouble(), 0.00002);

    const QVariantList values{QVariant(), u"b"_s, u"A"_s, QVariant(), u"c"_s};
    EXPECT_EQ(accumulated(AggregateFunction::Count, values), QVariant(qint64(3)));
    EXPECT_EQ(accumulated(AggregateFunction::Minimum, values), QVariant(u"A"_s));
    EXPECT_EQ(accumulated(AggregateFunction::Maximum, values), QVariant(u"c"_s));
    EXPECT_EQ(accumulated(AggregateFunction::First, values), QVariant(u"b"_s));
    EXPECT_EQ(accumulated(AggregateFunction::Last, values), QVariant(u"c"_s));
    EXPECT_TRUE(accumulated(AggregateFunction::Sum, {QVariant()}).isNull());
    EXPECT_EQ(accumulated(AggregateFunction::Count, {QVariant()}), QVariant(qint64(0)));
}

const QDateTime afternoon = base::wallClock(QDate(2024, 3, 9), QTime(14, 5, 7));

TEST(Formatted, IsAsTheFormatSays)
{
    struct FormatCase
    {
        QVariant value;
        QString format, text;
    };
    const FormatCase cases[] = {
        // Numbers.
        FormatCase{1234.5, u"0.00"_s, u"1234.50"_s},
        FormatCase{1234.5, u"#,##0.00"_s, u"1,234.50"_s}, FormatCase{-3, u"$0.00"_s, u"-$3.00"_s},
        FormatCase{-0.001, u"0.00"_s, u"0.00"_s}, FormatCase{2.5, u"0.##"_s, u"2.5"_s},
        FormatCase{2, u"0.##"_s, u"2"_s}, FormatCase{2, u"0.0#"_s, u"2.0"_s},
        FormatCase{0.256, u"0.0%"_s, u"25.6%"_s}, FormatCase{7, u"0 hrs"_s, u"7 hrs"_s},
        FormatCase{QVariant(), u"0.00"_s, QString()}, FormatCase{u"12.5"_s, u"0.00"_s, u"12.50"_s},
        FormatCase{u"n/a"_s, u"0.00"_s, u"n/a"_s},
        // Dates and times.
        FormatCase{afternoon, u"mm/dd/yyyy"_s, u"03/09/2024"_s},
        FormatCase{afternoon, u"m/d/yy hh:mm AMPM"_s, u"3/9/24 02:05 PM"_s},
        FormatCase{afternoon, u"mmm d, yyyy"_s, u"Mar 9, 2024"_s},
        FormatCase{afternoon, u"HH:nn:ss"_s, u"14:05:07"_s},
        FormatCase{u"13:05"_s, u"hh:mm AMPM"_s, u"01:05 PM"_s},
        FormatCase{5, u"mm/dd/yyyy"_s, u"5"_s}, FormatCase{0.5, QString(), u"0.5"_s}};
    for (const FormatCase &c : cases)
        EXPECT_EQ(formatted(c.value, c.format).toStdString(), c.text.toStdString());
}

TEST(Accumulator, TakesWhatAnotherHasCollected)
{
    const QVariantList first{3, QVariant(), 1.5};
    const QVariantList second{0.1, 7, 2};
    for (const auto function :
         {AggregateFunction::Sum, AggregateFunction::Count, AggregateFunction::Average,
          AggregateFunction::Minimum, AggregateFunction::Maximum, AggregateFunction::First,
          AggregateFunction::Last}) {
        SCOPED_TRACE(static_cast<int>(function));
        Accumulator parted(function), other(function), whole(function), none(function);
        for (const QVariant &value : first)
            parted.add(value);
        for (const QVariant &value : second)
            other.add(value);
        for (const QVariant &value : first + second)
            whole.add(value);
        parted.add(other);
        parted.add(none);
        EXPECT_EQ(parted.result(), whole.result());
        none.add(parted);
        EXPECT_EQ(none.result(), whole.result());
    }
}

} // namespace
} // namespace report
