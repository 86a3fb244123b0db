#include "platform/db/WritingView.h"
#include "reporting/FilterRequests.h"
#include "reporting/PickLists.h"
#include "reporting/SampleReports.h"
#include "support/Raised.h"

#include <QMap>
#include <QSet>
#include <functional>

using namespace Qt::StringLiterals;
using namespace filters;

namespace {

using Wanted = std::function<bool(const db::Row &)>;

const DateRange quarter{{2024, 1, 1}, {2024, 3, 15}};

bool lies(const QDateTime &time, QDate from, QDate to)
{
    return time >= from.startOfDay() && time <= to.startOfDay();
}

/// A column whose date lies in the quarter.
Wanted within(const QString &column)
{
    return [=](const db::Row &row) { return lies(row.date(column), quarter.from, quarter.to); };
}

/// A column that has one of these values.
Wanted one(const QString &column, const QString &values)
{
    return [=](const db::Row &row) {
        return values.split(u',').contains(row.text(column), Qt::CaseInsensitive);
    };
}

Wanted both(const Wanted &first, const Wanted &second)
{
    return [=](const db::Row &row) { return first(row) && second(row); };
}

/// The reports of the sample company.
class FilteredRows : public test::SampleReports
{
protected:
    FilteredRows()
    {
        for (const db::Row row :
             gcnData->Open(u"Select UnitNo from tblEquipment where Inactive <> '0'"_s))
            inactive.insert(row.text(u"UnitNo"));
    }

    [[nodiscard]] Wanted active(const Wanted &also) const
    {
        return [=, this](const db::Row &row) {
            return !inactive.contains(row.text(u"UnitNo")) && also(row);
        };
    }

    QSet<QString> inactive;
};

QStringList sorted(const db::Recordset &rows, const Wanted &wanted = {})
{
    QStringList texts;
    for (const db::Row row : rows) {
        QStringList values;
        for (int column = 0; column < rows.columnCount(); ++column)
            values.append(row[column].toString());
        if (!wanted || wanted(row))
            texts.append(values.join(u'|'));
    }
    texts.sort();
    return texts;
}

/// What comes out is what a plain loop leaves of all rows (those of another filter, where given),
/// and neither nothing nor everything.
void expectRows(const catalogue::Request &asked, const Wanted &wanted, const QString &all = {})
{
    const catalogue::Report &report = catalogue::reportOf(asked.layout);
    const QStringList found = sorted(catalogue::open(report, asked.filter));
    const db::Recordset everything = catalogue::open(report, all);
    EXPECT_EQ(found, sorted(everything, wanted)) << qPrintable(asked.filter);
    EXPECT_GT(found.size(), 0) << qPrintable(asked.filter);
    EXPECT_LT(found.size(), everything.RecordCount()) << qPrintable(asked.filter);
}

} // namespace

