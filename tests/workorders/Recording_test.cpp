#include "workorders/Recording.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "workorders/Workshop.h"

#include <array>

using namespace Qt::StringLiterals;
using namespace recording;

namespace {

/// An order with three services, the third skipped, each with a part.
struct Recording : test::Workshop
{
    Recording()
        : number(order())
    {
        for (int i = 0; i < 3; ++i) {
            services[i] = orderService(
                number,
                {{u"Skip"_s, i == 2}, {u"Note"_s, u"note %1"_s.arg(i)}, {u"LaborEstimate"_s, 1.5}});
            orderPart(services[i], u"P1"_s, 2, false);
        }
        other = orderService(order(), {{u"Note"_s, u"other"_s}});
        orderPart(other, u"P1"_s, 2, false);
    }
    ~Recording() override
    {
        EXPECT_EQ(state(other), u"---"_s) << "the other order was touched";
        EXPECT_EQ(note(other), u"other"_s);
    }

    /// "CSU" for completed, skipped and its part used, "-" in place of each that isn't.
    static QString state(qint64 id)
    {
        const db::Recordset rows = gcnData->Open(
            u"Select Completed, Skip, Used from tblWoServiceUsed left join tblWoPartUsed on "
            "NServiceUsedID = tblWoPartUsed.ServiceUsedID where NServiceUsedID = ?"_s,
            {id});
        const auto flag = [&](QStringView column, QChar letter) {
            return rows.row(0).flag(column) ? letter : QChar(u'-');
        };
        return QString(flag(u"Completed", u'C')) + flag(u"Skip", u'S') + flag(u"Used", u'U');
    }
    [[nodiscard]] QStringList states() const
    {
        return {state(services[0]), state(services[1]), state(services[2])};
    }
    /// What the user is told of a step that is refused within a larger one.
    static QString refusalOf(const std::function<bool()> &step)
    {
        return test::raisedBy([&] {
                   const base::Whole whole;
                   EXPECT_FALSE(step());
               })
            .description();
    }
    static QString note(qint64 id) { return onOrder(id, u"Note"_s).toString(); }
    /// Whether the order is complete, and since when: "-1|3/12/2024".
    [[nodiscard]] QString completion() const
    {
        return found(u"Select Complete, CompletedDate from tblWorkorder where WorkorderNo = ?"_s,
                     {number});
    }

    qint64 number;
    std::array<qint64, 3> services{};
    qint64 other = 0;
};

} // namespace

TEST_F(Recording, CompletingAnOrderCompletesAllButTheSkipped)
{
    const QStringList completed{u"C-U"_s, u"C-U"_s, u"-S-"_s};
    ASSERT_TRUE(UpdateWorkorder(number, QDate(2024, 3, 12)));
    EXPECT_EQ(states(), completed);
    EXPECT_EQ(completion(), u"-1|3/12/2024"_s);
    ASSERT_TRUE(UpdateWorkorder(number, std::nullopt, false));
    EXPECT_EQ(states(), completed) << "reopened alone";
    EXPECT_EQ(completion(), u"0|"_s);
    ASSERT_TRUE(UpdateWorkorder(number, std::nullopt));
    EXPECT_EQ(states(), (QStringList{u"---"_s, u"---"_s, u"-S-"_s}));
    EXPECT_EQ(completion(), u"0|"_s);
}

TEST_F(Recording, CompletedAndSkippedExcludeEachOther)
{
    ASSERT_TRUE(completeService(services[2]));
    EXPECT_EQ(state(services[2]), u"C-U"_s);
    ASSERT_TRUE(skipService(services[2], u"No time; \"Jim's\" turn"_s));
    EXPECT_EQ(state(services[2]), u"-S-"_s);
    EXPECT_EQ(note(services[2]), u"No time; \"Jim's\" turn"_s);
    EXPECT_TRUE(IsServiceSkiped(services[2]));
    EXPECT_FALSE(IsServiceSkiped(services[0]) || IsServiceSkiped(4711));
    ASSERT_TRUE(UpdateWorkorderServiceComplete(services[0], true));
    ASSERT_TRUE(UpdateWorkorderServiceComplete(services[0], false));
    EXPECT_EQ(states(), (QStringList{u"---"_s, u"---"_s, u"-S-"_s}));
}

TEST_F(Recording, SkippingAllReplacesAllNotes)
{
    ASSERT_TRUE(UpdateWorkorder(number, QDate(2024, 3, 12)));
    ASSERT_TRUE(skipAll(number, u"Rain"_s));
    for (const qint64 id : services)
        EXPECT_EQ(state(id) + note(id), u"-S-Rain"_s);
}

