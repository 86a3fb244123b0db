#include "reporting/FilterText.h"

#include "platform/db/DbError.h"
#include "reporting/FilterRequests.h"
#include "reporting/PickLists.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace filters;

namespace {

const DateRange range{{2024, 1, 2}, {2024, 3, 15}};

struct Case
{
    QString made;
    QString expected;
};

void expectEach(const QList<Case> &cases)
{
    for (const Case &each : cases)
        EXPECT_EQ(each.made.toStdString(), each.expected.toStdString());
}

/// What follows the beginning of a query that is told whole.
QString behind(const QString &query, const QString &beginning)
{
    EXPECT_TRUE(query.startsWith(beginning)) << qPrintable(query);
    return query.mid(beginning.size());
}

} // namespace

TEST(FilterText, QuotesValuesAndReadsNumbersAndRanges)
{
    expectEach({{QuoteValueList(u""_s), u""_s},
                {QuoteValueList(u"A-11"_s), u"'A-11'"_s},
                {QuoteValueList(u"1, 2"_s), u"'1', ' 2'"_s},
                {QuoteValueList(u"Jim's,O''x"_s), u"'Jim''s', 'O''''x'"_s},
                {QuoteValueList(u"a,,b,"_s), u"'a', '', 'b', ''"_s},
                {QuoteValueList(u"\"a\",b"_s), u"'b'"_s},
                {QuoteValueList(u"b,\"a,c\",5\"6"_s), u"'b', '5\"6'"_s},
                {QuoteValueList(u"\"a\""_s), u""_s},
                {QuoteValueList(u"a,b;c"_s, u';'), u"'a,b', 'c'"_s}});

    expectEach({{BuildFilterExpression(u"21"_s), u"(workorderno = 21)"_s},
                {BuildFilterExpression(u"1-11,21"_s),
                 u"(workorderno >= 1 And workorderno <= 11) Or (workorderno = 21)"_s},
                {BuildFilterExpression(u"3-3"_s, u"x.No"_s), u"(x.No >= 3 And x.No <= 3)"_s}});
    for (const QString &wrong :
         {u""_s, u"1,"_s, u",1"_s, u"5-"_s, u"-5"_s, u"1-2-3"_s, u"1 or 1"_s})
        EXPECT_EQ(test::raisedBy([&] { return BuildFilterExpression(wrong); }).number(),
                  db::ErrorNumber::Syntax)
            << qPrintable(wrong);
}

TEST(FilterText, MakesTheClausesOfMachines)
{
    expectEach(
        {{equipmentServices({.inactive = true}), u""_s},
         {equipmentServices({}), u"where tblEquipment.Inactive = '0'"_s},
         {equipmentServices({.units = u"1,2"_s}),
          u"Where tblEquipment.UnitNo  in ('1', '2') and tblEquipment.Inactive = '0'"_s},
         {equipmentServices({.units = u"1"_s, .inactive = true}),
          u"Where tblEquipment.UnitNo  in ('1')"_s},
         {equipmentServices({.units = u" "_s, .inactive = true}), u""_s},
         {equipmentDetails({}), u"where Inactive = '0'"_s},
         {equipmentDetails({.units = u"1,2"_s}),
          u" where  tblEquipment.UnitNo  in('1', '2') and Inactive = '0'"_s},
         {equipmentDetails({.units = u"1"_s, .inactive = true}),
          u" where  tblEquipment.UnitNo  in('1')"_s},
         {equipmentExpense({}), u"where Inactive = '0'"_s},
         {equipmentExpense({.units = u"1,2"_s}),
          u" where  UnitNo  in('1', '2') and Inactive = '0'"_s},
         {equipmentExpense({.units = u"1"_s, .inactive = true}), u" where  UnitNo  in('1')"_s},
         {inspectionDates(range),
          u" where  InspectionDate >= #01/02/2024# and InspectionDate <= #03/15/2024#"_s},
         {licenseDates(range),
          u" where  LicenseRenewalDate >= #01/02/2024# and LicenseRenewalDate <= #03/15/2024#"_s},
         {crewHistory({}), u""_s},
         {crewHistory({.names = u"A,B"_s}), u"Where  tblEquipment.EquipmentName  in ('A', 'B')"_s},
         {crewHistory({.crews = u"1"_s}),
          u" where  tblEquipmentCrewHistory.CrewNumber  in ('1')"_s},
         {crewHistory({.names = u"A"_s, .crews = u"1,2"_s}),
          u"Where  tblEquipment.EquipmentName  in ('A') and   "
          "tblEquipmentCrewHistory.CrewNumber   in ('1', '2')"_s}});
}

