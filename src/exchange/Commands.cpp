#include "exchange/Commands.h"

#include "core/Labour.h"
#include "core/Session.h"
#include "core/Told.h"
#include "exchange/Spliced.h"
#include "platform/base/Format.h"
#include "platform/db/DbError.h"
#include "scheduling/Readings.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace exchange::commands {
namespace {

using spliced::quoted;

QString quotedAt(const Command &command, int position)
{
    return quoted(command.at(position));
}

/// The handheld's ids and the letters of types may stand in lines of their own.
QString wordAt(const Command &command, int position)
{
    return command.at(position).trimmed();
}

// --- What a handheld has made --------------------------------------------------------------------

void newWorkOrder(const Command &command, Run &run)
{
    // All values are read before the first statement, whatever comes of the id.
    const QString id = wordAt(command, 0);
    const QDateTime completed = spliced::date(command.at(2));
    const QString machine = quotedAt(command, 3);
    const QDateTime stands = spliced::date(command.at(4));
    if (const qint64 known = run.ids.IsIDExist(IdMap::Kind::WorkOrder, id); known != -1) {
        dataConnection().Execute(u"update tblWorkOrder set Complete ='1',Completeddate=?,"
                                 "EquipmentId=?,WoDate=? where workorderno = ?"_s,
                                 {completed, machine, stands, known});
        return;
    }
    const qint64 number = dataConnection().Insert(
        u"Insert into tblWorkOrder(Printed,Complete,CompletedDate,EquipmentId,WoDate) "
        "Values('0','1',?,?,?)"_s,
        {completed, machine, stands}, u"WorkorderNo"_s);
    if (!run.ids.record(IdMap::Kind::WorkOrder, id, number))
        throw Problem(u"Problem In adding workorder"_s);
}

/// The office's number of the order that a new service is for.
QString orderOf(const Command &command, const Run &run)
{
    const QString order = quotedAt(command, 3);
    // A number is the office's own order, a name one that the device has made.
    if (spliced::isNumeric(order))
        return order;
    const qint64 known = run.ids.IsIDExist(IdMap::Kind::WorkOrder, wordAt(command, 3));
    if (known == -1)
        throw Problem(u"Problem In adding workorder service(Workorderno not found)"_s);
    return QString::number(known);
}

void newService(const Command &command, Run &run)
{
    const QString id = wordAt(command, 0);
    if (run.ids.IsIDExist(IdMap::Kind::ServiceLine, id) != -1)
        throw Problem(u"Problem In adding workorder service(duplicate service find.)"_s);
    QVariantList values{quotedAt(command, 1), quotedAt(command, 2), orderOf(command, run),
                        command.at(4)};
    for (int position = 5; position <= 17; ++position) {
        // A note may hold anything, all else between its apostrophes none.
        constexpr int Note = 9;
        values.append(position == Note ? command.at(position) : quotedAt(command, position));
    }
    values.append(spliced::date(command.at(18)));
    const qint64 number = dataConnection().Insert(
        u"insert into tblWoserviceUsed(ServiceUsedID,EquipmentID,ServiceID,WorkorderNo,Name,"
        "Completed,Skip,StartTime,EndTime,[Note],LaborEstimate,Period,CountValue,Workhrs,JobNo,"
        "CostEstimate,CostCenterID,CrewID,NextScheduledDate) "
        "values('0',?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"_s,
        values, u"NServiceUsedID"_s);
    if (!run.ids.record(IdMap::Kind::ServiceLine, id, number))
        throw Problem(u"Problem In adding workorder service"_s);
}

void newServicePart(const Command &command, Run &run)
{
    const qint64 known = run.ids.IsIDExist(IdMap::Kind::ServiceLine, wordAt(command, 0));
    // An id that the handheld has not made is the office's own, from the export.
    const QString line = known != -1 ? QString::number(known) : quotedAt(command, 0);
    dataConnection().Execute(u"Insert into tblWoPartUsed(ServiceUsedID,PartID,QuantityRequired,"
                             "Price,Used,QuantityUsed) values(?,?,?,?,?,?)"_s,
                             {line, command.at(1), spliced::bare(command.at(2)),
                              spliced::bare(command.at(3)), spliced::bare(command.at(4)),
                              spliced::bare(command.at(5))});
}

// --- What it has changed -------------------------------------------------------------------------

[[noreturn]] void raiseUnknownType(const QString &type)
{
    throw base::Error(db::ErrorNumber::Syntax, u"\"%1\" is no type of value here"_s.arg(type));
}

/// A value by the letter of its type.
QVariant typedValue(const QString &type, const QString &value)
{
    if (type == u"D")
        return spliced::date(value);
    if (type == u"N")
        return spliced::bare(value);
    if (type == u"T" || type == u"C")
        return value;
    raiseUnknownType(type);
}

bool IsCrewExist(const QVariant &crewId)
{
    return !dataConnection().Open(u"Select * from tblCrew where CrewID = ?"_s, {crewId}).isEmpty();
}

/// "Update t set c = ?", of the table at position 0.
QString updateOf(const Command &command, int column)
{
    const QString &table = command.at(0);
    return u"Update %1 set %2 = ?"_s.arg(spliced::table(table),
                                         spliced::writtenColumn(table, command.at(column)));
}

/// "c = ?", of a column of the table at position 0.
QString conditionOf(const Command &command, int column)
{
    return spliced::column(command.at(0), command.at(column)) + u" = ?"_s;
}

void recordCrew(const Command &command, Run &)
{
    const QVariant crew = spliced::bare(command.at(6));
    // The crew may have been deleted while the device was out; the machine stays where it is then.
    if (!IsCrewExist(crew))
        return;
    const qint64 machine = spliced::bareInteger(command.at(2));
    dataConnection().Execute(updateOf(command, 4) + u" where "_s + conditionOf(command, 1),
                             {crew, machine});
    (void)ChangeCrew(machine, base::toText(spliced::bare(command.at(7))), quotedAt(command, 8));
}

void recordScanEquipment(const Command &command, Run &)
{
    // The positions go the other way than the columns.
    dataConnection().Execute(
        u"Insert into tblEquipmentScan(EquipmentID,ScanTime,ScanStatus) values(?,?,?)"_s,
        {quotedAt(command, 2), quotedAt(command, 1), quotedAt(command, 0)});
}

void record(const Command &command, const QVariant &key)
{
    dataConnection().Execute(updateOf(command, 4) + u" where "_s + conditionOf(command, 1),
                             {typedValue(wordAt(command, 5), command.at(6)), key});
}

void recordByKey(const Command &command, Run &)
{
    const QString type = wordAt(command, 3);
    if (type == u"C")
        record(command, quotedAt(command, 2));
    else if (type == u"N")
        record(command, spliced::bare(command.at(2)));
    else
        raiseUnknownType(type);
}

void recordPart(const Command &command, Run &)
{
    const QString &table = command.at(0);
    const QString raised = spliced::writtenColumn(table, command.at(4));
    // 0.1 and 0.2 are 0.3, and nothing behind it.
    const QString sum =
        spliced::holdsFractions(table, command.at(4)) ? u"Round(%1 + ?,10)"_s : u"%1 + ?"_s;
    dataConnection().Execute(u"Update %1 set %2 = %3 where %4"_s.arg(spliced::table(table), raised,
                                                                     sum.arg(raised),
                                                                     conditionOf(command, 1)),
                             {spliced::bare(command.at(6)), command.at(2)});
}

void recordTwoID(const Command &command, const QVariant &firstKey)
{
    dataConnection().Execute(updateOf(command, 7) + u" where "_s + conditionOf(command, 1) +
                                 u" and "_s + conditionOf(command, 4),
                             {typedValue(wordAt(command, 8), command.at(9)), firstKey,
                              typedValue(wordAt(command, 6), command.at(5))});
}

void recordTwoIDOfLine(const Command &command, Run &run)
{
    const QString type = wordAt(command, 3);
    if (type == u"N")
        recordTwoID(command, spliced::bare(command.at(2)));
    else if (type == u"T" || type == u"C")
        // An unknown id is -1, which no row has.
        recordTwoID(command, run.ids.IsIDExist(IdMap::Kind::ServiceLine, wordAt(command, 2)));
    else
        raiseUnknownType(type);
}

// --- Readings ------------------------------------------------------------------------------------

qint64 storeReading(const Command &command)
{
    const qint64 machine = spliced::bareInteger(command.at(0));
    readings::store(machine, spliced::date(command.at(1)), quotedAt(command, 2),
                    spliced::bareInteger(command.at(3)));
    return machine;
}

void countReading(const Command &command, Run &run)
{
    const qint64 machine = storeReading(command);
    // An unknown word goes by the type of the reading before it, as it always has.
    if (const QString &type = command.at(2); !readings::periodCode(type).isEmpty())
        run.countType = type;
    if (readings::isInProcess(machine, run.countType)) {
        told::message(u"Service is in-proccess for this equipment service can't be rescheduled."_s);
        return;
    }
    readings::applyToServices(machine);
}

// --- The older forms -----------------------------------------------------------------------------

void olderRecord(const Command &command, Run &)
{
    record(command, typedValue(wordAt(command, 3), command.at(2)));
}

void olderRecordTwoID(const Command &command, Run &)
{
    recordTwoID(command, typedValue(wordAt(command, 3), command.at(2)));
}

void olderCountReading(const Command &command, Run &)
{
    storeReading(command);
}

} // namespace

std::span<const Kind> workKinds()
{
    static constexpr Kind kinds[] = {{u"NewWorkOrder", newWorkOrder},
                                     {u"NewService", newService},
                                     {u"NewServicePart", newServicePart},
                                     {u"RecordCrew", recordCrew},
                                     {u"RecordScanEquipment", recordScanEquipment},
                                     {u"Record", recordByKey},
                                     {u"RecordPart", recordPart},
                                     {u"RecordTwoID", recordTwoIDOfLine}};
    return kinds;
}

std::span<const Kind> readingKinds()
{
    static constexpr Kind kinds[] = {{u"CountReading", countReading}};
    return kinds;
}

std::span<const Kind> olderWorkKinds()
{
    static constexpr Kind kinds[] = {
        {u"Record", olderRecord}, {u"RecordPart", recordPart}, {u"RecordTwoID", olderRecordTwoID}};
    return kinds;
}

std::span<const Kind> olderReadingKinds()
{
    static constexpr Kind kinds[] = {{u"CountReading", olderCountReading}};
    return kinds;
}

} // namespace exchange::commands
