#include "administration/XlsxReader.h"

#include "platform/base/Error.h"

#include <QDateTime>
#include <cmath>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

// What the format allows.
constexpr qint64 mostRows = 1'048'576;
constexpr std::size_t mostColumns = 16'384;
constexpr double dayAfterTheLast = 2'958'466; ///< 1 January of the year 10000

constexpr XmlPart::Limits largeTable{.whole = qint64(2) << 30, .piece = qint64(4) << 20};

/// A day and its time, counted in days; a time alone when there is no day.
QString dateText(double days, bool countsFrom1904)
{
    constexpr qint64 secondsOfDay = 86'400;
    const qint64 seconds = std::llround(days * secondsOfDay);
    const QTime time = QTime(0, 0).addSecs(static_cast<int>(seconds % secondsOfDay));
    const qint64 day = seconds / secondsOfDay;
    // A cell with a time of day holds a fraction of one day.
    if (day == 0 && !countsFrom1904)
        return time.toString(Qt::ISODate);
    // The format counts a 29 February in 1900, which there was not.
    const QDate first = countsFrom1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30);
    const QString date = first.addDays(day).toString(Qt::ISODate);
    return time == QTime(0, 0) ? date : date + u'T' + time.toString(Qt::ISODate);
}

/// As many digits as a spreadsheet shows, which hides what binary numbers lack.
QString plainText(double number)
{
    constexpr int digits = 15;
    QString text = QString::number(number, 'g', digits);
    if (!text.contains(u'e'))
        return text;
    if (std::abs(number) >= 1)
        // Without an exponent, which the rules of the columns don't know.
        return QString::number(number, 'f', 0);
    const int leadingNoughts = -static_cast<int>(std::floor(std::log10(std::abs(number))));
    text = QString::number(number, 'f', leadingNoughts + digits - 1);
    while (text.endsWith(u'0'))
        text.chop(1);
    return text;
}

} // namespace

XlsxReader::XlsxReader(const QString &path)
    : m_archive(path, ZipReader::Check::WhatIsRead)
    , m_book(readWorkbook(m_archive))
    , m_part(m_archive, m_book.sheet, largeTable)
    , m_size(m_archive.size(m_book.sheet))
{
    // Without a first row there are no headings.
    if (XlsxReader::next() && m_row == 1)
        takeHeader();
}

bool XlsxReader::next()
{
    m_fields.clear();
    m_fault.reset();
    while (!m_isOver) {
        if (!m_part.nextElement()) {
            m_part.finish();
            m_isOver = true;
        } else if (m_part.name() == u"row") {
            const QString number = m_part.attribute(u"r");
            // Some programs leave the numbers away. Then a row follows the one before.
            const qint64 row = number.isEmpty() ? m_row + 1 : number.toLongLong();
            // Rows that go back would overwrite each other in a spreadsheet.
            if (row <= m_row || row > mostRows)
                m_part.refuseDamaged();
            m_row = row;
            readCells();
            // Each row may be as large again: one of them is limited, and all together.
            m_part.breathe();
            return true;
        }
    }
    return false;
}

double XlsxReader::done() const
{
    return m_size <= 0
               ? 1
               : qMin(1.0, static_cast<double>(m_part.count()) / static_cast<double>(m_size));
}

void XlsxReader::readCells()
{
    while (m_part.nextChild()) {
        if (m_part.name() == u"c")
            readCell(columnOf(m_part.attribute(u"r")));
        else
            m_part.skip();
    }
}

std::size_t XlsxReader::columnOf(const QString &place) const
{
    std::size_t column = 0;
    for (const QChar letter : place) {
        if (letter < u'A' || letter > u'Z' || column > mostColumns)
            break;
        column = column * 26 + static_cast<std::size_t>(letter.unicode() - u'A' + 1);
    }
    if (place.isEmpty())
        column = m_fields.size() + 1;
    // Cells that are left out are blank; none may come a second time.
    if (column <= m_fields.size() || column > mostColumns)
        m_part.refuseDamaged();
    return column - 1;
}

void XlsxReader::readCell(std::size_t column)
{
    const QString type = m_part.attribute(u"t");
    const QString style = m_part.attribute(u"s");
    QString value;
    bool hasFormula = false;
    bool hasValue = false;
    while (m_part.nextChild()) {
        if (m_part.name() == u"v" || m_part.name() == u"is") {
            hasValue = true;
            value = m_part.name() == u"is" ? cellText(m_part) : m_part.text();
        } else {
            hasFormula = hasFormula || m_part.name() == u"f";
            m_part.skip();
        }
    }
    // The cells between are blank.
    m_fields.resize(column + 1);
    const int place = static_cast<int>(column);
    // Formulas are not worked out here: what the spreadsheet has shown is what is meant.
    if (hasFormula && !hasValue)
        blame(
            place,
            u"The formula has no result yet. Please open the file with a spreadsheet, and save it."_s);
    else if (type == u"e")
        blame(place, u"The cell shows the error %1."_s.arg(value));
    else if (type == u"s")
        m_fields[column].text = shared(value);
    else if (type == u"b")
        m_fields[column].text = value == u"1" ? u"Yes"_s : u"No"_s;
    else if (!type.isEmpty() && type != u"n")
        m_fields[column].text = value;
    else if (hasValue)
        m_fields[column].text = numberText(value, style);
}

QString XlsxReader::shared(const QString &number) const
{
    bool isNumber = false;
    const std::size_t index = number.toULongLong(&isNumber);
    if (!isNumber || index >= m_book.texts.size())
        m_part.refuseDamaged();
    return m_book.texts[index];
}

QString XlsxReader::numberText(const QString &value, const QString &style)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        m_part.refuseDamaged();
    const std::size_t index = style.toULongLong();
    const NumberLook look = index < m_book.looks.size() ? m_book.looks[index] : NumberLook();
    // What looks like a date and can be none is told by the rules of its column.
    if (look.isDate && number >= 0 && number < dayAfterTheLast)
        return dateText(number, m_book.countsFrom1904);
    const QString text = plainText(number);
    const bool isWhole = number >= 0 && !text.contains(u'.');
    return isWhole ? text.rightJustified(look.digits, u'0') : text;
}

} // namespace administration
