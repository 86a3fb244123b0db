#include "platform/base/Decimal.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace {

using base::Money;

/// A decimal worked out in whole numbers: value / 10^decimals as the text of it.
QString plain(qint64 value, int decimals)
{
    QString text = QString::number(std::abs(value)).rightJustified(decimals + 1, u'0');
    text.insert(text.size() - decimals, u'.');
    return value < 0 ? u'-' + text : text;
}

/// value / 10^places rounded half away from zero.
qint64 halfAway(qint64 value, int places)
{
    qint64 divisor = 1;
    for (; places > 0; --places)
        divisor *= 10;
    const qint64 rest = std::abs(value) % divisor;
    const qint64 whole = std::abs(value) / divisor + (2 * rest >= divisor ? 1 : 0);
    return value < 0 ? -whole : whole;
}

TEST(Decimals, AreRoundedHalfAwayFromZero)
{
    const struct
    {
        double value;
        int decimals;
        const char *text;
    } rows[] = {{26.025, 2, "26.03"}, {2.675, 2, "2.68"},
                {1.005, 2, "1.01"},   {-1.005, 2, "-1.01"},
                {-0.004, 2, "0.00"},  {1.004999, 2, "1.00"},
                {9.995, 2, "10.00"},  {1e20, 2, "100000000000000000000.00"},
                {1e-30, 2, "0.00"},   {0.5, 0, "1"},
                {12.5, 4, "12.5000"}};
    for (const auto &row : rows)
        EXPECT_EQ(base::fixedDecimals(row.value, row.decimals), row.text) << row.value;
    EXPECT_EQ(base::roundedDecimals(1250, -2), 1300);
    EXPECT_EQ(base::decimalDifference(0.3, 0.1), 0.2);
    EXPECT_EQ(base::decimalDifference(1'000'000.1, 1'000'000), 0.1);
    EXPECT_EQ(base::toText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(base::toText(9'300'000'000.5), "9300000000.5");
    EXPECT_EQ(base::toText(1e-5), "0.00001");
    EXPECT_EQ(base::toText(1e20), "1E+20");
}

TEST(Decimals, AgreeWithWholeNumbers)
{
    std::mt19937_64 random(20240315);
    const auto any = [&](qint64 limit) {
        return static_cast<qint64>(random() % static_cast<quint64>(2 * limit + 1)) - limit;
    };
    for (int i = 0; i < 50'000; ++i) {
        // Amounts of up to four decimals, quantities of up to three.
        const qint64 a = any(99'999'999'999);
        const qint64 b = any(99'999'999);
        const double left = static_cast<double>(a) / 10'000;
        const double right = static_cast<double>(b) / 10'000;
        const qint64 cents = halfAway(a, 2);
        ASSERT_EQ(base::twoDecimals(left), cents == 0 ? QStringLiteral("0.00") : plain(cents, 2))
            << a;
        ASSERT_EQ(base::decimalSum(left, right), static_cast<double>(a + b) / 10'000);
        ASSERT_EQ((Money(left) + Money(right)).tenThousandths(), a + b);
        const qint64 quantity = any(9'999'999);
        ASSERT_EQ(Money(right).centsTimes(static_cast<double>(quantity) / 1'000).tenThousandths(),
                  halfAway(b * quantity, 5) * 100)
            << b << " * " << quantity;
        const qint64 minutes = i % 1'440;
        ASSERT_EQ(Money(right).centsOfMinutes(minutes).tenThousandths() / 100,
                  (b < 0 ? -1 : 1) * ((std::abs(b) * minutes + 3'000) / 6'000))
            << b;
    }
}

TEST(Decimals, AnAmountThatMoneyCannotHoldIsAnOverflow)
{
    EXPECT_EQ(Money(-92'233'720'368.4775).tenThousandths(), -922'337'203'684'775);
    const Money most = Money::ofTenThousandths(std::numeric_limits<qint64>::max());
    for (const auto &raise : std::initializer_list<std::function<void()>>{
             [] { (void)Money(922'337'203'685'478.0); }, [] { (void)Money(-1e300); },
             [&] { (void)(most + Money(0.0001)); }, [&] { (void)most.times(1.5); },
             [&] { (void)most.times(1e15); }, [] { (void)Money(1).times(1e300); }})
        EXPECT_EQ(test::raisedBy(raise).number(), base::ErrorNumber::Overflow);
}

} // namespace