TEST_F(Recording, ACrewIsPricedByItsBudgetedHours)
{
    ASSERT_TRUE(changeCrew(services[0], crew1));
    EXPECT_EQ(onOrder(services[0], u"CostEstimate"_s).toDouble(), 30) << "1.5 hours at 20";
    ASSERT_TRUE(changeCrew(services[0], crew2));
    EXPECT_EQ(onOrder(services[0], u"CostEstimate"_s).toDouble(), 0) << "nobody in it";
    EXPECT_EQ(onOrder(services[0], u"CrewID"_s).toLongLong(), crew2);
    EXPECT_EQ(GetBudgetedHrs(4711), 0.0);
}

TEST_F(Recording, PartsAreAddedChangedAndRemoved)
{
    ASSERT_TRUE(AddPartRecord({{u"O'P"_s, 4, 1.25, 6}, {u"P2"_s, 1, 2, 0}}, services[0], true));
    const QString line = u"Select ServiceUsedID, QuantityRequired, QuantityUsed, Price, "
                         "SupplierID, Used from tblWoPartUsed where PartID = 'O''P'"_s;
    EXPECT_EQ(found(line), u"%1|4|4|1.25|6|-1"_s.arg(services[0]));
    ASSERT_TRUE(UpdateWorkorderPart(u"O'P"_s, services[0], u"QuantityUsed"_s, 2.5));
    EXPECT_EQ(found(line), u"%1|4|2.5|1.25|6|-1"_s.arg(services[0]));
    ASSERT_TRUE(DeletePartRecord(services[0], u"O'P"_s));
    EXPECT_EQ(count(u"tblWoPartUsed"_s, u"ServiceUsedID = %1"_s.arg(services[0])), 2);
}

TEST_F(Recording, AServiceAddedFromTheCatalogueHasNoScheduleAndComesOnce)
{
    insert(u"tblServices"_s, u"ServiceID, Name, CrewID, Period, LaborEstimate, JobNo"_s,
           {7, u"Wash"_s, crew2, u"H"_s, 2, 9});
    insert(u"tblServicesPart"_s, u"ServiceID, PartID, QuantityRequired"_s, {7, u"P9"_s, 3});
    ASSERT_TRUE(AddServiceRecord({7, 7, 4711}, number, 1, ServiceSource::Catalogue, true));
    ASSERT_TRUE(AddServiceRecord({7}, number, 1, ServiceSource::Catalogue, false));
    EXPECT_TRUE(needParts({4711, 7}));
    EXPECT_FALSE(needParts({4711}));
    const QString line =
        found(u"Select NServiceUsedID from tblWoServiceUsed where ServiceID = 7"_s);
    EXPECT_EQ(found(u"Select ServiceUsedID, WorkorderNo, NextScheduledDate, LastDateScheduled, "
                    "Completed, Period, CrewID, JobNo from tblWoServiceUsed where ServiceID = 7"_s),
              u"0|%1|3/15/2024||-1|H|%2|9"_s.arg(number).arg(crew2));
    EXPECT_EQ(found(u"Select ServiceUsedID, QuantityUsed from tblWoPartUsed where PartID = 'P9'"_s),
              line + u"|3"_s);
}

TEST_F(Recording, AMachinesServiceKeepsItsSchedule)
{
    part(u"P5"_s, 1);
    const qint64 id = service({{u"ServiceID"_s, 8}});
    servicePart(id, u"P5"_s, 1);
    ASSERT_TRUE(AddServiceRecord({id}, number, 1, ServiceSource::Machine, false));
    // The same catalogue service by another copy is there already.
    ASSERT_TRUE(AddServiceRecord({service({{u"ServiceID"_s, 8}})}, number, 1,
                                 ServiceSource::Machine, false));
    EXPECT_EQ(count(u"tblWoServiceUsed"_s, u"ServiceID = 8"_s), 1);
    EXPECT_EQ(value(u"Select ServiceUsedID from tblWoServiceUsed where ServiceID = 8"_s), id);
    EXPECT_EQ(count(u"tblWoPartUsed"_s, u"PartID = 'P5'"_s), 1);
}

TEST_F(Recording, RemovingAServiceTakesItsPartsAndLeavesTheOrder)
{
    for (const qint64 id : services)
        ASSERT_TRUE(DeleteServiceRecord(id));
    EXPECT_EQ(count(u"tblWoServiceUsed"_s), 1);
    EXPECT_EQ(count(u"tblWoPartUsed"_s), 1);
    EXPECT_EQ(count(u"tblWorkorder"_s), 2);
}

