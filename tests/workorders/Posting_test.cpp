#include "workorders/Posting.h"

#include "scheduling/Readings.h"
#include "workorders/OrderNames.h"
#include "workorders/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

const QString OlderThanCompletion =
    u"You have chosen to reschedule this services based on the scheduled date \n"
    "rather then on the completed date and the new date is already older then\n"
    "the completed date."_s;

struct PostWorkOrder : test::Workshop
{
    ~PostWorkOrder() override { posting::setDateConfirmation({}); }

    /// An order complete as of March 12 with one completed service that has a schedule.
    qint64 completeOrderOf(qint64 serviceUsedID, const QVariantMap &more = {})
    {
        const qint64 number = completeOrder();
        QVariantMap values{{u"ServiceUsedID"_s, serviceUsedID}, {u"Completed"_s, true}};
        values.insert(more);
        last = orderService(number, values);
        return number;
    }
    [[nodiscard]] static bool post(QList<qint64> orders, const base::Progress &progress = {})
    {
        return posting::PostWorkOrder(orders, progress);
    }
    static double stock(const QString &part)
    {
        return value(u"Select Quantity from tblPart where PartID = ?"_s, {part}).toDouble();
    }

    test::ScriptedPrompts prompts;
    qint64 last = 0; ///< NServiceUsedID of the service last put on an order
};

} // namespace

TEST_F(PostWorkOrder, ReschedulesEachKindOfServiceByItsOwnRule)
{
    // Due on March 10, completed on the 12th, a count of 530 taken.
    const struct
    {
        QString period;
        QString renewalOn;
        int interval;
        QVariant next; ///< NextScheduledDate afterwards
        qint64 target; ///< NextScheduledCount afterwards; it was 500
        bool inactive;
        QString reading; ///< its type; none for a calendar service
    } rows[] = {
        {u"D"_s, u"W"_s, 10, day(3, 22), 500, false, {}},
        {u"D"_s, u"S"_s, 10, day(3, 20), 500, false, {}},
        // On the day of completion it is not older.
        {u"D"_s, u"S"_s, 2, day(3, 12), 500, false, {}},
        {u"D"_s, u"D"_s, 10, day(3, 10), 500, true, {}},
        {u"W"_s, u"W"_s, 2, day(3, 26), 500, false, {}},
        {u"M"_s, u"S"_s, 1, day(4, 10), 500, false, {}},
        {u"C"_s, u"W"_s, 100, QVariant(), 630, false, u"Counts"_s},
        {u"H"_s, u"S"_s, 100, QVariant(), 600, false, u"Hours"_s},
        {u"K"_s, u"D"_s, 100, day(3, 10), 600, true, u"Kilometers"_s},
        {u"I"_s, u"W"_s, 50, QVariant(), 580, false, u"Miles"_s},
    };
    for (const bool skipped : {false, true}) {
        for (const auto &row : rows) {
            SCOPED_TRACE(
                qPrintable(row.period + row.renewalOn + (skipped ? u" skipped"_s : u""_s)));
            gcnData->Execute(u"Delete from tblEquipmentCount"_s);
            const qint64 id = service({{u"Period"_s, row.period},
                                       {u"RenewalOn"_s, row.renewalOn},
                                       {u"EInterval"_s, row.interval},
                                       {u"NextScheduledCount"_s, 500}});
            const qint64 number = completeOrderOf(
                id, {{u"Period"_s, row.period},
                     {u"CountValue"_s, row.reading.isEmpty() ? QVariant() : QVariant(530)},
                     {u"Completed"_s, !skipped},
                     {u"Skip"_s, skipped}});
            ASSERT_TRUE(post({number}));
            EXPECT_EQ(found(u"Select LastDateScheduled, LastDatePerformed, NextScheduledDate, "
                            "NextScheduledCount, Inactive from tblServiceUsed where "
                            "ServiceUsedID = ?"_s,
                            {id}),
                      u"3/10/2024|3/12/2024|%1|%2|%3"_s.arg(base::toText(row.next))
                          .arg(row.target)
                          .arg(row.inactive ? 1 : 0));
            EXPECT_EQ(found(u"Select CountType, CountValue, ChangeDate from tblEquipmentCount"_s),
                      row.reading.isEmpty() ? QString() : row.reading + u"|530|3/12/2024"_s);
            EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s,
                            u"ServiceUsedID = %1 and Skip = %2"_s.arg(last).arg(skipped ? -1 : 0)),
                      1);
            EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s), 0);
        }
    }
}

