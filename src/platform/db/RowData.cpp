#include "platform/db/RowData.h"

#include <bit>

namespace db {
namespace {

/// The same for names that differ in case only.
std::size_t nameHash(QStringView name)
{
    std::size_t hash = 14695981039346656037ULL;
    for (const QChar c : name) {
        const char16_t unit = c.unicode();
        const char16_t folded =
            unit < 0x80 ? ((unit >= u'A' && unit <= u'Z') ? static_cast<char16_t>(unit + 32) : unit)
                        : c.toCaseFolded().unicode();
        hash = (hash ^ folded) * 1099511628211ULL;
    }
    return hash;
}

} // namespace

RowLayout::RowLayout(std::vector<Column> columns)
    : m_columns(std::move(columns))
{
    // At most half full, so that a name is found at the first or second look.
    const std::size_t size = std::bit_ceil(m_columns.size() * 2 + 1);
    m_names.assign(size, -1);
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        std::size_t place = nameHash(m_columns[column].name) & (size - 1);
        // Of equal names the first one stays nearer to its place, and is the one that is found.
        while (m_names[place] >= 0)
            place = (place + 1) & (size - 1);
        m_names[place] = static_cast<qint32>(column);
    }
}

int RowLayout::columnIndex(QStringView name) const
{
    const std::size_t mask = m_names.size() - 1;
    for (std::size_t place = nameHash(name) & mask; m_names[place] >= 0;
         place = (place + 1) & mask) {
        // Mostly a name is asked for as it is written.
        const QString &known = m_columns[m_names[place]].name;
        if (name == known || name.compare(known, Qt::CaseInsensitive) == 0)
            return m_names[place];
    }
    return -1;
}

RowData::RowData(std::shared_ptr<const RowLayout> layout)
    : m_layout(std::move(layout))
    , m_columns(m_layout->columns().size())
{}

void RowData::addNull(int column)
{
    Column &c = m_columns[column];
    const auto word = static_cast<std::size_t>(m_rows) / 64;
    // A column without Null costs nothing for it.
    if (c.nulls.size() <= word)
        c.nulls.resize(word + 1);
    c.nulls[word] |= quint64(1) << (m_rows % 64);
    // A value all the same, so that a row's number finds its place in the column.
    switch (storage(column)) {
    case Storage::Integer:
    case Storage::Date:
        c.integers.push_back(0);
        break;
    case Storage::Real:
        c.reals.push_back(0);
        break;
    case Storage::Text:
        c.ends.push_back(c.text.size());
        break;
    case Storage::Bytes:
        c.blobs.emplace_back();
        break;
    }
}

void RowData::addText(int column, const char *text, std::size_t length)
{
    Column &c = m_columns[column];
    c.text.append(text, length);
    c.ends.push_back(c.text.size());
}

void RowData::addBytes(int column, QByteArray bytes)
{
    m_columns[column].blobs.push_back(std::move(bytes));
}

void RowData::addRow(const RowData &source, int row)
{
    for (int column = 0; column < columnCount(); ++column) {
        if (source.isNull(row, column)) {
            addNull(column);
            continue;
        }
        switch (storage(column)) {
        case Storage::Integer:
        case Storage::Date:
            addInteger(column, source.integer(row, column));
            break;
        case Storage::Real:
            addReal(column, source.real(row, column));
            break;
        case Storage::Text: {
            const std::string_view view = source.text(row, column);
            addText(column, view.data(), view.size());
            break;
        }
        case Storage::Bytes:
            addBytes(column, source.bytes(row, column));
            break;
        }
    }
    endRow();
}

void RowData::squeeze()
{
    for (Column &c : m_columns) {
        // Rows come by doubling; giving back is worth a copy only when much stands empty.
        if (c.text.capacity() > 4096 && c.text.capacity() > c.text.size() + c.text.size() / 2)
            c.text.shrink_to_fit();
    }
}

bool RowData::isNull(int row, int column) const
{
    const std::vector<quint64> &nulls = m_columns[column].nulls;
    const auto word = static_cast<std::size_t>(row) / 64;
    return word < nulls.size() && (nulls[word] >> (row % 64) & 1) != 0;
}

QDateTime RowData::date(int row, int column) const
{
    return QDateTime::fromMSecsSinceEpoch(m_columns[column].integers[row], Qt::UTC);
}

std::string_view RowData::text(int row, int column) const
{
    const Column &c = m_columns[column];
    const std::size_t begin = row == 0 ? 0 : c.ends[row - 1];
    return std::string_view(c.text).substr(begin, c.ends[row] - begin);
}

QVariant RowData::value(int row, int column) const
{
    if (isNull(row, column))
        return {};
    switch (storage(column)) {
    case Storage::Integer:
        return QVariant(integer(row, column));
    case Storage::Real:
        return QVariant(real(row, column));
    case Storage::Date:
        return QVariant(date(row, column));
    case Storage::Text: {
        const std::string_view view = text(row, column);
        return QVariant(QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size())));
    }
    case Storage::Bytes:
        break;
    }
    return QVariant(bytes(row, column));
}

} // namespace db