TEST(FilterText, MakesTheClausesOfParts)
{
    const QString orders =
        u"(((Quantity-(Select Sum(QuantityRequired) from tblWoPartUsed Where PartID = "
        "tblPart.PartID))<QtyMin) OR (Quantity<QtyMin))"_s;
    const QString completed = u"Where (tblWOServiceUsedHistory.Completedate >= #01/02/2024# and "
                              "tblWOServiceUsedHistory.Completedate <= #03/15/2024#) "_s;
    const QString due = u" Where ( tblServiceUsed.NextScheduledDate  >= #01/02/2024# and "
                        "tblServiceUsed.NextScheduledDate <= #03/15/2024#) "_s;
    expectEach(
        {{inventory({}), u" where  Inactive =0"_s},
         {inventory({.inactive = true}), u" where  Inactive =-1"_s},
         {inventory({.categories = u"Oil,Belts"_s}),
          u"Where ItemName  in ('Oil', 'Belts') and  Inactive =0"_s},
         {inventory({.suppliers = u"X"_s}), u" where  name  in ('X') and  Inactive =0"_s},
         {inventory({.categories = u"Oil"_s, .suppliers = u"X"_s, .inactive = true}),
          u"Where ItemName  in ('Oil') and  name  in ('X') and  Inactive =-1"_s},
         {reorder({}), u"(Quantity<QtyMin)"_s},
         {reorder({.lessOrders = true}), orders},
         {reorder({.categories = u"Oil"_s, .suppliers = u"X"_s}),
          u"(Quantity<QtyMin) and ItemName  in ('Oil') and  name  in ('X')"_s},
         {partUsage({}), u""_s},
         {partUsage(u"P-1,P'2"_s), u" where  tblServiceUsedPart.PartID  in('P-1', 'P''2')"_s},
         {partHistory({.completed = range}), completed},
         {partHistory({.completed = range, .parts = u"P-1"_s}),
          completed + u"and (tblWoPartHistory.PartID  in ('P-1'))"_s},
         {upcomingParts({.due = range}), due},
         {upcomingParts({.due = range, .suppliers = u"X"_s}),
          due + u"and (tblSupplier.Name  in ('X'))"_s}});
}

TEST(FilterText, MakesTheClausesOfTheEquipmentListsByTheirVersion)
{
    const auto made = [](ListVersion version, bool inactive) {
        return equipmentList({.version = version,
                              .types = u"Mower"_s,
                              .crews = u"1,2"_s,
                              .sites = u"Yard"_s,
                              .inactive = inactive});
    };
    const auto only = [](ListVersion version, const QString &crews, const QString &sites) {
        return equipmentList(
            {.version = version, .crews = crews, .sites = sites, .inactive = true});
    };
    const QString typeAndCrew =
        u"Where tblIndicator.ItemName  in ('Mower') and tblCrew.CrewNumber  in ('1', '2')"_s;
    expectEach(
        {{made(ListVersion::One, true), typeAndCrew + u" and SiteName  in ('Yard')"_s},
         {made(ListVersion::One, false),
          typeAndCrew + u" and SiteName  in ('Yard') and Inactive = '0'"_s},
         {made(ListVersion::Two, false), typeAndCrew + u" and Inactive = '0'"_s},
         {made(ListVersion::Three, true), typeAndCrew},
         {made(ListVersion::Four, false), typeAndCrew + u" and Inactive = '0'"_s},
         {made(ListVersion::Five, true), u"where SiteName  in ('Yard')"_s},
         {made(ListVersion::Five, false), u"where SiteName  in ('Yard') and Inactive = '0'"_s},
         {made(ListVersion::Six, false),
          u"Having tblIndicator.ItemName  in ('Mower') and tblCrew.CrewNumber  in ('1', "
          "'2') and Inactive = '0'"_s},
         {only(ListVersion::One, u"3"_s, u""_s), u"Where tblCrew.CrewNumber  in ('3')"_s},
         {only(ListVersion::One, u""_s, u"Yard"_s), u"where SiteName  in ('Yard')"_s},
         {only(ListVersion::Six, u"3"_s, u""_s), u"Having tblCrew.CrewNumber  in ('3')"_s},
         {equipmentList({.version = ListVersion::One}), u"where Inactive = '0'"_s},
         {equipmentList({.version = ListVersion::Five}), u" where Inactive = '0'"_s},
         {equipmentList({.version = ListVersion::Six}), u"Having Inactive = '0'"_s},
         {wideEquipmentList(u"Mower"_s, u"1,2"_s), typeAndCrew},
         {wideEquipmentList(u""_s, u""_s), u""_s}});
}

