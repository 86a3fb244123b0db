#include "core/CompanySession.h"
#include "platform/report/paginate/Tabulator.h"
#include "reporting/FilterText.h"
#include "reporting/PrintedLines.h"
#include "reporting/SampleReports.h"

#include <map>
#include <set>

/// What the reports on services and parts print, a second way: on a small company against figures
/// worked out by hand, on the sample company against loops over the tables.
namespace {

using namespace Qt::StringLiterals;
using base::Money;
using test::dollars;
using test::hours;

/// What a report says: its lines, the sums of its groups and its total, cells parted by bars.
struct Printed
{
    QStringList lines{};
    QStringList groups{};
    QString total{};
};

Printed printed(const QString &layout, const QString &filter = {})
{
    const catalogue::Prepared ready =
        catalogue::prepare({.layout = layout, .filter = filter}, reportfiles::readDelivered(layout),
                           catalogue::open(catalogue::reportOf(layout), filter));
    Printed result;
    const report::Outcome outcome = report::tabulate(
        ready.layout, *ready.rows, ready.inputs, [&](const report::TableBand &band) {
            QStringList cells;
            for (const report::TableCell &cell : band.cells)
                cells.append(cell.text);
            const QString text = cells.join(u'|');
            if (band.band->kind == report::BandKind::Detail)
                result.lines.append(text);
            else if (band.band->kind == report::BandKind::GroupFooter)
                result.groups.append(text);
            else if (band.band->kind == report::BandKind::ReportFooter && result.total.isEmpty())
                result.total = text;
            return true;
        });
    EXPECT_EQ(outcome.problems, QStringList()) << qPrintable(layout);
    return result;
}

// --- A company by hand -------------------------------------------------------------------------

const QString SpringHistory = u"Where (CompleteDate >= #01/01/2024# and CompleteDate <= "
                              "#12/31/2024#) "_s;
const QString SpringParts = u"Where (tblWOServiceUsedHistory.Completedate >= #01/01/2024# and "
                            "tblWOServiceUsedHistory.Completedate <= #12/31/2024#) "_s;
const QString DueInSpring = u" Where ( tblServiceUsed.NextScheduledDate  >= #03/15/2024# and "
                            "tblServiceUsed.NextScheduledDate <= #04/15/2024#) "_s;

/// One machine on file and one deleted. Service 101 has three parts, 103 neither parts nor hours,
/// 104 is a year older. Part A was used on two orders and is needed by three services, one of them
/// far ahead; C is no longer in the register.
class HandPartFigures : public test::ReportsOf<test::CompanyDatabase>
{
protected:
    HandPartFigures()
    {
        const struct
        {
            const char *table; ///< with its columns
            std::vector<const char *> rows;
        } tables[] = {
            {"tblEquipment(EquipmentID, UnitNo, EquipmentName, SiteID)", {"1, 'U1', 'Mower', 1"}},
            {"tblSite(SiteID, SiteName)", {"1, 'Yard'"}},
            {"tblCrew(CrewID, CrewNumber, Description)", {"5, 7, 'Shop'"}},
            {"tblSupplier(SupplierID, Name)", {"1, 'Acme'"}},
            {"tblWoPartUsed(ServiceUsedID, PartID, QuantityRequired)",
             {"301, 'A', 2", "302, 'A', 1"}},
            {"tblPart(PartID, Description, Quantity, Price, SupplierID, QtyMax, QtyMin, Inactive, "
             "TrackInventory)",
             {"'A', 'Belt', 4, 10.5, 1, 10, 5, 0, 0", "'B', 'Plug', 9, 5.555, 1, 6, 2, 0, 0",
              "'D', 'Rag', 0, 3.335, 1, 2, 1, 0, 1", "'E', 'Old', 0, 100, 1, 2, 1, 1, 0",
              "'F', 'Clip', 1, 0.005, 0, 4, 3, 0, 0"}},
            {"tblWOServiceUsedHistory(Skip, ServiceUsedID, ServiceName, WorkorderNo, EquipmentID, "
             "CrewID, CostEstimate, Workhrs, CompleteDate)",
             {"0, 101, 'Oil', 10, 1, 5, 26.025, '1:30', #03/01/2024#",
              "0, 102, 'Cut', 11, 2, 0, 10, '0:45', #03/02/2024#",
              "0, 103, 'Wash', 12, 1, 5, 5.005, Null, #03/01/2024#",
              "0, 104, 'Weld', 9, 1, 5, 999, '9:00', #03/01/2023#"}},
            {"tblWoPartHistory(ServiceusedID, partID, Description, Price, QuantityUsed)",
             {"101, 'A', 'Belt', 10, 2", "101, 'B', 'Plug', 5.55, 1",
              "101, 'C', 'Gasket', 0.335, 3", "102, 'A', 'Belt', 10.505, 1",
              "104, 'A', 'Belt', 10, 7"}},
            {"tblServiceUsed(EquipmentID, CrewID, ServiceUsedID, Name, NextScheduledDate)",
             {"1, 5, 201, 'Oil', #03/20/2024#", "1, 5, 202, 'Cut', #04/01/2024#",
              "1, 5, 203, 'Wash', #12/01/2024#"}},
            {"tblServiceUsedPart(ServiceUsedID, PartID, QuantityRequired)",
             {"201, 'A', 2", "201, 'B', 1", "201, 'C', 6", "202, 'A', 3", "203, 'A', 50",
              "203, 'B', 20"}}};
        for (const auto &[table, rows] : tables)
            for (const char *row : rows)
                gcnData->Execute(u"Insert into %1 values(%2)"_s.arg(QLatin1StringView(table),
                                                                    QLatin1StringView(row)));
    }
};

TEST_F(HandPartFigures, SumsOfGroupsAndTotals)
{
    struct Expected
    {
        const char *layout;
        QString filter;
        const char *sums; ///< of the groups and of all, parted by slashes
    };
    const Expected expected[] = {
        // Each line is rounded ahead of the sums: 26.025 and 5.005 of labor are 31.04. The three
        // parts of 101, 20 + 5.55 + 1.005, count its labor once.
        {"rptServiceHistory", SpringHistory,
         "2 services|1:30|$31.04|$26.56|$57.60 / 1 service|0:45|$10.00|$10.51|$20.51"
         " / Total of all machines: 3 services|2:15|$41.04|$37.07|$78.11"},
        {"rptServiceHistorySiteWise", SpringHistory,
         "Total of Yard: 2 services|1:30|$31.04|$26.56|$57.60"
         " / Total of No site: 1 service|0:45|$10.00|$10.51|$20.51"
         " / Total of all sites: 3 services|2:15|$41.04|$37.07|$78.11"},
        {"rptServiceHistoryCrewWise", SpringHistory,
         "Total of Crew 7 - Shop: 2 services|1:30|$31.04|$26.56|$57.60"
         " / Total of services without a crew: 1 service|0:45|$10.00|$10.51|$20.51"
         " / Total of all crews: 3 services|2:15|$41.04|$37.07|$78.11"},
        // The deleted machine's hours are in no list of times.
        {"rptServiceHistoryTimes", SpringHistory,
         "2 services|1:30 / Total of all machines: 2 services|1:30"},
        {"rptServiceHistoryTimesCDate", QString(),
         "2 services|1:30 / Total of all days: 3 services|10:30"},
        {"rptInventoryPartHistory", SpringParts,
         "Total of A: used on 2 services|3|$30.51 / Total of B: used on 1 service|1|$5.55"
         " / Total of C: used on 1 service|3|$1.01 / Total of all parts: 4 lines|$37.07"},
        {"rptInventoryPartHistoryCDate", QString(),
         "3 lines|$26.56 / Total of all days: 5 lines|$107.07"},
        // Neither what isn't tracked nor what is inactive has a value; half a cent is one.
        {"rptInventoryReport", u" where  Inactive =0"_s,
         "Total of No category: 3 parts|$92.01 / Total of the inventory: 3 parts|$92.01"},
        {"rptInventoryReorderReport", QString(),
         "Total of Acme: 1 part|$105.00 / Total of No supplier: 1 part|$0.02"
         " / Total of all suppliers: 2 parts|$105.02"},
        {"rptInventoryOrder_UpCommingServices", DueInSpring,
         "2 parts, 1 short / 1 part, 1 short / All suppliers: 3 parts, 2 short"},
        {"rptInventoryPartUsage", QString(),
         "3 services|55 / 2 services|21 / 1 service|6 / 6 lines of parts that services need"},
        {"rptInventoryPartHistorySummary", SpringParts, "Total of 3 parts|7"}};
    for (const Expected &row : expected) {
        const Printed found = printed(QString::fromLatin1(row.layout), row.filter);
        EXPECT_EQ((found.groups + QStringList{found.total}).join(u" / ").toStdString(), row.sums)
            << row.layout;
    }
}

TEST_F(HandPartFigures, Lines)
{
    EXPECT_EQ(printed(u"rptInventoryPartHistorySummary"_s, SpringParts).lines,
              QStringList({u"A|Belt||3"_s, u"B|Plug||1"_s, u"C|Gasket||3"_s}));
    EXPECT_EQ(printed(u"rptInventoryReorderReport"_s).lines,
              QStringList({u"A|Belt||4|3|5|10|$105.00"_s, u"F|Clip||1||3|4|$0.02"_s}));
    EXPECT_EQ(
        printed(u"rptInventoryOrder_UpCommingServices"_s, DueInSpring).lines,
        QStringList({u"A|Belt||4|5|1"_s, u"B|Plug||9|1|"_s, u"C|Part no longer on file||0|6|6"_s}));
    // With what open orders will take of it, B falls below its minimum of 2 too.
    gcnData->Execute(u"Insert into tblWoPartUsed(ServiceUsedID, PartID, QuantityRequired) "
                     "values(303, 'B', 8)"_s);
    EXPECT_EQ(printed(u"rptInventoryReorderReport"_s, filters::reorder({.lessOrders = true})).lines,
              QStringList({u"A|Belt||4|3|5|10|$105.00"_s, u"B|Plug||9|8|2|6|$33.33"_s,
                           u"F|Clip||1||3|4|$0.02"_s}));
}

// --- The sample company ------------------------------------------------------------------------

db::Recordset table(const QString &name)
{
    return gcnData->Open(u"Select * from "_s + name);
}

/// A quarter's posted services, read without any join.
class SamplePartFigures : public test::SampleReports
{
protected:
    struct Service
    {
        qint64 machine;
        Money labor;
        qint64 minutes;
    };
    struct Use
    {
        QString part;
        double quantity;
        Money cost;
    };

