#pragma once

#include "platform/input/MaskedInput.h"

namespace input {

/// A phone number in the pattern (###) ###-####; "(   )    -    " when empty, 14 characters long.
class PhoneInput : public MaskedInput
{
    Q_OBJECT

public:
    explicit PhoneInput(QWidget *parent = nullptr);

    /// True when the characters from the second to the thirteenth, except the fifth, sixth and
    /// tenth, are digits. The fourteenth is not looked at.
    [[nodiscard]] bool digitsInPlace() const;
    /// The rule on leaving: True when empty or digitsInPlace.
    [[nodiscard]] bool isValidOrEmpty() const { return isEmptyMask() || digitsInPlace(); }
    /// That rule with the message for the user, where it fails.
    [[nodiscard]] bool check(const QString &message) const;
};

} // namespace input