TEST_F(PostWorkOrder, WritesHistoryWithNamesInPlaceOfKeys)
{
    const qint64 center =
        insert(u"tblCostCenter"_s, {{u"Description"_s, u"Yard"_s}}, u"CostCenterID"_s);
    insert(u"tblSupplier"_s, {{u"SupplierID"_s, 6}, {u"Name"_s, u"O'Hara"_s}});
    insert(u"tblIndicator"_s, {{u"ItemID"_s, 90001}, {u"ItemName"_s, u"Filters"_s}});
    part(u"P1"_s, 5);
    gcnData->Execute(u"Update tblPart set PartCategoryID = 90001"_s);
    const qint64 number = completeOrderOf(0, {{u"ServiceID"_s, 7},
                                              {u"Name"_s, u"Jim's wash"_s},
                                              {u"CostCenterID"_s, center},
                                              {u"SupplierID"_s, 6},
                                              {u"StartTime"_s, u"08:00"_s},
                                              {u"EndTime"_s, u"09:30"_s},
                                              {u"Workhrs"_s, u"01:30"_s},
                                              {u"CostEstimate"_s, 30},
                                              {u"Note"_s, u"fine"_s},
                                              {u"JobNo"_s, 4}});
    orderPart(last, u"P1"_s, 2, true);
    gcnData->Execute(u"Update tblWoPartUsed set SupplierID = 6"_s);
    ASSERT_TRUE(post({number}));

    // It starts on the day the order was made.
    EXPECT_EQ(found(u"Select WorkorderNo, ServiceUsedID, CrewID, ServiceName, CrewNumber, "
                    "CostCenterID, SupplierID, SupplierName, StartTime, EndTime, Workhrs, "
                    "CostEstimate, [Note], jobNo, NextScheduleddate, StartDate, CompleteDate from "
                    "tblWOServiceUsedHistory"_s),
              u"%1|%2|%3|Jim's wash|1|Yard|6|O'Hara|08:00|09:30|01:30|30|fine|4|3/10/2024|"
              "3/15/2024|3/12/2024"_s.arg(number)
                  .arg(last)
                  .arg(crew1));
    EXPECT_EQ(found(u"Select ServiceusedID, Description, PartCategoryID, SupplierID, Price, "
                    "QuantityUsed from tblWoPartHistory"_s),
              u"%1|Part P1|Filters|O'Hara|2.5|2"_s.arg(last));
}

TEST_F(PostWorkOrder, TakesOnlyUsedPartsThatAreTrackedFromTheStockAndEachOnce)
{
    const struct
    {
        QString part;
        bool notTracked;
        bool used;
        QVariant quantityUsed;
        QString after; ///< the stock, which was 10, and QuantityUsed in history
    } rows[] = {
        {u"used"_s, false, true, 3, u"7|3"_s},     {u"below zero"_s, false, true, 12, u"-2|12"_s},
        {u"unused"_s, false, false, 3, u"10|0"_s}, {u"untracked"_s, true, true, 3, u"10|3"_s},
        {u"none"_s, false, true, 0, u"10|0"_s},    {u"null"_s, false, true, QVariant(), u"10|"_s},
    };
    const qint64 number = completeOrderOf(0);
    for (const auto &row : rows) {
        part(row.part, 10, row.notTracked);
        orderPart(last, row.part, 5, row.used);
        gcnData->Execute(u"Update tblWoPartUsed set QuantityUsed = ? where PartID = ?"_s,
                         {row.quantityUsed, row.part});
    }
    orderPart(last, u"not in the list of parts"_s, 1, true);
    // Of a part on two services the last row decides.
    part(u"twice"_s, 10);
    orderPart(last, u"twice"_s, 2, true);
    orderPart(orderService(number, {{u"Completed"_s, true}}), u"TWICE"_s, 2, true);
    ASSERT_TRUE(post({number}));
    EXPECT_EQ(stock(u"twice"_s), 8);
    for (const auto &row : rows)
        EXPECT_EQ(
            found(u"Select Quantity, QuantityUsed from tblPart inner join tblWoPartHistory on "
                  "tblPart.PartID = tblWoPartHistory.partID where tblPart.PartID = ?"_s,
                  {row.part}),
            row.after)
            << qPrintable(row.part);
    EXPECT_EQ(count(u"tblWoPartHistory"_s), 9);
    EXPECT_EQ(count(u"tblWoPartUsed"_s), 0);
}

