#include "platform/report/paginate/CsvSource.h"

#include "platform/base/Format.h"

#include <cmath>

namespace report {
namespace {

/// Reads one line of values after another; a line in quotes may go on over line breaks.
class Reader
{
public:
    explicit Reader(const QString &text)
        : m_text(text)
    {}

    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }

    QVariantList line()
    {
        QVariantList values;
        for (;;) {
            values.append(!atEnd() && m_text[m_at] == u'"' ? quoted() : plain());
            if (!atEnd() && m_text[m_at] == u',') {
                ++m_at;
                continue;
            }
            // Lines may end in either way, also within one file.
            if (!atEnd() && m_text[m_at] == u'\r')
                ++m_at;
            if (!atEnd() && m_text[m_at] == u'\n')
                ++m_at;
            return values;
        }
    }

private:
    QVariant quoted()
    {
        QString value;
        for (++m_at; !atEnd(); ++m_at) {
            if (m_text[m_at] == u'"' && (++m_at >= m_text.size() || m_text[m_at] != u'"'))
                break;
            value += m_text[m_at];
        }
        // What stands between the closing quote and the comma belongs to nothing.
        while (!atEnd() && !isEnd(m_text[m_at]))
            ++m_at;
        return value;
    }

    QVariant plain()
    {
        const qsizetype from = m_at;
        while (!atEnd() && !isEnd(m_text[m_at]))
            ++m_at;
        return typed(m_text.sliced(from, m_at - from).trimmed());
    }

    static bool isEnd(QChar c) { return c == u',' || c == u'\n' || c == u'\r'; }

    static QVariant typed(const QString &text)
    {
        if (text.isEmpty())
            return {};
        // "0042" is a number of a part, not the number 42.
        const bool isCode = text.size() > 1 && text[0] == u'0' && text[1] != u'.';
        bool ok = false;
        const double number = text.toDouble(&ok);
        if (ok && !isCode && std::isfinite(number)) {
            const qint64 whole = text.toLongLong(&ok);
            // Through the text again: a double would round long whole numbers.
            return ok ? QVariant(whole) : QVariant(number);
        }
        if (const auto date = base::parseMonthFirst(text))
            return *date;
        return text;
    }

    const QString &m_text;
    qsizetype m_at = 0;
};

} // namespace

CsvSource::CsvSource(const QByteArray &text)
{
    QString content = QString::fromUtf8(text);
    if (content.startsWith(QChar(QChar::ByteOrderMark)))
        content.remove(0, 1);
    Reader reader(content);
    if (reader.atEnd())
        return;
    for (const QVariant &name : reader.line())
        m_fields.append(base::toText(name));
    while (!reader.atEnd()) {
        QVariantList values = reader.line();
        // An empty line is none, unless there is a single column that may be empty.
        const bool isBlank = values.size() == 1 && values[0].isNull();
        if (!isBlank || m_fields.size() == 1)
            m_rows.append(std::move(values));
    }
}

int CsvSource::fieldIndex(const QString &name) const
{
    for (qsizetype index = 0; index < m_fields.size(); ++index)
        if (m_fields[index].compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(index);
    return -1;
}

QVariant CsvSource::value(int row, int field) const
{
    return m_rows.at(row).value(field);
}

} // namespace report
