#include "core/CompanySession.h"
#include "platform/base/Decimal.h"
#include "platform/db/DbError.h"
#include "reporting/FilterRequests.h"
#include "reporting/PrintedLines.h"
#include "reporting/SampleReports.h"
#include "support/Raised.h"

#include <QLocale>
#include <QMap>

namespace {

using namespace Qt::StringLiterals;
using namespace filters;
using test::printed;

void expectLines(const QStringList &lines, const QStringList &expected)
{
    for (const QString &line : expected)
        EXPECT_TRUE(lines.contains(line))
            << qPrintable(line + u"\nis not among\n"_s + lines.join(u'\n'));
}

QString grouped(double value, int decimals)
{
    return QLocale(QLocale::English)
        .toString(base::roundedDecimals(value, decimals), 'f', decimals);
}

QString grouped(qint64 value)
{
    return QLocale(QLocale::English).toString(value);
}

QString money(const base::Money &amount)
{
    return u'$' + grouped(amount.toDouble(), 2);
}

QString hours(qint64 minutes)
{
    return u"%1:%2"_s.arg(minutes / 60).arg(minutes % 60, 2, 10, QChar(u'0'));
}

QString share(double value)
{
    return grouped(value * 100, 1) + u'%';
}

QString day(const QDateTime &date)
{
    return date.toString(u"MM/dd/yyyy");
}

struct Machine
{
    QString unit;
    QString name; ///< as it is printed
};

QMap<qint64, Machine> machines()
{
    QMap<qint64, Machine> all;
    for (const db::Row row :
         gcnData->Open(u"Select EquipmentID, UnitNo, EquipmentName, Inactive from tblEquipment"_s))
        all.insert(row.integer(u"EquipmentID"),
                   {row.text(u"UnitNo"),
                    row.text(u"EquipmentName") +
                        (row.integer(u"Inactive") != 0 ? u" (inactive)"_s : QString())});
    return all;
}

struct Reading
{
    QDateTime date;
    qint64 value;
};

/// The readings of each machine, of one meter or of all.
QMap<qint64, QList<Reading>> readings(const QString &meter = {})
{
    QMap<qint64, QList<Reading>> all;
    for (const db::Row row : gcnData->Open(
             u"Select EquipmentID, ChangeDate, CountType, CountValue from tblEquipmentCount"_s))
        if (meter.isEmpty() || row.text(u"CountType") == meter)
            all[row.integer(u"EquipmentID")].append(
                {row.date(u"ChangeDate"), row.integer(u"CountValue")});
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
        const QStringList worked = row.text(u"Workhrs").split(u':');
        expense.minutes += worked.value(0).toInt() * 60 + worked.value(1).toInt();
    }

    const QStringList lines = printed(equipmentExpenseRequest({.inactive = true}));
    const QMap<qint64, Machine> known = machines();
    base::Money labor;
    base::Money parts;
    qint64 minutes = 0;
    QStringList expected;
    for (const auto &[id, expense] : expenses.asKeyValueRange()) {
        const base::Money partCost = base::Money(expense.parts).cents();
        expected.append(QStringList{known[id].unit, known[id].name, hours(expense.minutes),
                                    money(expense.labor.cents()), money(partCost),
                                    money(expense.labor.cents() + partCost)}
                            .join(u'|'));
        labor += expense.labor.cents();
        parts += partCost;
        minutes += expense.minutes;
    }
    expected.append(QStringList{u"All machines: %1"_s.arg(expenses.size()), hours(minutes),
                                money(labor), money(parts), money(labor + parts)}
                        .join(u'|'));
    EXPECT_GT(expenses.size(), 70);
    expectLines(lines, expected);
}

TEST_F(MachineFiguresOfTheSample, UtilizationIsWhatTheHoursRoseByOverTheDaysBetween)
{
    const QMap<qint64, Machine> known = machines();
    qint64 total = 0;
    double perDayOfAll = 0;
    qsizetype counted = 0;
    QStringList expected;
    for (const auto &[id, all] : readings(u"Hours"_s).asKeyValueRange()) {
        QList<qint64> values;
        QList<QDateTime> dates;
        for (const Reading &reading : all)
            if (isAsked(reading)) {
                values.append(reading.value);
                dates.append(reading.date);
            }
        if (values.isEmpty())
            continue;
        const qint64 run = *std::ranges::max_element(values) - *std::ranges::min_element(values);
        const qint64 days =
            std::ranges::min_element(dates)->daysTo(*std::ranges::max_element(dates));
        const double perDay = days == 0 ? 0 : static_cast<double>(run) / static_cast<double>(days);
        expected.append(
            QStringList{grouped(run), QString::number(days), grouped(perDay, 2), share(perDay / 24)}
                .join(u'|')
                .prepend(known[id].unit + u'|' + known[id].name + u"|%1"_s));
        total += run;
        perDayOfAll += perDay;
        ++counted;
    }
    QStringList lines = printed(request(Utilization{.read = year}));
    // The crew stands between the name and the figures.
    for (const QString &line : std::as_const(expected)) {
        const QStringList ends = line.split(u"%1"_s);
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const QString &found) {
            return found.startsWith(ends[0]) && found.endsWith(ends[1]);
        })) << qPrintable(line);
    }
    const double average = perDayOfAll / static_cast<double>(counted);
    EXPECT_GT(counted, 30);
    expectLines(lines, {QStringList{u"All machines: %1"_s.arg(counted), grouped(total),
                                    grouped(average, 2), share(average / 24)}
                            .join(u'|'),
                        rangeLabel(year)});
}