TEST(FilterText, MakesTheClausesOfHistories)
{
    const QString completed = u"Where (CompleteDate >= #01/02/2024# and CompleteDate <= "
                              "#03/15/2024#) "_s;
    const QString times = u"Where (tblWOServiceUsedHistory.Completedate >= #01/02/2024# and "
                          "CompleteDate <= #03/15/2024#) "_s;
    const auto history = [](HistoryGroup group) {
        return serviceHistory(
            {.completed = range, .sites = u"Yard"_s, .units = u"1"_s, .group = group});
    };
    expectEach({{historyTimes({.completed = range}), times},
                {historyTimes({.completed = range, .names = u"A"_s}),
                 times + u"and (tblEquipment.EquipmentName  in ('A'))"_s},
                {history(HistoryGroup::Site), completed + u"and (SiteName  in ('Yard'))"_s},
                {history(HistoryGroup::Crew), completed},
                {history(HistoryGroup::None), completed + u"and (UnitNo  in ('1'))"_s},
                {serviceHistory({.completed = range}), completed}});
    EXPECT_EQ(test::raisedBy([] {
                  return serviceHistory({.completed = {{}, range.to}});
              }).number(),
              db::ErrorNumber::Syntax);

    const QString orders = u" ON tblWOServiceUsedHistory.CrewID = tblServiceCrew.CrewID "_s;
    const auto ending = [&](const WorkorderHistory &asked) {
        const QString query = workorderHistory(asked);
        EXPECT_TRUE(query.contains(orders)) << qPrintable(query);
        return query.mid(query.indexOf(orders) + orders.size());
    };
    expectEach({{ending({}), u""_s},
                {ending({.units = u"1"_s}), u"Where UnitNo in ('1')"_s},
                {ending({.numbers = u"7"_s}), u"Where (workorderno = 7)"_s},
                {ending({.units = u"1"_s, .numbers = u"7-9"_s}),
                 u"Where UnitNo in ('1') and (workorderno >= 7 And workorderno <= 9)"_s}});
    const QString summary = workorderHistory({.numbers = u"7"_s, .summary = true});
    EXPECT_TRUE(summary.contains(u"Sum(QuantityUsed * Price) AS SumOfPrice"_s));
    EXPECT_TRUE(
        summary.endsWith(u" Where (workorderno = 7) GROUP BY tblWOServiceUsedHistory.WorkOrderNo, "
                         "tblEquipment.UnitNo, tblCrew.Description, tblEquipment.EquipmentName"_s))
        << qPrintable(summary);
}

TEST(FilterText, MakesTheClausesOfUtilization)
{
    const QString read = u" and (tblEquipmentCount.ChangeDate >= #01/02/2024# and "
                         "tblEquipmentCount.ChangeDate <= #03/15/2024#) "_s;
    expectEach(
        {{utilization(Utilization{.read = range}), read},
         {utilization(Utilization{.read = range, .types = u"Mower"_s, .crews = u"1,2"_s}),
          u" and tblIndicator.ItemName  in ('Mower') and tblCrew.CrewNumber  in ('1', '2')"_s +
              read},
         {utilization(SingleUtilization{.read = range, .units = u"A-1"_s}),
          u" Where (a.ChangeDate >= #01/02/2024# and a.ChangeDate <= #03/15/2024#)  and "
          "tblEquipment.UnitNo  in ('A-1')"_s}});
    const catalogue::Request single = request(SingleUtilization{.read = range, .units = u"A-1"_s});
    EXPECT_EQ(single.texts.value(u"lblDateFrom"_s), u"01/02/2024 - 03/15/2024"_s);
    EXPECT_EQ(single.formulas.value(u"days"_s), u"73"_s);
    EXPECT_EQ(request(Utilization{.read = range}).texts.value(u"lblDateFrom"_s),
              u"01/02/2024 - 03/15/2024"_s);
}