TEST_F(PostWorkOrder, HoldsBackWhatWaitsForACountAndPostsTheOthers)
{
    const qint64 counted = completeOrderOf(0, {{u"Period"_s, u"H"_s}});
    const qint64 skipped =
        completeOrderOf(0, {{u"Period"_s, u"K"_s}, {u"Completed"_s, false}, {u"Skip"_s, true}});
    const qint64 ready = completeOrderOf(0);
    // A count that nobody needs, since the service stays open.
    orderService(ready, {{u"Period"_s, u"C"_s}});
    (void)completeOrder(); // which nobody posts
    const qint64 opened = order();
    const qint64 undated = order({{u"Complete"_s, true}});
    // What another workstation is at keeps its mark, and holds up nobody.
    const qint64 theirs = completeOrder();
    const auto workstation = database.open();
    workstation->BeginTrans();
    workstation->Execute(u"Update tblWorkorder set Printed = 1 where WorkorderNo = ?"_s, {theirs});
    prompts.say(u"Following Work Orders (%1) aren't posted. Enter counts for these Work "
                "Orders."_s.arg(counted));
    ASSERT_TRUE(post({counted}));
    ASSERT_TRUE(post({}));
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Complete = -1"_s), 6)
        << "with nothing to post no mark is lost";
    QList<qint64> orders{skipped, 4711, undated, opened, ready, counted, 4711};
    prompts.say(u"Following Work Orders (%1, %2) aren't posted. Enter counts for these Work "
                "Orders."_s.arg(counted)
                    .arg(skipped));
    prompts.say(
        u"Following Work Orders (%1, %2) aren't posted. They are complete no longer."_s.arg(opened)
            .arg(undated));
    prompts.say(u"Following Work Orders (4711) aren't posted. Another workstation has posted or "
                "deleted them."_s);
    ASSERT_TRUE(posting::PostWorkOrder(orders));
    workstation->RollbackTrans();
    EXPECT_EQ(orders, QList<qint64>{ready});
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 1);
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 3);
    // The one with an open service survives, and like any other it loses its mark.
    EXPECT_EQ(found(u"Select WorkorderNo, CompletedDate from tblWorkorder where Complete <> 0 or "
                    "CompletedDate is not Null order by WorkorderNo"_s),
              u"%1|3/12/2024\n%2|3/12/2024\n%3|3/12/2024"_s.arg(counted).arg(skipped).arg(theirs));
    EXPECT_EQ(count(u"tblWorkorder"_s), 7);
}

TEST_F(PostWorkOrder, EveryCountPeriodAsksForItsCountAndTenOrdersAreNamed)
{
    QList<qint64> orders;
    QStringList held;
    for (const QChar period : u"CHKIDWMYCHKICHKI"_s) {
        orders.prepend(completeOrderOf(0, {{u"Period"_s, QString(period)}}));
        if (u"CHKI"_s.contains(period))
            held.append(QString::number(orders.first()));
    }
    ASSERT_EQ(held.size(), 12);
    prompts.say(u"Following Work Orders (%1 and 2 more) aren't posted. Enter counts for these "
                "Work Orders."_s.arg(held.first(10).join(u", "_s)));
    ASSERT_TRUE(post(orders));
    EXPECT_EQ(ordernames::listed({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}),
              u"1, 2, 3, 4, 5, 6, 7, 8, 9, 10"_s);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Complete = -1"_s), 12);
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 4);
}

