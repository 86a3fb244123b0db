#include "core/CompanySession.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "reporting/Catalogue.h"
#include "reporting/PostedLabor.h"
#include "reporting/ReportFiles.h"
#include "scheduling/Readings.h"
#include "workorders/Statements.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// A session over the sample company, with the delivered layouts beside the program.
class Reports : public testing::Test
{
protected:
    Reports()
    {
        gcnData = company.open();
        gcnLookup = company.open();
        reportfiles::installDelivered(base::environment().applicationFolder);
    }
    ~Reports() override { closeConnections(); }

    static QString texts(const QList<report::Page> &pages)
    {
        QString all;
        for (const report::Page &page : pages)
            all += report::pageText(page);
        return all;
    }

    static void insertError()
    {
        gcnData->Execute(u"Insert into tblErrorList(ErrNumber, ErrDescription) values(5,'x')"_s);
    }

    test::TestEnvironment environment;
    test::SampleCompany company;
};

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

/// A whole statement for the reports that take one.
QString wholeStatement(const QString &layout)
{
    if (layout == "rptWorkOrderHistory"_L1)
        return workorders::statements::historyDetail(lastPosted());
    if (layout == "rptWorkorderHistorySummary"_L1)
        return workorders::statements::historySummary(lastPosted());
    if (layout == "rptEquipmentCount"_L1)
        return readings::dueStatement(0);
    if (layout == "rptEquipmentScanHistory"_L1)
        return u"Select EquipmentName, UnitNo, ScanTime as ScanTime1 from tblEquipment inner join "
               "tblEquipmentScan on tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID"_s;
    return workorders::statements::printedOrders(u"Select WorkorderNo from tblWorkorder"_s);
}

TEST_F(Reports, EveryQueryRuns)
{
    insertError();
    for (const catalogue::Report &report : catalogue::reports()) {
        const catalogue::Request asked{
            .layout = report.layout,
            .filter = report.query.isEmpty() ? wholeStatement(report.layout) : QString()};
        db::Recordset rows;
        ASSERT_NO_THROW(rows = catalogue::open(report, asked.filter)) << qPrintable(report.layout);
        EXPECT_GT(rows.RecordCount(), 0) << qPrintable(report.layout);
    }
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
    report::Inputs inputs;
    inputs.now = base::now();
    const QList<report::Page> pages = report::allPages(layout, rows, inputs);
    for (const qint64 order : orders) {
        int begun = 0;
        for (const report::Page &page : pages) {
            const QString text = report::pageText(page);
            if (text.contains(u"\"Work Order %1\""_s.arg(order))) {
                EXPECT_TRUE(text.contains(u"barcode "));
                ++begun;
            }
        }
        EXPECT_GE(begun, 1) << order;
    }
    EXPECT_GE(pages.size(), orders.size());
}

TEST_F(Reports, ACostOfAServiceCountsOnceHoweverManyPartsItHas)
{
    report::RecordsetSource rows(gcnData->Open(
        u"Select 1 as Service, 10 as Cost, 'a' as Part from tblCrew where CrewID = (Select "
        u"min(CrewID) "
        "from tblCrew) union all Select 1, 10, 'b' from tblCrew where CrewID = (Select min(CrewID) "
        "from tblCrew) union all Select 2, 5, 'c' from tblCrew where CrewID = (Select min(CrewID) "
        "from tblCrew)"_s));
    ASSERT_EQ(rows.rowCount(), 3);
    report::Layout layout;
    layout.groups = {{.name = u"service"_s, .by = u"Service"_s}};
    rows.sortFor(layout, {});
    rows.addOnce(u"Once"_s, u"Cost"_s, u"Service"_s);
    const int once = rows.fieldIndex(u"once"_s);
    EXPECT_EQ(rows.value(0, once).toInt(), 10);
    EXPECT_TRUE(rows.value(1, once).isNull());
    EXPECT_EQ(rows.value(2, once).toInt(), 5);
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
