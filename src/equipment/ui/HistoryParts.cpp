#include "equipment/ui/HistoryParts.h"

#include "core/ui/CellWrite.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Telling.h"
#include "equipment/History.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "scheduling/ui/MachinePage.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

HistoryParts::HistoryParts(MachineFrame &frame, QWidget *parent)
    : QWidget(parent)
    , m_frame(frame)
{
    const auto amount = [this](const QString &name, const QString &format, const QString &mask,
                               const QString &field) {
        return grid::Column{.name = name,
                            .width = 62,
                            .editable = true,
                            .format = format,
                            .mask = mask,
                            // An emptied cell is a 0.
                            .changeRule = [this, name, field](int row, const QVariant &value) {
                                return change(row, name, field, value.toDouble());
                            }};
    };
    grdPartHistory =
        makeListGrid(this, u"grdPartHistory"_s, u"Parts used in the service"_s,
                     {{.name = u"Part Number"_s, .width = 80, .locked = true},
                      {.name = u"Description"_s, .width = 125, .locked = true},
                      amount(u"Qty Used"_s, u"0.00"_s, u"{0,99999}.##"_s, u"QuantityUsed"_s),
                      amount(u"Price"_s, u"$0.00"_s, u"{0,9999999}.{0,99}"_s, u"Price"_s),
                      {.name = u"Category"_s, .width = 90, .locked = true},
                      {.name = u"Supplier"_s, .width = 70, .locked = true}});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grdPartHistory);
    setFocusProxy(grdPartHistory);
    connect(grdPartHistory, &grid::GridView::typing, this, [this] { m_frame.beginEdit(); });
}

void HistoryParts::RefreshPartHistoryGrid(qint64 ServiceUsedID)
{
    m_service = ServiceUsedID;
    base::trapped("Equipment", "RefreshPartHistoryGrid", [this] {
        grdPartHistory->rows().setRecordset(history::parts(m_service));
        grdPartHistory->selectRow(grdPartHistory->rows().rowCount() > 0 ? 0 : -1);
    });
}

bool HistoryParts::change(int row, const QString &column, const QString &field, double number)
{
    grid::GridModel &rows = grdPartHistory->rows();
    // What changes nothing needs no warning, and no transaction.
    if (number == rows.value(row, column).toDouble()) {
        rows.setValue(row, column, number);
        return true;
    }
    m_frame.beginEdit();
    // Only quantities touch the stock; a price never did.
    if (field == u"QuantityUsed")
        base::showMessage(u"This will not adjust the quantity on hand for the inventory. You will "
                          "manually need to adjust this if needed."_s);
    const bool stored = telling("Equipment", "grdPartHistory_Change", false, [&] {
        return writeCell(rows, row, column, number, [&](const history::Shown &shown) {
            return history::UpdatePartHistory(m_service, rows.text(row, u"Part Number"), field,
                                              number, shown);
        });
    });
    if (!stored)
        return false;
    rows.setValue(row, column, number);
    // The cost stands in the list of services above.
    Q_EMIT costChanged(m_service);
    return true;
}
