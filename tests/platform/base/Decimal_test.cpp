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
    const std::tuple<double, int, const char *> rows[] = {
        {26.025, 2, "26.03"}, {2.675, 2, "2.68"},
        {1.005, 2, "1.01"},   {-1.005, 2, "-1.01"},
        {-0.004, 2, "0.00"},  {1.004999, 2, "1.00"},
        {9.995, 2, "10.00"},  {1e20, 2, "100000000000000000000.00"},
        {1e-30, 2, "0.00"},   {0.5, 0, "1"},
        {12.5, 4, "12.5000"}};
    for (const auto &[value, decimals, text] : rows) {
        EXPECT_EQ(base::fixedDecimals(value, decimals), text) << value;
        EXPECT_EQ(base::roundedDecimals(value, decimals), QString(text).toDouble()) << value;
    }
    EXPECT_EQ(base::fixedDecimals(5.5, -1), "6");
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(base::fixedDecimals(Infinite, 2), "inf");
    const std::tuple<double, int, double> rounded[] = {
        {1250, -2, 1300}, {-15, -1, -20}, {1.25, 1, 1.3},       {1.5, 300, 1.5},
        {1.5, 301, 1.5},  {1.5, -301, 0}, {1e300, -300, 1e300}, {Infinite, 2, Infinite}};
    for (const auto &[value, decimals, expected] : rounded)
        EXPECT_EQ(base::roundedDecimals(value, decimals), expected) << value << ' ' << decimals;
    const std::pair<double, double> calculated[] = {
        {base::decimalDifference(0.3, 0.1), 0.2},
        {base::decimalDifference(1'000'000.1, 1'000'000), 0.1},
        {base::decimalSum(1, 2), 3},
        {base::decimalSum(1, 0.1), 1.1},
        {base::decimalSum(0.1, 0.2), 0.3},
        {base::decimalSum(100, -99.9), 0.1},
        {base::decimalSum(-99.9, 100), 0.1},
        {base::decimalSum(Infinite, 1), Infinite},
        {base::decimalSum(1e-40, 2e-40), 1e-40 + 2e-40},
        {base::decimalProduct(0.1, 3), 0.3},
        {base::decimalProduct(3, 0.1), 0.3},
        {base::decimalProduct(94'906'267, 94'906'269), 94'906'267.0 * 94'906'269.0},
        {base::decimalProduct(1e200, 1e200), Infinite}};
    for (const auto &[value, expected] : calculated)
        EXPECT_EQ(value, expected);
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
    EXPECT_EQ(Money(-0.00005).tenThousandths(), -1);
    EXPECT_EQ(Money(1).times(9e14).tenThousandths(), 9'000'000'000'000'000'000);
    EXPECT_EQ(Money(1).times(1e-36).tenThousandths(), 0);
    const Money most = Money::ofTenThousandths(std::numeric_limits<qint64>::max());
    for (const auto &raise : std::initializer_list<std::function<void()>>{
             [] { (void)Money(922'337'203'685'478.0); }, [] { (void)Money(-1e300); },
             [&] { (void)(most + Money(0.0001)); }, [&] { (void)most.times(1.5); },
             [&] { (void)most.times(1e15); }, [] { (void)Money(1).times(1e15); },
             [] { (void)Money(1).times(std::numeric_limits<double>::infinity()); },
             [] { (void)Money(1).times(1e300); }})
        EXPECT_EQ(test::raisedBy(raise).number(), base::ErrorNumber::Overflow);
}

} // namespace
