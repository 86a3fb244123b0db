#include "platform/grid/GridModel.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridSort.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace grid {
namespace {

using namespace Qt::StringLiterals;
} // namespace

GridModel::GridModel(QObject *parent)
    : QAbstractItemModel(parent)
{}

GridModel::~GridModel() = default;

// Columns

int GridModel::columnIndex(QStringView name) const
{
    return m_columns.indexOf(name);
}

Column &GridModel::column(QStringView name)
{
    return m_columns.named(name).column;
}

const Column &GridModel::column(QStringView name) const
{
    return m_columns.named(name).column;
}

const Column &GridModel::columnAt(int index) const
{
    return m_columns.at(index).column;
}

int GridModel::addColumn(Column column)
{
    if (column.caption.isEmpty())
        column.caption = column.name;
    const int present = columnIndex(column.name);
    // A column of the recordset that the screen adds again gets the screen's settings.
    if (present >= 0) {
        m_columns.replace(present, std::move(column));
        columnsChanged();
        return present;
    }
    const int index = columnCount();
    if (m_filling == 0)
        beginInsertColumns({}, index, index);
    m_columns.append(std::move(column));
    if (m_filling == 0) {
        endInsertColumns();
        Q_EMIT columnSettingsChanged();
    }
    return index;
}

void GridModel::columnsChanged()
{
    m_columns.forgetChoiceTexts();
    if (m_filling > 0)
        return;
    Q_EMIT columnSettingsChanged();
    if (columnCount() > 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (!m_top.empty() && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount(QModelIndex()) - 1, columnCount() - 1));
}

void GridModel::setTreeColumn(QStringView name)
{
    m_treeColumn = column(name).name;
    Q_EMIT columnSettingsChanged();
}

int GridModel::treeColumn() const
{
    return m_treeColumn.isEmpty() ? -1 : columnIndex(m_treeColumn);
}

