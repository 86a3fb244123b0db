#pragma once

#include "platform/input/MaskedInput.h"

#include <QDate>

class QAction;

namespace input {

/// A date as "mm/dd/yyyy", "  /  /    " when empty. Years of two digits are completed on leaving,
/// a separator typed early completes the part before it. The button at its end, or Alt+Down, opens
/// a calendar; Up and Down move by a day.
class DateInput : public MaskedInput
{
    Q_OBJECT

public:
    explicit DateInput(QWidget *parent = nullptr);

    /// The date shown; invalid when empty or no date.
    [[nodiscard]] QDate date() const;
    /// Shows a date; an invalid one empties the box.
    void setDate(QDate date);
    /// The same for the day of a date-time; the zero date empties the box.
    void setDate(const QDateTime &dateTime) { setDate(dateTime.date()); }
    /// Empty: no digit stands in any place.
    [[nodiscard]] bool isEmpty() const { return isEmptyMask(); }
    [[nodiscard]] bool isValidOrEmpty() const { return isEmptyMask() || date().isValid(); }

    /// From now on leaving the box with a text that is neither empty nor a date shows "Please enter
    /// valid date." and keeps the focus.
    void checkOnLeave();
    /// Opens the calendar below the box; it closes on a choice or Escape.
    void showCalendar();

Q_SIGNALS:
    /// The date changed, by the user or the program; invalid for none.
    void dateChanged(QDate date);
    /// The user changed the text or chose a day.
    void edited();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    [[nodiscard]] std::optional<Mask::Edit> typedInto(const QString &current, int caret,
                                                      QChar character) const override;

    [[nodiscard]] std::optional<QString> broughtIn(const QString &text) const override;

private:
    void chooseDate(QDate date);
    void announceDate();

    QAction *m_calendarAction;
    QDate m_announced;
};

} // namespace input