    SamplePartFigures()
    {
        for (const db::Row row : table(u"tblWOServiceUsedHistory"_s)) {
            const QDate day = row.date(u"CompleteDate").date();
            if (day < From || day > test::SampleCompany::today())
                continue;
            services[row.integer(u"ServiceUsedID")] = {row.integer(u"EquipmentID"),
                                                       Money(row.real(u"CostEstimate")).cents(),
                                                       test::minutesOf(row.text(u"Workhrs"))};
        }
        // Two machines are deleted, and what was done on them stays.
        for (const qint64 machine :
             {services.begin()->second.machine, services.rbegin()->second.machine})
            gcnData->Execute(u"Delete from tblEquipment where EquipmentID = ?"_s, {machine});
        for (const db::Row row : table(u"tblEquipment"_s))
            machines.insert(row.integer(u"EquipmentID"));
        for (const db::Row row : table(u"tblWoPartHistory"_s))
            if (services.contains(row.integer(u"ServiceusedID")))
                uses.push_back({row.text(u"partID"), row.real(u"QuantityUsed"),
                                Money(row.real(u"Price")).centsTimes(row.real(u"QuantityUsed"))});
    }

    static QString clause(const QString &column)
    {
        return u"Where (%1 >= %2 and %1 <= %3) "_s.arg(
            column, base::dateLiteral(base::wallClock(From)),
            base::dateLiteral(base::wallClock(test::SampleCompany::today())));
    }

