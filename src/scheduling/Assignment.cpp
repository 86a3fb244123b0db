#include "scheduling/Assignment.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
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

bool DeleteServiceRecord(qint64 ServiceUsedID)
{
    return base::trapped(Module, "DeleteServiceRecord", false, [&] {
        gcnData->Execute(u"Delete From tblServiceUsed where ServiceUsedId = ?"_s, {ServiceUsedID});
        gcnData->Execute(u"Delete From tblServiceUsedPart Where ServiceUsedID = ?"_s,
                         {ServiceUsedID});
        return true;
    });
}

bool UpdateEquipmentService(qint64 ServiceUsedID, const QString &Column, const QVariant &Value)
{
    return base::trapped(Module, "UpdateEquipmentService", false, [&] {
        gcnData->Execute(
            u"Update tblServiceUsed set [%1] = ? where ServiceUsedid = ?"_s.arg(Column),
            {Value, ServiceUsedID});
        return true;
    });
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
