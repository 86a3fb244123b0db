#include "core/InTheWay.h"
#include "parts/Stock.h"
#include "workorders/Generation.h"
#include "workorders/Posting.h"
#include "workorders/Recording.h"
#include "workorders/Workshop.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include <array>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Two workstations at one file, in one process: the second steps in between two statements of the
/// first, with a connection of its own in gcnData's place.
struct Workstations : test::Workshop
{
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

    /// Runs the first's step again and again, with the second's step before its first statement,
    /// then before its second, and so on. At least one of them succeeds each time, and who doesn't
    /// is told why. Gives how many statements there were.
    int atEachStatement(const std::function<void()> &prepare, const std::function<bool()> &first,
                        const std::function<bool()> &second,
                        const std::function<void(int done)> &check)
    {
        for (int before = 1;; ++before) {
            SCOPED_TRACE(testing::Message() << "before statement " << before);
            prepare();
            int done = 0;
            if (!interleaved(
                    before, [&] { done += first() ? 1 : 0; }, [&] { done += second() ? 1 : 0; }))
                return before - 1;
            EXPECT_GE(done, 1);
            const std::vector<ErrorReport> reports = errors.take();
            EXPECT_EQ(reports.size(), static_cast<std::size_t>(2 - done));
            for (const ErrorReport &report : reports)
                m_told.insert(QString(report.ErrDescription)
                                  .remove(QRegularExpression(u"(?<=order )\\d+ "_s)));
            check(done);
        }
    }

    std::unique_ptr<db::Connection> m_second;
    QSet<QString> m_told; ///< without the numbers of orders
};

} // namespace

TEST_F(Workstations, GeneratingAtOnceDoublesNoService)
{
    for (int i = 0; i < 3; ++i)
        service({{u"SeparateWo"_s, i == 0 ? 1 : 0}});
    QList<qint64> made;
    const auto generate = [&] {
        return generation::GenerateWorkorder({QDate(2024, 2, 14), QDate(2024, 3, 15), {}, {}}, {1},
                                             made);
    };
    const int statements = atEachStatement([&] { made.clear(); }, generate, generate,
                                           [&](int) {
                                               EXPECT_EQ(count(u"tblWoServiceUsed"_s), 3);
                                               EXPECT_EQ(count(u"tblWorkorder"_s), 2);
                                               EXPECT_EQ(made.size(), 2);
                                               gcnData->Execute(u"Delete from tblWoServiceUsed"_s);
                                               gcnData->Execute(u"Delete from tblWorkorder"_s);
                                           });
    EXPECT_GE(statements, 5);
    EXPECT_EQ(m_told,
              QSet<QString>{u"Another workstation has just generated work orders for services "
                            "of machine M1 - Mower M1. Press Refresh to see them."_s});
}

TEST_F(Workstations, PostingOneOrderAtOncePostsItOnce)
{
    const qint64 id =
        service({{u"Period"_s, u"H"_s}, {u"RenewalOn"_s, u"S"_s}, {u"EInterval"_s, 100}});
    part(u"P1"_s, 100);
    qint64 number = 0;
    qint64 line = 0;
    qint64 target = 0;
    int rounds = 0;
    const auto prepare = [&] {
        number = completeOrder();
        line = orderService(number, {{u"ServiceUsedID"_s, id},
                                     {u"Period"_s, u"H"_s},
                                     {u"CountValue"_s, 7},
                                     {u"Completed"_s, true}});
        orderPart(line, u"P1"_s, 1, true);
    };
    const auto post = [&] {
        QList<qint64> orders{number};
        return posting::PostWorkOrder(orders);
    };
    const auto postAndChange = [&] {
        const bool done = post();
        try {
            // A change of the schedule is refused or kept.
            target += gcnData->Execute(
                u"Update tblServiceUsed set NextScheduledCount = NextScheduledCount + 1"_s);
        } catch (const db::DbError &error) {
            EXPECT_EQ(error.number(), db::ErrorNumber::LockConflict);
        }
        return done;
    };
    const int statements = atEachStatement(prepare, post, postAndChange, [&](int) {
        ++rounds;
        EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s, u"ServiceUsedID = %1"_s.arg(line)), 1);
        EXPECT_EQ(count(u"tblEquipmentCount"_s), rounds);
        EXPECT_EQ(ofService(id, u"NextScheduledCount"_s).toLongLong(), target += 100);
        EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), 100 - rounds);
        EXPECT_EQ(count(u"tblWorkorder"_s) + count(u"tblWoServiceUsed"_s), 0);
    });
    EXPECT_GE(statements, 12);
}

