#include "core/CompanySession.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/RecordsetSource.h"
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

    test::TestEnvironment environment;
    test::SampleCompany company;
};

struct Delivered
{
    const char *layout;
    std::function<db::Recordset()> rows;
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

TEST_F(Reports, EveryDeliveredLayoutFitsItsQuery)
{
    const Delivered reports[] = {
        {"rptWorkorder", openOrders},
        {"rptWorkOrderByCrew", openOrders},
        {"rptWorkOrderHistory",
         [] { return gcnData->Open(workorders::statements::historyDetail(lastPosted())); }},
        {"rptWorkorderHistorySummary",
         [] { return gcnData->Open(workorders::statements::historySummary(lastPosted())); }},
        {"rptEquipmentCount", [] { return readings::due(0); }},
    };
    for (const Delivered &delivered : reports) {
        const QString name = QString::fromLatin1(delivered.layout);
        const auto reading = report::readLayoutFile(reportfiles::layoutPath(name));
        ASSERT_TRUE(reading.layout) << qPrintable(reading.error);
        EXPECT_TRUE(reading.warnings.isEmpty()) << qPrintable(reading.warnings.join(u'\n'));
        EXPECT_TRUE(reading.layout->find(u"lblCompanyName")) << delivered.layout;

        report::RecordsetSource rows(delivered.rows());
        rows.addOnce(u"LaborOnce"_s, u"CostEstimate"_s, u"ServiceUSedID"_s);
        rows.addValues(u"Labor"_s, QVariantList(rows.rowCount(), 1.5));
        ASSERT_GT(rows.rowCount(), 0) << delivered.layout;
        QStringList problems;
        const QList<report::Page> pages = report::allPages(
            *reading.layout, rows, {{{u"lblCompanyName"_s, u"Acme & Sons"_s}}, {}, base::now(), {}},
            &problems);
        EXPECT_TRUE(problems.isEmpty())
            << delivered.layout << ": " << qPrintable(problems.join(u'\n'));
        EXPECT_TRUE(texts(pages).contains(u"Acme & Sons")) << delivered.layout;
    }
}

TEST_F(Reports, AWorkOrderBeginsAPageAndBearsItsNumberTwice)
{
    report::RecordsetSource rows(openOrders());
    rows.sortBy({u"WorkorderNo"_s, u"NserviceUsedID"_s, u"PartID"_s});
    const int number = rows.fieldIndex(u"WorkorderNo"_s);
    QSet<qint64> orders;
    for (int row = 0; row < rows.rowCount(); ++row)
        orders.insert(rows.value(row, number).toLongLong());
    const QList<report::Page> pages = report::allPages(reportfiles::readLayout(u"rptWorkorder"_s),
                                                       rows, {{}, {}, base::now(), {}});
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
    rows.sortBy({u"Service"_s, u"Part"_s});
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
    detail.sortBy({u"WorkOrderNo"_s, u"ServiceUSedID"_s, u"PartID"_s});
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
