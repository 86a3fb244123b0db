#include "workorders/ui/WorkLists.h"

#include "core/Session.h"
#include "core/ui/Telling.h"
#include "parts/PartSelection.h"
#include "parts/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/grid/GridView.h"
#include "scheduling/ui/Entries.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"

using namespace Qt::StringLiterals;

namespace worklists {
namespace {

constexpr const char *Module = "WorkOrder";

QList<grid::Choice> choicesOf(const QString &statement, QStringView key, QStringView text)
{
    QList<grid::Choice> choices;
    for (const db::Row row : gcnData->Open(statement))
        choices.append({row.integer(key), row.text(text)});
    return choices;
}

} // namespace

QList<grid::Choice> suppliers()
{
    return choicesOf(workorders::statements::suppliers(), u"SupplierID", u"Name");
}

QList<grid::Choice> crews()
{
    return choicesOf(workorders::statements::crews(), u"CrewID", u"CrewText");
}

Change told(QObject *owner, const char *procedure, Change change, std::function<void()> refused)
{
    return [owner, procedure, change = std::move(change),
            refused = std::move(refused)](int row, const QVariant &value) {
        const bool done = telling(Module, procedure, false, [&] { return change(row, value); });
        if (!done)
            // Reading the rows anew within the rule would take the cell away that the grid is still
            // at.
            QMetaObject::invokeMethod(owner, refused, Qt::QueuedConnection);
        return done;
    };
}

QString joinedKeys(const grid::GridModel &rows, QStringView column)
{
    QStringList keys;
    for (int row = 0; row < rows.rowCount(); ++row)
        keys.append(QString::number(rows.value(row, column).toLongLong()));
    return keys.join(u',');
}

qint64 currentKey(const grid::GridView &grid, QStringView column)
{
    const int row = grid.currentRow();
    return row < 0 ? 0 : grid.rows().value(row, column).toLongLong();
}

void selectFirst(grid::GridView &grid)
{
    // Topmost on the screen: the grid may be sorted by any column.
    grid.selectRow(grid.displayedOrder().value(0, -1));
}

void selectKey(grid::GridView &grid, QStringView column, qint64 key)
{
    const int row = key == 0 ? -1 : grid.rows().findRow(column, key);
    if (row >= 0)
        grid.selectRow(row);
    else
        selectFirst(grid);
}

void load(grid::GridView &grid, const QString &statement, qint64 owner, QStringView keyColumn)
{
    const qint64 kept = keyColumn.isEmpty() ? 0 : currentKey(grid, keyColumn);
    // No row above means no rows here, and no query.
    if (owner == 0)
        grid.rows().clear();
    else
        grid.rows().setRecordset(gcnData->Open(statement, {owner}));
    selectKey(grid, keyColumn, kept);
}

QList<qint64> numbersOf(const QString &text)
{
    QList<qint64> numbers;
    for (const QString &each : text.split(u',', Qt::SkipEmptyParts)) {
        bool ok = false;
        const qint64 number = each.trimmed().toLongLong(&ok);
        // The search gives keys; whatever else it may give one day is no machine.
        if (ok)
            numbers.append(number);
    }
    return numbers;
}

bool addServices(const grid::GridModel &present, qint64 WorkorderNo, qint64 EquipmentID,
                 bool completed)
{
    // What the order has already is not offered again.
    QString selection = joinedKeys(present, u"ServiceID");
    QString kind = u"SL"_s;
    if (!frmServicesManagerEntry::ShowServiceManager(selection, 0, kind, true, false))
        return false;
    const QList<qint64> services = numbersOf(selection);
    // Beside services that are ticked nobody looks for parts that are not.
    const bool partsUsed =
        completed && recording::needParts(services) &&
        base::askYesNo(u"The work order is complete, so what is added counts as done. Were its "
                       "parts used?"_s);
    return telling(Module, "AddServiceRecord", false, [&] {
        return recording::AddServiceRecord(services, WorkorderNo, EquipmentID,
                                           recording::ServiceSource::Catalogue, completed,
                                           partsUsed);
    });
}

bool addParts(const grid::GridModel &present, qint64 NServiceUsedID, bool used)
{
    QStringList numbers;
    for (int row = 0; row < present.rowCount(); ++row)
        numbers.append(present.text(row, u"Part Number"));
    QString selection = parts::exclusionList(numbers);
    if (!frmPartManagerEntry::ShowServiceManager(selection, true) || selection.trimmed().isEmpty())
        return false;
    return telling(Module, "AddPartRecord", false, [&] {
        return recording::AddPartRecord(parts::parseSelection(selection), NServiceUsedID, used);
    });
}

bool removePart(const grid::GridView &grid, qint64 NServiceUsedID)
{
    if (grid.currentRow() < 0 || !confirmDeletion())
        return false;
    const QString part = grid.rows().text(grid.currentRow(), u"Part Number");
    if (telling(Module, "DeletePartRecord", false,
                [&] { return recording::DeletePartRecord(NServiceUsedID, part); }))
        return true;
    // Told besides the report, since the part is still in the list.
    base::showMessage(u"Deletion not allowed."_s);
    return false;
}

bool confirmDeletion()
{
    return base::askYesNo(u"Are you sure you want to Delete this record?"_s);
}

} // namespace worklists