TEST_F(Workstations, PostingTwoOrdersWithOnePartTakesBothFromTheStock)
{
    part(u"P1"_s, 100);
    QList<qint64> orders[2];
    double stock = 100;
    const auto prepare = [&] {
        for (QList<qint64> &each : orders) {
            each = {completeOrder()};
            orderPart(orderService(each[0], {{u"Completed"_s, true}}), u"P1"_s, 1, true);
        }
    };
    const auto poster = [&](int which) {
        return [&orders, which] {
            return posting::PostWorkOrder(orders[which], {}, QDate(2024, 3, 12));
        };
    };
    // Each clears the other's mark; what each has posted has a date all the same.
    const int statements = atEachStatement(prepare, poster(0), poster(1), [&](int posted) {
        EXPECT_EQ(count(u"tblWorkorder"_s), 2 - posted);
        EXPECT_EQ(value(u"Select Quantity from tblPart"_s).toDouble(), stock -= posted);
        EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s, u"CompleteDate = #03/12/2024#"_s),
                  100 - stock);
        for (const QString &table : {u"tblWoPartUsed"_s, u"tblWoServiceUsed"_s, u"tblWorkorder"_s})
            gcnData->Execute(u"Delete from "_s + table);
    });
    EXPECT_GE(statements, 8);
    EXPECT_EQ(m_told,
              QSet<QString>{u"Work order of machine M1 - Mower M1 can't be posted now: another "
                            "workstation is changing the schedule or a part of its service "
                            "\"Oil change\". Please try again in a moment."_s});
}

