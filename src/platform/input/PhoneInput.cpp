#include "platform/input/PhoneInput.h"

#include "platform/base/Prompts.h"
#include "platform/input/KeyFilter.h"

namespace input {

PhoneInput::PhoneInput(QWidget *parent)
    : MaskedInput(QStringLiteral("(###) ###-####"), parent)
{
    setMaxLength(14);
}

bool PhoneInput::digitsInPlace() const
{
    const QString number = text();
    // Counted from 1. The place of the last digit is not looked at: numbers of nine digits have
    // always been taken.
    for (int position = 2; position <= 13; ++position) {
        if (position == 5 || position == 6 || position == 10)
            continue;
        if (position > number.size() ||
            !Type_Check(number[position - 1].unicode(), TypeCheck::Int, KeyEvent::KeyPress))
            return false;
    }
    return true;
}

bool PhoneInput::check(const QString &message) const
{
    if (isValidOrEmpty())
        return true;
    base::showInformation(message);
    return false;
}

} // namespace input
