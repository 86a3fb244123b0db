#include "platform/db/Recordset.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/db/Criterion.h"
#include "platform/db/RowData.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace db {
namespace {

using namespace Qt::StringLiterals;

[[noreturn]] void noSuchItem(const QString &name)
{
    throw base::Error(base::ErrorNumber::NoSuchItem,
                      u"Item cannot be found in the collection corresponding to the requested name "
                      "or ordinal: "_s +
                          name);
}

[[noreturn]] void noCurrentRow()
{
    throw base::Error(base::ErrorNumber::NoCurrentRow,
                      u"Either BOF or EOF is True, or the current record has been deleted."_s);
}

[[noreturn]] void mismatch(const QString &column)
{
    throw base::Error(base::ErrorNumber::TypeMismatch, u"Type mismatch: "_s + column);
}

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::shared_ptr<const RowData> noRows()
{
    // A recordset always has rows to ask, if none at all: nobody has to look for null.
    static const auto empty = std::make_shared<const RowData>(
        std::make_shared<const RowLayout>(std::vector<RowLayout::Column>()));
    return empty;
}

} // namespace

Row::Row(std::shared_ptr<const RowData> data, int index)
    : m_data(std::move(data))
    , m_index(index)
{}

int Row::column(QStringView name) const
{
    const int column = m_data->columnIndex(name);
    if (column < 0)
        noSuchItem(name.toString());
    return column;
}

QVariant Row::operator[](QStringView name) const
{
    return m_data->value(m_index, column(name));
}

QVariant Row::operator[](int column) const
{
    if (column < 0 || column >= m_data->columnCount())
        noSuchItem(QString::number(column));
    return m_data->value(m_index, column);
}

bool Row::isNull(QStringView name) const
{
    return m_data->isNull(m_index, column(name));
}

QString Row::text(QStringView name) const
{
    const int c = column(name);
    if (m_data->isNull(m_index, c))
        return {};
    if (m_data->storage(c) == RowData::Storage::Text)
        return textOf(m_data->text(m_index, c));
    return base::toText(m_data->value(m_index, c));
}

