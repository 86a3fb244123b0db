#pragma once

#include <QString>

#include <limits>

/// Decimal numbers. Columns bring them as binary numbers, most of which lie a hair beside the
/// decimal that is meant: these procedures count with the decimal, of up to 15 digits.
namespace base {

/// The number with so many decimals as text, a half rounded away from zero: 26.025 is "26.03".
/// No sign stands before a zero.
[[nodiscard]] QString fixedDecimals(double value, int decimals);
/// The same as a number. Decimals below zero round before the point.
[[nodiscard]] double roundedDecimals(double value, int decimals);
/// left + right and left - right as decimals: 0.3 - 0.1 is 0.2 and leaves no 0.19999999999999998.
[[nodiscard]] double decimalSum(double left, double right);
[[nodiscard]] double decimalDifference(double left, double right);
/// left * right, rounded to the 15 digits of a decimal.
[[nodiscard]] double decimalProduct(double left, double right);

/// A sum of money: exact, with the four decimals that are stored. What no such sum can hold raises
/// Overflow (beyond about 922,337,203,685,477 either way).
class Money
{
public:
    constexpr Money() = default;
    /// The sum nearest to a number, such as a column's value.
    explicit Money(double amount);
    [[nodiscard]] static constexpr Money ofTenThousandths(qint64 units)
    {
        Money money;
        money.m_units = units;
        return money;
    }

    [[nodiscard]] constexpr qint64 tenThousandths() const { return m_units; }
    /// For a column or a cell.
    [[nodiscard]] double toDouble() const { return static_cast<double>(m_units) / 10'000; }

    Money &operator+=(Money other);
    [[nodiscard]] friend Money operator+(Money left, Money right) { return left += right; }
    /// That many times the sum, such as hours at a rate, rounded once.
    [[nodiscard]] Money times(double factor) const;
    /// As times, to whole cents: what is charged, so that lines and their total agree.
    [[nodiscard]] Money centsTimes(double factor) const;
    /// The part of it that so many minutes are of an hour, to whole cents.
    [[nodiscard]] Money centsOfMinutes(qint64 minutes) const;
    /// To whole cents, a half away from zero.
    [[nodiscard]] Money cents() const { return centsTimes(1); }

    friend constexpr auto operator<=>(Money, Money) = default;

private:
    qint64 m_units = 0; ///< ten-thousandths
};

} // namespace base
