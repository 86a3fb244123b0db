#pragma once

#include "platform/report/layout/Layout.h"
#include "reporting/ReportQuery.h"

/// A new report from a few choices, complete enough to be printed as it is.
namespace newreport {

/// What can be shown of a row: a column of its table, or one of a row that it points to.
struct Field
{
    QString caption;
    reporttables::Link link; ///< to the other table; without a column for the row's own
    reporttables::Column column;

    [[nodiscard]] bool isOwn() const { return link.column.isEmpty(); }
    /// True for amounts and quantities; keys and numbers of things are no sums.
    [[nodiscard]] bool canTotal() const;
    [[nodiscard]] bool isSame(const Field &other) const
    {
        return link.column == other.link.column && link.to == other.link.to &&
               column.name == other.column.name;
    }
};

/// The fields of a table's rows, in the order in which they are offered: keys of other rows as what
/// those are called, and behind them what else is known of them.
[[nodiscard]] QList<Field> fieldsOf(const QString &table, const QList<reporttables::Table> &tables);
/// Those of them that are ticked to begin with.
[[nodiscard]] QList<Field> usualFields(const QList<Field> &fields);

enum class ChartKind { None, Bars, Line };

/// The choices.
struct Choice
{
    QString title;
    QString table;
    QList<Field> columns;
    QList<Field> groups; ///< the outermost first
    QList<Field> totals; ///< summed for each group and the whole; shown as columns too
    bool counts = true;  ///< how many rows each group has
    ChartKind chart = ChartKind::None;
    QString look;
    QString paper = QStringLiteral("Letter");
    bool landscape = false;
};

/// True when the columns ask for more room than an upright page has.
[[nodiscard]] bool isWide(const Choice &choice);
/// Why no report can be made of this, in words for the user; empty when it can.
[[nodiscard]] QString problemOf(const Choice &choice);
/// The report. Needs a QGuiApplication for the measures of fonts.
[[nodiscard]] report::Layout make(const Choice &choice, const QList<reporttables::Table> &tables);

} // namespace newreport
