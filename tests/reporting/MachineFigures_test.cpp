#include "core/CompanySession.h"
#include "platform/db/DbError.h"
#include "reporting/FilterRequests.h"
#include "reporting/PrintedLines.h"
#include "reporting/SampleReports.h"
#include "support/Raised.h"

#include <QMap>

namespace {

using namespace Qt::StringLiterals;
using namespace filters;
using test::dollars;
using test::grouped;
using test::hours;
using test::printed;

void expectLines(const QStringList &lines, const QStringList &expected)
{
    for (const QString &line : expected)
        EXPECT_TRUE(lines.contains(line))
            << qPrintable(line + u"\nis not among\n"_s + lines.join(u'\n'));
}

/// A line that begins and ends so; between stands what isn't worked out here.
void expectLine(const QStringList &lines, const QString &begin, const QStringList &end)
{
    const QString ending = u'|' + end.join(u'|');
    EXPECT_TRUE(std::ranges::any_of(lines, [&](const QString &line) {
        return line.startsWith(begin) && line.endsWith(ending);
    })) << qPrintable(begin + u".."_s + ending);
}

/// What a meter rose by in a day, and how much of the day that is.
QStringList use(double perDay)
{
    return {grouped(perDay, 2), grouped(perDay / 24 * 100, 1) + u'%'};
}

QString day(const QDateTime &date)
{
    return date.toString(u"MM/dd/yyyy");
}

/// The machines' unit numbers and names, as they are printed.
QMap<qint64, QString> machines()
{
    QMap<qint64, QString> all;
    for (const db::Row row :
         gcnData->Open(u"Select EquipmentID, UnitNo, EquipmentName, Inactive from tblEquipment"_s))
        all.insert(row.integer(u"EquipmentID"),
                   row.text(u"UnitNo") + u'|' + row.text(u"EquipmentName") +
                       (row.integer(u"Inactive") != 0 ? u" (inactive)"_s : QString()));
    return all;
}

struct Reading
{
    QDateTime date;
    double value;
};

/// The readings of each machine, of one meter or of all.
QMap<qint64, QList<Reading>> readings(const QString &meter = {})
{
    QMap<qint64, QList<Reading>> all;
    for (const db::Row row : gcnData->Open(
             u"Select EquipmentID, ChangeDate, CountType, CountValue from tblEquipmentCount"_s))
        if (meter.isEmpty() || row.text(u"CountType") == meter)
            all[row.integer(u"EquipmentID")].append(
                {row.date(u"ChangeDate"), row.real(u"CountValue")});
    return all;
}

/// The figures of the sample company's reports, worked out by loops over its tables.
class MachineFiguresOfTheSample : public test::SampleReports
{
protected:
    const DateRange year{test::SampleCompany::today().addYears(-1), test::SampleCompany::today()};
    [[nodiscard]] bool isAsked(const Reading &reading) const
    {
        return reading.date.date() >= year.from && reading.date.date() <= year.to;
    }
};

TEST_F(MachineFiguresOfTheSample, ExpensesAreTheCostOfEachServiceAndOfAllItsParts)
{
    struct Expense
    {
        base::Money labor;
        double parts = 0;
        qint64 minutes = 0;
    };
    QMap<qint64, double> partsOfService;
    for (const db::Row row :
         gcnData->Open(u"Select ServiceusedID, Price, QuantityUsed from tblWoPartHistory"_s))
        partsOfService[row.integer(u"ServiceusedID")] +=
            row.real(u"Price") * row.real(u"QuantityUsed");
    QMap<qint64, Expense> expenses;
    for (const db::Row row : gcnData->Open(u"Select EquipmentID, ServiceUsedID, CostEstimate, "
                                           "Workhrs from tblWOServiceUsedHistory"_s)) {
        Expense &expense = expenses[row.integer(u"EquipmentID")];
        expense.labor += base::Money(row.real(u"CostEstimate"));
        expense.parts += partsOfService.value(row.integer(u"ServiceUsedID"));
        expense.minutes += test::minutesOf(row.text(u"Workhrs"));
    }

    const auto line = [](const QString &begin, const Expense &expense) {
        const base::Money parts = base::Money(expense.parts).cents();
        return QStringList{begin, hours(expense.minutes), dollars(expense.labor), dollars(parts),
                           dollars(expense.labor + parts)}
            .join(u'|');
    };
    const QMap<qint64, QString> known = machines();
    Expense all;
    QStringList expected;
    for (auto [id, expense] : expenses.asKeyValueRange()) {
        expense.labor = expense.labor.cents();
        expected.append(line(known[id], expense));
        all.labor += expense.labor;
        all.parts += base::Money(expense.parts).cents().toDouble();
        all.minutes += expense.minutes;
    }
    expected.append(line(u"All machines: %1"_s.arg(expenses.size()), all));
    EXPECT_GT(expenses.size(), 70);
    expectLines(printed(equipmentExpenseRequest({.inactive = true})), expected);
}

TEST_F(MachineFiguresOfTheSample, UtilizationIsWhatTheHoursRoseByOverTheDaysBetween)
{
    const QStringList lines = printed(request(Utilization{.read = year}));
    const QMap<qint64, QString> known = machines();
    qint64 total = 0;
    double perDayOfAll = 0;
    int counted = 0;
    for (auto [id, all] : readings(u"Hours"_s).asKeyValueRange()) {
        all.removeIf([&](const Reading &reading) { return !isAsked(reading); });
        if (all.isEmpty())
            continue;
        const auto [least, most] = std::ranges::minmax(all, {}, &Reading::value);
        const auto [first, last] = std::ranges::minmax(all, {}, &Reading::date);
        const double run = static_cast<double>(most.value - least.value);
        const qint64 days = first.date.daysTo(last.date);
        const double perDay = days == 0 ? 0 : run / static_cast<double>(days);
        // The crew stands between the name and the figures.
        expectLine(lines, known[id],
                   QStringList{grouped(run), QString::number(days)} + use(perDay));
        total += most.value - least.value;
        perDayOfAll += perDay;
        ++counted;
    }
    EXPECT_GT(counted, 30);
    const QStringList sums =
        QStringList{u"All machines: %1"_s.arg(counted), grouped(static_cast<double>(total))} +
        use(perDayOfAll / counted);
    expectLines(lines, {sums.join(u'|'), rangeLabel(year)});
}

TEST_F(MachineFiguresOfTheSample, AMachinesReadingsAreComparedWithTheOnesBefore)
{
    const QMap<qint64, QList<Reading>> all = readings();
    const auto machine = std::ranges::max_element(all, {}, &QList<Reading>::size);
    QList<Reading> own = *machine;
    std::ranges::sort(own, {}, &Reading::date);
    double used = 0;
    int asked = 0;
    QStringList expected;
    for (qsizetype at = 1; at < own.size(); ++at) {
        if (!isAsked(own[at]))
            continue;
        const Reading &before = own[at - 1];
        const double days = static_cast<double>(before.date.daysTo(own[at].date));
        const double change = own[at].value - before.value;
        expected.append(
            (QStringList{day(own[at].date), u"Hours"_s, grouped(own[at].value), day(before.date),
                         grouped(before.value), grouped(days), grouped(change)} +
             use(change / days))
                .join(u'|'));
        used += change;
        ++asked;
    }
    EXPECT_GT(asked, 50);
    expected.append(u"%1 readings|%2"_s.arg(asked).arg(grouped(used)));
    expected.append(u"Over the 366 days asked for: "_s +
                    use(used / 366).join(u" a day, utilized "));
    const QString unit = machines().value(machine.key()).section(u'|', 0, 0);
    expectLines(printed(request(SingleUtilization{.read = year, .units = unit})), expected);
}

TEST_F(MachineFiguresOfTheSample, EachMeterStandsAtItsHighestReading)
{
    const QMap<qint64, QString> known = machines();
    const QStringList lines =
        printed(request(EquipmentList{.version = ListVersion::Six, .inactive = true}));
    int meters = 0;
    for (const db::Row type :
         gcnData->Open(u"Select distinct CountType from tblEquipmentCount"_s)) {
        const QString meter = type.text(u"CountType");
        for (const auto &[id, all] : readings(meter).asKeyValueRange()) {
            const auto last = std::ranges::max_element(all, {}, &Reading::date);
            const auto highest = std::ranges::max_element(all, {}, &Reading::value);
            expectLine(lines, known[id], {meter, day(last->date), grouped(highest->value)});
            ++meters;
        }
    }
    EXPECT_GT(meters, 50);
    expectLines(lines, {u"Total: %1 meters"_s.arg(meters)});
}

/// A company small enough to be worked out by hand.
class MachineFiguresByHand : public test::CompanySession
{
protected:
    MachineFiguresByHand()
    {
        reportfiles::installDelivered(base::environment().applicationFolder);
        const qint64 mowers =
            insert(u"tblIndicator"_s, {{u"ItemName"_s, u"Mowers"_s}}, u"ItemID"_s);
        const QString columns = u"EquipmentID,UnitNo,EquipmentName,EquipmentType,Inactive"_s;
        insert(u"tblEquipment"_s, columns, {1, u"A-1"_s, u"Mower A-1"_s, mowers, 0});
        insert(u"tblEquipment"_s, columns, {2, u"B-2"_s, u"Mower B-2"_s, 0, 1});
        insert(u"tblEquipment"_s, columns, {3, u"C-3"_s, u"Mower C-3"_s, mowers, 0});
    }

