#include "platform/base/Decimal.h"

#include "platform/base/Error.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace base {
namespace {

using namespace Qt::StringLiterals;

__extension__ using Wide = __int128;

/// Digits that a binary number keeps of any decimal.
constexpr int Digits = 15;
constexpr qint64 UnitsOfCent = 100;

/// A decimal: whole * 10^exponent, whole having at most 15 digits and no zeros at its end.
struct Decimal
{
    qint64 whole = 0;
    int exponent = 0;

    /// The value has to be finite.
    explicit Decimal(double value)
    {
        // "-d.dddddddddddddde-xx"
        const QByteArray text = QByteArray::number(value, 'e', Digits - 1);
        const qsizetype e = text.indexOf('e');
        whole = text.first(e).replace(".", "").toLongLong();
        if (whole == 0)
            return;
        exponent = text.sliced(e + 1).toInt() - (Digits - 1);
        while (whole % 10 == 0) {
            whole /= 10;
            ++exponent;
        }
    }

    [[nodiscard]] int decimals() const { return std::max(0, -exponent); }
};

[[noreturn]] void overflow()
{
    throw Error(ErrorNumber::Overflow, u"Overflow"_s);
}

Wide powerOfTen(int exponent)
{
    Wide power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

/// A half goes away from zero.
Wide divided(Wide value, Wide divisor)
{
    const Wide half = divisor / 2;
    return (value + (value < 0 ? -half : half)) / divisor;
}

qint64 narrowed(Wide value)
{
    if (value > std::numeric_limits<qint64>::max() || value < std::numeric_limits<qint64>::min())
        overflow();
    return static_cast<qint64>(value);
}

/// units * factor, the product in multiples of a step.
qint64 product(qint64 units, double factor, qint64 step)
{
    if (!std::isfinite(factor))
        overflow();
    const Decimal decimal(factor);
    const Wide exact = Wide(units) * decimal.whole;
    if (exact == 0)
        return 0;
    if (decimal.exponent >= 0) {
        if (decimal.exponent > Digits)
            overflow();
        // Both below 10^19 times 10^15; the third factor may leave what 128 bits hold.
        Wide scaled = 0;
        if (__builtin_mul_overflow(exact, powerOfTen(decimal.exponent), &scaled))
            overflow();
        return narrowed(divided(scaled, step) * step);
    }
    // The product has fewer than 36 digits.
    if (-decimal.exponent > 35)
        return 0;
    return narrowed(divided(exact, powerOfTen(-decimal.exponent) * step) * step);
}

constexpr std::array PowersOfTen{1.0, 10.0, 100.0, 1000.0, 10000.0};
/// Up to here a value times a power of ten is far finer than what is asked of it.
constexpr double LargestQuick = 1e10;

/// The value times a power of ten in whole numbers, halves away from zero, without a look at its
/// digits; nothing where these might decide.
std::optional<qint64> quicklyRounded(double value, int decimals)
{
    constexpr double Edge = 1e-4;
    if (decimals < 0 || decimals >= static_cast<int>(PowersOfTen.size()))
        return std::nullopt;
    const double scaled = value * PowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(std::abs(scaled) < LargestQuick) || std::abs(scaled - std::floor(scaled) - 0.5) < Edge)
        return std::nullopt;
    return std::llround(scaled);
}

/// The value in ten-thousandths, where it has no more decimals than four.
std::optional<qint64> tenThousandths(double value)
{
    const double scaled = value * PowersOfTen.back();
    const double whole = std::nearbyint(scaled);
    // The nearest binary number to such a decimal, scaled, is off by no more than this.
    if (!(std::abs(whole) < LargestQuick) || std::abs(scaled - whole) > 4.5e-16 * std::abs(whole))
        return std::nullopt;
    return static_cast<qint64>(whole);
}

/// A number that has been scaled, in digits.
QString inDigits(qint64 whole, int decimals)
{
    std::array<char, std::numeric_limits<qint64>::digits10 + PowersOfTen.size() + 4> text;
    char *const end = text.data() + text.size();
    char *begin = end;
    qint64 rest = std::abs(whole);
    // At least one digit stands before the point.
    for (int digit = 0; rest > 0 || digit <= decimals; ++digit) {
        if (digit == decimals && decimals > 0)
            *--begin = '.';
        *--begin = static_cast<char>('0' + rest % 10);
        rest /= 10;
    }
    if (whole < 0)
        *--begin = '-';
    return QString::fromLatin1(begin, end - begin);
}

/// The nearest binary number to a decimal that has so many decimals.
double nearest(double value, int decimals)
{
    return QByteArray::number(value, 'f', decimals).toDouble();
}

} // namespace

