#include "scheduling/Assignment.h"

#include "core/HeldRow.h"
#include "core/InTheWay.h"
#include "core/Labour.h"
#include "core/Periods.h"
#include "core/RecordStore.h"
#include "core/Session.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
#include "scheduling/GetNextScheduledDate.h"
#include "scheduling/Readings.h"

#include <QStringList>

namespace assignment {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Equipment";

/// What a copy takes over, in the order of the insert.
const QString CopiedColumns =
    u"Name,CrewID, CostCenterID, Period,Einterval,Renewalon,Mon,tue,wed,thu,Fri, Sat, Sun,FirstW, "
    "SecondW, ThirdW,ForthW, LastW,Dom,Dom1,Dom2,Dom3,Dom4,Dom5,jan,Feb,Mar,Apr,may, jun,jul,aug, "
    "sep, oct,nov, dece, separateWo,LaborEstimate, costEstimate, [note],jobno"_s;

const QString BetweenNumberAndDescription = u"   "_s;

QString joined(const QList<qint64> &ids)
{
    QStringList texts;
    for (const qint64 id : ids)
        texts.append(QString::number(id));
    return texts.join(u',');
}

/// A column of a source. A number that a spoilt row lacks is copied as 0: the next date can't be
/// calculated from flags that are Null.
QVariant copied(const db::Recordset &sources, const db::Row &source, int column)
{
    const QVariant value = source[column];
    const sql::ColumnKind kind = sources.columnKind(column);
    if (value.isNull() && (kind == sql::ColumnKind::Integer || kind == sql::ColumnKind::Real ||
                           kind == sql::ColumnKind::Money))
        return 0;
    return value;
}

qint64 insertCopy(qint64 equipment, const db::Recordset &sources, const db::Row &source)
{
    QVariantList values{equipment, source[u"ServiceID"]};
    // The source query begins with its two keys.
    for (int column = 2; column < sources.columnCount(); ++column)
        values.append(copied(sources, source, column));
    values.append(base::wallClock(base::today()));
    const QStringList places(values.size(), u"?"_s);
    return gcnData->Insert(
        u"insert into tblserviceused(Equipmentid,serviceid,%1,NextScheduledDate) "
        "values(%2)"_s.arg(CopiedColumns, places.join(u',')),
        values, u"ServiceUsedID"_s);
}

void copyParts(const db::Recordset &parts, qint64 serviceUsedID)
{
    for (const db::Row part : parts) {
        gcnData->Execute(
            u"Insert into tblServiceUsedPart(PartID,ServiceUsedID,QuantityRequired,price,"
            "SupplierID) Values(?,?,?,?,?)"_s,
            {part[u"partID"], serviceUsedID, base::ReplaceNull(part[u"QuantityRequired"], 0),
             base::ReplaceNull(part[u"price"], 0), base::ReplaceNull(part[u"SupplierID"], 0)});
    }
}

db::Recordset partsOf(const db::Row &source, Source kind)
{
    if (kind == Source::Catalogue)
        return gcnData->Open(
            u"Select partID,QuantityRequired,price,SupplierID from tblServicesPart where PartId is "
            "not Null and ServiceId = ?"_s,
            {source[u"SourceID"]});
    return gcnData->Open(
        u"Select partID,QuantityRequired,price,SupplierID from tblServiceUsedPart where PartId is "
        "not Null and ServiceUsedId = ?"_s,
        {source[u"SourceID"]});
}

/// A count service loses the date that every copy gets, and waits for its target.
void startCounting(qint64 equipment, qint64 serviceUsedID, const QString &name,
                   const QString &period, qint64 interval)
{
    QString countType = readings::countType(period);
    if (countType.isEmpty())
        return;
    if (!readings::hasAny(equipment, countType))
        readings::addFirst(equipment, serviceUsedID, name, countType);
    if (readings::hasAny(equipment, countType))
        gcnData->Execute(
            u"Update tblServiceUsed set NextScheduledDate = NULL, NextScheduledCount = "
            "? Where ServiceUsedId = ?"_s,
            {readings::newest(equipment, countType).value + interval, serviceUsedID});
}

} // namespace

bool AddServiceRecord(qint64 EquipmentID, const QList<qint64> &ids, Source source)
{
    return base::trapped(Module, "AddServiceRecord", false, [&] {
        if (ids.isEmpty())
            return true;
        const db::Recordset services =
            source == Source::Catalogue
                ? gcnData->Open(
                      u"Select ServiceID as SourceID, ServiceID, %1 from tblServices where "
                      "ServiceID in (%2)"_s.arg(CopiedColumns, joined(ids)))
                : gcnData->Open(u"Select ServiceUsedID as SourceID, ServiceID, %1 from "
                                "tblServiceUsed where ServiceUsedID in (%2)"_s.arg(CopiedColumns,
                                                                                   joined(ids)));
        for (const db::Row service : services) {
            const qint64 id = insertCopy(EquipmentID, services, service);
            copyParts(partsOf(service, source), id);
            startCounting(EquipmentID, id, service.text(u"Name"), service.text(u"Period"),
                          service.integer(u"Einterval"));
        }
        return true;
    });
}

