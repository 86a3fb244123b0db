#include "reporting/QueryString.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "reporting/Catalogue.h"
#include "reporting/FilterText.h"
#include "scheduling/Readings.h"
#include "workorders/Statements.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int CountDelay = 5; // days

/// Orders for designing, of which there are none.
QString noOrders()
{
    const QString orders = workorders::statements::printedOrders(u"0"_s);
    return orders.first(orders.lastIndexOf(u" tblPart ON"_s)) +
           u" tblPart ON tblWoPartUsed.PartID = tblPart.PartID where  tblWorkorder.workorderno in (0)"_s;
}

const QSet<QString> &knownFiles()
{
    static const QSet<QString> files{u"rptEmployeeReport.rpt"_s,
                                     u"rptEquipmentCount.rpt"_s,
                                     u"rptEquipmentCrewHistory.rpt"_s,
                                     u"rptEquipmentDetail.rpt"_s,
                                     u"rptEquipmentExpense.rpt"_s,
                                     u"rptEquipmentList.rpt"_s,
                                     u"rptEquipmentServices.rpt"_s,
                                     u"rptErrorReport.rpt"_s,
                                     u"rptInventoryOrder_UpCommingServices.rpt"_s,
                                     u"rptInventoryPartHistory.rpt"_s,
                                     u"rptInventoryPartHistoryCDate.rpt"_s,
                                     u"rptInventoryPartUsage.rpt"_s,
                                     u"rptInventoryReorderReport.rpt"_s,
                                     u"rptInventoryReport.rpt"_s,
                                     u"rptServiceHistory.rpt"_s,
                                     u"rptServiceHistoryTimes.rpt"_s,
                                     u"rptServiceHistoryTimesCDate.rpt"_s,
                                     u"rptServiceList.rpt"_s,
                                     u"rptSupplierReport.rpt"_s,
                                     u"rptWorkOrder.rpt"_s,
                                     u"rptWorkOrderByCrew.rpt"_s};
    return files;
}

/// The clause for the orders posted last. Data.
QString ofNewestPosted()
{
    // The number that no order has: without history a list of none would be no list.
    QStringList orders{u"0"_s};
    for (const db::Row row : gcnData->Open(u"Select distinct top 20 WorkorderNo from "
                                           "tblWOServiceUsedHistory order by WorkorderNo desc"_s))
        orders.append(row.text(u"WorkorderNo"));
    return u"where workorderno in (%1)"_s.arg(orders.join(u','));
}

QString layoutOf(const QString &fileName)
{
    return fileName.chopped(fileName.endsWith(u".rpt"_s) ? 4 : 0);
}

} // namespace

QString QueryString(const QString &fileName)
{
    if (!knownFiles().contains(fileName))
        return {};
    if (fileName.startsWith(u"rptWorkOrder"_s))
        return noOrders();
    if (fileName == u"rptEquipmentCount.rpt"_s)
        return readings::dueStatement(CountDelay);
    return catalogue::statement(catalogue::reportOf(layoutOf(fileName)), {});
}

QString previewQuery(const QString &fileName)
{
    const QString layout = layoutOf(fileName);
    const auto &all = catalogue::reports();
    if (std::ranges::find(all, layout, &catalogue::Report::layout) == all.end())
        return {};
    if (layout == "rptWorkorder"_L1 || layout == "rptWorkOrderByCrew"_L1)
        return workorders::statements::printedOrders(
            u"Select top 20 WorkorderNo from tblWorkorder order by WorkorderNo desc"_s);
    if (layout == "rptWorkOrderHistory"_L1)
        return workorders::statements::historyDetail(ofNewestPosted());
    if (layout == "rptWorkorderHistorySummary"_L1)
        return workorders::statements::historySummary(ofNewestPosted());
    if (layout == "rptEquipmentScanHistory"_L1)
        return filters::lastScans({.scanned = {base::today().addYears(-1), base::today()}});
    if (const QString known = QueryString(fileName); !known.isEmpty())
        return known;
    return catalogue::statement(catalogue::reportOf(layout), {});
}
