#include "core/database/Csv.h"

#include "platform/base/Error.h"

namespace company {

using namespace Qt::StringLiterals;

std::vector<QStringList> parseCsv(QStringView text)
{
    std::vector<QStringList> rows;
    QStringList row;
    QString field;
    bool quoted = false;
    const auto endRow = [&] {
        if (!row.isEmpty() || !field.isEmpty())
            rows.push_back(row << field);
        row.clear();
        field.clear();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        if (quoted) {
            if (character != u'"')
                field += character;
            else if (i + 1 < text.size() && text[i + 1] == u'"')
                field += text[++i];
            else
                quoted = false;
        } else if (character == u'"') {
            quoted = true;
        } else if (character == u',') {
            row << field;
            field.clear();
        } else if (character == u'\n') {
            endRow();
        } else if (character != u'\r') {
            field += character;
        }
    }
    endRow();
    return rows;
}

QString csvLine(const QStringList &fields)
{
    QStringList written;
    for (QString field : fields) {
        const bool quote = field.contains(u',') || field.contains(u'"') || field.contains(u'\n') ||
                           field.contains(u'\r');
        if (quote)
            field = u'"' + field.replace(u'"', u"\"\""_s) + u'"';
        written << field;
    }
    return written.join(u',');
}

CsvTable::CsvTable(QStringView text)
    : m_rows(parseCsv(text))
{
    if (m_rows.empty())
        throw base::Error(base::ErrorNumber::InvalidCall, u"The table has no header line."_s);
    const QStringList header = m_rows.front();
    m_rows.erase(m_rows.begin());
    for (int column = 0; column < header.size(); ++column)
        m_columns.insert(header[column], column);
    for (const QStringList &row : m_rows) {
        if (row.size() > header.size())
            throw base::Error(base::ErrorNumber::InvalidCall,
                              u"Too many fields in the row \"%1\"."_s.arg(row.join(u',')));
    }
}

QString CsvTable::text(int row, const QString &column) const
{
    const auto found = m_columns.constFind(column);
    if (found == m_columns.constEnd())
        throw base::Error(base::ErrorNumber::NoSuchItem,
                          u"The table has no column \"%1\"."_s.arg(column));
    return m_rows.at(row).value(*found);
}

double CsvTable::number(int row, const QString &column) const
{
    return text(row, column).toDouble();
}

int CsvTable::integer(int row, const QString &column) const
{
    return text(row, column).toInt();
}

} // namespace company