db::Recordset servicesOf(qint64 EquipmentID)
{
    return gcnData->Open(
        u"SELECT  tblServiceUsed.ServiceUsedID, tblServiceUsed.JobNo as [Service No],  "
        "tblServiceUsed.ServiceID,tblServiceUsed.Name, NextScheduledDate as [Next Schedule], "
        "NextScheduledCount as [Next Count], CrewID as [Service Crew], LaborEstimate as "
        "[Budgeted Hrs],CostEstimate as [Labor Cost], Einterval as [Interval], %1 AS [Schedule "
        "Type], tblServiceUsed.SeparateWo  FROM tblServiceUsed where EquipmentId = ?"_s.arg(
            periods::wordExpression()),
        {EquipmentID});
}

bool DeleteServiceRecord(qint64 ServiceUsedID)
{
    return base::trapped(Module, "DeleteServiceRecord", false, [&] {
        gcnData->Execute(u"Delete From tblServiceUsed where ServiceUsedId = ?"_s, {ServiceUsedID});
        gcnData->Execute(u"Delete From tblServiceUsedPart Where ServiceUsedID = ?"_s,
                         {ServiceUsedID});
        return true;
    });
}

bool UpdateEquipmentService(qint64 ServiceUsedID, const QString &Column, const QVariant &Value,
                            const std::optional<QVariant> &Shown)
{
    return base::trapped(Module, "UpdateEquipmentService", false, [&] {
        record::ShortTransaction transaction(*gcnData);
        const db::Recordset rows = heldRow(
            u"tblServiceUsed", u"ServiceUsedID", ServiceUsedID, u"service",
            u"This service has been removed from its machine on another workstation. Nothing "
            "was stored."_s);
        record::demandShown(rows.current(), Column, Value, Shown);
        gcnData->Execute(
            u"Update tblServiceUsed set [%1] = ? where ServiceUsedid = ?"_s.arg(Column),
            {Value, ServiceUsedID});
        transaction.commit();
        return true;
    });
}

std::optional<double> UpdateLabourCost(qint64 ServiceUsedID)
{
    return base::trapped(
        Module, "UpdateLabourCost", std::optional<double>(), [&]() -> std::optional<double> {
            const db::Row service =
                gcnData
                    ->Open(
                        u"Select CrewID, LaborEstimate from tblServiceUsed where ServiceUsedID = "
                        "?"_s,
                        {ServiceUsedID})
                    .row(0);
            const double cost = base::Money(SetLaborCost(service.integer(u"CrewID")))
                                    .centsTimes(service.real(u"LaborEstimate"))
                                    .toDouble();
            if (!UpdateEquipmentService(ServiceUsedID, u"CostEstimate"_s, cost))
                return std::nullopt;
            return cost;
        });
}

QDateTime UpdateDateIfReached(qint64 ServiceUsedID)
{
    const QDateTime reached = GetNextScheduledDate(ServiceUsedID);
    if (!reached.isValid() ||
        !UpdateEquipmentService(ServiceUsedID, u"NextScheduledDate"_s, reached))
        return {};
    return reached;
}

QString refusalOfNextDate(const QDateTime &before, const QDateTime &date)
{
    if (!before.isValid() && (!date.isValid() || date.date() < base::today()))
        return u"Next Schedule Date should be greater than or equal to current date"_s;
    if (before.isValid() && (!date.isValid() || date <= before))
        return u"Next Schedule Date should be greater than old date"_s;
    return {};
}

db::Recordset crewOf(qint64 EquipmentID)
{
    return gcnData->Open(
        u"SELECT EquipmentName, UnitNo, tblEquipment.CrewID, "
        "IIf(tblCrew.CrewID<>0,(cstr(CrewNumber)+'   '+tblCrew.Description),'  ') AS "
        "CrewNumber FROM tblEquipment LEFT JOIN tblCrew ON tblEquipment.CrewID = "
        "tblCrew.CrewID Where Equipmentid = ?"_s,
        {EquipmentID});
}

void assignCrew(qint64 EquipmentID, qint64 CrewID, qint64 ShownCrewID)
{
    TransactionScope transaction;
    const db::Recordset now =
        heldRow(u"tblEquipment", u"EquipmentID", EquipmentID, u"machine",
                u"This machine has been deleted on another workstation. Nothing was stored."_s);
    if (now.current().integer(u"CrewID") != ShownCrewID)
        throw InTheWay(
            u"Another workstation has given this machine to another crew meanwhile, which "
            "is shown now. Nothing was stored."_s);
    const QStringList former =
        crewOf(EquipmentID).current().text(u"CrewNumber").split(BetweenNumberAndDescription);
    if (!ChangeCrew(EquipmentID, former.value(0).trimmed(), former.value(1).trimmed()))
        return;
    gcnData->Execute(u"update tblEquipment set CrewID = ? where EquipmentID = ?"_s,
                     {CrewID, EquipmentID});
    transaction.commit();
}

bool ChkEveryServiceCount(qint64 EquipmentID)
{
    return base::trapped(Module, "ChkEveryServiceCount", false, [&] {
        const db::Recordset services = gcnData->Open(
            u"Select ServiceUsedID, Name, Period, Einterval from tblServiceUsed where EquipmentID = ?"_s,
            {EquipmentID});
        for (const db::Row service : services) {
            const QString countType = readings::countType(service.text(u"Period"));
            if (!countType.isEmpty() && !readings::hasAny(EquipmentID, countType))
                startCounting(EquipmentID, service.integer(u"ServiceUsedID"), service.text(u"Name"),
                              service.text(u"Period"), service.integer(u"Einterval"));
        }
        return true;
    });
}

} // namespace assignment
