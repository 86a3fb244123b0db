#include "platform/sql/Conversion.h"
#include "platform/sql/Errors.h"

#include "platform/base/Environment.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using sql::ColumnKind;

namespace {

const QDateTime march15 = base::wallClock(QDate(2024, 3, 15));

} // namespace

TEST(Conversion, GivesTheValueToBind)
{
    struct Case
    {
        QVariant value;
        ColumnKind kind;
        QVariant bound;
    };
    const Case cases[] = {
        // Nothing, and numbers.
        Case{{}, ColumnKind::Integer, {}}, Case{QDateTime(), ColumnKind::Date, {}},
        Case{u" 12 "_s, ColumnKind::Integer, qint64(12)},
        Case{u"-12"_s, ColumnKind::Integer, qint64(-12)},
        Case{u"2.5"_s, ColumnKind::Integer, qint64(2)}, Case{3.5, ColumnKind::Integer, qint64(4)},
        Case{true, ColumnKind::Integer, qint64(-1)},
        Case{march15, ColumnKind::Integer, qint64(45366)}, Case{u"12.50"_s, ColumnKind::Real, 12.5},
        Case{3, ColumnKind::Money, 3.0}, Case{3, ColumnKind::Text, u"3"_s},
        Case{2.50, ColumnKind::Text, u"2.5"_s}, Case{march15, ColumnKind::Text, u"3/15/2024"_s},
        Case{true, ColumnKind::Text, u"-1"_s},
        // Dates.
        Case{u"03-15-2024"_s, ColumnKind::Date, march15},
        Case{u"3/15/24"_s, ColumnKind::Date, march15},
        Case{u"2024-03-15"_s, ColumnKind::Date, march15},
        Case{u"3/15/2024 10:05:30 PM"_s, ColumnKind::Date,
             base::wallClock(QDate(2024, 3, 15), QTime(22, 5, 30))},
        Case{u"12:00:00 AM"_s, ColumnKind::Date, base::wallClock(QDate(1899, 12, 30))},
        Case{45366.5, ColumnKind::Date, base::wallClock(QDate(2024, 3, 15), QTime(12, 0))},
        Case{QDate(2024, 3, 15), ColumnKind::Date, march15},
        // Yes and no.
        Case{u"1"_s, ColumnKind::YesNo, qint64(-1)}, Case{u"0"_s, ColumnKind::YesNo, qint64(0)},
        Case{u"yes"_s, ColumnKind::YesNo, qint64(-1)},
        Case{u"FALSE"_s, ColumnKind::YesNo, qint64(0)}, Case{7, ColumnKind::YesNo, qint64(-1)},
        Case{u"12"_s, ColumnKind::Unknown, u"12"_s}, Case{true, ColumnKind::Unknown, qint64(-1)}};
    for (const Case &c : cases) {
        const QVariant bound = sql::converted(c.value, c.kind);
        EXPECT_EQ(bound, c.bound) << qPrintable(c.value.toString());
        EXPECT_EQ(bound.typeId(), c.bound.typeId()) << qPrintable(c.value.toString());
    }
}

TEST(Conversion, WhatIsNoValueOfTheKindIsATypeMismatch)
{
    const std::vector<std::pair<QVariant, ColumnKind>> refused = {
        {u""_s, ColumnKind::Integer},       {u"abc"_s, ColumnKind::Integer},
        {u"12a"_s, ColumnKind::Real},       {u"1e999"_s, ColumnKind::Real},
        {u"nan"_s, ColumnKind::Real},       {u""_s, ColumnKind::Date},
        {u"15/3/2024"_s, ColumnKind::Date}, {u"soon"_s, ColumnKind::Date},
        {1e12, ColumnKind::Date},           {u"maybe"_s, ColumnKind::YesNo},
        {QByteArray("x"), ColumnKind::Text}};
    for (const auto &[given, as] : refused) {
        const auto convert = [&value = given, kind = as] { (void)sql::converted(value, kind); };
        EXPECT_EQ(test::raisedBy(convert).number(), sql::ErrorNumber::TypeMismatch)
            << qPrintable(given.toString());
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