TEST(FilterText, MakesTheQueriesOfScans)
{
    const QString last =
        u"Select EquipmentName,UnitNo,ScanTime1 from (Select "
        "tblEquipment.EquipmentName,tblEquipment.UnitNo, Max(scanTime) as Scantime1  FROM "
        "tblEquipment LEFT JOIN tblEquipmentScan ON tblEquipment.EquipmentID = "
        "tblEquipmentScan.EquipmentID where UnitNo in (Select tblEquipment.UnitNo FROM "
        "tblEquipment LEFT JOIN tblEquipmentScan ON tblEquipment.EquipmentID = "
        "tblEquipmentScan.EquipmentID Where (ScanTime >= #01/02/2024# and ScanTime <= "
        "#03/15/2024#) "_s;
    const QString grouped = u") Group by  tblEquipment.EquipmentName,tblEquipment.UnitNo) "_s;
    const QString missing =
        u"Select EquipmentName,UnitNo,ScanTime1 from (SELECT tblEquipment.EquipmentName, "
        "tblEquipment.UnitNo, ScanTime as ScanTime1 FROM tblEquipment Left JOIN tblEquipmentScan "
        "ON tblEquipment.EquipmentID = tblEquipmentScan.EquipmentID Where "
        "tblEquipment.EquipmentID not in (SELECT EquipmentID FROM tblEquipmentScan Where "
        "(ScanTime > #"_s;
    expectEach(
        {{behind(lastScans({.scanned = range}), last), grouped + u" order by UnitNo,ScanTime1"_s},
         {behind(lastScans({.scanned = range, .units = u"1,2"_s, .byTime = true}), last),
          u"and UnitNo in ('1', '2')"_s + grouped + u" order by scanTime1,UnitNo"_s},
         {behind(notScanned({.today = range.to, .days = u"5"_s}), missing),
          u"03/10/2024# and ScanTime <= #03/15/2024#))) order by UnitNo,ScanTime1"_s},
         {behind(notScanned({.today = range.to, .byTime = true}), missing),
          u"03/13/2024# and ScanTime <= #03/15/2024#))) order by scanTime1,UnitNo"_s}});
}

TEST(FilterText, TellsInPlainWordsWhatWasAsked)
{
    const auto said = [](const catalogue::Request &made) { return made.asked; };
    expectEach(
        {{said(equipmentServicesRequest({.units = u"A-11, 001,\"x\""_s})),
          u"Units A-11, 001. Inactive machines left out."_s},
         {said(equipmentDetailsRequest({.units = u"A-11"_s, .inactive = true})),
          u"Unit A-11. Inactive machines included."_s},
         {said(equipmentExpenseRequest({})), u"All units. Inactive machines left out."_s},
         {said(inspectionRequest(range)), u"Inspection dates 01/02/2024 to 03/15/2024."_s},
         {said(licenseRequest(range)), u"License renewal dates 01/02/2024 to 03/15/2024."_s},
         {said(request(Parts{.categories = u"Oil"_s})),
          u"Category Oil. All suppliers. Inactive parts left out."_s},
         {said(request(Parts{.inactive = true})),
          u"All categories. All suppliers. Inactive parts only."_s},
         {said(request(Reorder{.suppliers = u"X,Y"_s})),
          u"Below the minimum quantity. All categories. Suppliers X, Y."_s},
         {said(request(Reorder{.lessOrders = true})),
          u"Below the minimum quantity, now or after open work orders. All categories. All "
          "suppliers."_s},
         {said(partUsageRequest({})), u"All parts."_s},
         {said(request(CrewHistory{.names = u"Rake"_s})), u"Machine Rake. All crews."_s},
         {said(request(PartHistory{.completed = range})),
          u"Completed 01/02/2024 to 03/15/2024. All parts."_s},
         {said(request(HistoryTimes{.completed = range, .names = u"Rake,Mower"_s})),
          u"Completed 01/02/2024 to 03/15/2024. Machines Rake, Mower."_s},
         {said(request(UpcomingParts{.due = range})),
          u"Services due 01/02/2024 to 03/15/2024. All suppliers."_s},
         {said(request(EquipmentList{.types = u"Mower"_s, .sites = u"Yard"_s})),
          u"Type Mower. All crews. Site Yard. Inactive machines left out."_s},
         {said(request(EquipmentList{.version = ListVersion::Five, .types = u"Mower"_s})),
          u"All sites. Inactive machines left out."_s},
         {said(wideListRequest({}, u"3"_s)), u"All types. Crew 3. Inactive machines included."_s},
         {said(request(ServiceHistory{.completed = range, .sites = u"Yard"_s})),
          u"Completed 01/02/2024 to 03/15/2024. All units."_s},
         {said(request(
              ServiceHistory{.completed = range, .sites = u"Yard"_s, .group = HistoryGroup::Site})),
          u"Completed 01/02/2024 to 03/15/2024. Site Yard."_s},
         {said(request(Scans{.scanned = range, .units = u"1"_s})),
          u"Scanned 01/02/2024 to 03/15/2024. Unit 1."_s},
         {said(request(NotScanned{.today = range.to})), u"Not scanned in the last 2 days."_s},
         {said(request(NotScanned{.today = range.to, .days = u"1"_s})),
          u"Not scanned in the last day."_s},
         {said(request(Utilization{.read = range, .crews = u"1"_s})), u"All types. Crew 1."_s},
         {said(request(WorkorderHistory{.numbers = u"1-11,21"_s})),
          u"All units. Work orders 1-11, 21."_s}});
}

