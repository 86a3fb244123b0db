// The model's side for the view: indexes, and what the view asks of a cell.
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridModel.h"

namespace grid {

using namespace Qt::StringLiterals;

QModelIndex GridModel::indexOf(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return {};
    const int slot = m_rows[static_cast<std::size_t>(row)];
    // An index carries the slot, which stays when rows are sorted; its place is only where it
    // stands now.
    return createIndex(m_slots[static_cast<std::size_t>(slot)].position, column,
                       static_cast<quintptr>(slot));
}

int GridModel::rowOf(const QModelIndex &index) const
{
    return index.isValid() ? m_slots[static_cast<std::size_t>(index.internalId())].row : -1;
}

QModelIndex GridModel::index(int position, int column, const QModelIndex &parent) const
{
    const auto *order = children(parent.isValid() ? static_cast<int>(parent.internalId()) : -1);
    if (!order || parent.column() > 0 || position < 0 ||
        position >= static_cast<int>(order->size()) || column < 0 || column >= columnCount())
        return {};
    return createIndex(position, column,
                       static_cast<quintptr>((*order)[static_cast<std::size_t>(position)]));
}

QModelIndex GridModel::parent(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const int above = m_slots[static_cast<std::size_t>(index.internalId())].parent;
    return above < 0 ? QModelIndex()
                     : createIndex(m_slots[static_cast<std::size_t>(above)].position, 0,
                                   static_cast<quintptr>(above));
}

int GridModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    const auto *order = children(parent.isValid() ? static_cast<int>(parent.internalId()) : -1);
    return order ? static_cast<int>(order->size()) : 0;
}

int GridModel::columnCount(const QModelIndex &) const
{
    return columnCount();
}

bool GridModel::hasChildren(const QModelIndex &parent) const
{
    // Asked for each row while it is painted; most grids have no tree.
    return (!parent.isValid() || !m_children.isEmpty()) && rowCount(parent) > 0;
}

QVariant GridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const auto slot = static_cast<int>(index.internalId());
    const ColumnData &data = m_columns.at(index.column());
    const bool check = data.column.editor == Editor::Check;
    switch (role) {
    case Qt::DisplayRole:
        return check ? QVariant() : QVariant(shownText(slot, data));
    case Qt::EditRole:
        return slotValue(slot, data);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignmentOf(data.column));
    case Qt::CheckStateRole:
        if (check)
            return isTicked(slotValue(slot, data)) ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::AccessibleTextRole:
        if (check)
            return data.column.caption +
                   (isTicked(slotValue(slot, data)) ? u": checked"_s : u": not checked"_s);
        return QString(data.column.caption + u": "_s + shownText(slot, data));
    default:
        return {};
    }
}

bool GridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int row = rowOf(index);
    if (row < 0 || !mayEdit(row, index.column()))
        return false;
    if (role == Qt::CheckStateRole)
        return edit(row, index.column(), value.toInt() == Qt::Checked);
    return role == Qt::EditRole && edit(row, index.column(), value);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column &settings = columnAt(section);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return settings.caption.isEmpty() ? settings.name : settings.caption;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignmentOf(settings));
    default:
        return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const Column &settings = columnAt(index.column());
    if (settings.editable && !settings.locked)
        flags |= settings.editor == Editor::Check ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    return flags;
}

} // namespace grid
