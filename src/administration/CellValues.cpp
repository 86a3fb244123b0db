#include "administration/CellValues.h"

#include "core/Periods.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/sql/Schema.h"

#include <QDateTime>
#include <QRegularExpression>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype mostDecimals = 4; ///< of money and quantities
/// Above it, a number does not carry four decimals any more.
constexpr double largestNumber = 900'000'000'000;
constexpr int firstYear = 1900;
constexpr int lastYear = 2199;
constexpr int shownLength = 40;

[[noreturn]] void refuse(const QString &sentence)
{
    throw base::Error(base::ErrorNumber::TypeMismatch, sentence);
}

[[noreturn]] void refuse(const QString &text, const QString &what)
{
    refuse(u"\"%1\" is not %2."_s.arg(text.left(shownLength), what));
}

/// The text, when the table's column holds all of it.
QString fitting(const QString &text, int length)
{
    if (text.size() > length)
        refuse(u"The text has %1 characters, and %2 fit."_s.arg(text.size()).arg(length));
    return text;
}

/// As the screens take it while it is typed.
QString codeOf(const QString &text)
{
    static const QRegularExpression allowed(u"^[A-Z0-9 ]*$"_s);
    const QString code = text.toUpper();
    if (!allowed.match(code).hasMatch())
        refuse(u"\"%1\" may hold letters, digits and blanks only."_s.arg(text.left(shownLength)));
    return code;
}

/// Ten digits in the pattern of the screens; anything else as it stands.
QString phoneOf(const QString &text)
{
    static const QRegularExpression other(u"[^0-9]"_s);
    static const QRegularExpression signs(u"^[-0-9 ().+/]*$"_s);
    constexpr int digitsOfPhone = 10;
    const QString digits = QString(text).remove(other);
    if (digits.size() != digitsOfPhone || !signs.match(text).hasMatch())
        return text;
    return u"(%1) %2-%3"_s.arg(digits.left(3), digits.mid(3, 3), digits.mid(6));
}

/// A number with a point and without the signs that part thousands; empty when they don't.
QString plainNumber(QString text, DecimalSign sign)
{
    static const QRegularExpression number(u"^[0-9]{1,3}(?:,?[0-9]{3})*(?:\\.[0-9]*)?$"
                                           "|^[0-9]*(?:\\.[0-9]+)?$"_s);
    const qsizetype comma = text.lastIndexOf(u',');
    const qsizetype point = text.lastIndexOf(u'.');
    // Where both stand in a number the last one parts the decimals; where one does, the file's own
    // habit decides.
    const bool commaParts =
        comma >= 0 && point >= 0 ? comma > point : comma >= 0 && sign == DecimalSign::Comma;
    if (commaParts) {
        for (QChar &character : text) {
            if (character == u',')
                character = u'.';
            else if (character == u'.')
                character = u',';
        }
    }
    return number.match(text).hasMatch() ? text.remove(u',') : QString();
}

double numberOf(const QString &text, DecimalSign sign)
{
    QString bare = text;
    bare.remove(u'$').remove(u' ').remove(QChar::Nbsp);
    if (bare.startsWith(u'-'))
        refuse(u"\"%1\" is below zero."_s.arg(text.left(shownLength)));
    // Refused and not guessed: one and a quarter that is taken for a thousand is found by nobody.
    static const QRegularExpression eitherWay(u"^[0-9]{1,3}(?:\\.[0-9]{3})+$"_s);
    if (sign == DecimalSign::Comma && eitherWay.match(bare).hasMatch())
        refuse(u"\"%1\" can be read in two ways: please write it with a comma and decimals."_s.arg(
            text));
    const QString plain = plainNumber(bare, sign);
    bool isNumber = false;
    const double number = plain.toDouble(&isNumber);
    if (!isNumber)
        refuse(text, u"a number"_s);
    if (number > largestNumber)
        refuse(u"\"%1\" is too large."_s.arg(text.left(shownLength)));
    // Refused and not rounded: the sums would differ from those of the program that the file comes
    // from.
    if (plain.contains(u'.') && plain.size() - plain.indexOf(u'.') - 1 > mostDecimals)
        refuse(u"\"%1\" has more than four decimals."_s.arg(text.left(shownLength)));
    return number;
}

