#include "platform/sql/Picture.h"
#include "platform/sql/Writer.h"

#include <algorithm>
#include <array>

/// Dates by the pictures of Format.
namespace sql {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array months = {u"January",   u"February", u"March",    u"April",
                               u"May",       u"June",     u"July",     u"August",
                               u"September", u"October",  u"November", u"December"};
constexpr std::array weekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                 u"Thursday", u"Friday", u"Saturday"};

/// How a sign that is a number is written: around the part of the date that the engine gives.
struct DateNumber
{
    QStringView sign;
    QStringView before;
    QStringView part;
    QStringView after;
};

constexpr std::array dateNumbers = {
    DateNumber{u"yyyy", u"", u"YEAR", u""},
    DateNumber{u"yy", u"RIGHT('0' || ", u"YEAR", u", 2)"},
    DateNumber{u"y", u"(", u"YEARDAY", u" + 1)"},
    DateNumber{u"q", u"((", u"MONTH", u" + 2) / 3)"},
    DateNumber{u"mm", u"RIGHT('0' || ", u"MONTH", u", 2)"},
    DateNumber{u"m", u"", u"MONTH", u""},
    DateNumber{u"w", u"(", u"WEEKDAY", u" + 1)"},
    DateNumber{u"dd", u"RIGHT('0' || ", u"DAY", u", 2)"},
    DateNumber{u"d", u"", u"DAY", u""},
    DateNumber{u"nn", u"RIGHT('0' || ", u"MINUTE", u", 2)"},
    DateNumber{u"n", u"", u"MINUTE", u""},
    DateNumber{u"ss", u"RIGHT('0' || ", u"SECOND", u", 2)"},
    DateNumber{u"s", u"", u"SECOND", u""},
};

/// Signs that stand for a whole picture.
constexpr std::array wholeDates = {
    std::pair{u"ddddd", u"m/d/yyyy"},
    std::pair{u"dddddd", u"dddd, mmmm dd, yyyy"},
    std::pair{u"ttttt", u"h:nn:ss AM/PM"},
};

template<class Names>
QString choicesOf(const Names &names, int first, qsizetype length)
{
    QString text;
    for (const QStringView name : names)
        text += u", %1, '%2'"_s.arg(QString::number(first++), name.left(length));
    return text;
}

bool isHalfDay(const QString &piece)
{
    return piece.startsWith(u'a', Qt::CaseInsensitive);
}

} // namespace

void Writer::writeFormattedDate(const Expression &date, const QString &picture)
{
    const Repetition repetition(*this, date);
    const QStringList pieces = datePieces(picture);
    // A picture of texts alone shows nothing of the date.
    if (std::ranges::all_of(pieces, [](const QString &piece) { return piece.startsWith(u'\''); }))
        raise(u"this format is not known."_s, date);
    // A mark for the half of the day turns all hours of the picture to twelve.
    const bool twelveHours = std::ranges::any_of(pieces, isHalfDay);
    QStringView between;
    m_text += u'(';
    for (const QString &piece : pieces) {
        m_text += between;
        between = u" || ";
        if (piece.startsWith(u'\''))
            writeQuoted(QStringView(piece).sliced(1));
        else
            writeDateSign(date, piece, twelveHours);
    }
    m_text += u')';
}

void Writer::writePartIn(QStringView before, const Expression &date, QStringView part,
                         QStringView after)
{
    m_text += before;
    writeDatePart(date, part);
    m_text += after;
}

void Writer::writeDateSign(const Expression &date, const QString &sign, bool twelveHours)
{
    // A sign of three letters stands for a short name.
    const qsizetype nameLength = sign.size() == 3 ? 3 : 20;
    if (const auto *number = std::ranges::find(dateNumbers, QStringView(sign), &DateNumber::sign);
        number != dateNumbers.end())
        writePartIn(number->before, date, number->part, number->after);
    else if (const auto *whole = std::ranges::find_if(
                 wholeDates, [&](const auto &entry) { return sign == entry.first; });
             whole != wholeDates.end())
        // A picture within the picture: it has no sign of this kind, and the recursion ends there.
        writeFormattedDate(date, QString::fromUtf16(whole->second));
    else if (sign == u"h" || sign == u"hh")
        writeHour(date, sign.size() == 2, twelveHours);
    else if (isHalfDay(sign))
        writeHalfDay(date, sign);
    else if (sign == u"mmm" || sign == u"mmmm")
        writePartIn(u"TRIM(DECODE(", date, u"MONTH", choicesOf(months, 1, nameLength) + u"))"_s);
    else if (sign == u"ddd" || sign == u"dddd")
        writePartIn(u"TRIM(DECODE(", date, u"WEEKDAY",
                    choicesOf(weekdays, 0, nameLength) + u"))"_s);
    else if (sign == u"ww")
        writeWeek(date);
    else if (sign == u"c")
        writeDateText(date);
    else
        raise(u"this format is not known."_s, date);
}

void Writer::writeHour(const Expression &date, bool padded, bool twelveHours)
{
    m_text += padded ? u"RIGHT('0' || "_s : QString();
    if (twelveHours)
        writePartIn(u"(MOD(", date, u"HOUR", u" + 11, 12) + 1)");
    else
        writePartIn(u"", date, u"HOUR", u"");
    m_text += padded ? u", 2)"_s : QString();
}

void Writer::writeHalfDay(const Expression &date, const QString &sign)
{
    const bool lower = sign.front() == u'a';
    // "A/P" against "AM/PM" and "AMPM".
    const bool letter = sign.size() == 3;
    writePartIn(u"IIF(", date, u"HOUR",
                lower ? (letter ? u" < 12, 'a', 'p')" : u" < 12, 'am', 'pm')")
                      : (letter ? u" < 12, 'A', 'P')" : u" < 12, 'AM', 'PM')"));
}

/// Weeks begin on Sundays; the first is that of 1 January.
void Writer::writeWeek(const Expression &date)
{
    writePartIn(u"((", date, u"YEARDAY", u" + MOD(");
    writePartIn(u"", date, u"WEEKDAY", u" - ");
    writePartIn(u"", date, u"YEARDAY", u" + 371, 7)) / 7 + 1)");
}

} // namespace sql
