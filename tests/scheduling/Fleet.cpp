#include "scheduling/Fleet.h"

#include "platform/base/Error.h"

namespace test {

using namespace Qt::StringLiterals;

namespace {

/// The schedule that both stores share: every ten days, on any day.
QVariantMap schedule(qint64 crew, qint64 costCenter, const QVariantMap &anyDay)
{
    QVariantMap values{{u"Name"_s, u"Oil change"_s},
                       {u"CrewID"_s, crew},
                       {u"CostCenterID"_s, costCenter},
                       {u"Period"_s, u"D"_s},
                       {u"EInterval"_s, 10},
                       {u"RenewalOn"_s, u"W"_s},
                       {u"JobNo"_s, 1},
                       {u"LaborEstimate"_s, 1.5},
                       {u"CostEstimate"_s, 30},
                       {u"Note"_s, u"Warm engine"_s}};
    values.insert(anyDay);
    return values;
}

} // namespace

Fleet::Fleet()
{
    gRights = {};
    crew =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 7}, {u"Description"_s, u"Mowing"_s}}, u"CrewID"_s);
    costCenter = insert(u"tblCostCenter"_s, {{u"Description"_s, u"Shop"_s}}, u"CostCenterID"_s);
    insert(u"tblEmployee"_s, u"EmployeeID, Crew, LaborCost, Inactive, IncludeWoList"_s,
           {u"E1"_s, crew, 20, 0, 1});
}

void Fleet::machine(qint64 id, const QVariantMap &more)
{
    QVariantMap values{{u"EquipmentID"_s, id},
                       {u"UnitNo"_s, u"U%1"_s.arg(id)},
                       {u"EquipmentName"_s, u"Mower %1"_s.arg(id)},
                       {u"Inactive"_s, 0}};
    values.insert(more);
    insert(u"tblEquipment"_s, values);
}

qint64 Fleet::assigned(const QVariantMap &more) const
{
    QVariantMap values = schedule(crew, costCenter, anyDay());
    values.insert(QVariantMap{{u"EquipmentID"_s, 1},
                              {u"ServiceID"_s, 100},
                              {u"LastDatePerformed"_s, day(3, 1)},
                              {u"LastDateScheduled"_s, day(2, 20)}});
    values.insert(more);
    return insert(u"tblServiceUsed"_s, values, u"ServiceUsedID"_s);
}

qint64 Fleet::catalogue(qint64 id, const QVariantMap &more) const
{
    QVariantMap values = schedule(crew, costCenter, anyDay());
    values.insert(u"ServiceID"_s, id);
    values.insert(more);
    insert(u"tblServices"_s, values);
    return id;
}

void Fleet::reading(qint64 machine, const QString &type, const QDateTime &date, qint64 value)
{
    insert(u"tblEquipmentCount"_s, u"EquipmentID, CountType, ChangeDate, CountValue"_s,
           {machine, type, date, value});
}

void Fleet::part(const QString &id, double price)
{
    insert(u"tblPart"_s, u"PartID, Description, Price, Quantity, Inactive"_s,
           {id, u"Part "_s + id, price, 5, 0});
}

void Fleet::failAt(const QString &text)
{
    gcnData->setObserver([text](const db::Sent &sent) {
        if (!text.isEmpty() && sent.statement.contains(text, Qt::CaseInsensitive))
            throw base::Error(5, u"broken"_s);
    });
}

} // namespace test
