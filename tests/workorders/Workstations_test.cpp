#include "workorders/Generation.h"
#include "workorders/Posting.h"
#include "workorders/Workshop.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSet>

#include <array>
#include <gmock/gmock.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Two workstations at one file, in one process: the second steps in between two statements of the
/// first, with a connection of its own in gcnData's place.
class Workstations : public test::Workshop
{
protected:
    Workstations()
        : m_second(database.open())
    {}

    /// Runs a procedure, and within it, before the given statement, another one from the second
    /// workstation. False when the first has no such statement, so that the second never ran.
    template<class First, class Second>
    bool interleaved(int before, First &&first, Second &&second)
    {
        int running = 0;
        gcnData->setObserver([&](const db::Sent &) {
            if (++running == before)
                fromSecond(second);
        });
        first();
        gcnData->setObserver({});
        return running >= before;
    }
    template<class Second>
    void fromSecond(Second &&second)
    {
        // The other program's procedures are no steps of the first one's.
        const base::Interlude itsOwn;
        const bool inTransaction = std::exchange(gbInTransaction, false);
        std::swap(gcnData, m_second);
        second();
        std::swap(gcnData, m_second);
        gbInTransaction = inTransaction;
    }

    std::unique_ptr<db::Connection> m_second;
};

} // namespace

TEST_F(Workstations, GeneratingAtOnceDoublesNoService)
{
    const WorkorderFilter filter{QDate(2024, 2, 14), QDate(2024, 3, 15), {}, {}};
    for (int i = 0; i < 3; ++i)
        service({{u"SeparateWo"_s, i == 0 ? 1 : 0}});
    QStringList told;
    int before = 1;
    for (;; ++before) {
        bool first = false;
        bool second = false;
        QList<qint64> made;
        if (!interleaved(
                before, [&] { first = generation::GenerateWorkorder(filter, {1}, made); },
                [&] { second = generation::GenerateWorkorder(filter, {1}, made); }))
            break;
        EXPECT_TRUE(first || second) << "before statement " << before;
        const std::vector<ErrorReport> reports = errors.take();
        EXPECT_EQ(reports.size(), (first && second) ? 0u : 1u);
        for (const ErrorReport &report : reports)
            told.append(report.ErrDescription);
        EXPECT_EQ(count(u"tblWoServiceUsed"_s), 3) << "before statement " << before;
        EXPECT_EQ(count(u"tblWorkorder"_s), 2) << "before statement " << before;
        EXPECT_EQ(made.size(), 2);
        gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
        gcnData->Execute(u"Delete from tblWorkorder"_s);
    }
    EXPECT_GT(before, 5);
    told.removeDuplicates();
    EXPECT_EQ(told, QStringList{u"Another workstation has just generated work orders for services "
                                "of machine M1 - Mower M1. Press Refresh to see them."_s});
}

TEST_F(Workstations, PostingOneOrderAtOncePostsItOnce)
{
    const qint64 id =
        service({{u"Period"_s, u"H"_s}, {u"RenewalOn"_s, u"S"_s}, {u"EInterval"_s, 100}});
    part(u"P1"_s, 100);
    double stock = 100;
    qint64 target = 0;
    int before = 1;
    for (;; ++before) {
        const qint64 number = order({{u"Complete"_s, true}, {u"CompletedDate"_s, day(3, 12)}});
        const qint64 line = orderService(number, {{u"ServiceUsedID"_s, id},
                                                  {u"Period"_s, u"H"_s},
                                                  {u"CountValue"_s, 7},
                                                  {u"Completed"_s, true}});
        orderPart(line, u"P1"_s, 1, true);
        bool first = false;
        bool second = false;
        QList<qint64> orders{number};
        QList<qint64> theirs{number};
        if (!interleaved(
                before, [&] { first = posting::PostWorkOrder(orders); },
                [&] { second = posting::PostWorkOrder(theirs); }))
            break;
        EXPECT_TRUE(first || second) << "before statement " << before;
        EXPECT_EQ(errors.take().size(), (first && second) ? 0u : 1u);
        EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s, u"ServiceUsedID = %1"_s.arg(line)), 1)
            << "before statement " << before;
        EXPECT_EQ(count(u"tblEquipmentCount"_s), before);
        EXPECT_EQ(value(u"Select NextScheduledCount from tblServiceUsed"_s).toLongLong(),
                  target += 100);
        EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), stock -= 1);
        EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s), 0);
    }
    EXPECT_GT(before, 12);
}

