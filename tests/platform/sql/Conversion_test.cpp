#include "platform/sql/Conversion.h"
#include "platform/sql/Errors.h"
#include "platform/sql/Types.h"

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
    using enum ColumnKind;
    using Case = std::tuple<QVariant, ColumnKind, QVariant>;
    const Case cases[] = {
        // Nothing, and numbers.
        Case{QVariant(), Integer, QVariant()}, Case{QDateTime(), Date, QVariant()},
        Case{u" 12 "_s, Integer, qint64(12)}, Case{u"-12"_s, Integer, qint64(-12)},
        Case{u"2.5"_s, Integer, qint64(2)}, Case{3.5, Integer, qint64(4)},
        Case{true, Integer, qint64(-1)}, Case{march15, Integer, qint64(45366)},
        Case{u"12.50"_s, Real, 12.5}, Case{3, Money, 3.0}, Case{3, Text, u"3"_s},
        Case{2.50, Text, u"2.5"_s}, Case{march15, Text, u"3/15/2024"_s}, Case{true, Text, u"-1"_s},
        // Dates.
        Case{u"03-15-2024"_s, Date, march15}, Case{u"3/15/24"_s, Date, march15},
        Case{u"2024-03-15"_s, Date, march15},
        Case{u"3/15/2024 10:05:30 PM"_s, Date,
             base::wallClock(QDate(2024, 3, 15), QTime(22, 5, 30))},
        Case{u"12:00:00 AM"_s, Date, base::wallClock(QDate(1899, 12, 30))},
        Case{45366.5, Date, base::wallClock(QDate(2024, 3, 15), QTime(12, 0))},
        Case{QDate(2024, 3, 15), Date, march15}, Case{u"2024/3/15"_s, Date, march15},
        Case{u"2024-3-5 14:30"_s, Date, base::wallClock(QDate(2024, 3, 5), QTime(14, 30))},
        Case{u"45366"_s, Date, march15}, Case{-657'434, Date, base::wallClock(QDate(100, 1, 1))},
        Case{2'958'465, Date, base::wallClock(QDate(9999, 12, 31))},
        Case{base::wallClock(QDate(2024, 3, 15), QTime(18, 0)), Real, 45366.75},
        // The ends of what numbers hold, and other forms of them.
        Case{9.1e18, Integer, qint64(9'100'000'000'000'000'000)},
        Case{922'337'203'685'477.4, Money, 922'337'203'685'477.4}, Case{1.5f, Integer, qint64(2)},
        Case{u"+5"_s, Real, 5.0}, Case{u"1E3"_s, Real, 1000.0}, Case{u"1e-1"_s, Real, 0.1},
        Case{false, Integer, qint64(0)}, Case{false, Text, u"0"_s},
        Case{u"ab"_s, Binary, QByteArray("ab")}, Case{QByteArray("ab"), Binary, QByteArray("ab")},
        // Yes and no.
        Case{u"1"_s, YesNo, qint64(-1)}, Case{u"0"_s, YesNo, qint64(0)},
        Case{u"yes"_s, YesNo, qint64(-1)}, Case{u" on"_s, YesNo, qint64(-1)},
        Case{u"true"_s, YesNo, qint64(-1)}, Case{u"No"_s, YesNo, qint64(0)},
        Case{u"off"_s, YesNo, qint64(0)}, Case{u"FALSE"_s, YesNo, qint64(0)},
        Case{7, YesNo, qint64(-1)}, Case{u"12"_s, Unknown, u"12"_s},
        Case{true, Unknown, qint64(-1)}};
    for (const auto &[value, kind, expected] : cases) {
        const QVariant bound = sql::converted(value, kind);
        EXPECT_EQ(bound, expected) << qPrintable(value.toString());
        EXPECT_EQ(bound.typeId(), expected.typeId()) << qPrintable(value.toString());
    }
    for (const QVariant &three :
         {QVariant(3), QVariant(3U), QVariant(3LL), QVariant(3ULL), QVariant::fromValue(short(3)),
          QVariant::fromValue(ushort(3)), QVariant::fromValue(char(3)),
          QVariant::fromValue(uchar(3)), QVariant::fromValue(static_cast<signed char>(3)),
          QVariant::fromValue(3L), QVariant::fromValue(3UL)})
        EXPECT_EQ(sql::converted(three, Integer).toLongLong(), 3) << three.typeName();
    for (const auto &[value, kind] :
         {std::pair(QVariant(9.2e18), Integer), {QVariant(922'337'203'685'477.5), Money}})
        EXPECT_EQ(test::raisedBy([&, &value = value, &kind = kind] {
                      (void)sql::converted(value, kind);
                  }).number(),
                  base::ErrorNumber::Overflow);
}

