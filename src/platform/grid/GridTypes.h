#pragma once

#include "platform/sql/Schema.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QVariant>
#include <functional>

namespace grid {

/// Where a column's text stands; Automatic puts numbers to the right and everything else to the
/// left.
enum class Align { Automatic, Left, Center, Right };
enum class Sort { None = 0, Ascending = 1, Descending = 2 };
/// What a cell is. With None a cell of an editable column is edited as text or, when the column
/// holds numbers or dates, as these.
enum class Editor { None, Text, Masked, Check, DropDown, Date, Button, Link };

/// An entry of a drop-down: the cell holds the id and shows the text.
struct Choice
{
    qint64 id = 0;
    QString text{};
};

/// Colours of a cell that differ from the grid's; an invalid colour is the grid's own.
struct Style
{
    QColor foreground{};
    QColor background{};
    bool bold = false;
};

/// A column of a grid, known by its name without regard to case.
struct Column
{
    QString name{};
    QString caption{}; ///< the name unless given
    int width = 100;   ///< in pixels
    bool visible = true;
    bool editable = false;
    bool locked = false; ///< grey, and never editable
    Align align = Align::Automatic;
    QString format{}; ///< "0.00", "$0.00", "mm/dd/yyyy", "hh:mm AMPM"; see CellFormat.h
    Editor editor = Editor::None;
    QString mask{}; ///< "{0,99999}.{0,99}"; see CellMask.h
    QList<Choice> choices{};

    /// What the column holds. Taken from the recordset; to be told for an added column whose
    /// cells are numbers or dates, so that they are read, aligned and sorted as such.
    sql::ColumnKind kind = sql::ColumnKind::Unknown;
    int position = -1;     ///< place from the left, -1 for the place in which it was added
    QString placeholder{}; ///< shown in empty cells; editing such a cell begins empty
    int maxLength = 0;     ///< longest text that can be typed, 0 for no limit

    /// What a change by the user means, asked before it is stored (so the old value is still in
    /// the cell). False refuses it. The rule may set the cell itself: then that value stays.
    std::function<bool(int row, const QVariant &newValue)> changeRule{};
    /// False when the row's cell can't be edited now.
    std::function<bool(int row)> editRule{};
};

/// What is kept of a column between two openings of a screen.
struct ColumnLayout
{
    QString field{};
    int width = 0;
    int position = 0;
    Sort sort = Sort::None;

    bool operator==(const ColumnLayout &) const = default;
};
using Layout = QList<ColumnLayout>;

} // namespace grid