TEST_F(Workstations, PostingTwoOrdersWithOnePartTakesBothFromTheStock)
{
    part(u"P1"_s, 100);
    const QDate completed(2024, 3, 12);
    QSet<QString> told;
    double stock = 100;
    int before = 1;
    for (;; ++before) {
        QList<qint64> orders[2];
        for (QList<qint64> &each : orders) {
            each = {order({{u"Complete"_s, true}, {u"CompletedDate"_s, day(3, 12)}})};
            orderPart(orderService(each[0], {{u"Completed"_s, true}}), u"P1"_s, 1, true);
        }
        bool first = false;
        bool second = false;
        if (!interleaved(
                before, [&] { first = posting::PostWorkOrder(orders[0], {}, completed); },
                [&] { second = posting::PostWorkOrder(orders[1], {}, completed); }))
            break;
        // Each clears the other's mark; what each has posted has a date all the same.
        const int posted = (first ? 1 : 0) + (second ? 1 : 0);
        EXPECT_GE(posted, 1);
        const std::vector<ErrorReport> reports = errors.take();
        EXPECT_EQ(reports.size(), static_cast<std::size_t>(2 - posted));
        for (const ErrorReport &report : reports)
            told.insert(QString(report.ErrDescription).remove(QString::number(orders[1][0])));
        EXPECT_EQ(count(u"tblWorkorder"_s), 2 - posted) << "before statement " << before;
        EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), stock -= posted)
            << "before statement " << before;
        EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s, u"CompleteDate = #03/12/2024#"_s),
                  100 - stock);
        gcnData->Execute(u"Delete from tblWoPartUsed"_s);
        gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
        gcnData->Execute(u"Delete from tblWorkorder"_s);
    }
    EXPECT_GT(before, 8);
    EXPECT_EQ(told,
              QSet<QString>{u"Work order  of machine M1 - Mower M1 can't be posted now: another "
                            "workstation is changing the schedule or a part of its service "
                            "\"Oil change\". Please try again in a moment."_s})
        << QStringList(told.values()).join(u'\n').toStdString();
}

TEST_F(Workstations, TwoProgramsPostEveryServiceOnce)
{
    constexpr int machines = 8;
    part(u"P1"_s, 1000);
    for (int id = 2; id <= machines; ++id)
        machine(id, u"M%1"_s.arg(id));
    for (int id = 1; id <= machines; ++id) {
        servicePart(service({{u"EquipmentID"_s, id}}), u"P1"_s, 2);
        servicePart(service({{u"EquipmentID"_s, id}, {u"SeparateWo"_s, 1}}), u"P1"_s, 3);
        service({{u"EquipmentID"_s, id},
                 {u"CrewID"_s, crew2},
                 {u"Period"_s, u"H"_s},
                 {u"RenewalOn"_s, u"S"_s},
                 {u"EInterval"_s, 100}});
    }
    std::array<QProcess, 2> programs;
    for (QProcess &program : programs) {
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QCoreApplication::applicationDirPath() + u"/test_workorders_workstation"_s,
                      {database.file()});
        ASSERT_TRUE(program.waitForReadyRead(20'000));
        ASSERT_EQ(program.readLine(), "ready\n");
    }
    for (QProcess &program : programs)
        program.write("\n");
    int orders = 0;
    for (QProcess &program : programs) {
        ASSERT_TRUE(program.waitForFinished(40'000));
        EXPECT_EQ(program.exitCode(), 0);
        orders += program.readAll().trimmed().toInt();
    }

    EXPECT_EQ(orders, machines * 3);
    EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s) + count(u"tblWoPartUsed"_s),
              0);
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), machines * 3);
    EXPECT_EQ(value(u"Select Count(*) from (Select distinct WorkorderNo from "
                    "tblWOServiceUsedHistory)"_s),
              machines * 3);
    EXPECT_EQ(count(u"tblWoPartHistory"_s), machines * 2);
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s), 1000.0 - machines * 5);
    EXPECT_EQ(count(u"tblEquipmentCount"_s), machines);
    EXPECT_EQ(count(u"tblServiceUsed"_s, u"NextScheduledDate = #03/25/2024#"_s), machines * 2);
}