TEST_F(PostWorkOrder, EveryOrderGetsTheDateThatIsChosen)
{
    const QVariantMap done{{u"Completed"_s, true}};
    const qint64 same = completeOrder(14);
    const qint64 other = completeOrder();
    // Its mark went with another workstation's posting; one of its services was opened there too.
    const qint64 cleared = order();
    for (const qint64 number : {same, other, cleared}) {
        orderService(number, done);
        orderPart(orderService(number), u"P1"_s, 1, false);
    }
    QList<qint64> orders{same, other, cleared};
    ASSERT_TRUE(posting::PostWorkOrder(orders, {}, QDate(2024, 3, 14)));
    EXPECT_EQ(orders.size(), 3);
    EXPECT_EQ(found(u"Select WorkorderNo, Count(*) from tblWOServiceUsedHistory where CompleteDate "
                    "= #03/14/2024# group by WorkorderNo order by WorkorderNo"_s),
              u"%1|1\n%2|2\n%3|1"_s.arg(same).arg(other).arg(cleared))
        << "only a date that changes completes what is open";
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 4);
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Complete = 0 and CompletedDate is Null"_s), 2);
}

TEST_F(PostWorkOrder, WhatKeepsAnOrderFromBeingPostedIsNamed)
{
    const std::pair<QVariantMap, QString> rows[] = {
        {{{u"Sun"_s, QVariant()}}, u"Invalid use of Null"_s},
        {{{u"Period"_s, u"Y"_s}, {u"EInterval"_s, 9000}}, u"Overflow"_s},
        {{{u"DOM"_s, 1}}, u"The service schedule lists no day of the month."_s},
    };
    for (const auto &[spoilt, reason] : rows) {
        const qint64 good = completeOrderOf(service());
        const qint64 bad = completeOrderOf(service(spoilt), {{u"Name"_s, u"Wash"_s}});
        QList<qint64> orders{bad, good};
        const QString before = everything();
        EXPECT_FALSE(posting::PostWorkOrder(orders));
        EXPECT_EQ(errors.takeOne().ProcedureName, u"AddServiceHistoryRecord"_s);
        try {
            const base::Whole whole;
            (void)posting::PostWorkOrder(orders);
            ADD_FAILURE() << qPrintable(reason);
        } catch (const posting::Obstacle &obstacle) {
            EXPECT_EQ(obstacle.order(), bad);
            EXPECT_EQ(
                obstacle.description(),
                u"Work order %1 of machine M1 - Mower M1 can't be posted: the schedule of its "
                "service \"Wash\" can't be moved on (%2)."_s.arg(bad)
                    .arg(reason));
        }
        EXPECT_EQ(everything(), before);
        EXPECT_EQ(orders, (QList<qint64>{bad, good}));
        EXPECT_TRUE(post({good}));
        gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
        gcnData->Execute(u"Delete from tblWorkorder"_s);
    }
}

TEST_F(PostWorkOrder, APartThatCostsMoreThanAnAmountCanBeIsNamed)
{
    const struct
    {
        double quantity, price; ///< of two lines each
        bool used;
        QString what; ///< empty when it is posted
    } rows[] = {
        {99999.99, 999999999.99, true, {}},
        {9e14, 0.5, true, {}},
        // Each is an amount, both together are none.
        {9e14, 1, true,
         u"900000000000000 of part \"P1\" at their price come to more than an amount"_s},
        {1e10, 1e10, true,
         u"10000000000 of part \"P1\" at their price come to more than an amount"_s},
        {1e10, 1e10, false, {}},
        {1, 9e14, false, {}},
        {1.5e307, 0, true, u"1.5e+307 of part \"P1\" are more than a stock can be"_s},
    };
    for (const auto &row : rows) {
        const qint64 good = completeOrderOf(0);
        const qint64 bad = completeOrderOf(0, {{u"Name"_s, u"Wash"_s}});
        part(u"P1"_s, 10);
        for (int line = 0; line < 2; ++line)
            orderPart(last, u"P1"_s, row.quantity, row.used);
        gcnData->Execute(u"Update tblWoPartUsed set Price = ?"_s, {row.price});
        const QString before = everything();
        QList<qint64> orders{bad, good};
        try {
            const base::Whole whole;
            (void)posting::PostWorkOrder(orders);
            EXPECT_EQ(row.what, QString()) << row.quantity;
        } catch (const posting::Obstacle &obstacle) {
            EXPECT_EQ(obstacle.order(), bad);
            EXPECT_TRUE(obstacle.description().startsWith(
                u"Work order %1 of machine M1 - Mower M1 can't be posted: "_s.arg(bad) + row.what))
                << obstacle.what();
            EXPECT_TRUE(obstacle.description().endsWith(u"in its service \"Wash\"."));
            EXPECT_EQ(everything(), before);
        }
        for (const QString &table :
             {u"tblWoPartUsed"_s, u"tblWoServiceUsed"_s, u"tblWorkorder"_s, u"tblPart"_s})
            gcnData->Execute(u"Delete from "_s + table);
    }
}

