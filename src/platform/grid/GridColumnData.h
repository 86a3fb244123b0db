#pragma once

#include "platform/grid/GridModel.h"

#include <QHash>
#include <optional>

namespace grid {

/// A column of the model with what is kept beside the recordset.
struct GridModel::ColumnData
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

/// What rows are compared by: a number, or a text in one case.
struct GridModel::SortKey
{
    bool null = true;
    bool isNumber = false;
    double number = 0;
    QString text{};
};

/// Automatic resolved: numbers right, check boxes and buttons in the middle.
Qt::Alignment alignmentOf(const Column &column);

} // namespace grid