TEST_F(FilteredRows, OfMachinesAreThoseAskedFor)
{
    const QString units = u"A001,s003,U003"_s;
    const Wanted asked = one(u"UnitNo"_s, units);
    const Wanted crew = one(u"CrewNumber"_s, u"1,2"_s);
    const Wanted type = one(u"EquipmentType"_s, u"Edger,Zero-Turn Mower"_s);
    const Wanted yard = one(u"SiteName"_s, u"Main Yard"_s);
    const Wanted firstCrew = one(u"Description"_s, u"1 - Mowing North"_s);
    for (const bool inactiveToo : {false, true}) {
        const Machines machines{.units = units, .inactive = inactiveToo};
        const Wanted wanted = inactiveToo ? asked : active(asked);
        expectRows(equipmentServicesRequest(machines), wanted);
        expectRows(equipmentDetailsRequest(machines), wanted);
        expectRows(equipmentExpenseRequest(machines), wanted);
    }
    expectRows(inspectionRequest(quarter), within(u"InspectionDate"_s));
    expectRows(licenseRequest(quarter), within(u"LicenseRenewalDate"_s));
    expectRows(request(CrewHistory{.names = u"60 in Lazer Z,Backpack blower"_s, .crews = u"1,6"_s}),
               both(one(u"EquipmentName"_s, u"60 in Lazer Z,Backpack blower"_s),
                    one(u"CrewNumber"_s, u"1,6"_s)));
    expectRows(request(EquipmentList{.types = u"Edger,Zero-Turn Mower"_s,
                                     .crews = u"1,2"_s,
                                     .sites = u"Main Yard"_s}),
               active(both(both(crew, type), yard)));
    expectRows(wideListRequest(u"Edger,Zero-Turn Mower"_s, u"1,2"_s), both(crew, type));
    for (const ListVersion version : {ListVersion::Three, ListVersion::Four})
        expectRows(request(EquipmentList{.version = version, .crews = u"1"_s}), active(firstCrew));
    expectRows(request(EquipmentList{.version = ListVersion::Five, .sites = u"Main Yard"_s}),
               active(yard));
    expectRows(request(EquipmentList{.version = ListVersion::Six, .crews = u"1,2"_s}),
               active(crew));
    expectRows(request(Utilization{
                   .read = quarter, .types = u"Edger,Zero-Turn Mower"_s, .crews = u"1,2"_s}),
               both(crew, type), utilization(Utilization{.read = quarter}));
    expectRows(request(SingleUtilization{.read = quarter, .units = u"M001"_s}),
               both(one(u"UnitNo"_s, u"M001"_s), within(u"ChangeDate"_s)),
               u"where tblEquipment.UnitNo in ('M001', 'M002')"_s);
}

TEST_F(FilteredRows, OfPartsGoByCategorySupplierAndState)
{
    const QString categories = u"Belts,Oil Filters"_s;
    const QString supplier = u"Blackhawk Filter Supply"_s;
    const Wanted unused = [](const db::Row &row) { return row.flag(u"Inactive"); };
    const Wanted used = [](const db::Row &row) { return !row.flag(u"Inactive"); };
    expectRows(request(Parts{.categories = categories}),
               both(used, one(u"PartCategory"_s, categories)));
    expectRows(request(Parts{.suppliers = supplier}), both(used, one(u"SupplierName"_s, supplier)));
    expectRows(request(Parts{.inactive = true}), unused);
    QHash<QString, double> onOrders;
    for (const db::Row row : gcnData->Open(u"Select PartID, QuantityRequired from tblWoPartUsed"_s))
        onOrders[row.text(u"PartID")] += row.real(u"QuantityRequired");
    for (const bool lessOrders : {false, true})
        expectRows(
            request(Reorder{.lessOrders = lessOrders}),
            [&](const db::Row &row) {
                const double taken = lessOrders ? onOrders.value(row.text(u"PartID")) : 0;
                return row.real(u"Quantity") - taken < row.real(u"QtyMin");
            },
            u"1 = 1"_s);
    expectRows(request(Reorder{.categories = categories, .lessOrders = true}),
               one(u"ItemName"_s, categories), reorder({.lessOrders = true}));
    expectRows(partUsageRequest(u"OF-1001,of-1002"_s), one(u"PartID"_s, u"OF-1001,OF-1002"_s));
    expectRows(request(UpcomingParts{.due = quarter, .suppliers = supplier}),
               one(u"SupplierName"_s, supplier), upcomingParts({.due = quarter}));
}

TEST_F(FilteredRows, OfHistoriesLieInTheRange)
{
    const auto completed = [](const QString &column, const QString &values) {
        return both(within(u"CompleteDate"_s), one(column, values));
    };
    expectRows(request(PartHistory{.completed = quarter, .parts = u"OF-1001,OF-1002"_s}),
               completed(u"PartID"_s, u"OF-1001,OF-1002"_s));
    expectRows(request(HistoryTimes{.completed = quarter, .names = u"Push spreader"_s}),
               completed(u"EquipmentName"_s, u"Push spreader"_s));
    expectRows(request(ServiceHistory{.completed = quarter, .units = u"A001,A002"_s}),
               completed(u"UnitNo"_s, u"A001,A002"_s));
    expectRows(request(ServiceHistory{
                   .completed = quarter, .sites = u"Main Yard"_s, .group = HistoryGroup::Site}),
               completed(u"SiteName"_s, u"Main Yard"_s));
    expectRows(request(ServiceHistory{.completed = quarter, .group = HistoryGroup::Crew}),
               within(u"CompleteDate"_s));
    for (const bool summary : {false, true})
        expectRows(
            request(WorkorderHistory{.numbers = u"7000-7010,7015"_s, .summary = summary}),
            [](const db::Row &row) {
                const qint64 number = row.integer(u"WorkOrderNo");
                return (number >= 7000 && number <= 7010) || number == 7015;
            },
            workorderHistory({.numbers = u"6900-7200"_s, .summary = summary}));
}

