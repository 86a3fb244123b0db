#include "administration/ImportTarget.h"

#include "core/FirstNumber.h"
#include "core/InTheWay.h"
#include "core/Labour.h"
#include "core/OpeningTable.h"
#include "core/Permission.h"
#include "core/Session.h"
#include "equipment/clsEquipment_Manager.h"
#include "organisation/clsEmployee.h"
#include "parts/clsPart.h"
#include "platform/base/Environment.h"
#include "scheduling/Readings.h"

#include <QSet>
#include <algorithm>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// The values of a column of which no two rows may hold the same.
class UniqueColumn
{
public:
    UniqueColumn(const ImportTable &table, QStringView column)
        : m_place(columnPlace(table, column))
        , m_heading(table.columns[static_cast<std::size_t>(m_place)].heading.toString())
        , m_query(u"Select %1 as [Value] from %2 where %1 is not null"_s.arg(
              column.toString(), table.table.toString()))
    {
        // Read once and looked up in memory: a statement for each row of a large file would take
        // minutes.
        for (const db::Row row : gcnData->Open(m_query))
            m_stored.insert(folded(row.text(u"Value")));
    }

    void check(qint64 row, const ImportRow &values, const Blame &blame)
    {
        const QString value = values[static_cast<std::size_t>(m_place)].toString();
        if (value.isEmpty())
            return;
        if (m_stored.contains(folded(value)))
            blame(m_place, u"\"%1\" exists already."_s.arg(value));
        else if (const auto found = m_rows.constFind(folded(value)); found != m_rows.constEnd())
            blame(m_place, u"\"%1\" stands in row %2 too."_s.arg(value).arg(*found));
        else
            m_rows.insert(folded(value), row);
    }

    /// Raises InTheWay when a value of the file stands in the table more than once by now.
    void demandStillUnique() const
    {
        QSet<QString> seen;
        // Behind all writes and ahead of the commit: not all of these columns are keys of the
        // database, which would refuse the second row by itself.
        for (const db::Row row : gcnData->Open(m_query)) {
            const QString value = folded(row.text(u"Value"));
            if (!m_rows.contains(value))
                continue;
            if (seen.contains(value))
                throw InTheWay(
                    u"%1 \"%2\" has been added on another workstation meanwhile. Nothing was imported."_s
                        .arg(m_heading, value));
            seen.insert(value);
        }
    }

private:
    // As the database compares: case and blanks at the ends don't count.
    static QString folded(const QString &value) { return value.trimmed().toUpper(); }

    int m_place;
    QString m_heading;
    QString m_query;
    QSet<QString> m_stored;
    QHash<QString, qint64> m_rows; ///< by the values of the file
};

/// The member of a record that holds a column.
template<class Record>
record::Member<Record> memberOf(QStringView column)
{
    const auto fields = Record::fields();
    return std::ranges::find(fields, column, &record::Field<Record>::column)->member;
}

/// Records of a table, each of which its manager stores.
template<class Record>
class RecordTarget : public ImportTarget
{
public:
    explicit RecordTarget(ImportKind kind)
        : m_table(importTable(kind))
        , m_key(m_table, m_table.key)
    {
        if (!m_table.serial.isEmpty())
            m_serial.emplace(m_table, m_table.serial);
        for (const ImportColumn &column : m_table.columns)
            m_members.push_back(memberOf<Record>(column.column));
    }

    void check(qint64 row, const ImportRow &values, const Blame &blame) override
    {
        m_key.check(row, values, blame);
        if (m_serial)
            m_serial->check(row, values, blame);
    }

    void write(const ImportRow &values) override
    {
        Record record = fresh();
        for (std::size_t i = 0; i < values.size(); ++i) {
            // A blank cell leaves what a new record has.
            if (values[i].isValid())
                record::setValue(record, m_members[i], values[i]);
        }
        try {
            store(record);
        } catch (const db::DbError &error) {
            // The file itself holds no number twice, which has been checked: it can only have come
            // from outside.
            if (error.number() == db::ErrorNumber::DuplicateKey ||
                error.number() == db::ErrorNumber::LockConflict)
                throw InTheWay(
                    u"A record with the number \"%1\" has been added on another workstation meanwhile. Nothing was imported."_s
                        .arg(values[static_cast<std::size_t>(columnPlace(m_table, m_table.key))]
                                 .toString()));
            throw;
        }
    }

    void finish() override
    {
        m_key.demandStillUnique();
        if (m_serial)
            m_serial->demandStillUnique();
    }

protected:
    /// A new record before the file's values go into it.
    virtual Record fresh() { return {}; }
    virtual void store(const Record &record) = 0;

private:
    const ImportTable &m_table;
    UniqueColumn m_key;
    std::optional<UniqueColumn> m_serial;
    std::vector<record::Member<Record>> m_members;
};

/// Below all numbers that the clock gives to machines which are entered by hand, so that none of
/// those is taken.
constexpr qint64 firstClockNumber = 101'000'000;

