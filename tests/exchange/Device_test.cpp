#include "device/Device.h"
#include "exchange/Export.h"
#include "exchange/Handheld.h"
#include "exchange/Import.h"

#include <algorithm>

/// What a device has done in the field is what the office then finds, and nothing else has changed.
namespace {

using namespace Qt::StringLiterals;
using device::Deed;
using device::Row;

using Rows = QList<Row>;
using State = QMap<QString, Rows>;

const QStringList Tables{
    u"tblWorkorder"_s,      u"tblWoServiceUsed"_s, u"tblWoPartUsed"_s,
    u"tblEquipment"_s,      u"tblEquipmentScan"_s, u"tblEquipmentCrewHistory"_s,
    u"tblEquipmentCount"_s, u"tblPart"_s,          u"tblServiceUsed"_s,
    u"tblCrew"_s,           u"tblUser"_s,          u"tblSysOption"_s};

State stateNow()
{
    State state;
    for (const QString &table : Tables) {
        const db::Recordset rows = gcnData->Open(u"Select * from "_s + table);
        for (int at = 0; at < rows.RecordCount(); ++at) {
            Row row;
            for (int column = 0; column < rows.columnCount(); ++column)
                row.insert(rows.columnName(column).toLower(), base::toText(rows.value(at, column)));
            state[table].append(row);
        }
    }
    return state;
}

bool matches(const Row &row, const Row &wanted)
{
    return std::ranges::all_of(wanted.keys(), [&](const QString &column) {
        return row.value(column.toLower()) == wanted[column];
    });
}

/// The number of a row that the device has made.
QString numberOf(const QString &id)
{
    const db::Recordset rows = gcnData->Open(
        u"Select strno from tblWotemp where strname = ? and strid = ?"_s, {id.first(1), id});
    return rows.isEmpty() ? u"none"_s : rows.row(0).text(u"strno");
}

void apply(State &state, const Deed &deed, QList<std::pair<QString, Row>> &made)
{
    if (deed.kind == Deed::Kind::Make) {
        Row row = deed.values;
        if (!deed.id.isEmpty())
            row.insert(deed.table == u"tblWorkorder" ? u"WorkorderNo"_s : u"NServiceUsedID"_s,
                       u'@' + deed.id);
        made.append({deed.table, row});
        return;
    }
    for (Row &row : state[deed.table]) {
        if (!matches(row, deed.match))
            continue;
        for (const QString &column : deed.values.keys()) {
            QString &cell = row[column.toLower()];
            cell = deed.kind == Deed::Kind::Set
                       ? deed.values[column]
                       : base::toText(cell.toDouble() + deed.values[column].toDouble());
        }
    }
}

/// Expects the rows of the state, and beside them only those that were made.
void expectState(State expected, QList<std::pair<QString, Row>> made, const std::string &which)
{
    State now = stateNow();
    const auto take = [&](const QString &table, const Row &row) {
        Rows &rows = now[table];
        const auto found =
            std::ranges::find_if(rows, [&](const Row &each) { return matches(each, row); });
        ASSERT_NE(found, rows.end()) << which << ": " << table.toStdString() << " lacks "
                                     << QStringList(row.values()).join(u'|').toStdString();
        rows.erase(found);
    };
    for (const QString &table : Tables)
        for (const Row &row : std::as_const(expected[table]))
            take(table, row);
    for (auto &[table, row] : made) {
        for (QString &value : row) {
            if (value.startsWith(u'@'))
                value = numberOf(value.sliced(1));
        }
        take(table, row);
    }
    for (const QString &table : Tables)
        EXPECT_TRUE(now[table].isEmpty()) << which << ": more came into " << table.toStdString();
}

struct DeviceDays : test::Handheld, testing::WithParamInterface<int>
{
    DeviceDays()
    {
        SetOption(u"COUNT_READING_DELAY"_s, 1, false);
        part(u"P&1"_s, 10);
        part(u"it's \"one\""_s, 20);
        gcnData->Execute(u"Update tblPart set Price = 2.25"_s);
        for (int id = 2; id <= 4; ++id)
            machine(id, u"M%1"_s.arg(id), {{u"CrewID"_s, crew2}});
        // Meters with work that waits for more than a day can bring, one of them in the shop.
        for (int id = 1; id <= 4; ++id) {
            const QString type = id % 2 == 0 ? u"Hours"_s : u"Miles"_s;
            service({{u"EquipmentID"_s, id},
                     {u"Period"_s, id % 2 == 0 ? u"H"_s : u"I"_s},
                     {u"NextScheduledCount"_s, 1'000'000},
                     {u"NextScheduledDate"_s, QVariant()}});
            insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
                   {id, day(3, 1), type, 100});
        }
        orderService(order({{u"EquipmentID"_s, 4}}),
                     {{u"EquipmentID"_s, 4}, {u"Period"_s, u"H"_s}});
    }

    /// A day of two more orders, whose import is broken off once before it ends well.
    void liveThrough(quint64 seed)
    {
        const std::string which = "seed " + std::to_string(seed);
        const qint64 first = order({{u"EquipmentID"_s, 2}});
        orderService(first, {{u"EquipmentID"_s, 2}});
        orderService(first, {{u"EquipmentID"_s, 2}});
        orderService(order());
        const test::PatientUser user;
        bool failed = false;
        ASSERT_TRUE(exchange::GenrateXML(failed)) << which;
        device::Device device(test::readFile(exchange::exportedFile()), seed, base::today());
        device.work();
        const auto sent = device.files();
        for (const QString &name : sent.keys())
            test::writeFile(path(name), sent[name]);
        mark();
        const State before = stateNow();
        if (!sent.isEmpty()) {
            breakOff(seed, which);
            expectState(before, {}, which);
            for (const QString &name : sent.keys())
                ASSERT_EQ(test::readFile(path(name)), sent[name]) << which;
        }
        ASSERT_TRUE(exchange::Importdata()) << which << ": " << user.told.toStdString();
        State expected = before;
        QList<std::pair<QString, Row>> made;
        for (const Deed &deed : device.deeds())
            apply(expected, deed, made);
        expectState(expected, made, which);
        EXPECT_EQ(files(), QString()) << which;
    }

private:
    /// Lets the import fail at one of its commands.
    void breakOff(quint64 seed, const std::string &which)
    {
        EXPECT_FALSE(exchange::Importdata([&](int done, int all) {
            if (done == static_cast<int>(seed % static_cast<quint64>(all)))
                throw base::Error(5, u"broken"_s);
        })) << which;
        EXPECT_EQ(errors.takeOne().ErrDescription, u"broken") << which;
        EXPECT_FALSE(gbInTransaction) << which;
    }
};

TEST_P(DeviceDays, EndAsTheDeviceHasLivedThem)
{
    for (int day = 0; day < 25; ++day) {
        liveThrough(static_cast<quint64>(GetParam() * 25 + day));
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DeviceDays, testing::Range(0, 20));

} // namespace