TEST_F(PostWorkOrder, ASchedulesKindCountsAsItNowStands)
{
    const QString before = u"Hours|520|3/11/2024"_s;
    const struct
    {
        QString ordered; ///< the period that the order took over
        QString now;
        QVariant next;
        qint64 target; ///< it was 500
        QString readings;
    } rows[] = {
        {u"H"_s, u"M"_s, day(4, 12), 500, u"Hours|530|3/12/2024\n"_s + before},
        {u"H"_s, u"K"_s, QVariant(), 500, u"Hours|530|3/12/2024\n"_s + before},
        {u"K"_s, u"H"_s, day(3, 11), 500, before + u"\nKilometers|530|3/12/2024"_s},
        {u"M"_s, u"H"_s, day(3, 11), 500, before},
        {u"M"_s, u"D"_s, day(3, 13), 500, before},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(qPrintable(row.ordered + row.now));
        gcnData->Execute(u"Delete from tblEquipmentCount"_s);
        readings::store(1, day(3, 11), u"Hours"_s, 520);
        const qint64 id =
            service({{u"Period"_s, row.now}, {u"EInterval"_s, 1}, {u"NextScheduledCount"_s, 500}});
        ASSERT_TRUE(
            post({completeOrderOf(id, {{u"Period"_s, row.ordered}, {u"CountValue"_s, 530}})}));
        EXPECT_EQ(ofService(id, u"NextScheduledDate"_s), row.next);
        EXPECT_EQ(ofService(id, u"NextScheduledCount"_s).toLongLong(), row.target);
        EXPECT_EQ(found(u"Select CountType, CountValue, ChangeDate from tblEquipmentCount order by "
                        "CountType, CountValue desc"_s),
                  row.readings);
    }
}

TEST_F(PostWorkOrder, AServiceThatWasTakenOffItsMachineLeavesHistoryAlone)
{
    const qint64 number = completeOrderOf(
        4711, {{u"Period"_s, u"H"_s}, {u"CountValue"_s, 530}, {u"NextScheduledDate"_s, day(1, 1)}});
    orderService(
        number,
        {{u"ServiceUsedID"_s, 4712}, {u"Completed"_s, true}, {u"NextScheduledDate"_s, day(1, 1)}});
    gcnData->Execute(u"Update tblWorkorder set CompletedDate = #04/20/2024#"_s);
    ASSERT_TRUE(post({number})); // nothing is asked for it
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 2);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 1);
}

TEST_F(PostWorkOrder, ItsReadingMakesOtherWaitingServicesOfTheMachineDue)
{
    machine(2, u"M2"_s);
    const auto waiting = [this](const QString &period, qint64 target,
                                const QVariantMap &more = {}) {
        QVariantMap values{{u"Period"_s, period},
                           {u"NextScheduledCount"_s, target},
                           {u"NextScheduledDate"_s, QVariant()},
                           {u"RenewalOn"_s, u"S"_s},
                           {u"EInterval"_s, 10}};
        values.insert(more);
        return service(values);
    };
    const qint64 reached = waiting(u"H"_s, 530);
    const qint64 notYet = waiting(u"H"_s, 531);
    const qint64 miles = waiting(u"I"_s, 1);
    const qint64 elsewhere = waiting(u"H"_s, 1, {{u"EquipmentID"_s, 2}});
    // The reading lies beyond the new targets of these, which wait for a later one all the same.
    const qint64 posted = waiting(u"H"_s, 500, {{u"NextScheduledDate"_s, day(3, 1)}});
    const qint64 alike = waiting(u"H"_s, 400, {{u"NextScheduledDate"_s, day(3, 1)}});
    const QVariantMap hours{{u"Period"_s, u"H"_s}, {u"CountValue"_s, 530}};
    ASSERT_TRUE(post({completeOrderOf(posted, hours), completeOrderOf(alike, hours)}));
    EXPECT_EQ(ofService(reached, u"NextScheduledDate"_s), QVariant(day(3, 12)));
    for (const qint64 id : {notYet, miles, elsewhere, posted, alike})
        EXPECT_TRUE(ofService(id, u"NextScheduledDate"_s).isNull()) << id;
    EXPECT_EQ(ofService(reached, u"NextScheduledCount"_s).toInt(), 530);
}