double Row::real(QStringView name) const
{
    const int c = column(name);
    if (m_data->isNull(m_index, c))
        return 0;
    switch (m_data->storage(c)) {
    case RowData::Storage::Integer:
        return static_cast<double>(m_data->integer(m_index, c));
    case RowData::Storage::Real:
        return m_data->real(m_index, c);
    case RowData::Storage::Text: {
        bool isNumber = false;
        const double value = textOf(m_data->text(m_index, c)).trimmed().toDouble(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
        break;
    }
    case RowData::Storage::Date:
    case RowData::Storage::Bytes:
        break;
    }
    mismatch(name.toString());
}

qint64 Row::integer(QStringView name) const
{
    const int c = column(name);
    if (m_data->isNull(m_index, c))
        return 0;
    if (m_data->storage(c) == RowData::Storage::Integer)
        return m_data->integer(m_index, c);
    if (m_data->storage(c) == RowData::Storage::Text) {
        // Long keys lose digits on the way through a double.
        bool isWhole = false;
        const qint64 value = textOf(m_data->text(m_index, c)).trimmed().toLongLong(&isWhole);
        if (isWhole)
            return value;
    }
    const double value = real(name);
    if (std::abs(value) >= 9.2e18)
        throw base::Error(base::ErrorNumber::Overflow, u"Overflow"_s);
    return base::roundedToEven(value);
}

QDateTime Row::date(QStringView name) const
{
    const int c = column(name);
    if (m_data->isNull(m_index, c))
        return {};
    if (m_data->storage(c) == RowData::Storage::Date)
        return m_data->date(m_index, c);
    if (m_data->storage(c) == RowData::Storage::Text) {
        if (const auto date = base::parseMonthFirst(textOf(m_data->text(m_index, c))))
            return *date;
    }
    mismatch(name.toString());
}

bool Row::flag(QStringView name) const
{
    const int c = column(name);
    if (m_data->isNull(m_index, c))
        return false;
    switch (m_data->storage(c)) {
    case RowData::Storage::Integer:
        return m_data->integer(m_index, c) != 0;
    case RowData::Storage::Real:
        return m_data->real(m_index, c) != 0;
    case RowData::Storage::Text: {
        bool isNumber = false;
        const double value = textOf(m_data->text(m_index, c)).toDouble(&isNumber);
        return isNumber && value != 0;
    }
    case RowData::Storage::Date:
    case RowData::Storage::Bytes:
        break;
    }
    return false;
}

Recordset::Recordset()
    : m_data(noRows())
{}

Recordset::Recordset(std::shared_ptr<const RowData> data)
    : m_data(std::move(data))
{}

int Recordset::RecordCount() const
{
    return m_data->rowCount();
}

int Recordset::columnCount() const
{
    return m_data->columnCount();
}

QString Recordset::columnName(int column) const
{
    if (column < 0 || column >= columnCount())
        noSuchItem(QString::number(column));
    return m_data->columnName(column);
}

int Recordset::columnIndex(QStringView name) const
{
    return m_data->columnIndex(name);
}

sql::ColumnKind Recordset::columnKind(int column) const
{
    if (column < 0 || column >= columnCount())
        noSuchItem(QString::number(column));
    return m_data->kind(column);
}

QVariant Recordset::value(int row, int column) const
{
    if (row < 0 || row >= RecordCount())
        noCurrentRow();
    if (column < 0 || column >= columnCount())
        noSuchItem(QString::number(column));
    return m_data->value(row, column);
}

bool Recordset::isNull(int row, int column) const
{
    if (row < 0 || row >= RecordCount())
        noCurrentRow();
    if (column < 0 || column >= columnCount())
        noSuchItem(QString::number(column));
    return m_data->isNull(row, column);
}

std::optional<std::string_view> Recordset::utf8(int row, int column) const
{
    if (m_data->storage(column) != RowData::Storage::Text)
        return std::nullopt;
    return m_data->isNull(row, column) ? std::string_view() : m_data->text(row, column);
}

Row Recordset::row(int index) const
{
    if (index < 0 || index >= RecordCount())
        noCurrentRow();
    return {m_data, index};
}

void Recordset::MoveNext()
{
    if (IsEOF())
        noCurrentRow();
    ++m_position;
}

void Recordset::MovePrevious()
{
    if (IsBOF())
        noCurrentRow();
    --m_position;
}

Row Recordset::current() const
{
    if (IsEOF() || IsBOF())
        noCurrentRow();
    return {m_data, m_position};
}

bool Recordset::Find(QStringView criterion, int from)
{
    const Criterion wanted(criterion, *m_data);
    const int found = wanted.firstMatch(std::max(from, 0));
    // As it always has been: what finds nothing stands behind the last row.
    m_position = found < 0 ? RecordCount() : found;
    return found >= 0;
}

Recordset Recordset::Clone() const
{
    return Recordset(m_data);
}

Recordset Recordset::orderedBy(const QList<QStringView> &columns) const
{
    std::vector<int> places;
    for (const QStringView name : columns) {
        places.push_back(columnIndex(name));
        if (places.back() < 0)
            noSuchItem(name.toString());
    }
    std::vector<int> order(static_cast<std::size_t>(RecordCount()));
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&](int left, int right) {
        for (const int column : places) {
            // Null comes first, as the engine sorts it.
            const auto keyOf = [&](int row) {
                const bool known = !m_data->isNull(row, column);
                return std::pair(known, known ? m_data->integer(row, column) : 0);
            };
            if (const auto a = keyOf(left), b = keyOf(right); a != b)
                return a < b;
        }
        return false;
    });
    const auto ordered = std::make_shared<RowData>(m_data->layout());
    for (const int row : order)
        ordered->addRow(*m_data, row);
    return Recordset(ordered);
}

/// The rows whose value in the column is Null or to be kept.
template<class Keep>
Recordset Recordset::only(QStringView column, Keep &&keep) const
{
    if (columnIndex(column) < 0)
        noSuchItem(column.toString());
    const auto kept = std::make_shared<RowData>(m_data->layout());
    for (const Row each : *this)
        if (each.isNull(column) || keep(each))
            kept->addRow(*m_data, each.index());
    return Recordset(kept);
}

Recordset Recordset::without(QStringView column, const QSet<qint64> &keys) const
{
    if (keys.isEmpty() && columnIndex(column) >= 0)
        return Clone();
    return only(column, [&](const Row &row) { return !keys.contains(row.integer(column)); });
}

Recordset Recordset::withoutTexts(QStringView column, const QStringList &keys) const
{
    if (keys.isEmpty() && columnIndex(column) >= 0)
        return Clone();
    QSet<QString> folded;
    for (const QString &key : keys)
        // Text keys are compared without regard to case, as in the database.
        folded.insert(key.toCaseFolded());
    return only(column,
                [&](const Row &row) { return !folded.contains(row.text(column).toCaseFolded()); });
}

} // namespace db