TEST(Conversion, WhatIsNoValueOfTheKindIsATypeMismatch)
{
    using enum ColumnKind;
    const std::pair<ColumnKind, QVariantList> refused[] = {
        {Integer, {u""_s, u"abc"_s}},
        {Real,
         {u"12a"_s, u"1e999"_s, u"nan"_s, u"-inf"_s, u"1,000"_s, u"5\0x"_s, u"5.5\0"_s,
          QByteArray("1"), QString(41, u'x')}},
        {Date,
         {u""_s, u"15/3/2024"_s, u"soon"_s, 1e12, QByteArray("1"), -657'435, 2'958'466,
          u"2024-3/5"_s}},
        {YesNo, {u"maybe"_s}},
        {Text, {QByteArray("x")}},
        {Binary, {5}}};
    for (const auto &[kind, values] : refused) {
        for (const QVariant &value : values) {
            const base::Error error =
                test::raisedBy([&value = value, to = kind] { (void)sql::converted(value, to); });
            EXPECT_EQ(error.number(), sql::ErrorNumber::TypeMismatch) << error.what();
            EXPECT_EQ(error.description().contains(u"..."), value.toString().size() > 40);
        }
    }
}

TEST(ArithmeticType, FollowsTheKindsOfBothSides)
{
    using enum ColumnKind;
    using enum sql::Operator;
    using Row = std::tuple<sql::Operator, ColumnKind, ColumnKind, ColumnKind>;
    const Row cases[] = {
        // Sums and differences.
        Row{Add, Text, Text, Text}, Row{Add, Text, Unknown, Text}, Row{Add, Unknown, Text, Text},
        Row{Add, Integer, Integer, Integer}, Row{Add, Integer, YesNo, Integer},
        Row{Add, Text, Integer, Real}, Row{Add, Money, Integer, Money},
        Row{Add, Integer, Money, Money}, Row{Add, Money, Real, Real}, Row{Add, Date, Integer, Date},
        Row{Add, Integer, Date, Date}, Row{Subtract, Date, Date, Real},
        Row{Subtract, Date, Integer, Date}, Row{Subtract, Integer, Date, Real},
        Row{Subtract, Money, Money, Money},

        // Products and the rest.
        Row{Multiply, Money, Money, Real}, Row{Multiply, Money, Integer, Money},
        Row{Multiply, Integer, Money, Money}, Row{Multiply, Integer, Integer, Integer},
        Row{Multiply, Real, Integer, Real}, Row{Divide, Integer, Integer, Real},
        Row{Power, Integer, Integer, Real}, Row{IntegerDivide, Real, Real, Integer},
        Row{Modulo, Money, Money, Integer}, Row{Concatenate, Date, Binary, Text}};
    for (const auto &[operation, left, right, type] : cases)
        EXPECT_EQ(sql::arithmeticType(operation, left, right), type)
            << int(operation) << ' ' << int(left) << ' ' << int(right);
    using Refused = std::tuple<sql::Operator, ColumnKind, ColumnKind>;
    const Refused refused[] = {// Dates and bytes.
                               Refused{Add, Date, Date},          Refused{Add, Date, Text},
                               Refused{Add, Text, Date},          Refused{Subtract, Date, Text},
                               Refused{Subtract, Text, Date},     Refused{Multiply, Date, Integer},
                               Refused{Divide, Integer, Date},    Refused{Add, Binary, Integer},
                               Refused{Multiply, Integer, Binary}};
    for (const auto &[operation, left, right] : refused)
        EXPECT_EQ(test::raisedBy([&, &o = operation, &l = left, &r = right] {
                      (void)sql::arithmeticType(o, l, r);
                  }).number(),
                  sql::ErrorNumber::TypeMismatch);
    using Common = std::tuple<ColumnKind, ColumnKind, ColumnKind>;
    const Common common[] = {// Nothing is known of one side, or both are.
                             Common{Date, Date, Date},    Common{Integer, Unknown, Integer},
                             Common{Unknown, Date, Date}, Common{Integer, Money, Money},
                             Common{Integer, Text, Text}, Common{Date, Real, Text},
                             Common{Text, Real, Text}};
    for (const auto &[left, right, type] : common)
        EXPECT_EQ(sql::commonType(left, right), type) << int(left) << ' ' << int(right);
}

TEST(SlotValue, IsNegatedBeforeItIsConvertedAndCutBehindWhatItCouldEqual)
{
    const auto valueFor = [](const QVariant &value, ColumnKind kind, bool negate, int length = 0) {
        sql::Slot slot;
        slot.kind = kind;
        slot.negate = negate;
        slot.length = length;
        return sql::slotValue(value, slot);
    };
    EXPECT_EQ(valueFor(1, ColumnKind::YesNo, true), QVariant(qint64(-1)));
    EXPECT_EQ(valueFor(2.5, ColumnKind::Text, true), QVariant(u"-2.5"_s));
    EXPECT_EQ(valueFor(5, ColumnKind::Real, true), QVariant(-5.0));
    EXPECT_EQ(valueFor(u"abcdefgh"_s, ColumnKind::Text, false, 4), QVariant(u"abcd"_s));
    EXPECT_EQ(valueFor(u"abc"_s, ColumnKind::Text, false, 4), QVariant(u"abc"_s));
}

TEST(LikePattern, RewritesTheSignsAndKeepsPlainCharacters)
{
    EXPECT_EQ(sql::likePattern(u"a*b?c"_s), u"a%b_c"_s);
    EXPECT_EQ(sql::likePattern(u"50%_\\"_s), u"50\\%\\_\\\\"_s);
    EXPECT_EQ(sql::likePattern(u""_s), u""_s);
    EXPECT_FALSE(sql::likePattern(u"a#"_s));
    EXPECT_FALSE(sql::likePattern(u"[a-c]"_s));
}
