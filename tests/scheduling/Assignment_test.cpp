#include "scheduling/Assignment.h"

#include "core/RecordStore.h"
#include "scheduling/Fleet.h"
#include "scheduling/Readings.h"
#include "scheduling/RequiredParts.h"

namespace {

using namespace Qt::StringLiterals;
using namespace assignment;

struct AssignmentTest : test::Fleet
{
    AssignmentTest()
    {
        machine(1);
        machine(2);
    }
    ~AssignmentTest() override { readings::setFirstReadingAsker({}); }

    static db::Row onlyService(qint64 machine)
    {
        const db::Recordset rows =
            gcnData->Open(u"Select * from tblServiceUsed where EquipmentID = ?"_s, {machine});
        EXPECT_EQ(rows.RecordCount(), 1);
        return rows.current();
    }
};

TEST_F(AssignmentTest, ACalendarServiceIsCopiedWholeAndDueToday)
{
    catalogue(55, {{u"Name"_s, u"Owner's check"_s},
                   {u"Period"_s, u"M"_s},
                   {u"Wed"_s, 0},
                   {u"Thu"_s, QVariant()},
                   {u"Note"_s, QVariant()},
                   {u"Dece"_s, 0},
                   {u"DOM"_s, 1},
                   {u"Dom1"_s, 28},
                   {u"SeparateWo"_s, 1},
                   {u"JobNo"_s, 12}});
    ASSERT_TRUE(AddServiceRecord(1, {55}, Source::Catalogue));
    const db::Row row = onlyService(1);
    EXPECT_EQ(found(u"Select ServiceID, NextScheduledDate, LastDatePerformed, LastDateScheduled, "
                    "Inactive from tblServiceUsed"_s),
              u"55|3/15/2024|||0")
        << "due today, whatever its pattern says";
    const db::Recordset source = gcnData->Open(u"Select * from tblServices"_s);
    for (int column = 0; column < source.columnCount(); ++column) {
        const QString name = source.columnName(column);
        if (name != u"NextScheduledDate") {
            // A flag that a spoilt source lacks is 0 in the copy.
            EXPECT_EQ(row[name], name == u"Thu" ? QVariant(0) : source.current()[column])
                << qPrintable(name);
        }
    }
}

TEST_F(AssignmentTest, PartsComeAlongWithZeroForWhatTheyLack)
{
    catalogue(55);
    insert(u"tblServicesPart"_s, u"ServiceID, PartID, QuantityRequired, Price, SupplierID"_s,
           {55, u"OIL'5"_s, 2.5, 4.25, 6});
    gcnData->Execute(u"Insert into tblServicesPart(ServiceID,PartID) values(55,'F1')"_s);
    ASSERT_TRUE(AddServiceRecord(1, {55}, Source::Catalogue));
    const qint64 copy = onlyService(1).integer(u"ServiceUsedID");
    EXPECT_EQ(found(u"Select PartID, QuantityRequired, Price, SupplierID, ServiceUsedID from "
                    "tblServiceUsedPart order by PartID"_s),
              u"F1|0|0|0|%1\nOIL'5|2.5|4.25|6|%1"_s.arg(copy));
    // From that machine to another one.
    ASSERT_TRUE(AddServiceRecord(2, {copy}, Source::Machine));
    EXPECT_EQ(onlyService(2).integer(u"ServiceID"), 55);
    EXPECT_EQ(count(u"tblServiceUsedPart"_s,
                    u"ServiceUsedID = %1"_s.arg(onlyService(2).integer(u"ServiceUsedID"))),
              2);
}

TEST_F(AssignmentTest, ACountServiceCountsOnFromTheNewestReadingAndHasNoDate)
{
    reading(1, u"Hours"_s, day(3, 1), 700);
    reading(1, u"Hours"_s, day(3, 2), 500);
    catalogue(55, {{u"Period"_s, u"H"_s}, {u"EInterval"_s, 100}});
    ASSERT_TRUE(AddServiceRecord(1, {55}, Source::Catalogue));
    EXPECT_EQ(found(u"Select NextScheduledCount, NextScheduledDate from tblServiceUsed"_s),
              u"600|"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2) << "nobody was asked";
}

TEST_F(AssignmentTest, WithoutAReadingTheFirstOneIsAskedForOncePerType)
{
    int asked = 0;
    readings::setFirstReadingAsker(
        [&](qint64 equipment, qint64 service, const QString &name, QString &type) {
            ++asked;
            EXPECT_EQ(service, value(u"Select max(ServiceUsedID) from tblServiceUsed"_s));
            EXPECT_EQ(name, u"Oil change"_s);
            EXPECT_EQ(type, u"Kilometers"_s);
            readings::add(equipment, day(3, 1), type, 9000);
            return true;
        });
    for (const int id : {55, 56})
        catalogue(id, {{u"Period"_s, u"K"_s}, {u"EInterval"_s, 1000}});
    ASSERT_TRUE(AddServiceRecord(1, {55, 56}, Source::Catalogue));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(count(u"tblServiceUsed"_s, u"NextScheduledCount = 10000 and NextScheduledDate is "
                                         "null"_s),
              2);
    readings::setFirstReadingAsker(
        [](qint64, qint64, const QString &, QString &) { return false; });
    ASSERT_TRUE(AddServiceRecord(2, {55}, Source::Catalogue));
    EXPECT_EQ(readings::newest(2, u"Kilometers"_s).date, day(3, 15));
    EXPECT_EQ(onlyService(2).integer(u"NextScheduledCount"), 1000);
}

TEST_F(AssignmentTest, EveryCountServiceIsSeenToThatHasNoReadingOfItsType)
{
    reading(1, u"Hours"_s, day(3, 1), 50);
    assigned({{u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 77}});
    assigned({{u"Period"_s, u"I"_s}, {u"EInterval"_s, 300}, {u"NextScheduledDate"_s, day(3, 1)}});
    assigned();
    ASSERT_TRUE(ChkEveryServiceCount(1));
    EXPECT_EQ(found(u"Select Period, NextScheduledCount, NextScheduledDate from tblServiceUsed "
                    "where Period <> 'D' order by Period"_s),
              u"H|77|\nI|300|"_s);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2);
}