    inline static const QDate From{2023, 12, 15};
    std::set<qint64> machines; ///< on file
    std::map<qint64, Service> services;
    std::vector<Use> uses;
};

TEST_F(SamplePartFigures, ServiceHistoryAndTimes)
{
    Money labor;
    Money parts;
    qint64 minutes = 0;
    qint64 known = 0;
    qint64 knownMinutes = 0;
    for (const auto &[id, service] : services) {
        labor += service.labor;
        minutes += service.minutes;
        if (!machines.contains(service.machine))
            continue;
        ++known;
        knownMinutes += service.minutes;
    }
    for (const Use &use : uses)
        parts += use.cost;
    ASSERT_LT(known, services.size());
    const QString sums =
        u": %1 services|%2|%3|%4|%5"_s.arg(services.size())
            .arg(hours(minutes), dollars(labor), dollars(parts), dollars(labor + parts));
    const QString times = u": %1 services|%2"_s.arg(known).arg(hours(knownMinutes));
    const std::pair<QString, QString> expected[] = {
        {u"rptServiceHistory"_s, u"Total of all machines"_s + sums},
        {u"rptServiceHistorySiteWise"_s, u"Total of all sites"_s + sums},
        {u"rptServiceHistoryCrewWise"_s, u"Total of all crews"_s + sums},
        {u"rptServiceHistoryTimes"_s, u"Total of all machines"_s + times},
        {u"rptServiceHistoryTimesCDate"_s, u"Total of all days"_s + times},
    };
    for (const auto &[layout, total] : expected)
        EXPECT_EQ(printed(layout, clause(u"CompleteDate"_s)).total, total) << qPrintable(layout);
}

TEST_F(SamplePartFigures, PartHistory)
{
    Money cost;
    std::map<QString, double> used;
    double all = 0;
    for (const Use &use : uses) {
        cost += use.cost;
        used[use.part] += use.quantity;
        all += use.quantity;
    }
    const QString filter = clause(u"tblWOServiceUsedHistory.Completedate"_s);
    const QString lines = u": %1 lines|%2"_s.arg(uses.size()).arg(dollars(cost));
    const Printed byPart = printed(u"rptInventoryPartHistory"_s, filter);
    EXPECT_EQ(byPart.total, u"Total of all parts"_s + lines);
    EXPECT_EQ(byPart.groups.size(), used.size());
    EXPECT_EQ(printed(u"rptInventoryPartHistoryCDate"_s, filter).total,
              u"Total of all days"_s + lines);

    const Printed summary = printed(u"rptInventoryPartHistorySummary"_s, filter);
    ASSERT_EQ(summary.lines.size(), used.size());
    for (const QString &line : summary.lines)
        EXPECT_EQ(line.section(u'|', -1).toDouble(), used[line.section(u'|', 0, 0)])
            << qPrintable(line);
    EXPECT_EQ(summary.total, u"Total of %1 parts|%2"_s.arg(used.size()).arg(all));
}

TEST_F(SamplePartFigures, StockAndWhatToOrder)
{
    Money worth;
    Money order;
    int tracked = 0;
    std::set<QString> low;
    std::map<QString, double> onHand;
    for (const db::Row part : table(u"tblPart"_s)) {
        onHand[part.text(u"PartID")] = part.real(u"Quantity");
        if (part.flag(u"Inactive") || part.flag(u"TrackInventory"))
            continue;
        ++tracked;
        worth += Money(part.real(u"Price")).centsTimes(part.real(u"Quantity"));
        if (part.real(u"Quantity") < part.real(u"QtyMin")) {
            low.insert(part.text(u"PartID"));
            order += Money(part.real(u"Price")).centsTimes(part.real(u"QtyMax"));
        }
    }
    EXPECT_EQ(printed(u"rptInventoryReport"_s, u" where  Inactive =0"_s).total,
              u"Total of the inventory: %1 parts|%2"_s.arg(tracked).arg(dollars(worth)));
    const Printed reorder = printed(u"rptInventoryReorderReport"_s);
    EXPECT_EQ(reorder.total,
              u"Total of all suppliers: %1 parts|%2"_s.arg(low.size()).arg(dollars(order)));
    for (const QString &line : reorder.lines)
        EXPECT_TRUE(low.contains(line.section(u'|', 0, 0))) << qPrintable(line);

    const QDate last = test::SampleCompany::today().addMonths(1);
    std::set<qint64> due;
    for (const db::Row service : table(u"tblServiceUsed"_s)) {
        const QDate day = service.date(u"NextScheduledDate").date();
        if (day >= test::SampleCompany::today() && day <= last)
            due.insert(service.integer(u"ServiceUsedID"));
    }
    std::map<QString, double> needed;
    double everNeeded = 0;
    for (const db::Row need : table(u"tblServiceUsedPart"_s)) {
        everNeeded += need.real(u"QuantityRequired");
        if (due.contains(need.integer(u"ServiceUsedID")))
            needed[need.text(u"PartID")] += need.real(u"QuantityRequired");
    }
    const Printed upcoming = printed(u"rptInventoryOrder_UpCommingServices"_s, DueInSpring);
    ASSERT_EQ(upcoming.lines.size(), needed.size());
    for (const QString &line : upcoming.lines) {
        const QString part = line.section(u'|', 0, 0);
        const double shortage = needed[part] - onHand[part];
        EXPECT_EQ(line.section(u'|', 3),
                  u"%1|%2|%3"_s.arg(onHand[part])
                      .arg(needed[part])
                      .arg(shortage > 0 ? QString::number(shortage) : QString()))
            << qPrintable(line);
    }
    double sum = 0;
    for (const QString &group : printed(u"rptInventoryPartUsage"_s).groups)
        sum += group.section(u'|', -1).toDouble();
    EXPECT_EQ(sum, everNeeded);
}

} // namespace
