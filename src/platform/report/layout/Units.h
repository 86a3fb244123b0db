#pragma once

#include <QString>
#include <optional>

namespace report {

/// All lengths of layouts and pages, in whole hundredths of a millimetre.
using Length = int;

/// Rounded to the nearest hundredth.
constexpr Length fromMillimetres(double millimetres)
{
    return static_cast<Length>(millimetres * 100 + (millimetres < 0 ? -0.5 : 0.5));
}
constexpr Length fromPoints(double points)
{
    return fromMillimetres(points * 25.4 / 72);
}

/// Reads a length with its unit, "12.5mm", "2cm", "1in", "9pt"; nothing for another text.
[[nodiscard]] std::optional<Length> parseLength(const QString &text);
/// "12.5mm", the form in which layouts are written.
[[nodiscard]] QString lengthText(Length length);

} // namespace report