TEST_F(AssignmentTest, WhatFailsIsReportedAndFalse)
{
    catalogue(55);
    EXPECT_TRUE(AddServiceRecord(1, {}, Source::Catalogue)) << "nothing to copy";
    failAt(u"tblServiceUsed"_s);
    EXPECT_FALSE(AddServiceRecord(1, {55}, Source::Catalogue));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"AddServiceRecord"_s);
    EXPECT_FALSE(DeleteServiceRecord(1));
    EXPECT_FALSE(ChkEveryServiceCount(1));
    failAt({});
    EXPECT_EQ(errors.take().size(), 2u);
    EXPECT_EQ(count(u"tblServiceUsed"_s), 0);
}

TEST_F(AssignmentTest, RemovalTakesThePartsAlongAndLeavesOrdersAlone)
{
    const qint64 id = assigned();
    const qint64 other = assigned();
    for (const qint64 service : {id, other})
        insert(u"tblServiceUsedPart"_s, {{u"ServiceUsedID"_s, service}, {u"PartID"_s, u"F1"_s}});
    insert(u"tblWoServiceUsed"_s, {{u"ServiceUsedID"_s, id}});
    ASSERT_TRUE(DeleteServiceRecord(id));
    EXPECT_EQ(onlyService(1).integer(u"ServiceUsedID"), other);
    EXPECT_EQ(count(u"tblServiceUsedPart"_s), 1);
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 1);
}

TEST_F(AssignmentTest, ACrewIsGivenOnlyWhileTheMachineHasTheOneShown)
{
    EXPECT_NO_THROW(assignCrew(1, crew, 0));
    EXPECT_EQ(
        test::raisedBy([] { assignCrew(1, 99, 0); }).description(),
        u"Another workstation has given this machine to another crew meanwhile, which is shown "
        "now. Nothing was stored."_s);
    EXPECT_EQ(test::raisedBy([] { assignCrew(77, 99, 0); }).description(),
              u"This machine has been deleted on another workstation. Nothing was stored."_s);
    EXPECT_EQ(value(u"Select CrewID from tblEquipment where EquipmentID = 1"_s), crew);
    EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s), 1);
    EXPECT_FALSE(gbInTransaction);
}

TEST_F(AssignmentTest, ALineOfPartsIsChangedOnlyWhileItHoldsWhatWasShown)
{
    catalogue(55);
    requiredparts::add(ServiceStore::Catalogue, 55, {{u"F1"_s, 2, 4.5, 0}, {u"F2"_s, 1, 1, 0}});
    const auto change = [](const QString &part, const QVariant &quantity, const QVariant &shown) {
        requiredparts::change(ServiceStore::Catalogue, 55, part, u"QuantityRequired"_s, quantity,
                              shown);
    };
    change(u"F1"_s, 3, 2.0);
    try {
        change(u"F1"_s, 4, 2.0);
        ADD_FAILURE() << "written over another one's quantity";
    } catch (const record::Conflict &conflict) {
        EXPECT_EQ(conflict.differences().front().theirs, 3);
    }
    EXPECT_EQ(test::raisedBy([&] { change(u"F3"_s, 4, 2.0); }).description(),
              u"Part \"F3\" has been removed from this service on another workstation. Nothing was "
              "stored."_s);
    requiredparts::remove(ServiceStore::Catalogue, 55, u"F2"_s);
    EXPECT_EQ(found(u"Select PartID, QuantityRequired, Price from tblServicesPart"_s), u"F1|3|4.5");
}

} // namespace