TEST_F(PostWorkOrder, ACatalogueServiceLeavesAReadingOnlyWhenItIsNew)
{
    const QVariantMap hours{{u"Period"_s, u"H"_s}, {u"CountValue"_s, 530}};
    ASSERT_TRUE(post({completeOrderOf(0, hours)}));
    ASSERT_TRUE(post({completeOrderOf(0, hours)}));
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 1);
    // A service with a schedule is not tested for a reading that is there.
    ASSERT_TRUE(post({completeOrderOf(service({{u"Period"_s, u"H"_s}}), hours)}));
    EXPECT_EQ(count(u"tblEquipmentCount"_s), 2);
}

TEST_F(PostWorkOrder, AsksForTheDateWhenTheNextOneIsOlderThanTheCompletion)
{
    // Due in December and monthly by the schedule: January 10 is long past.
    const QDateTime december = base::wallClock({2023, 12, 10});
    const QVariantMap monthly{{u"Period"_s, u"M"_s},
                              {u"RenewalOn"_s, u"S"_s},
                              {u"EInterval"_s, 1},
                              {u"NextScheduledDate"_s, december}};
    QList<QPair<QDateTime, qint64>> asked;
    posting::setDateConfirmation([&](const QDateTime &completed, qint64 serviceUsedID) {
        asked.append({completed, serviceUsedID});
        return day(4, 20);
    });
    // Without a window to ask in, the completion is counted from.
    for (const QString &next : {u"4/20/2024"_s, u"4/12/2024"_s}) {
        const qint64 id = service(monthly);
        prompts.say(OlderThanCompletion);
        ASSERT_TRUE(post({completeOrderOf(id, {{u"NextScheduledDate"_s, december}})}));
        EXPECT_EQ(found(u"Select LastDateScheduled, NextScheduledDate from tblServiceUsed where "
                        "ServiceUsedID = ?"_s,
                        {id}),
                  u"12/10/2023|"_s + next);
        posting::setDateConfirmation({});
    }
    const qint64 first = value(u"Select min(ServiceUsedID) from tblServiceUsed"_s).toLongLong();
    EXPECT_EQ(asked, (QList<QPair<QDateTime, qint64>>{{day(3, 12), first}}));
}

TEST_F(PostWorkOrder, AFailureAtAnyStatementLeavesNothingHalfDone)
{
    part(u"P1"_s, 10);
    const qint64 counted = service({{u"Period"_s, u"H"_s}});
    const qint64 dated = service();
    const qint64 number = completeOrderOf(counted, {{u"Period"_s, u"H"_s}, {u"CountValue"_s, 5}});
    orderPart(last, u"P1"_s, 2, true);
    orderService(number, {{u"ServiceUsedID"_s, dated}, {u"Completed"_s, true}});
    orderService(number, {{u"Period"_s, u"H"_s}, {u"CountValue"_s, 5}, {u"Completed"_s, true}});
    completeOrder();
    QList<qint64> orders{number};
    EXPECT_GT(failAtEachStatement([&] {
                  const bool done = posting::PostWorkOrder(orders);
                  EXPECT_EQ(orders, QList<qint64>{number});
                  return done;
              }),
              15)
        << "all statements of the posting were tried";
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 3);
    EXPECT_EQ(stock(u"P1"_s), 8);
}

TEST_F(PostWorkOrder, TakesMoreOrdersAndServicesThanOneListCanHold)
{
    QList<qint64> orders;
    {
        TransactionScope transaction;
        for (int i = 0; i < 1600; ++i)
            orders.append(completeOrderOf(0));
        transaction.commit();
    }
    int told = 0;
    ASSERT_TRUE(post(orders, [&](int done, int all) {
        EXPECT_EQ(all, 1600);
        EXPECT_EQ(done, ++told);
    }));
    EXPECT_EQ(told, 1600);
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 1600);
    EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s), 0);
}