TEST_F(FilteredRows, OfScansAreTheLastOfEachMachineAndThoseOfTheMissing)
{
    const QDate today = test::SampleCompany::today();
    const DateRange winter{{2024, 1, 2}, {2024, 3, 1}};
    QMap<QString, QList<QDateTime>> scans; // of each machine, one that isn't valid for none
    for (const db::Row row :
         gcnData->Open(u"Select UnitNo, ScanTime from tblEquipment left join tblEquipmentScan on "
                       "tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID"_s))
        scans[row.text(u"UnitNo")].append(row.date(u"ScanTime"));
    QStringList lastOnes;
    QStringList missing;
    for (const auto &[unit, times] : scans.asKeyValueRange()) {
        const auto wasScanned = [&times](QDate from, QDate to) {
            return std::ranges::any_of(times,
                                       [&](const QDateTime &time) { return lies(time, from, to); });
        };
        if (wasScanned(winter.from, winter.to))
            lastOnes.append(unit + u'|' + QVariant(std::ranges::max(times)).toString());
        if (!wasScanned(today.addDays(-30), today))
            for (const QDateTime &time : times)
                missing.append(unit + u'|' + QVariant(time).toString());
    }
    const auto found = [](const catalogue::Request &asked) {
        QStringList rows;
        for (const db::Row row : catalogue::open(catalogue::reportOf(asked.layout), asked.filter))
            rows.append(row.text(u"UnitNo") + u'|' + row[u"ScanTime1"].toString());
        return rows;
    };
    EXPECT_EQ(found(request(Scans{.scanned = winter})), lastOnes);
    EXPECT_GT(lastOnes.size(), 3);
    QStringList stillMissing = found(request(NotScanned{.today = today, .days = u"30"_s}));
    stillMissing.sort();
    missing.sort();
    EXPECT_EQ(stillMissing, missing);
    EXPECT_GT(missing.size(), 3);
}

TEST_F(FilteredRows, AFilterWritesNothingWhateverItReads)
{
    test::addWritingView(company.target(), u"tblTrap"_s,
                         u"update \"tblCrew\" set \"CrewNumber\" = 99"_s);
    const catalogue::Report &list = catalogue::reportOf(u"rptEquipmentList"_s);
    for (const bool inTransaction : {false, true}) {
        std::optional<TransactionScope> scope;
        if (inTransaction)
            scope.emplace();
        EXPECT_EQ(test::raisedBy<db::DbError>([&] {
                      (void)catalogue::open(list, u"where 1 in (select n from tblTrap)"_s);
                  }).number(),
                  db::ErrorNumber::ReadOnly)
            << inTransaction;
        EXPECT_EQ(gcnData->Open(u"Select * from tblCrew where CrewNumber = 99"_s).RecordCount(), 0);
    }
}

TEST_F(FilteredRows, PickListsOfferAllButWhatTheFieldHolds)
{
    using namespace picklists;
    for (const PickList *list : {&units(), &equipmentNames(), &equipmentTypes(), &crews(), &sites(),
                                 &suppliers(), &partCategories(), &picklists::parts()}) {
        const auto offered = [&](const QString &held) {
            const db::Recordset rows = gcnData->Open(list->query + u' ' + condition(*list, held));
            EXPECT_GE(rows.columnIndex(list->second), 0) << qPrintable(list->title);
            QStringList values;
            for (const db::Row row : rows)
                values.append(row.text(list->key));
            return values;
        };
        QStringList all = offered({});
        ASSERT_GT(all.size(), 2) << qPrintable(list->title);
        const QString held = all[1];
        all.removeAll(held);
        EXPECT_EQ(offered(held), all) << qPrintable(list->title);
    }
}