    static void addService(int id, int order, int machine, double cost, const QString &worked)
    {
        insert(u"tblWOServiceUsedHistory"_s,
               u"ServiceUsedID,WorkorderNo,EquipmentID,CostEstimate,Workhrs"_s,
               {id, order, machine, cost, worked});
    }
    static void addPart(int service, const QString &part, double price, double quantity)
    {
        insert(u"tblWoPartHistory"_s, u"ServiceusedID,partID,Price,QuantityUsed"_s,
               {service, part, price, quantity});
    }
    static void addReading(int machine, const QString &meter, QDate date, int value)
    {
        insert(u"tblEquipmentCount"_s, u"EquipmentID,CountType,ChangeDate,CountValue"_s,
               {machine, meter, base::wallClock(date), value});
    }
    static catalogue::Request single(const QString &unit)
    {
        return request(SingleUtilization{.read = {{2024, 1, 1}, {2024, 3, 1}}, .units = unit});
    }
};

TEST_F(MachineFiguresByHand, AServiceCostsOnceHoweverManyPartsItHas)
{
    addService(501, 70, 1, 30, u"1:30"_s);
    addPart(501, u"OIL"_s, 10.10, 2);
    addPart(501, u"NUT"_s, 0.333, 1);
    addPart(501, u"BELT"_s, 5, 3);
    addService(502, 71, 1, 12.505, u"0:45"_s);
    addPart(502, u"OIL"_s, 10.10, 1);
    addService(503, 71, 2, 100, u"10:00"_s);
    addService(504, 72, 99, 1000, u"8:00"_s); // of a machine that is gone
    const QString first = u"A-1|Mower A-1|2:15|$42.51|$45.63|$88.14"_s;
    expectLines(printed(equipmentExpenseRequest({.inactive = true})),
                {first, u"Mowers: 1 machine|2:15|$42.51|$45.63|$88.14"_s,
                 u"B-2|Mower B-2 (inactive)|10:00|$100.00|$0.00|$100.00"_s,
                 u"No type: 1 machine|10:00|$100.00|$0.00|$100.00"_s,
                 u"All machines: 2|12:15|$142.51|$45.63|$188.14"_s});
    expectLines(printed(equipmentExpenseRequest({})),
                {first, u"All machines: 1|2:15|$42.51|$45.63|$88.14"_s});
}

TEST_F(MachineFiguresByHand, UtilizationGoesByTheHoursMeterAlone)
{
    addReading(1, u"Hours"_s, {2024, 1, 1}, 100);
    addReading(1, u"Hours"_s, {2024, 1, 11}, 160);
    addReading(1, u"Hours"_s, {2024, 1, 21}, 150);
    addReading(1, u"Miles"_s, {2024, 1, 31}, 9000);
    addReading(2, u"Hours"_s, {2024, 1, 5}, 7);
    addReading(3, u"Miles"_s, {2024, 1, 5}, 7);
    expectLines(printed(request(Utilization{.read = {{2024, 1, 1}, {2024, 3, 1}}})),
                {u"A-1|Mower A-1|60|20|3.00|12.5%"_s, u"B-2|Mower B-2 (inactive)|0|0|0.00|0.0%"_s,
                 u"Mowers: 1 machine|60|3.00|12.5%"_s, u"All machines: 2|60|1.50|6.3%"_s,
                 u"01/01/2024 - 03/01/2024"_s});
    const QStringList meters =
        printed(request(EquipmentList{.version = ListVersion::Six, .inactive = true}));
    expectLines(meters, {u"A-1|Mower A-1|Hours|01/21/2024|160"_s,
                         u"Mower A-1|Miles|01/31/2024|9,000"_s, u"Total: 4 meters"_s});
}

TEST_F(MachineFiguresByHand, ASingleMachineIsFollowedFromReadingToReading)
{
    addReading(3, u"Hours"_s, {2023, 12, 22}, 4);
    addReading(3, u"Hours"_s, {2024, 1, 1}, 10);
    addReading(3, u"Hours"_s, {2024, 1, 3}, 22);
    addReading(3, u"Hours"_s, {2024, 1, 13}, 52);
    expectLines(printed(single(u"C-3"_s)),
                {u"01/01/2024|Hours|10|12/22/2023|4|10|6|0.60|2.5%"_s,
                 u"01/03/2024|Hours|22|01/01/2024|10|2|12|6.00|25.0%"_s,
                 u"01/13/2024|Hours|52|01/03/2024|22|10|30|3.00|12.5%"_s, u"3 readings|48"_s,
                 u"Over the 60 days asked for: 0.80 a day, utilized 3.3%"_s});
}

/// The reading before is looked for among all meters of the machine.
TEST_F(MachineFiguresByHand, TwoMetersOfASingleMachineAreMixed)
{
    addReading(1, u"Hours"_s, {2024, 1, 1}, 100);
    addReading(1, u"Miles"_s, {2024, 1, 3}, 9000);
    addReading(1, u"Hours"_s, {2024, 1, 11}, 160);
    expectLines(printed(single(u"A-1"_s)),
                {u"01/01/2024|Hours|100"_s,
                 u"01/03/2024|Miles|9,000|01/01/2024|160|2|8,840|4420.00|18416.7%"_s,
                 u"01/11/2024|Hours|160|01/03/2024|100|8|60|7.50|31.3%"_s});

    addReading(3, u"Hours"_s, {2024, 1, 1}, 10);
    addReading(3, u"Hours"_s, {2024, 1, 1}, 12);
    EXPECT_EQ(test::raisedBy<db::DbError>([] { printed(single(u"C-3"_s)); }).number(),
              db::ErrorNumber::DivisionByZero);
}

} // namespace
