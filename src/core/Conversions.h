#pragma once

#include <QString>
#include <span>

/// Small conversions and checks of values.

/// True when an element from index 1 on is 1.
[[nodiscard]] bool CheckArray(std::span<const int> Values);
/// "h:mm" of a number of minutes.
[[nodiscard]] QString ChangeMinuteInHour(int Minutes);
/// True for an address in order; otherwise Message says what is wrong.
[[nodiscard]] bool ValidateEmail(const QString &Address, QString &Message);