TEST_F(Recording, UnscheduledOrdersComeAllOrNone)
{
    EXPECT_EQ(addUnscheduled({1, 1}), 3) << "the first of them, behind the two";
    EXPECT_EQ(count(u"tblWorkorder"_s), 4);
    int running = 0;
    gcnData->setObserver([&](const db::Sent &) {
        if (++running >= 2)
            throw base::Error(5, u"broken"_s);
    });
    EXPECT_EQ(addUnscheduled({1, 1}), 0);
    EXPECT_FALSE(IsServiceSkiped(services[2]));
    EXPECT_FALSE(ISWorkOrderLate(number, QDate(2025, 1, 1)));
    gcnData->setObserver({});
    EXPECT_EQ(errors.take().size(), 3u);
    EXPECT_EQ(count(u"tblWorkorder"_s), 4);
}

TEST_F(Recording, OnlyTheOrdersOfTheListAreMarkedAsPrinted)
{
    ASSERT_TRUE(UpdatePrintColInWorkOrder({}));
    EXPECT_EQ(count(u"tblWorkorder"_s, u"Printed <> 0"_s), 0);
    ASSERT_TRUE(UpdatePrintColInWorkOrder({number, 0}));
    EXPECT_EQ(found(u"Select WorkorderNo, Printed from tblWorkorder where Printed <> 0"_s),
              u"%1|1"_s.arg(number));
}

TEST_F(Recording, AnOrderIsLateByTwoLateServices)
{
    const struct
    {
        QString yellow;
        QString red;
        int second; ///< day of March of the second service; the first is of the 1st, two weeks ago
        bool late;
    } rows[] = {
        {u"7"_s, u"14"_s, 8, true},  {u"7"_s, u"14"_s, 9, false}, {u"14"_s, u"7"_s, 8, true},
        {u"0"_s, u"14"_s, 1, false}, {u""_s, u"14"_s, 1, false},  {u"14"_s, u"14"_s, 1, true},
    };
    const qint64 late = order();
    orderService(late, {{u"NextScheduledDate"_s, day(3, 1)}});
    const qint64 second = orderService(late);
    for (const auto &row : rows) {
        SetOption(u"SERVICE_LATE_YELLOW"_s, row.yellow, false);
        SetOption(u"SERVICE_LATE_RED"_s, row.red, false);
        ASSERT_TRUE(UpdateWorkorderService(second, u"NextScheduledDate"_s, day(3, row.second)));
        EXPECT_EQ(ISWorkOrderLate(late, QDate(2024, 3, 15)), row.late)
            << qPrintable(row.yellow) << ' ' << qPrintable(row.red) << ' ' << row.second;
    }
}

TEST_F(Recording, WhatIsTypedIntoSomethingThatIsGoneIsRefusedInWords)
{
    insert(u"tblServices"_s, {{u"ServiceID"_s, 7}, {u"CrewID"_s, crew1}});
    const QString order = u"Work order 4711 is open no longer"_s;
    const QTime noon(12, 0);
    const parts::Chosen part{u"P1"_s, 1, 1, 0};
    const QString service = u"This service stands on no open work order any more"_s;
    const std::pair<std::function<bool()>, QString> writes[] = {
        {[] { return UpdateWorkorder(4711, QDate(2024, 3, 12)); }, order},
        {[] { return skipAll(4711, u"Rain"_s); }, order},
        {[] { return AddServiceRecord({7}, 4711, 1, ServiceSource::Catalogue, false); }, order},
        {[] { return UpdateWorkorderService(4711, u"CountValue"_s, 777); }, service},
        {[] { return completeService(4711); }, service},
        {[] { return skipService(4711, u"Rain"_s); }, service},
        {[this] { return changeCrew(4711, crew1).has_value(); }, service},
        {[] { return updateNote(4711, u"Rain"_s); }, service},
        {[=] {
             return saveTimes(4711, TimesOf::OpenOrder, {noon, noon, noon});
         },
         service},
        {[=] { return AddPartRecord({part}, 4711, false); }, service},
        {[this] { return UpdateWorkorderPart(u"P9"_s, services[0], u"Price"_s, 1); },
         u"Part \"P9\" has been removed"_s},
        {[] { return updateScheduleNote(4711, u"Rain"_s); },
         u"This service has been removed from its machine"_s},
    };
    const QString before = everything();
    for (const auto &[write, sentence] : writes) {
        EXPECT_TRUE(refusalOf(write).startsWith(sentence)) << qPrintable(sentence);
        EXPECT_EQ(everything(), before) << qPrintable(sentence);
        EXPECT_FALSE(gbInTransaction);
    }
}