/// Both do whatever comes to their minds, one of them in the middle of what the other is at. What
/// one of them was told is stored must be in history or on the order, and nothing hang loose.
TEST_F(Workstations, NoRandomWorkOfTwoIsLostOrDoneTwice)
{
    std::mt19937 random(20240315);
    const auto any = [&](int below) { return static_cast<int>(random() % unsigned(below)); };
    struct Line
    {
        qint64 order = 0;
        QString part;
        QSet<int> counts; ///< one of these was stored last
    };
    QMap<qint64, Line> lines;
    QMap<QString, double> stock;
    const auto addOrder = [&] {
        const qint64 number = order();
        for (int i = 0; i < 2; ++i) {
            const QString id = u"P%1"_s.arg(stock.size());
            part(id, 100);
            stock[id] = 100;
            const qint64 line = orderService(number, {{u"Period"_s, u"H"_s}, {u"CountValue"_s, 1}});
            orderPart(line, id, 2, false);
            lines[line] = {number, id, {1}};
        }
    };
    const auto open = [](const QString &column, const QString &table) {
        QList<qint64> keys;
        for (const QString &key : found(u"Select %1 from %2 order by %1"_s.arg(column, table))
                                      .split(u'\n', Qt::SkipEmptyParts))
            keys.append(key.toLongLong());
        return keys;
    };

    struct Act
    {
        int kind;
        qint64 order, line;
        int count;
        QList<qint64> orders;
        bool done = false;
    };
    constexpr int CheckIn = 3;
    constexpr int Delete = 5;
    const auto run = [&](Act &act) {
        const std::function<bool()> steps[] = {
            [&] { return recording::UpdateWorkorder(act.order, QDate(2024, 3, 12)); },
            [&] { return recording::UpdateWorkorderService(act.line, u"CountValue"_s, act.count); },
            [&] { return recording::completeService(act.line, act.count % 2 == 0); },
            [&] {
                try {
                    stock::checkIn({{lines[act.line].part, 5}});
                    return true;
                } catch (const InTheWay &) {
                    return false;
                }
            },
            [&] { return recording::skipService(act.line, u"Rain"_s); },
            [&] { return generation::deleteOrder(act.order); },
            [&] { return posting::PostWorkOrder(act.orders, {}, QDate(2024, 3, 14)); },
        };
        act.done = steps[qMin(act.kind, 6)]();
    };

    int posted = 0;
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        while (count(u"tblWorkorder"_s) < 4)
            addOrder();
        const QList<qint64> orders = open(u"WorkorderNo"_s, u"tblWorkorder"_s);
        const QList<qint64> services = open(u"NServiceUsedID"_s, u"tblWoServiceUsed"_s);
        const auto plan = [&] {
            const qint64 line = services.isEmpty() ? 0 : services[any(services.size())];
            return Act{any(20) == 0 ? Delete : any(10) % 9,
                       orders[any(orders.size())],
                       line,
                       1 + any(1000),
                       {orders[any(orders.size())], orders[any(orders.size())]}};
        };
        Act acts[2] = {plan(), plan()};
        // Mostly they meet at one order.
        if (any(3) != 0)
            for (const qint64 line : services)
                if (lines[line].order == acts[0].orders[0])
                    acts[1].line = line;
        if (!interleaved(
                1 + any(30), [&] { run(acts[0]); }, [&] { run(acts[1]); }))
            run(acts[1]);
        for (const Act &act : acts) {
            refused += act.done ? 0 : 1;
            if (act.done && act.kind == CheckIn)
                stock[lines[act.line].part] += 5;
        }
        for (int i = 0; i < 2; ++i)
            if (acts[i].done && acts[i].kind == 1)
                lines[acts[i].line].counts = {};
        for (const Act &act : acts)
            if (act.done && act.kind == 1)
                lines[act.line].counts.insert(act.count);
        (void)errors.take();

        for (const db::Row row : gcnData->Open(
                 u"Select tblWOServiceUsedHistory.ServiceUsedID, WorkorderNo, CountValue, "
                 "CompleteDate, PartID, QuantityUsed from tblWOServiceUsedHistory left join "
                 "tblWoPartHistory on tblWOServiceUsedHistory.ServiceUsedID = "
                 "tblWoPartHistory.ServiceusedID"_s)) {
            const qint64 id = row.integer(u"ServiceUsedID");
            ASSERT_TRUE(lines.contains(id)) << "posted twice in round " << round;
            const Line line = lines.take(id);
            EXPECT_EQ(row.integer(u"WorkorderNo"), line.order);
            EXPECT_TRUE(line.counts.contains(static_cast<int>(row.integer(u"CountValue"))))
                << "round " << round;
            EXPECT_EQ(row.date(u"CompleteDate"), day(3, 14));
            EXPECT_EQ(row.text(u"PartID"), line.part);
            stock[line.part] -= row.real(u"QuantityUsed");
            ++posted;
        }
        gcnData->Execute(u"Delete from tblWOServiceUsedHistory"_s);
        gcnData->Execute(u"Delete from tblWoPartHistory"_s);
        for (const db::Row row : gcnData->Open(u"Select PartID, Quantity from tblPart"_s))
            ASSERT_EQ(row.real(u"Quantity"), stock[row.text(u"PartID")]) << "round " << round;
        for (const auto &[table, loose] :
             {std::pair(u"tblWoServiceUsed"_s,
                        u"WorkorderNo not in (Select WorkorderNo from tblWorkorder)"_s),
              {u"tblWoPartUsed"_s,
               u"ServiceUsedID not in (Select NServiceUsedID from tblWoServiceUsed)"_s},
              {u"tblWorkorder"_s, u"Complete <> 0 and CompletedDate is Null"_s}})
            ASSERT_EQ(count(table, loose), 0) << "round " << round;
        ASSERT_FALSE(gbInTransaction);
    }
    EXPECT_GT(posted, 25);
    EXPECT_GT(refused, 20);
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
    for (const auto &[table, rows] : {std::pair(u"tblWorkorder"_s, 0),
                                      {u"tblWoServiceUsed"_s, 0},
                                      {u"tblWoPartUsed"_s, 0},
                                      {u"tblWOServiceUsedHistory"_s, machines * 3},
                                      {u"tblWoPartHistory"_s, machines * 2},
                                      {u"tblEquipmentCount"_s, machines}})
        EXPECT_EQ(count(table), rows) << qPrintable(table);
    EXPECT_EQ(value(u"Select Count(*) from (Select distinct WorkorderNo from "
                    "tblWOServiceUsedHistory)"_s),
              machines * 3);
    EXPECT_EQ(value(u"Select Quantity from tblPart"_s), 1000.0 - machines * 5);
    EXPECT_EQ(count(u"tblServiceUsed"_s, u"NextScheduledDate = #03/25/2024#"_s), machines * 2);
}
