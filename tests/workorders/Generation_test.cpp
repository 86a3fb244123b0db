#include "workorders/Generation.h"

#include "workorders/DueList.h"
#include "workorders/Workshop.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

struct GenerateWorkorder : test::Workshop
{
    [[nodiscard]] bool generate(const QList<qint64> &machines = {1})
    {
        return generation::GenerateWorkorder(filter, machines, made);
    }

    /// The services of each order, by name.
    [[nodiscard]] static QSet<QString> orders()
    {
        QHash<qint64, QStringList> names;
        for (const db::Row row :
             gcnData->Open(u"Select WorkorderNo, Name from tblWoServiceUsed order by Name"_s))
            names[row.integer(u"WorkorderNo")].append(row.text(u"Name"));
        QSet<QString> result;
        for (const QStringList &each : names)
            result.insert(each.join(u'+'));
        return result;
    }

    WorkorderFilter filter{QDate(2024, 2, 14), QDate(2024, 3, 15), {}, {}};
    QList<qint64> made;
};

} // namespace

TEST_F(GenerateWorkorder, MakesAnOrderForEachCrewAndOneForEachServiceThatGoesAlone)
{
    service({{u"Name"_s, u"a"_s}});
    service({{u"Name"_s, u"b"_s}});
    service({{u"Name"_s, u"alone"_s}, {u"SeparateWo"_s, 1}});
    service({{u"Name"_s, u"alone too"_s}, {u"SeparateWo"_s, 1}});
    service({{u"Name"_s, u"c"_s}, {u"CrewID"_s, crew2}});
    ASSERT_TRUE(generate());
    EXPECT_EQ(orders(), (QSet<QString>{u"a+b"_s, u"c"_s, u"alone"_s, u"alone too"_s}));
    EXPECT_EQ(made.size(), 4);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Printed = 0 and Complete = 0 and EquipmentID = 1"_s), 4);
    EXPECT_EQ(value(u"Select max(WoDate) from tblWorkorder"_s).toDateTime(), day(3, 15));
}

TEST_F(GenerateWorkorder, TakesTheServicesOfTheWindowBothEndsIncludedAndInactiveOnesOfARow)
{
    const struct
    {
        QString name;
        QVariant date;
        int inactive;
    } rows[] = {
        {u"first day"_s, day(2, 14), 0}, {u"last day"_s, day(3, 15), 0},
        {u"before"_s, day(2, 13), 0},    {u"after"_s, day(3, 16), 0},
        {u"no date"_s, QVariant(), 0},   {u"inactive"_s, day(3, 1), 1},
    };
    for (const auto &row : rows)
        service({{u"Name"_s, row.name},
                 {u"NextScheduledDate"_s, row.date},
                 {u"Inactive"_s, row.inactive}});
    ASSERT_TRUE(generate());
    EXPECT_EQ(orders(), QSet<QString>{u"first day+last day"_s});
    ASSERT_TRUE(generation::generateForRow(filter, 1, made));
    EXPECT_EQ(orders(), (QSet<QString>{u"first day+last day"_s, u"inactive"_s}));
}

TEST_F(GenerateWorkorder, OfManyMachinesOnlyTheChosenGetOrders)
{
    QList<qint64> chosen;
    for (qint64 id = 100; id < 130; ++id) {
        machine(id, u"U%1"_s.arg(id));
        service({{u"EquipmentID"_s, id}});
        if (id != 105)
            chosen.append(id);
    }
    service();
    int told = 0;
    ASSERT_TRUE(generation::GenerateWorkorder(filter, chosen, made, [&](int done, int all) {
        EXPECT_EQ(done, ++told);
        EXPECT_EQ(all, 29);
    }));
    EXPECT_EQ(told, 29);
    EXPECT_EQ(made.size(), 29);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"EquipmentID in (1,105)"_s), 0);
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 29);
}

TEST_F(GenerateWorkorder, CopiesTheServiceWithItsParts)
{
    part(u"P1"_s, 5);
    const qint64 id = service({{u"ServiceID"_s, 77},
                               {u"Name"_s, u"Jim's oil"_s},
                               {u"LaborEstimate"_s, 1.5},
                               {u"CostEstimate"_s, 30},
                               {u"Note"_s, u"Warm engine"_s},
                               {u"JobNo"_s, 12},
                               {u"CostCenterID"_s, 3},
                               {u"LastDateScheduled"_s, day(2, 1)},
                               {u"LastDatePerformed"_s, day(2, 2)}});
    servicePart(id, u"P1"_s, 3);
    insert(u"tblServiceUsedPart"_s, {{u"ServiceUsedID"_s, id}, {u"PartID"_s, QVariant()}});
    ASSERT_TRUE(generate());
    const QString line = found(u"Select NServiceUsedID from tblWoServiceUsed"_s);
    EXPECT_EQ(found(u"Select WorkorderNo, ServiceUsedID, ServiceID, Name, LaborEstimate, "
                    "CostEstimate, [Note], JobNo, CostCenterID from tblWoServiceUsed"_s),
              u"%1|%2|77|Jim's oil|1.5|30|Warm engine|12|3"_s.arg(made.value(0)).arg(id));
    EXPECT_EQ(found(u"Select LastDateScheduled, LastDatePerformed, NextScheduledDate, Completed, "
                    "Skip, CountValue, StartTime, Workhrs from tblWoServiceUsed"_s),
              u"2/1/2024|2/2/2024|3/10/2024|0|0|||");
    EXPECT_EQ(found(u"Select ServiceUsedID, QuantityRequired, QuantityUsed, Price, Used from "
                    "tblWoPartUsed"_s),
              line + u"|3|3|2.5|0"_s)
        << "a row without a part number is no part";
    EXPECT_EQ(value(u"Select NextScheduledDate from tblServiceUsed"_s), day(3, 10));
}