TEST_F(Recording, WhatHasChangedSinceItWasShownIsNotOverwritten)
{
    const auto id = services[0];
    ASSERT_TRUE(UpdateWorkorderService(id, u"CountValue"_s, 500, QVariant()));
    ASSERT_TRUE(UpdateWorkorderService(id, u"CountValue"_s, 510, 500));
    ASSERT_TRUE(UpdateWorkorderService(id, u"CountValue"_s, 510, 7)) << "already so";
    ASSERT_TRUE(UpdateWorkorder(number, QDate(2024, 3, 12), true, QVariant()));
    const std::function<bool()> stale[] = {
        [&] { return UpdateWorkorderService(id, u"CountValue"_s, 520, 500); },
        [&] { return changeCrew(id, crew2, crew2 + 1).has_value(); },
        [&] { return UpdateWorkorderPart(u"P1"_s, id, u"QuantityUsed"_s, 5, 1.0); },
        [&] { return updateNote(id, u"mine"_s, u"old"_s); },
        [&] { return UpdateWorkorder(number, QDate(2024, 3, 13), true, QVariant()); },
    };
    const QString before = everything();
    for (const auto &write : stale) {
        try {
            const base::Whole whole;
            EXPECT_FALSE(write());
            ADD_FAILURE() << "overwritten";
        } catch (const record::Conflict &conflict) {
            EXPECT_EQ(conflict.differences().size(), 1u);
        }
        EXPECT_EQ(everything(), before);
    }
    EXPECT_TRUE(updateNote(id, u"mine"_s, u"note 0"_s));
}

TEST_F(Recording, WhatAnotherWorkstationHoldsIsNamed)
{
    const auto second = database.open();
    second->BeginTrans();
    second->Execute(u"Update tblWoServiceUsed set [Note] = 'theirs' where NServiceUsedID = ?"_s,
                    {services[1]});
    EXPECT_EQ(
        refusalOf([this] { return UpdateWorkorder(number, QDate(2024, 3, 12)); }),
        u"Another workstation is changing work order %1 of machine M1 - Mower M1. Nothing was "
        "stored. Please try again in a moment."_s.arg(number));
    second->RollbackTrans();
    EXPECT_EQ(completion(), u"0|"_s);
}

TEST_F(Recording, EachStepIsWrittenAsAWholeOrNotAtAllAndAChangedServiceReopensItsOrder)
{
    const QList<parts::Chosen> parts{{u"A"_s, 1, 1, 0}, {u"B"_s, 1, 1, 0}};
    const std::pair<std::function<bool()>, QString> steps[] = {
        {[&] { return completeService(services[2]); }, u"C-U C-U C-U"_s},
        {[&] { return completeService(services[0], false); }, u"--- C-U C-U"_s},
        {[&] { return skipService(services[1], u"Rain"_s); }, u"C-U -S- C-U"_s},
        {[&] { return UpdateWorkorder(number, QDate(2024, 3, 14)); }, {}},
        {[&] { return skipAll(number, u"Rain"_s); }, {}},
        {[&] { return AddPartRecord(parts, services[0], false); }, {}},
        {[&] { return DeleteServiceRecord(services[0]); }, {}},
    };
    for (const auto &[step, reopened] : steps) {
        ASSERT_TRUE(UpdateWorkorder(number, QDate(2024, 3, 12)));
        EXPECT_GE(failAtEachStatement(step), reopened.isEmpty() ? 2 : 3);
        EXPECT_EQ(completion().startsWith(u"0|"), !reopened.isEmpty());
        if (!reopened.isEmpty()) {
            EXPECT_EQ(states().join(u' '), reopened);
        }
    }
}

TEST(WorkSpan, ANightsWorkGoesOnIntoTheMorning)
{
    const QTime none(0, 0);
    const struct
    {
        QTime start, end;
        bool given;
        QTime endAfter, hours;
    } rows[] = {
        {{8, 0}, {9, 30}, true, {9, 30}, {1, 30}},
        {{22, 0}, {2, 0}, false, {2, 0}, {4, 0}},
        {{22, 0}, none, true, none, {2, 0}},
        {{22, 0}, none, false, {22, 0}, none}, // it still has to be entered
        {{20, 0}, {8, 0}, true, {8, 0}, {12, 0}},
        {{20, 0}, {8, 1}, true, {20, 0}, none}, // no night is that long
        {{8, 0}, {8, 0}, true, {8, 0}, none},
    };
    for (const auto &row : rows) {
        const WorkSpan span = workSpan(row.start, row.end, row.given);
        EXPECT_EQ(span.end, row.endAfter) << qPrintable(row.start.toString());
        EXPECT_EQ(span.hours, row.hours) << qPrintable(row.start.toString());
    }
}
