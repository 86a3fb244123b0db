#include "platform/sql/Conversion.h"
#include "platform/sql/Errors.h"

#include "platform/base/Environment.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using sql::ColumnKind;

namespace {

struct Case
{
    const char *name;
    QVariant value;
    ColumnKind kind;
    QVariant expected;
};

void PrintTo(const Case &c, std::ostream *out)
{
    *out << c.name;
}

const QDateTime march15 = base::wallClock(QDate(2024, 3, 15));

class Converted : public testing::TestWithParam<Case>
{};

} // namespace

TEST_P(Converted, GivesTheValueToBind)
{
    const QVariant bound = sql::converted(GetParam().value, GetParam().kind);
    EXPECT_EQ(bound, GetParam().expected) << qPrintable(bound.toString());
    EXPECT_EQ(bound.typeId(), GetParam().expected.typeId());
}

INSTANTIATE_TEST_SUITE_P(
    Values, Converted,
    testing::Values(Case{"NullStaysNull", {}, ColumnKind::Integer, {}},
                    Case{"EmptyDateIsNull", QDateTime(), ColumnKind::Date, {}},
                    Case{"TextToInteger", u" 12 "_s, ColumnKind::Integer, qint64(12)},
                    Case{"NegativeTextToInteger", u"-12"_s, ColumnKind::Integer, qint64(-12)},
                    Case{"HalvesGoToTheEvenNumber", u"2.5"_s, ColumnKind::Integer, qint64(2)},
                    Case{"HalvesGoToTheEvenNumberAbove", 3.5, ColumnKind::Integer, qint64(4)},
                    Case{"TrueToInteger", true, ColumnKind::Integer, qint64(-1)},
                    Case{"DateToNumber", march15, ColumnKind::Integer, qint64(45366)},
                    Case{"TextToReal", u"12.50"_s, ColumnKind::Real, 12.5},
                    Case{"IntegerToMoney", 3, ColumnKind::Money, 3.0},
                    Case{"IntegerToText", 3, ColumnKind::Text, u"3"_s},
                    Case{"RealToText", 2.50, ColumnKind::Text, u"2.5"_s},
                    Case{"DateToText", march15, ColumnKind::Text, u"3/15/2024"_s},
                    Case{"TrueToText", true, ColumnKind::Text, u"-1"_s},
                    Case{"TextToDate", u"03-15-2024"_s, ColumnKind::Date, march15},
                    Case{"ShortTextToDate", u"3/15/24"_s, ColumnKind::Date, march15},
                    Case{"YearFirstTextToDate", u"2024-03-15"_s, ColumnKind::Date, march15},
                    Case{"TextWithTimeToDate", u"3/15/2024 10:05:30 PM"_s, ColumnKind::Date,
                         base::wallClock(QDate(2024, 3, 15), QTime(22, 5, 30))},
                    Case{"TimeAloneStandsOnTheZeroDate", u"12:00:00 AM"_s, ColumnKind::Date,
                         base::wallClock(QDate(1899, 12, 30))},
                    Case{"NumberToDate", 45366.5, ColumnKind::Date,
                         base::wallClock(QDate(2024, 3, 15), QTime(12, 0))},
                    Case{"DayToDate", QDate(2024, 3, 15), ColumnKind::Date, march15},
                    Case{"OneIsYes", u"1"_s, ColumnKind::YesNo, qint64(-1)},
                    Case{"ZeroIsNo", u"0"_s, ColumnKind::YesNo, qint64(0)},
                    Case{"WordIsYes", u"yes"_s, ColumnKind::YesNo, qint64(-1)},
                    Case{"WordIsNo", u"FALSE"_s, ColumnKind::YesNo, qint64(0)},
                    Case{"AnyNumberIsYes", 7, ColumnKind::YesNo, qint64(-1)},
                    Case{"UnknownPasses", u"12"_s, ColumnKind::Unknown, u"12"_s},
                    Case{"UnknownBooleanIsANumber", true, ColumnKind::Unknown, qint64(-1)}),
    [](const auto &row) { return row.param.name; });

TEST(Conversion, WhatIsNoValueOfTheKindIsATypeMismatch)
{
    const std::vector<std::pair<QVariant, ColumnKind>> refused = {
        {u""_s, ColumnKind::Integer},       {u"abc"_s, ColumnKind::Integer},
        {u"12a"_s, ColumnKind::Real},       {u"1e999"_s, ColumnKind::Real},
        {u"nan"_s, ColumnKind::Real},       {u""_s, ColumnKind::Date},
        {u"15/3/2024"_s, ColumnKind::Date}, {u"soon"_s, ColumnKind::Date},
        {1e12, ColumnKind::Date},           {u"maybe"_s, ColumnKind::YesNo},
        {QByteArray("x"), ColumnKind::Text}};
    for (const auto &[value, kind] : refused) {
        try {
            const QVariant bound = sql::converted(value, kind);
            ADD_FAILURE() << qPrintable(value.toString()) << " gave "
                          << qPrintable(bound.toString());
        } catch (const base::Error &error) {
            EXPECT_EQ(error.number(), sql::ErrorNumber::TypeMismatch);
        }
    }
}

TEST(SlotValue, NegatesBeforeItConverts)
{
    sql::Slot slot;
    slot.negate = true;
    slot.kind = ColumnKind::YesNo;
    EXPECT_EQ(sql::slotValue(1, slot), QVariant(qint64(-1)));
    slot.kind = ColumnKind::Text;
    EXPECT_EQ(sql::slotValue(2.5, slot), QVariant(u"-2.5"_s));
    slot.kind = ColumnKind::Real;
    EXPECT_EQ(sql::slotValue(5, slot), QVariant(-5.0));
}

TEST(SlotValue, CutsTextsThatAreLongerThanAnyThatTheyCouldEqual)
{
    sql::Slot slot;
    slot.kind = ColumnKind::Text;
    slot.length = 4;
    EXPECT_EQ(sql::slotValue(u"abcdefgh"_s, slot), QVariant(u"abcd"_s));
    EXPECT_EQ(sql::slotValue(u"abc"_s, slot), QVariant(u"abc"_s));
}

TEST(LikePattern, RewritesTheSignsAndKeepsPlainCharacters)
{
    EXPECT_EQ(sql::likePattern(u"a*b?c"_s), u"a%b_c"_s);
    EXPECT_EQ(sql::likePattern(u"50%_\\"_s), u"50\\%\\_\\\\"_s);
    EXPECT_EQ(sql::likePattern(u""_s), u""_s);
    EXPECT_FALSE(sql::likePattern(u"a#"_s));
    EXPECT_FALSE(sql::likePattern(u"[a-c]"_s));
}