class MachineTarget final : public RecordTarget<clsEquipment>
{
public:
    explicit MachineTarget(const ImportNames &names)
        : RecordTarget(ImportKind::Machines)
        , m_names(names)
        , m_last(firstNumber(
              *gcnData, u"Select max(EquipmentID) from tblEquipment where EquipmentID < %1"_s.arg(
                            firstClockNumber)))
    {}

protected:
    clsEquipment fresh() override
    {
        clsEquipment machine;
        machine.EquipmentID = ++m_last;
        return machine;
    }

    void store(const clsEquipment &machine) override
    {
        (void)clsEquipment_Manager().SaveRecord(machine, Mode::Add);
        // The history says since when a crew has had a machine, and begins with its first one.
        if (machine.CrewID == 0)
            return;
        const auto [number, description] = m_names.crew(machine.CrewID);
        (void)ChangeCrew(machine.EquipmentID, number, description);
    }

private:
    const ImportNames &m_names;
    qint64 m_last;
};

class PartTarget final : public RecordTarget<clsPart>
{
public:
    PartTarget()
        : RecordTarget(ImportKind::Parts)
    {}

protected:
    clsPart fresh() override
    {
        clsPart part;
        // The columns are texts, and a blank one would be neither yes nor no.
        part.Inactive = part.TrackInventory = u"0"_s;
        return part;
    }
    void store(const clsPart &part) override { (void)clsPartManager().SaveRecord(part, Mode::Add); }
};

class EmployeeTarget final : public RecordTarget<clsEmployee>
{
public:
    EmployeeTarget()
        : RecordTarget(ImportKind::Employees)
    {}

protected:
    void store(const clsEmployee &employee) override
    {
        (void)clsEmployee_Manager().SaveRecord(employee, Mode::Add);
    }
};

/// Readings, by the rules of those that are entered one at a time.
class ReadingTarget final : public ImportTarget
{
public:
    void check(qint64, const ImportRow &values, const Blame &blame) override
    {
        const qint64 machine = values[Machine].toLongLong();
        const QDateTime date = values[Date].toDateTime();
        const QString meter = values[Meter].toString();
        const qint64 value = values[Value].toLongLong();
        // A service that such a reading makes due would be due before its day.
        if (date.date() > base::today()) {
            blame(Date, u"The date lies in the future."_s);
            return;
        }
        // The newest reading that is stored, and from then on the newest of the file: each row is
        // checked against all ahead of it.
        State &state = stateOf(machine, meter);
        if (state.isInProcess) {
            // The work order that is open takes its own reading when it is posted.
            blame(Meter, readings::inProcessMessage());
        } else if (state.newest.date.isValid() && date < state.newest.date) {
            blame(
                Date,
                u"There is a later reading of this meter. Older readings come first, in the file too."_s);
        } else if (state.newest.date.isValid() && value < state.newest.value) {
            blame(Value, u"The reading before it is higher: %1."_s.arg(state.newest.value));
        } else {
            state.newest = {date, value};
        }
    }

    void write(const ImportRow &values) override
    {
        const qint64 machine = values[Machine].toLongLong();
        readings::store(machine, values[Date].toDateTime(), values[Meter].toString(),
                        values[Value].toLongLong());
        m_machines.insert(machine);
    }

    void finish() override
    {
        for (const qint64 machine : std::as_const(m_machines))
            // Once for each machine, behind its last reading: what becomes due is the same, and the
            // work a fraction.
            readings::applyToServices(machine);
    }

private:
    /// The places of the columns.
    enum Place { Machine, Date, Meter, Value };
    struct State
    {
        readings::Reading newest;
        bool isInProcess = false;
    };

    State &stateOf(qint64 machine, const QString &meter)
    {
        const auto key = std::pair(machine, meter);
        auto found = m_states.find(key);
        if (found == m_states.end())
            found = m_states.insert(
                key, {readings::newest(machine, meter), readings::isInProcess(machine, meter)});
        return *found;
    }

    QHash<std::pair<qint64, QString>, State> m_states;
    QSet<qint64> m_machines;
};

} // namespace

void demandImportRight(ImportKind kind)
{
    switch (kind) {
    case ImportKind::Machines:
        rights::demand(rights::Machines.add);
        break;
    case ImportKind::Parts:
        rights::demand(rights::Parts.add);
        break;
    case ImportKind::Readings:
        // Readings have no right to be added by; who may open their screen may type them.
        rights::demand(openingOf(u"frmEquipmentReading")->right);
        break;
    case ImportKind::Employees:
        break;
    }
}

std::unique_ptr<ImportTarget> importTarget(ImportKind kind, ImportNames &names)
{
    switch (kind) {
    case ImportKind::Machines:
        return std::make_unique<MachineTarget>(names);
    case ImportKind::Parts:
        return std::make_unique<PartTarget>();
    case ImportKind::Employees:
        return std::make_unique<EmployeeTarget>();
    case ImportKind::Readings:
        break;
    }
    return std::make_unique<ReadingTarget>();
}

} // namespace administration
