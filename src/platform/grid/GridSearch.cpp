// Sorting and finding of the model's rows.
#include "platform/base/Format.h"
#include "platform/db/Criterion.h"
#include "platform/db/RowData.h"
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridSort.h"

#include <algorithm>
#include <numeric>

namespace grid {
namespace {

using namespace Qt::StringLiterals;

bool isNumeric(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

/// The column of a criterion, with or without brackets, and what stands behind it.
std::pair<QStringView, QStringView> splitCriterion(QStringView criterion)
{
    criterion = criterion.trimmed();
    if (criterion.startsWith(u'[')) {
        const qsizetype close = criterion.indexOf(u']');
        if (close > 0)
            return {criterion.sliced(1, close - 1), criterion.sliced(close + 1).trimmed()};
    }
    qsizetype end = 0;
    while (end < criterion.size() &&
           (criterion[end].isLetterOrNumber() || criterion[end] == u'_' || criterion[end] == u'.'))
        ++end;
    return {criterion.first(end), criterion.sliced(end).trimmed()};
}

/// The text in "like 'text*'" when the asterisk is the only special character.
std::optional<QString> plainPrefix(QStringView condition)
{
    if (!condition.startsWith(u"like", Qt::CaseInsensitive))
        return std::nullopt;
    condition = condition.sliced(4).trimmed();
    if (condition.size() < 3 || !condition.startsWith(u'\'') || !condition.endsWith(u"*'"))
        return std::nullopt;
    QString text = condition.sliced(1, condition.size() - 3).toString();
    text.replace(u"''"_s, u"'"_s);
    for (const QChar special : u"*?#["_s) {
        if (text.contains(special))
            return std::nullopt;
    }
    return text;
}

db::RowData::Storage storageFor(const Column &column)
{
    if (holdsNumbers(column) || column.editor == Editor::Check || column.editor == Editor::DropDown)
        return db::RowData::Storage::Real;
    return holdsDates(column) ? db::RowData::Storage::Date : db::RowData::Storage::Text;
}

void append(db::RowData &rows, const QVariant &value, const Column &column)
{
    const auto storage = rows.storage(0);
    if (storage == db::RowData::Storage::Real && column.editor == Editor::Check) {
        rows.addReal(0, isTicked(value) ? -1 : 0);
    } else if (value.isNull()) {
        rows.addNull(0);
    } else if (storage == db::RowData::Storage::Real) {
        bool good = false;
        const double number = value.toDouble(&good);
        if (good)
            rows.addReal(0, number);
        else
            rows.addNull(0);
    } else if (storage == db::RowData::Storage::Date) {
        rows.addInteger(0, value.toDateTime().toMSecsSinceEpoch());
    } else {
        const QByteArray utf8 = base::toText(value).toUtf8();
        rows.addText(0, utf8.constData(), static_cast<std::size_t>(utf8.size()));
    }
    rows.endRow();
}

} // namespace

// Sorting

GridModel::SortKey GridModel::sortKey(int slot, const ColumnData &data) const
{
    const QVariant value = slotValue(slot, data);
    if (data.column.editor == Editor::Check)
        return {false, true, isTicked(value) ? 1.0 : 0.0, {}};
    if (data.column.editor == Editor::DropDown) {
        const QString text = data.choiceText(value);
        return {text.isEmpty(), false, 0, text.toCaseFolded()};
    }
    if (value.isNull())
        return {};
    if (isNumeric(value))
        return {false, true, value.toDouble(), {}};
    if (value.typeId() == QMetaType::QDateTime)
        return {false, true, static_cast<double>(value.toDateTime().toMSecsSinceEpoch()), {}};
    const QString text = base::toText(value);
    if (holdsNumbers(data.column)) {
        bool good = false;
        const double number = text.toDouble(&good);
        if (good)
            return {false, true, number, {}};
    }
    return {false, false, 0, text.toCaseFolded()};
}

/// Null, then numbers, then texts; the other way round when sorting down.
bool GridModel::before(const SortKey &left, const SortKey &right) const
{
    const bool down = m_sortDirection == Sort::Descending;
    const SortKey &a = down ? right : left;
    const SortKey &b = down ? left : right;
    if (a.null != b.null)
        return a.null;
    // A text in a column of numbers, such as "n/a", stands behind them.
    if (a.isNumber != b.isNumber)
        return a.isNumber;
    return a.isNumber ? a.number < b.number : a.text < b.text;
}

void GridModel::arrange(std::vector<int> &order)
{
    if (m_sortDirection == Sort::None || m_sortColumn < 0) {
        std::sort(order.begin(), order.end(), [this](int left, int right) {
            return m_slots[static_cast<std::size_t>(left)].row <
                   m_slots[static_cast<std::size_t>(right)].row;
        });
    } else {
        const ColumnData &data = m_columns.at(m_sortColumn);
        // Made once for each row, and not at each comparison.
        std::vector<SortKey> keys;
        keys.reserve(order.size());
        for (const int slot : order)
            keys.push_back(sortKey(slot, data));
        std::vector<std::size_t> places(order.size());
        std::iota(places.begin(), places.end(), std::size_t(0));
        // Equal rows keep the order that they have, so that sorting by two columns one after the
        // other sorts by both.
        std::stable_sort(places.begin(), places.end(), [&](std::size_t left, std::size_t right) {
            return before(keys[left], keys[right]);
        });
        std::vector<int> sorted;
        sorted.reserve(order.size());
        for (const std::size_t place : places)
            sorted.push_back(order[place]);
        order = std::move(sorted);
    }
    renumberPositions(order);
}

void GridModel::arrange()
{
    arrange(m_top);
    for (auto it = m_children.begin(); it != m_children.end(); ++it)
        arrange(*it);
}

void GridModel::resort()
{
    if (m_filling > 0)
        return arrange();
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    arrange();
    // The current row, the selection and an open editor follow their row.
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex &index : from)
        to.append(indexOf(rowOf(index), index.column()));
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void GridModel::sortBy(QStringView name, Sort direction)
{
    // Raises for an unknown name.
    static_cast<void>(column(name));
    m_sortColumn = direction == Sort::None ? -1 : columnIndex(name);
    m_sortDirection = direction;
    resort();
}

void GridModel::sort(int column, Qt::SortOrder order)
{
    if (column >= 0 && column < columnCount())
        sortBy(columnAt(column).name,
               order == Qt::AscendingOrder ? Sort::Ascending : Sort::Descending);
}

void GridModel::appendTree(const std::vector<int> &order, QList<int> &rows) const
{
    for (const int slot : order) {
        rows.append(m_slots[static_cast<std::size_t>(slot)].row);
        if (const auto *below = m_children.isEmpty() ? nullptr : children(slot))
            appendTree(*below, rows);
    }
}

QList<int> GridModel::displayedOrder() const
{
    QList<int> rows;
    rows.reserve(rowCount());
    appendTree(m_top, rows);
    return rows;
}

// Finding

QString GridModel::searchText(int slot, const ColumnData &data) const
{
    return data.column.editor == Editor::DropDown ? data.choiceText(slotValue(slot, data))
                                                  : base::toText(slotValue(slot, data));
}

int GridModel::beginsWith(QStringView name, QStringView text) const
{
    const ColumnData &data = m_columns.named(name);
    if (const std::optional<int> row = scannedFor(text, data))
        return *row;
    // Made at the first key that is typed and kept until a cell changes: typing a word searches a
    // long list five times.
    if (!data.search) {
        std::vector<QString> texts;
        texts.reserve(m_rows.size());
        for (const int slot : m_rows)
            texts.push_back(searchText(slot, data));
        data.search.emplace(texts);
    }
    return data.search->first(text);
}

int GridModel::findRow(QStringView name, const QVariant &wanted) const
{
    const ColumnData &data = m_columns.named(name);
    const QString wantedText = base::toText(wanted);
    const bool check = data.column.editor == Editor::Check;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const QVariant value = slotValue(m_rows[row], data);
        const bool same =
            check ? isTicked(value) == isTicked(wanted)
            : isNumeric(value) && isNumeric(wanted)
                ? value.toDouble() == wanted.toDouble()
                : value.isNull() == wanted.isNull() &&
                      base::toText(value).compare(wantedText, Qt::CaseInsensitive) == 0;
        if (same)
            return static_cast<int>(row);
    }
    return -1;
}

int GridModel::find(QStringView criterion, int from) const
{
    const auto [name, condition] = splitCriterion(criterion);
    const ColumnData &data = m_columns.named(name);
    from = std::max(from, 0);
    // The usual criterion needs no copy of the column.
    if (data.column.editor != Editor::DropDown && from == 0) {
        if (const auto prefix = plainPrefix(condition))
            return beginsWith(name, *prefix);
    }
    // The column as it now stands, changed and inserted cells included, in the form that the
    // criterion is tried on.
    using Fields = std::vector<db::RowLayout::Column>;
    db::RowData rows(std::make_shared<db::RowLayout>(
        Fields{{data.column.name, data.column.kind, storageFor(data.column)}}));
    for (const int slot : m_rows)
        append(rows, slotValue(slot, data), data.column);
    const QString bracketed = u'[' + data.column.name + u"] "_s + condition.toString();
    return db::Criterion(bracketed, rows).firstMatch(from);
}

} // namespace grid