TEST(FilterText, NamesTheLayoutOfEachChoice)
{
    const auto list = [](ListVersion version, bool bySite = false) {
        return request(EquipmentList{.version = version, .groupOnSite = bySite}).layout;
    };
    const auto history = [](HistoryGroup group) {
        return request(ServiceHistory{.completed = range, .group = group}).layout;
    };
    const auto part = [](PartHistoryForm form) {
        return request(PartHistory{.completed = range, .form = form}).layout;
    };
    expectEach(
        {{list(ListVersion::One), u"rptEquipmentList"_s},
         {list(ListVersion::One, true), u"rptEquipmentListSiteWise"_s},
         {list(ListVersion::Two, true), u"rptEquipmentListLandScape"_s},
         {list(ListVersion::Three), u"rptEquipmentListCrewWise"_s},
         {list(ListVersion::Four), u"rptEquipmentListVer4"_s},
         {list(ListVersion::Five), u"rptEquipmentListVer5"_s},
         {list(ListVersion::Six), u"rptEquipmentListVer6"_s},
         {history(HistoryGroup::None), u"rptServiceHistory"_s},
         {history(HistoryGroup::Site), u"rptServiceHistorySiteWise"_s},
         {history(HistoryGroup::Crew), u"rptServiceHistoryCrewWise"_s},
         {part(PartHistoryForm::DetailByPart), u"rptInventoryPartHistory"_s},
         {part(PartHistoryForm::DetailByDate), u"rptInventoryPartHistoryCDate"_s},
         {part(PartHistoryForm::Summary), u"rptInventoryPartHistorySummary"_s},
         {request(HistoryTimes{.completed = range}).layout, u"rptServiceHistoryTimes"_s},
         {request(HistoryTimes{.completed = range, .byDate = true}).layout,
          u"rptServiceHistoryTimesCDate"_s},
         {request(WorkorderHistory{}).layout, u"rptWorkOrderHistory"_s},
         {request(WorkorderHistory{.summary = true}).layout, u"rptWorkorderHistorySummary"_s}});
}

TEST(PickLists, LeaveOutWhatTheFieldHoldsAndAddWhatWasPicked)
{
    using namespace picklists;
    expectEach(
        {{condition(units(), u""_s), u" order by tblEquipment.UnitNo"_s},
         {condition(units(), u"A-1,O'x"_s),
          u" where  tblEquipment.UnitNo not in ('A-1', 'O''x') order by tblEquipment.UnitNo"_s},
         {condition(partCategories(), u"Oil"_s),
          u" and tblIndicator.ItemName not in ('Oil') order by tblIndicator.ItemName"_s},
         {withPicked(u""_s, u"1,2"_s), u"1,2"_s},
         {withPicked(u" "_s, u"1"_s), u"1"_s},
         {withPicked(u"1"_s, u"2,3"_s), u"1,2,3"_s},
         {withPicked(u"1"_s, u""_s), u"1"_s}});
}
