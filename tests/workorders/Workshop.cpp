#include "workorders/Workshop.h"

#include "platform/base/Error.h"

namespace test {

using namespace Qt::StringLiterals;

Workshop::Workshop()
{
    crew1 = insert(u"tblCrew"_s, u"CrewNumber, Description"_s, {1, u"North"_s}, u"CrewID"_s);
    crew2 = insert(u"tblCrew"_s, u"CrewNumber, Description"_s, {2, u"South"_s}, u"CrewID"_s);
    insert(u"tblEmployee"_s, u"EmployeeID, Crew, LaborCost, Inactive, IncludeWoList"_s,
           {u"E1"_s, crew1, 20, 0, 1});
    machine(1, u"M1"_s);
}

void Workshop::machine(qint64 id, const QString &unit, const QVariantMap &more)
{
    QVariantMap values{{u"EquipmentID"_s, id},
                       {u"UnitNo"_s, unit},
                       {u"EquipmentName"_s, u"Mower "_s + unit},
                       {u"Inactive"_s, 0}};
    values.insert(more);
    insert(u"tblEquipment"_s, values);
}

qint64 Workshop::service(const QVariantMap &more) const
{
    QVariantMap values{{u"EquipmentID"_s, 1},
                       {u"Name"_s, u"Oil change"_s},
                       {u"CrewID"_s, crew1},
                       {u"Period"_s, u"D"_s},
                       {u"EInterval"_s, 10},
                       {u"RenewalOn"_s, u"W"_s},
                       {u"NextScheduledDate"_s, day(3, 10)}};
    values.insert(anyDay());
    values.insert(more);
    return insert(u"tblServiceUsed"_s, values, u"ServiceUsedID"_s);
}

void Workshop::part(const QString &id, double quantity, bool notTracked)
{
    insert(u"tblPart"_s, u"PartID, Description, Quantity, TrackInventory"_s,
           {id, u"Part "_s + id, quantity, notTracked});
}

void Workshop::servicePart(qint64 serviceUsedID, const QString &part, double quantity)
{
    insert(u"tblServiceUsedPart"_s, u"ServiceUsedID, PartID, QuantityRequired, Price"_s,
           {serviceUsedID, part, quantity, 2.5});
}

qint64 Workshop::order(const QVariantMap &more)
{
    QVariantMap values{{u"EquipmentID"_s, 1}, {u"Printed"_s, 0}};
    values.insert(more);
    return insert(u"tblWorkorder"_s, values, u"WorkorderNo"_s);
}

qint64 Workshop::completeOrder(int date)
{
    return order({{u"Complete"_s, true}, {u"CompletedDate"_s, day(3, date)}});
}

QVariant Workshop::ofService(qint64 serviceUsedID, const QString &column)
{
    return value(u"Select [%1] from tblServiceUsed where ServiceUsedID = ?"_s.arg(column),
                 {serviceUsedID});
}

QVariant Workshop::onOrder(qint64 nServiceUsedID, const QString &column)
{
    return value(u"Select [%1] from tblWoServiceUsed where NServiceUsedID = ?"_s.arg(column),
                 {nServiceUsedID});
}

qint64 Workshop::orderService(qint64 order, const QVariantMap &more) const
{
    QVariantMap values{{u"WorkorderNo"_s, order},    {u"EquipmentID"_s, 1},
                       {u"Name"_s, u"Oil change"_s}, {u"CrewID"_s, crew1},
                       {u"Period"_s, u"D"_s},        {u"NextScheduledDate"_s, day(3, 10)}};
    values.insert(more);
    return insert(u"tblWoServiceUsed"_s, values, u"NServiceUsedID"_s);
}

void Workshop::orderPart(qint64 nServiceUsedID, const QString &part, double quantity, bool used)
{
    insert(u"tblWoPartUsed"_s,
           u"ServiceUsedID, PartID, QuantityRequired, QuantityUsed, Price, Used"_s,
           {nServiceUsedID, part, quantity, quantity, 2.5, used});
}

int Workshop::failAtEachStatement(const std::function<bool()> &step)
{
    const QString before = everything();
    for (int failing = 1;; ++failing) {
        int running = 0;
        gcnData->setObserver([&](const db::Sent &) {
            if (++running == failing)
                throw base::Error(5, u"broken"_s);
        });
        const bool done = step();
        gcnData->setObserver({});
        if (done || failing == 100)
            return failing - 1;
        EXPECT_EQ(errors.take().size(), 1u) << "statement " << failing;
        EXPECT_FALSE(gbInTransaction) << "statement " << failing;
        EXPECT_EQ(everything(), before) << "statement " << failing;
    }
}

QString Workshop::everything()
{
    QString text;
    for (const QString &table : {u"tblWorkorder"_s, u"tblWoServiceUsed"_s, u"tblWoPartUsed"_s,
                                 u"tblWOServiceUsedHistory"_s, u"tblWoPartHistory"_s,
                                 u"tblServiceUsed"_s, u"tblEquipmentCount"_s, u"tblPart"_s}) {
        QStringList lines = found(u"Select * from "_s + table).split(u'\n');
        lines.sort();
        text += table + u'\n' + lines.join(u'\n') + u'\n';
    }
    return text;
}

} // namespace test