TEST_F(GenerateWorkorder, TheServiceCrewsNarrowItAndTheMachinesCrewDoesNot)
{
    machine(2, u"M2"_s, {{u"CrewID"_s, crew2}});
    service({{u"Name"_s, u"mine"_s}, {u"EquipmentID"_s, 2}});
    service({{u"Name"_s, u"other"_s}, {u"EquipmentID"_s, 2}, {u"CrewID"_s, crew2}});
    filter.crewRange = u"1"_s;
    filter.assignCrew = u"1"_s;
    EXPECT_TRUE(workorders::dueList(filter).isEmpty()) << "the machine is of crew 2";
    ASSERT_TRUE(generate({2}));
    EXPECT_EQ(orders(), QSet<QString>{u"mine"_s});
    EXPECT_TRUE(workorders::dueList(filter).isEmpty()) << "and so is its order";
}

TEST_F(GenerateWorkorder, IsUndoneAsAWholeForAServiceOfADeletedCrew)
{
    machine(2, u"M2"_s);
    service();
    service({{u"EquipmentID"_s, 2}, {u"CrewID"_s, 4711}});
    const QString before = everything();
    EXPECT_FALSE(generate({1, 2}));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"AddGenerateWo"_s);
    EXPECT_TRUE(made.isEmpty());
    EXPECT_FALSE(gbInTransaction);
    EXPECT_EQ(everything(), before);
}

TEST_F(GenerateWorkorder, AFailureAtAnyStatementLeavesNothing)
{
    part(u"P1"_s, 5);
    servicePart(service(), u"P1"_s, 1);
    service({{u"SeparateWo"_s, 1}});
    EXPECT_GE(failAtEachStatement([&] { return generate(); }), 8);
    EXPECT_EQ(count(u"tblWorkorder"_s), 2);
}

TEST_F(GenerateWorkorder, TakesNoServiceTwiceUntilItsOrderIsDeleted)
{
    part(u"P1"_s, 5);
    servicePart(service(), u"P1"_s, 1);
    const QString before = everything();
    ASSERT_TRUE(generate());
    ASSERT_TRUE(generate());
    EXPECT_EQ(made.size(), 1);
    ASSERT_TRUE(generation::deleteOrder(made.value(0)));
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(workorders::dueList(filter).RecordCount(), 1);
}

TEST_F(GenerateWorkorder, TheDatabaseRefusesAServiceThatIsOnAnOrder)
{
    const qint64 id = service();
    orderService(order(), {{u"ServiceUsedID"_s, id}});
    EXPECT_THROW(orderService(order(), {{u"ServiceUsedID"_s, id}}), base::Error);
    // Services without a schedule behind them may stand on any number of orders.
    for (const QVariant &none : {QVariant(0), QVariant(0), QVariant()})
        orderService(order(), {{u"ServiceUsedID"_s, none}});
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 4);
}

TEST_F(GenerateWorkorder, TheListHoldsMachinesWithDueServicesAndOpenOrders)
{
    machine(2, u"M2"_s);
    machine(3, u"M3"_s, {{u"Inactive"_s, 1}});
    service();
    service({{u"Name"_s, u"second of the machine"_s}});
    service({{u"EquipmentID"_s, 3}});
    const qint64 empty = order({{u"EquipmentID"_s, 2}});
    const qint64 outside = order({{u"EquipmentID"_s, 2}});
    orderService(outside, {{u"NextScheduledDate"_s, day(5, 1)}});
    const qint64 within = order({{u"EquipmentID"_s, 2}, {u"Printed"_s, 1}});
    orderService(within);

    QSet<QString> rows;
    for (const db::Row row : workorders::dueList(filter))
        rows.insert(row.text(u"Unit No") + row.text(u"WorkOrderNo"));
    EXPECT_EQ(rows, (QSet<QString>{u"M1"_s, u"M2%1"_s.arg(empty), u"M2%1"_s.arg(within)}));
}
