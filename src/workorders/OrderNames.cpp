#include "workorders/OrderNames.h"

#include "core/Session.h"

#include <QStringList>
#include <algorithm>

namespace ordernames {
namespace {

using namespace Qt::StringLiterals;

QString named(const db::Row &machine)
{
    return machine.text(u"UnitNo") + u" - "_s + machine.text(u"EquipmentName");
}

/// The first row of a query, put into words; the fallback without one.
template<class Words>
QString worded(const QString &statement, qint64 key, const QString &fallback, Words &&words)
{
    try {
        const db::Recordset rows = gcnData->Open(statement, {key});
        return rows.isEmpty() ? fallback : words(rows.current());
    } catch (const base::Error &error) {
        // What is being told is worth more than the name in it.
        qWarning("name of an order: %s", error.what());
        return fallback;
    }
}

} // namespace

QString order(qint64 WorkorderNo)
{
    const QString number = u"work order %1"_s.arg(WorkorderNo);
    return worded(u"Select UnitNo, EquipmentName from tblWorkorder left join tblEquipment on "
                  "tblWorkorder.EquipmentID = tblEquipment.EquipmentID where WorkorderNo = ?"_s,
                  WorkorderNo, number,
                  [&](const db::Row &row) { return number + u" of machine "_s + named(row); });
}

QString orderOfService(qint64 NServiceUsedID)
{
    return worded(u"Select WorkorderNo from tblWoServiceUsed where NServiceUsedID = ?"_s,
                  NServiceUsedID, u"this work order"_s,
                  [](const db::Row &row) { return order(row.integer(u"WorkorderNo")); });
}

QString machine(qint64 EquipmentID)
{
    return worded(u"Select UnitNo, EquipmentName from tblEquipment where EquipmentID = ?"_s,
                  EquipmentID, u"this machine"_s, named);
}

QString listed(const QList<qint64> &numbers)
{
    constexpr qsizetype most = 10;
    QStringList texts;
    for (const qint64 number : numbers.first(qMin(most, numbers.size())))
        texts.append(QString::number(number));
    const QString text = texts.join(u", "_s);
    return numbers.size() <= most ? text : u"%1 and %2 more"_s.arg(text).arg(numbers.size() - most);
}

QString sentence(const QString &name, const QString &rest)
{
    QString text = name + u' ' + rest;
    text[0] = text[0].toUpper();
    return text;
}

QString beingChanged(const QString &order)
{
    return u"Another workstation is changing %1. Nothing was stored. Please try again in a "
           "moment."_s.arg(order);
}

Gone gone(qint64 WorkorderNo)
{
    return Gone(u"Work order %1 is open no longer: another workstation has posted or deleted "
                "it. Nothing was stored."_s.arg(WorkorderNo));
}

Gone serviceGone()
{
    return Gone(u"This service stands on no open work order any more: another workstation has "
                "posted, removed or deleted it. Nothing was stored."_s);
}

} // namespace ordernames
