#pragma once

#include "platform/db/Recordset.h"
#include "platform/grid/GridTypes.h"
#include "platform/grid/PrefixIndex.h"

#include <QHash>
#include <QVariant>
#include <memory>
#include <optional>
#include <vector>

namespace grid {

/// A column of the model with what is kept beside the recordset.
struct ColumnData
{
    Column column;
    int record = -1;              ///< field of the recordset, -1 without
    bool added = false;           ///< by addColumn: outlives the recordset
    QHash<int, QVariant> cells;   ///< changed and inserted cells by slot
    std::optional<QVariant> fill; ///< the value of all other cells, over the recordset's
    mutable std::optional<PrefixIndex> search;

    /// Texts of the choices by id, made again when the list was replaced.
    struct ChoiceTexts
    {
        const Choice *list = nullptr;
        qsizetype count = 0;
        QHash<qint64, QString> texts;
    };
    mutable std::optional<ChoiceTexts> choiceTexts;

    /// The text of an id; empty for Null and for an id that is not in the list.
    [[nodiscard]] QString choiceText(const QVariant &id) const;
};

/// The columns of a grid, by place and by name.
class ColumnSet
{
public:
    [[nodiscard]] int count() const { return static_cast<int>(m_columns.size()); }
    /// -1 when there is no such column.
    [[nodiscard]] int indexOf(QStringView name) const;
    /// Raises base::Error NoSuchItem when there is no such column.
    [[nodiscard]] ColumnData &named(QStringView name) const;
    [[nodiscard]] ColumnData &at(int index) const;

    /// Adds a column that outlives recordsets.
    void append(Column column);
    /// Gives a present column these settings, and makes it outlive recordsets.
    void replace(int index, Column column);
    /// Binds present columns to the recordset's fields, adds the missing ones and drops those that
    /// only an earlier recordset had.
    void take(const db::Recordset &recordset);

    /// Drops all cells that were changed or added.
    void forgetCells();
    /// Drops those of a row, by its slot.
    void forgetCells(int slot);
    /// What is kept for quick searching, and the texts of the choices, are made again when they are
    /// next asked for.
    void forgetSearches();
    void forgetChoiceTexts();

private:
    std::vector<std::unique_ptr<ColumnData>> m_columns;
};

/// Automatic resolved: numbers right, check boxes and buttons in the middle.
Qt::Alignment alignmentOf(const Column &column);

} // namespace grid