TEST_F(MachineFiguresOfTheSample, AMachinesReadingsAreComparedWithTheOnesBefore)
{
    const QMap<qint64, QList<Reading>> all = readings();
    const auto machine = std::ranges::max_element(all, {}, &QList<Reading>::size);
    QList<Reading> own = *machine;
    std::ranges::sort(own, {}, &Reading::date);
    qint64 used = 0;
    qsizetype asked = 0;
    QStringList expected;
    for (qsizetype at = 1; at < own.size(); ++at) {
        if (!isAsked(own[at]))
            continue;
        const Reading &before = own[at - 1];
        const qint64 days = before.date.daysTo(own[at].date);
        const qint64 change = own[at].value - before.value;
        const double perDay = static_cast<double>(change) / static_cast<double>(days);
        expected.append(QStringList{day(own[at].date), u"Hours"_s, grouped(own[at].value),
                                    day(before.date), grouped(before.value), QString::number(days),
                                    grouped(change), grouped(perDay, 2), share(perDay / 24)}
                            .join(u'|'));
        used += change;
        ++asked;
    }
    EXPECT_GT(asked, 50);
    expected.append(u"%1 readings|%2"_s.arg(asked).arg(grouped(used)));
    expected.append(u"Over the 366 days asked for: %1 a day, utilized %2"_s.arg(
        grouped(static_cast<double>(used) / 366, 2), share(static_cast<double>(used) / 366 / 24)));
    const QString unit = machines().value(machine.key()).unit;
    expectLines(printed(request(SingleUtilization{.read = year, .units = unit})), expected);
}

TEST_F(MachineFiguresOfTheSample, EachMeterStandsAtItsHighestReading)
{
    const QMap<qint64, Machine> known = machines();
    const QStringList lines =
        printed(request(EquipmentList{.version = ListVersion::Six, .inactive = true}));
    qsizetype meters = 0;
    for (const db::Row type :
         gcnData->Open(u"Select distinct CountType from tblEquipmentCount"_s)) {
        const QString meter = type.text(u"CountType");
        for (const auto &[id, all] : readings(meter).asKeyValueRange()) {
            const auto last = std::ranges::max_element(all, {}, &Reading::date);
            const auto highest = std::ranges::max_element(all, {}, &Reading::value);
            const QString begin = known[id].unit + u'|' + known[id].name;
            const QString end =
                u'|' + QStringList{meter, day(last->date), grouped(highest->value)}.join(u'|');
            EXPECT_TRUE(std::ranges::any_of(lines, [&](const QString &found) {
                return found.startsWith(begin) && found.endsWith(end);
            })) << qPrintable(begin + end);
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
        addMachine(1, u"A-1"_s, 0, mowers);
        addMachine(2, u"B-2"_s, 1, 0);
        addMachine(3, u"C-3"_s, 0, mowers);
    }

    static void addMachine(int id, const QString &unit, int inactive, qint64 type)
    {
        insert(u"tblEquipment"_s, {{u"EquipmentID"_s, id},
                                   {u"UnitNo"_s, unit},
                                   {u"EquipmentName"_s, u"Mower "_s + unit},
                                   {u"EquipmentType"_s, type},
                                   {u"Inactive"_s, inactive}});
    }
    static void addService(int id, int order, int machine, double cost, const QString &worked)
    {
        insert(u"tblWOServiceUsedHistory"_s, {{u"ServiceUsedID"_s, id},
                                              {u"WorkorderNo"_s, order},
                                              {u"EquipmentID"_s, machine},
                                              {u"CostEstimate"_s, cost},
                                              {u"Workhrs"_s, worked}});
    }
    static void addPart(int service, const QString &part, double price, double quantity)
    {
        insert(u"tblWoPartHistory"_s, {{u"ServiceusedID"_s, service},
                                       {u"partID"_s, part},
                                       {u"Price"_s, price},
                                       {u"QuantityUsed"_s, quantity}});
    }
    static void addReading(int machine, const QString &meter, QDate date, int value)
    {
        insert(u"tblEquipmentCount"_s, {{u"EquipmentID"_s, machine},
                                        {u"CountType"_s, meter},
                                        {u"ChangeDate"_s, base::wallClock(date)},
                                        {u"CountValue"_s, value}});
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
