// How the services of the history page are corrected, cell by cell.

#include "core/ui/CellWrite.h"
#include "core/ui/Telling.h"
#include "equipment/ui/HistoryPage.h"
#include "platform/base/Prompts.h"
#include "platform/grid/GridView.h"

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "Equipment";
const QString TimeFormat = u"hh:mm AMPM"_s;
const QString AmountMask = u"{0,9999999}.{0,99}"_s;
const QString NoTime = u"00:00"_s;
} // namespace

QList<grid::Column> HistoryPage::serviceColumns()
{
    const auto within = [this](const Change &change) {
        return [this, change](int row, const QVariant &value) {
            return grdServiceHistory_Change(change, row, value);
        };
    };
    // Stores a cell in its field, having said what that does not do.
    const auto stores = [&](const QString &column, const QString &field, const QString &note = {}) {
        return within([this, column, field, note](int row, const QVariant &value) {
            if (!note.isEmpty())
                base::showMessage(note);
            return writeCell(grdServiceHistory->rows(), row, column, value,
                             [&](const history::Shown &shown) {
                                 return history::UpdateEquipmentServiceHistory(serviceOf(row),
                                                                               field, value, shown);
                             });
        });
    };
    const auto corrects = [&](const QString &column) {
        return within([this, column](int row, const QVariant &typed) {
            return changeTime(row, column, typed.toString());
        });
    };
    return {{.name = u"WorkOrderNo"_s, .caption = u"Work Order"_s, .width = 74, .locked = true},
            {.name = u"ServiceUsedID"_s, .visible = false},
            {.name = u"Date"_s,
             .width = 84,
             .editable = true,
             .editor = grid::Editor::Date,
             .changeRule = stores(u"Date"_s, u"Completedate"_s,
                                  u"Changing the date will not adjust the schedule"_s)},
            {.name = u"Service Name"_s, .width = 150, .locked = true},
            {.name = u"Service Crew"_s,
             .width = 110,
             .editable = true,
             .editor = grid::Editor::DropDown,
             .changeRule = within([this](int row, const QVariant &crew) {
                 return changeCrew(row, crew.toLongLong());
             })},
            {.name = u"Cost Center"_s, .width = 90, .locked = true},
            {.name = u"Budgeted Hrs"_s,
             .width = 84,
             .editable = true,
             .format = u"0.00"_s,
             .mask = AmountMask,
             .changeRule = stores(u"Budgeted Hrs"_s, u"LaborEstimate"_s)},
            {.name = u"Labor Cost"_s,
             .width = 76,
             .editable = true,
             .format = u"$0.00"_s,
             .mask = AmountMask,
             .changeRule = stores(u"Labor Cost"_s, u"CostEstimate"_s)},
            {.name = u"Part Cost"_s,
             .width = 76,
             .locked = true,
             .format = u"$0.00"_s,
             .kind = sql::ColumnKind::Money},
            {.name = u"StartTime"_s,
             .caption = u"Start Time"_s,
             .width = 74,
             .editable = true,
             .format = TimeFormat,
             .placeholder = NoTime,
             .changeRule = corrects(u"StartTime"_s)},
            {.name = u"EndTime"_s,
             .caption = u"End Time"_s,
             .width = 74,
             .editable = true,
             .format = TimeFormat,
             .placeholder = NoTime,
             .changeRule = corrects(u"EndTime"_s)},
            {.name = u"WorkHrs"_s,
             .caption = u"Work Hrs"_s,
             .width = 66,
             .editable = true,
             .placeholder = NoTime,
             .changeRule = corrects(u"WorkHrs"_s)},
            {.name = u"Skip"_s, .width = 42, .locked = true},
            {.name = u"Count"_s,
             .width = 70,
             .editable = true,
             .mask = u"{0,9999999}"_s,
             .changeRule = stores(u"Count"_s, u"Countvalue"_s,
                                  u"Changing the count will not effect the schedule"_s)},
            {.name = u"SupplierName"_s, .caption = u"Supplier"_s, .width = 120, .locked = true}};
}

/// A correction is written at once, so the transaction begins ahead of it. What another workstation
/// did is shown, but not before the grid is done with the cell.
bool HistoryPage::grdServiceHistory_Change(const Change &change, int row, const QVariant &value)
{
    frame().beginEdit();
    const std::optional<bool> changed =
        telling(Module, "grdServiceHistory_Change", std::optional<bool>(),
                [&] { return std::optional(change(row, value)); });
    if (!changed)
        QMetaObject::invokeMethod(
            this, [this] { RefreshServiceHistoryGrid(m_equipment); }, Qt::QueuedConnection);
    return changed.value_or(false);
}

bool HistoryPage::changeTime(int row, const QString &column, const QString &typed)
{
    grid::GridModel &rows = grdServiceHistory->rows();
    std::optional<history::TimeCorrection> made;
    const auto write = [&](const history::Shown &shown) {
        made = history::correctTime(serviceOf(row), column, typed, shown);
        return made && made->refusal.isEmpty();
    };
    if (!writeCell(rows, row, column, typed, write)) {
        if (made && !made->refusal.isEmpty())
            base::showMessage(made->refusal);
        return false;
    }
    // In the form in which it is stored, whatever was typed: "9 pm" becomes 21:00.
    rows.setValue(row, column, made->stored.isEmpty() ? QVariant() : QVariant(made->stored));
    // The hours follow from both ends. With one of them missing they stay what they are.
    if (made->WorkHrs)
        rows.setValue(row, u"WorkHrs", *made->WorkHrs);
    return true;
}

bool HistoryPage::changeCrew(int row, qint64 crew)
{
    grid::GridModel &rows = grdServiceHistory->rows();
    std::optional<double> cost;
    const auto write = [&](const history::Shown &shown) {
        cost = history::changeCrew(serviceOf(row), crew,
                                   rows.value(row, u"Budgeted Hrs").toDouble(), shown);
        return cost.has_value();
    };
    if (!writeCell(rows, row, u"Service Crew"_s, crew, write))
        return false;
    rows.setValue(row, u"Labor Cost", *cost);
    return true;
}
