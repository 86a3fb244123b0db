#include "workorders/Workshop.h"

#include "core/General.h"

namespace test {

using namespace Qt::StringLiterals;

namespace {

QVariantMap with(QVariantMap values, const QVariantMap &more)
{
    for (auto each = more.begin(); each != more.end(); ++each)
        values[each.key()] = each.value();
    return values;
}

} // namespace

Workshop::Workshop()
{
    crew1 =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 1}, {u"Description"_s, u"North"_s}}, u"CrewID"_s);
    crew2 =
        insert(u"tblCrew"_s, {{u"CrewNumber"_s, 2}, {u"Description"_s, u"South"_s}}, u"CrewID"_s);
    insert(u"tblEmployee"_s, {{u"EmployeeID"_s, u"E1"_s},
                              {u"Crew"_s, crew1},
                              {u"LaborCost"_s, 20},
                              {u"Inactive"_s, 0},
                              {u"IncludeWoList"_s, 1}});
    machine(1, u"M1"_s);
}

qint64 Workshop::insert(const QString &table, const QVariantMap &values, const QString &key)
{
    QStringList columns;
    QStringList places;
    for (const QString &column : values.keys()) {
        columns.append(u'[' + column + u']');
        places.append(u"?"_s);
    }
    const QString statement =
        u"Insert into %1(%2) values(%3)"_s.arg(table, columns.join(u','), places.join(u','));
    if (!key.isEmpty())
        return gcnData->Insert(statement, values.values(), key);
    gcnData->Execute(statement, values.values());
    return 0;
}

void Workshop::machine(qint64 id, const QString &unit, const QVariantMap &more)
{
    insert(u"tblEquipment"_s, with({{u"EquipmentID"_s, id},
                                    {u"UnitNo"_s, unit},
                                    {u"EquipmentName"_s, u"Mower "_s + unit},
                                    {u"Inactive"_s, 0}},
                                   more));
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
    for (const QString &flag :
         {u"Sun"_s, u"Mon"_s,    u"Tue"_s,     u"Wed"_s,    u"Thu"_s,    u"Fri"_s,
          u"Sat"_s, u"FirstW"_s, u"SecondW"_s, u"ThirdW"_s, u"ForthW"_s, u"LastW"_s,
          u"Jan"_s, u"Feb"_s,    u"Mar"_s,     u"Apr"_s,    u"May"_s,    u"Jun"_s,
          u"Jul"_s, u"Aug"_s,    u"Sep"_s,     u"Oct"_s,    u"Nov"_s,    u"Dece"_s})
        values[flag] = 1;
    return insert(u"tblServiceUsed"_s, with(values, more), u"ServiceUsedID"_s);
}

void Workshop::part(const QString &id, double quantity, bool notTracked)
{
    insert(u"tblPart"_s, {{u"PartID"_s, id},
                          {u"Description"_s, u"Part "_s + id},
                          {u"Quantity"_s, quantity},
                          {u"TrackInventory"_s, notTracked}});
}

void Workshop::servicePart(qint64 serviceUsedID, const QString &part, double quantity)
{
    insert(u"tblServiceUsedPart"_s, {{u"ServiceUsedID"_s, serviceUsedID},
                                     {u"PartID"_s, part},
                                     {u"QuantityRequired"_s, quantity},
                                     {u"Price"_s, 2.5}});
}

qint64 Workshop::order(const QVariantMap &more)
{
    return insert(u"tblWorkorder"_s, with({{u"EquipmentID"_s, 1}, {u"Printed"_s, 0}}, more),
                  u"WorkorderNo"_s);
}

qint64 Workshop::orderService(qint64 order, const QVariantMap &more) const
{
    return insert(u"tblWoServiceUsed"_s,
                  with({{u"WorkorderNo"_s, order},
                        {u"EquipmentID"_s, 1},
                        {u"Name"_s, u"Oil change"_s},
                        {u"CrewID"_s, crew1},
                        {u"Period"_s, u"D"_s},
                        {u"NextScheduledDate"_s, day(3, 10)}},
                       more),
                  u"NServiceUsedID"_s);
}

void Workshop::orderPart(qint64 nServiceUsedID, const QString &part, double quantity, bool used)
{
    insert(u"tblWoPartUsed"_s, {{u"ServiceUsedID"_s, nServiceUsedID},
                                {u"PartID"_s, part},
                                {u"QuantityRequired"_s, quantity},
                                {u"QuantityUsed"_s, quantity},
                                {u"Price"_s, 2.5},
                                {u"Used"_s, used}});
}

QVariant Workshop::value(const QString &query, const QVariantList &parameters)
{
    const db::Recordset rows = gcnData->Open(query, parameters);
    return rows.isEmpty() ? QVariant() : rows.value(0, 0);
}

qint64 Workshop::count(const QString &table, const QString &where)
{
    return GetRecordCount(table, where);
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
