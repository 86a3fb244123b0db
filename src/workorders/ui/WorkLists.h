#pragma once

#include "platform/grid/GridTypes.h"

#include <QList>
#include <QString>
#include <QStringView>
#include <QVariant>
#include <functional>
#include <optional>

class QObject;

namespace grid {
class GridModel;
class GridView;
} // namespace grid

/// What the two pages of the work-order screen do with their grids alike.
namespace worklists {

/// The suppliers and the crews as entries of a drop-down. Data; raise DbError.
[[nodiscard]] QList<grid::Choice> suppliers();
[[nodiscard]] QList<grid::Choice> crews();

/// What a change of a cell means; False refuses it.
using Change = std::function<bool(int row, const QVariant &value)>;
/// The rule of a column whose change is one whole: where another workstation was in the way, its
/// sentence is told, errors are reported under the procedure. After a refused change, whose row may
/// be gone, the owner runs refused, but not before the grid is done with the cell.
[[nodiscard]] Change told(QObject *owner, const char *procedure, Change change,
                          std::function<void()> refused);

/// The whole-number values of a column in all rows, joined by commas.
[[nodiscard]] QString joinedKeys(const grid::GridModel &rows, QStringView column);
/// The value of a column in the current row, 0 without one.
[[nodiscard]] qint64 currentKey(const grid::GridView &grid, QStringView column);
/// Selects the topmost row.
void selectFirst(grid::GridView &grid);
/// Selects the row that has this value in a key column, without one the topmost.
void selectKey(grid::GridView &grid, QStringView column, qint64 key);
/// Loads the rows of a query whose parameter is the key of what they belong to, none for 0. With a
/// key column the row that was current stays so. Data; raises DbError.
void load(grid::GridView &grid, const QString &statement, qint64 owner, QStringView keyColumn = {});
/// Whole numbers of a comma-joined text; what is none is left out.
[[nodiscard]] QList<qint64> numbersOf(const QString &text);

/// Lets the user choose services of the catalogue for an order that has those of the grid already;
/// adds them. True when some were chosen and added.
bool addServices(const grid::GridModel &present, qint64 WorkorderNo, qint64 EquipmentID,
                 bool completed);
/// Lets the user choose parts for an order's service that has those of the grid already; adds them.
bool addParts(const grid::GridModel &present, qint64 NServiceUsedID, bool used);
/// Asks, and removes the current part of the grid from the service. True when it is gone.
bool removePart(const grid::GridView &grid, qint64 NServiceUsedID);
/// The question before a deletion.
[[nodiscard]] bool confirmDeletion();

} // namespace worklists
