#include "platform/base/Decimal.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "reporting/PostedLabor.h"
#include "reporting/SampleReports.h"
#include "workorders/Statements.h"

#include <QDir>

namespace {

using namespace Qt::StringLiterals;

using Reports = test::SampleReports;

db::Recordset openOrders()
{
    return gcnData->Open(
        workorders::statements::printedOrders(u"Select WorkorderNo from tblWorkorder"_s));
}

/// The last twenty posted orders.
QString lastPosted()
{
    QStringList orders;
    for (const db::Row row : gcnData->Open(u"Select distinct top 20 WorkorderNo from "
                                           "tblWOServiceUsedHistory order by WorkorderNo desc"_s))
        orders.append(row.text(u"WorkorderNo"));
    return u"where workorderno in (%1)"_s.arg(orders.join(u','));
}

TEST_F(Reports, AWorkOrderBeginsAPageAndBearsItsNumberTwice)
{
    const report::Layout layout = reportfiles::readLayout(u"rptWorkorder"_s);
    report::RecordsetSource rows(openOrders());
    rows.sortFor(layout, {});
    const int number = rows.fieldIndex(u"WorkorderNo"_s);
    QSet<qint64> orders;
    for (int row = 0; row < rows.rowCount(); ++row)
        orders.insert(rows.value(row, number).toLongLong());
    QStringList pages;
    for (const report::Page &page : report::allPages(layout, rows, {}))
        pages.append(report::pageText(page));
    for (const qint64 order : orders) {
        const QStringList own = pages.filter(u"\"Work Order %1\""_s.arg(order));
        EXPECT_GE(own.size(), 1) << order;
        EXPECT_EQ(own.filter(u"barcode "_s), own);
    }
    EXPECT_GE(pages.size(), orders.size());
}

TEST_F(Reports, TheTwoPapersOfAPostingShowTheSameLabor)
{
    gcnData->Execute(u"update tblWOServiceUsedHistory set CostEstimate = 26.025 "_s + lastPosted());
    report::RecordsetSource detail(
        gcnData->Open(workorders::statements::historyDetail(lastPosted())));
    detail.sortFor(reportfiles::readLayout(u"rptWorkOrderHistory"_s), {});
    detail.addOnce(u"LaborOnce"_s, u"CostEstimate"_s, u"ServiceUSedID"_s);
    const db::Recordset summary =
        gcnData->Open(workorders::statements::historySummary(lastPosted()));
    const QVariantList labor = postedlabor::ofSummary(summary);

    base::Money individual;
    for (int row = 0; row < detail.rowCount(); ++row)
        individual +=
            base::Money(detail.value(row, detail.fieldIndex(u"LaborOnce"_s)).toDouble()).cents();
    base::Money listed;
    base::Money multiplied;
    for (const db::Row row : summary) {
        listed += base::Money(labor[row.index()].toDouble());
        multiplied += base::Money(row.real(u"SumOfCostEstimate"));
    }
    EXPECT_EQ(listed.tenThousandths(), individual.tenThousandths());
    EXPECT_EQ(listed.tenThousandths() % 260'300, 0);
    EXPECT_GT(multiplied, listed);
}

TEST_F(Reports, TheCustomersOwnLayoutComesFirst)
{
    const QString custom = base::applicationPath(u"\\Custom Reports"_s);
    ASSERT_TRUE(QDir().mkpath(custom));
    report::Layout layout = reportfiles::readLayout(u"rptEquipmentCount"_s);
    layout.title = u"Ours"_s;
    report::writeLayoutFile(layout, custom + u"/rptEquipmentCount.rpt"_s);
    EXPECT_EQ(reportfiles::readLayout(u"rptEquipmentCount"_s).title, u"Ours"_s);
}

} // namespace