QString fixedDecimals(double value, int decimals)
{
    decimals = std::max(0, decimals);
    if (!std::isfinite(value))
        return QString::number(value);
    if (const std::optional<qint64> whole = quicklyRounded(value, decimals))
        return inDigits(*whole, decimals);
    const Decimal decimal(value);
    const int dropped = -decimal.exponent - decimals;
    QString text;
    if (dropped <= 0) {
        text = QString::number(std::abs(value), 'f', decimals);
    } else {
        const Wide kept =
            dropped > Digits ? Wide(0) : divided(std::abs(decimal.whole), powerOfTen(dropped));
        text = QString::number(static_cast<qint64>(kept)).rightJustified(decimals + 1, u'0');
        if (decimals > 0)
            text.insert(text.size() - decimals, u'.');
    }
    const bool zero = std::ranges::all_of(text, [](QChar c) { return c == u'0' || c == u'.'; });
    return value < 0 && !zero ? u'-' + text : text;
}

double roundedDecimals(double value, int decimals)
{
    if (!std::isfinite(value))
        return value;
    if (const std::optional<qint64> whole = quicklyRounded(value, decimals))
        return static_cast<double>(*whole) / PowersOfTen[static_cast<std::size_t>(decimals)];
    if (decimals >= 0)
        return decimals > 300 ? value : fixedDecimals(value, decimals).toDouble();
    if (decimals < -300)
        return 0;
    const double unit = std::pow(10.0, -decimals);
    return fixedDecimals(value / unit, 0).toDouble() * unit;
}

double decimalSum(double left, double right)
{
    const double sum = left + right;
    if (!std::isfinite(sum) || (left == std::trunc(left) && right == std::trunc(right)))
        return sum;
    const std::optional<qint64> first = tenThousandths(left);
    const std::optional<qint64> second = tenThousandths(right);
    if (first && second)
        return static_cast<double>(*first + *second) / PowersOfTen.back();
    const int decimals = std::max(Decimal(left).decimals(), Decimal(right).decimals());
    return decimals > 30 ? sum : nearest(sum, decimals);
}

double decimalDifference(double left, double right)
{
    return decimalSum(left, -right);
}

double decimalProduct(double left, double right)
{
    const double product = left * right;
    if (!std::isfinite(product) || (left == std::trunc(left) && right == std::trunc(right)))
        return product;
    return QByteArray::number(product, 'g', Digits).toDouble();
}

Money::Money(double amount)
{
    const double units = amount * 10'000;
    if (!(std::abs(units) < 9.2233720368547e18))
        overflow();
    // Beyond 15 digits the amount itself knows more than its decimal of them.
    m_units = std::abs(units) < 1e15 ? product(10'000, amount, 1) : std::llround(units);
}

Money &Money::operator+=(Money other)
{
    if (__builtin_add_overflow(m_units, other.m_units, &m_units))
        overflow();
    return *this;
}

Money Money::times(double factor) const
{
    return ofTenThousandths(product(m_units, factor, 1));
}

Money Money::centsTimes(double factor) const
{
    return ofTenThousandths(product(m_units, factor, UnitsOfCent));
}

Money Money::centsOfMinutes(qint64 minutes) const
{
    return ofTenThousandths(
        narrowed(divided(Wide(m_units) * minutes, 60 * UnitsOfCent) * UnitsOfCent));
}

} // namespace base
