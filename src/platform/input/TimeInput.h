#pragma once

#include "platform/input/MaskedInput.h"

#include <QTime>

namespace input {

/// A time of twelve hours as "hh:mmA" or "hh:mmP", "  :   " when empty.
class TimeInput : public MaskedInput
{
    Q_OBJECT

public:
    explicit TimeInput(QWidget *parent = nullptr);

    /// The time shown; an hour of 12 with A is midnight's, hours above 12 are taken as of 24.
    /// Invalid when the text is none.
    [[nodiscard]] QTime time() const;
    /// Shows a time; an invalid one empties the box.
    void setTime(QTime time);

    /// Completes the text as on leaving the box: leading zeros of hour and minute, and A where
    /// the last place is empty. An hour above 12 puts the replacement there and gives False.
    bool normalise(const QString &whenInvalid);

protected:
    [[nodiscard]] std::optional<QString> broughtIn(const QString &text) const override;
};

/// A completed "hh:mmA" of a half-typed one; nothing when its hour is above 12.
[[nodiscard]] std::optional<QString> completedTime(const QString &text);

} // namespace input
