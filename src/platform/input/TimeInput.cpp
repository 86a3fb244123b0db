#include "platform/input/TimeInput.h"

namespace input {
namespace {

/// Two places as a number text of two digits, the missing ones 0.
QString twoDigits(const QString &places)
{
    return places.trimmed().rightJustified(2, u'0');
}

} // namespace

std::optional<QString> completedTime(const QString &text)
{
    const QString padded = text.leftJustified(6, u' ', true);
    const QString hour = twoDigits(padded.left(2));
    // Thirteen o'clock with an A or P behind it would be two times.
    if (hour.toInt() > 12)
        return std::nullopt;
    const QChar half = padded[5] == u' ' ? QChar(u'A') : padded[5].toUpper();
    return hour + u':' + twoDigits(padded.mid(3, 2)) + half;
}

TimeInput::TimeInput(QWidget *parent)
    : MaskedInput(QStringLiteral("##:##M"), parent)
{}

QTime TimeInput::time() const
{
    if (isEmptyMask())
        return {};
    const QString shown = text().leftJustified(6, u' ', true);
    bool hourGiven = false;
    bool minuteGiven = false;
    int hour = twoDigits(shown.left(2)).toInt(&hourGiven);
    const int minute = twoDigits(shown.mid(3, 2)).toInt(&minuteGiven);
    if (!hourGiven || !minuteGiven)
        return {};
    // 12 PM is noon and stays, 12 AM is midnight.
    if (shown[5] == u'P' && hour < 12)
        hour += 12;
    else if (shown[5] != u'P' && hour == 12)
        hour = 0;
    return {hour, minute};
}

void TimeInput::setTime(QTime time)
{
    if (!time.isValid()) {
        clearPlaces();
        return;
    }
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    showText(QStringLiteral("%1:%2%3")
                 .arg(hour, 2, 10, QChar(u'0'))
                 .arg(time.minute(), 2, 10, QChar(u'0'))
                 .arg(QChar(time.hour() < 12 ? u'A' : u'P')));
}

bool TimeInput::normalise(const QString &whenInvalid)
{
    const auto completed = completedTime(text());
    setText(completed.value_or(whenInvalid));
    return completed.has_value();
}

std::optional<QString> TimeInput::broughtIn(const QString &text) const
{
    const int colon = int(text.indexOf(u':'));
    if (mask().fits(text) || colon < 0)
        return mask().fitted(text);
    // Hours and minutes of one digit stand at their colon, not at the left.
    QString spread = text.left(colon).trimmed().rightJustified(2, u'0') + text.mid(colon);
    // "8:30 PM" of a stored text.
    spread.remove(u' ');
    return mask().fitted(spread.left(mask().length()));
}

} // namespace input