void GridModel::setRecordset(const db::Recordset &recordset)
{
    beginResetModel();
    // The column may get another place; the sort goes by its name.
    const QString sorted = m_sortColumn >= 0 ? columnAt(m_sortColumn).name : QString();
    dropRows();
    m_recordset = recordset;
    m_columns.take(recordset);
    m_sortColumn = sorted.isEmpty() ? -1 : columnIndex(sorted);
    const int count = recordset.RecordCount();
    m_slots.resize(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        m_slots[static_cast<std::size_t>(row)] = {row, row, -1, row};
    m_rows.resize(m_slots.size());
    std::iota(m_rows.begin(), m_rows.end(), 0);
    m_top = m_rows;
    arrange();
    endResetModel();
    Q_EMIT columnSettingsChanged();
}

// Rows

void GridModel::checkRow(int row) const
{
    if (row < 0 || row >= rowCount())
        throw base::Error(base::ErrorNumber::InvalidCall, u"The grid has no row %1."_s.arg(row));
}

void GridModel::dropRows()
{
    // A rule that is running learns by it that its row is another one now (see edit).
    ++m_generation;
    m_slots.clear();
    m_rows.clear();
    m_top.clear();
    m_children.clear();
    m_recordset = db::Recordset();
    m_columns.forgetCells();
    m_columns.forgetSearches();
}

void GridModel::clear()
{
    beginResetModel();
    dropRows();
    endResetModel();
}

std::vector<int> &GridModel::siblings(int parentSlot)
{
    return parentSlot < 0 ? m_top : m_children[parentSlot];
}

const std::vector<int> *GridModel::children(int parentSlot) const
{
    if (parentSlot < 0)
        return &m_top;
    const auto found = m_children.constFind(parentSlot);
    return found == m_children.constEnd() ? nullptr : &*found;
}

void GridModel::renumberPositions(const std::vector<int> &order, std::size_t from)
{
    for (std::size_t i = from; i < order.size(); ++i)
        m_slots[static_cast<std::size_t>(order[i])].position = static_cast<int>(i);
}

int GridModel::insertRow(const QVariantMap &values, int parentRow)
{
    int parentSlot = -1;
    if (parentRow >= 0) {
        checkRow(parentRow);
        parentSlot = m_rows[static_cast<std::size_t>(parentRow)];
    }
    // All names are looked up first: an unknown one must add no row.
    std::vector<std::pair<ColumnData *, QVariant>> cells;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        cells.emplace_back(&m_columns.named(it.key()), it.value());

    const int slot = static_cast<int>(m_slots.size());
    const int row = rowCount();
    // A slot is never used again, so that an index that outlives its row finds no other one.
    m_slots.push_back({-1, row, parentSlot, 0});
    for (auto &[data, value] : cells)
        data->cells.insert(slot, value);
    std::vector<int> &order = siblings(parentSlot);
    auto place = order.end();
    if (m_sortDirection != Sort::None && m_sortColumn >= 0) {
        const ColumnData &data = m_columns.at(m_sortColumn);
        const SortKey key = sortKey(slot, data);
        // Behind its equals, as a stable sort would have put it.
        place = std::upper_bound(order.begin(), order.end(), slot,
                                 [&](int, int other) { return before(key, sortKey(other, data)); });
    }
    const int position = static_cast<int>(place - order.begin());
    if (m_filling == 0) {
        const QModelIndex parentIndex = parentRow < 0 ? QModelIndex() : indexOf(parentRow);
        beginInsertRows(parentIndex, position, position);
    }
    m_rows.push_back(slot);
    order.insert(place, slot);
    renumberPositions(order, static_cast<std::size_t>(position));
    m_columns.forgetSearches();
    if (m_filling == 0)
        endInsertRows();
    return row;
}

void GridModel::removeRow(int row)
{
    checkRow(row);
    const int slot = m_rows[static_cast<std::size_t>(row)];
    const QModelIndex index = indexOf(row);
    const int parentSlot = m_slots[static_cast<std::size_t>(slot)].parent;
    QList<int> gone{row};
    if (const auto *below = children(slot))
        appendTree(*below, gone);
    if (m_filling == 0)
        beginRemoveRows(index.parent(), index.row(), index.row());
    ++m_generation;
    std::vector<int> &order = siblings(parentSlot);
    order.erase(order.begin() + index.row());
    renumberPositions(order, static_cast<std::size_t>(index.row()));
    // From behind, so that the numbers that are still to go stay true.
    std::sort(gone.begin(), gone.end(), std::greater<>());
    for (const int number : gone) {
        const int goneSlot = m_rows[static_cast<std::size_t>(number)];
        m_children.remove(goneSlot);
        m_columns.forgetCells(goneSlot);
        m_rows.erase(m_rows.begin() + number);
    }
    for (std::size_t i = static_cast<std::size_t>(gone.back()); i < m_rows.size(); ++i)
        m_slots[static_cast<std::size_t>(m_rows[i])].row = static_cast<int>(i);
    m_columns.forgetSearches();
    if (m_filling == 0)
        endRemoveRows();
}

int GridModel::parentRow(int row) const
{
    checkRow(row);
    const int slot =
        m_slots[static_cast<std::size_t>(m_rows[static_cast<std::size_t>(row)])].parent;
    return slot < 0 ? -1 : m_slots[static_cast<std::size_t>(slot)].row;
}

int GridModel::childCount(int row) const
{
    checkRow(row);
    const auto *below = children(m_rows[static_cast<std::size_t>(row)]);
    return below ? static_cast<int>(below->size()) : 0;
}

GridModel::Filling::Filling(GridModel &model)
    : m_model(model)
{
    if (m_model.m_filling++ == 0)
        m_model.beginResetModel();
}

GridModel::Filling::~Filling()
{
    if (--m_model.m_filling == 0)
        m_model.endResetModel();
}

// Cells

QVariant GridModel::slotValue(int slot, const ColumnData &column) const
{
    // What was set by hand goes before what was set for all, and that before what was loaded.
    if (!column.cells.isEmpty()) {
        const auto found = column.cells.constFind(slot);
        if (found != column.cells.constEnd())
            return *found;
    }
    if (column.fill)
        return *column.fill;
    const int record = m_slots[static_cast<std::size_t>(slot)].record;
    if (column.record >= 0 && record >= 0)
        return m_recordset.value(record, column.record);
    return {};
}

QVariant GridModel::value(int row, QStringView name) const
{
    checkRow(row);
    return slotValue(m_rows[static_cast<std::size_t>(row)], m_columns.named(name));
}

QVariant GridModel::valueAt(int row, int column) const
{
    checkRow(row);
    return slotValue(m_rows[static_cast<std::size_t>(row)], m_columns.at(column));
}

QString GridModel::shownText(int slot, const ColumnData &data) const
{
    const QVariant value = slotValue(slot, data);
    const Column &column = data.column;
    if (column.editor == Editor::Check)
        return isTicked(value) ? u"True"_s : u"False"_s;
    QString text = column.editor == Editor::DropDown ? data.choiceText(value)
                                                     : formatted(value, column.format, column.kind);
    return text.isEmpty() ? column.placeholder : text;
}

QString GridModel::text(int row, QStringView name) const
{
    checkRow(row);
    return shownText(m_rows[static_cast<std::size_t>(row)], m_columns.named(name));
}

QString GridModel::textAt(int row, int column) const
{
    checkRow(row);
    return shownText(m_rows[static_cast<std::size_t>(row)], m_columns.at(column));
}

void GridModel::store(int row, int column, const QVariant &value)
{
    ColumnData &data = m_columns.at(column);
    data.cells.insert(m_rows[static_cast<std::size_t>(row)], value);
    data.search.reset();
    if (m_cellInRule == std::pair(row, column))
        m_setByRule = true;
    if (m_filling == 0) {
        const QModelIndex cell = indexOf(row, column);
        Q_EMIT dataChanged(cell, cell);
    }
}

void GridModel::setValue(int row, QStringView name, const QVariant &value)
{
    checkRow(row);
    // Raises for an unknown name.
    static_cast<void>(m_columns.named(name));
    store(row, columnIndex(name), value);
}

void GridModel::setAll(QStringView name, const QVariant &value)
{
    ColumnData &data = m_columns.named(name);
    data.cells.clear();
    data.fill = value;
    data.search.reset();
    if (m_filling > 0 || m_top.empty())
        return;
    const int column = columnIndex(name);
    Q_EMIT dataChanged(index(0, column), index(rowCount(QModelIndex()) - 1, column));
    // A signal is about the rows below one and the same row.
    for (auto it = m_children.cbegin(); it != m_children.cend(); ++it) {
        const QModelIndex above = indexOf(m_slots[static_cast<std::size_t>(it.key())].row);
        if (!it->empty())
            Q_EMIT dataChanged(index(0, column, above),
                               index(static_cast<int>(it->size()) - 1, column, above));
    }
}

bool GridModel::mayEdit(int row, int column) const
{
    const Column &settings = columnAt(column);
    if (!settings.editable || settings.locked || settings.editor == Editor::Button ||
        settings.editor == Editor::Link)
        return false;
    return !settings.editRule || settings.editRule(row);
}

bool GridModel::edit(int row, int column, const QVariant &newValue)
{
    checkRow(row);
    const Column &settings = columnAt(column);
    const QVariant old = valueAt(row, column);
    const bool same = settings.editor == Editor::Check
                          ? isTicked(old) == isTicked(newValue)
                          : base::toText(old) == base::toText(newValue);
    // Compared as texts: 5 and 5.0 are no change that a rule should be asked about.
    if (same)
        return true;
    const QString name = settings.name;
    // A copy, since a rule may give the columns other settings.
    if (const auto rule = settings.changeRule) {
        const int generation = m_generation;
        // Rules nest: one may set another cell, whose rule runs meanwhile.
        const auto outerCell = std::exchange(m_cellInRule, std::pair(row, column));
        const bool outerSet = std::exchange(m_setByRule, false);
        const bool accepted = rule(row, newValue);
        m_cellInRule = outerCell;
        const bool setByRule = std::exchange(m_setByRule, outerSet);
        if (!accepted)
            return false;
        if (generation != m_generation)
            return true; // the rule loaded the rows again: the change is in them already
        if (!setByRule)
            store(row, column, newValue);
    } else {
        store(row, column, newValue);
    }
    Q_EMIT edited(row, name);
    return true;
}

Style GridModel::style(int row, int column) const
{
    return styleRule ? styleRule(row, columnAt(column).name) : Style{};
}

bool GridModel::isLink(int row, int column) const
{
    if (columnAt(column).editor != Editor::Link)
        return false;
    return (m_treeColumn.isEmpty() || parentRow(row) >= 0) && !textAt(row, column).isEmpty();
}

} // namespace grid