qint64 wholeOf(const QString &text, DecimalSign sign, qint64 most)
{
    const double number = numberOf(text, sign);
    if (number != static_cast<double>(static_cast<qint64>(number)))
        refuse(text, u"a whole number"_s);
    if (number > static_cast<double>(most))
        refuse(u"\"%1\" is more than %2."_s.arg(text.left(shownLength)).arg(most));
    return static_cast<qint64>(number);
}

QDateTime dateOf(const QString &text)
{
    static const QRegularExpression yearFirst(u"^([0-9]{4}-[0-9]{2}-[0-9]{2})(?:[T ](.*))?$"_s);
    QDateTime date;
    if (const auto match = yearFirst.match(text); match.hasMatch()) {
        const QDate day = QDate::fromString(match.captured(1), Qt::ISODate);
        const QTime time =
            match.hasCaptured(2) ? QTime::fromString(match.captured(2), Qt::ISODate) : QTime(0, 0);
        if (day.isValid() && time.isValid())
            date = base::wallClock(day, time);
    } else if (const auto monthFirst = base::parseMonthFirst(text)) {
        date = *monthFirst;
    }
    if (!date.isValid())
        refuse(text, u"a date such as 03/15/2024 or 2024-03-15"_s);
    // A slip of the year would put a machine's depreciation into another century.
    if (date.date().year() < firstYear || date.date().year() > lastYear)
        refuse(
            u"The year of \"%1\" is not one of %2 to %3."_s.arg(text).arg(firstYear).arg(lastYear));
    return date;
}

/// In the words of people and of other programs' exports.
qint64 flagOf(const QString &text)
{
    static const QStringList yes{u"yes"_s, u"y"_s, u"true"_s, u"1"_s, u"-1"_s, u"x"_s};
    static const QStringList no{u"no"_s, u"n"_s, u"false"_s, u"0"_s};
    if (yes.contains(text, Qt::CaseInsensitive))
        return 1;
    if (!no.contains(text, Qt::CaseInsensitive))
        refuse(text, u"Yes or No"_s);
    return 0;
}

/// The number of a word among those of a choice, from 1.
qint64 chosenOf(const QString &text, QStringView words)
{
    qint64 number = 0;
    for (const QStringView word : words.split(u';')) {
        ++number;
        if (word.compare(text, Qt::CaseInsensitive) == 0)
            return number;
    }
    refuse(text, u"one of "_s + words.toString().replace(u';', u", "_s));
}

/// The word of a count, in the letters that are stored.
QString meterOf(const QString &text)
{
    QStringList words;
    for (const periods::Period &period : periods::all()) {
        if (!period.isCount)
            continue;
        if (period.word.compare(text, Qt::CaseInsensitive) == 0)
            return period.word.toString();
        words.append(period.word.toString());
    }
    refuse(text, u"one of "_s + words.join(u", "_s));
}

} // namespace

QVariant cellValue(const QString &text, const ImportColumn &column, int length, DecimalSign sign)
{
    QString bare = text.trimmed();
    // Whether a column may be blank is the sheet's question.
    if (bare.isEmpty())
        return {};
    // Only a memo can show more than one line.
    if (length != sql::MemoLength)
        bare = base::onOneLine(bare);
    switch (column.kind) {
    case CellKind::Text:
    case CellKind::Listed:
        return fitting(bare, length);
    case CellKind::Code:
        return fitting(codeOf(bare), length);
    case CellKind::Capitals:
        return fitting(bare.toUpper(), length);
    case CellKind::Phone:
        return fitting(phoneOf(bare), length);
    case CellKind::Whole:
        return wholeOf(bare, sign, column.most);
    case CellKind::Number:
    case CellKind::Money:
        return numberOf(bare, sign);
    case CellKind::Date:
        return dateOf(bare);
    case CellKind::Flag:
        return flagOf(bare);
    case CellKind::Choice:
        return chosenOf(bare, column.words);
    case CellKind::Meter:
        return meterOf(bare);
    }
    return {};
}

} // namespace administration
