#include "workorders/OrderServices.h"

#include "core/Session.h"

#include <QStringList>

namespace orderservices {
namespace {

using namespace Qt::StringLiterals;

/// What an order's service copies from a schedule or from the catalogue.
const QStringList &copiedColumns()
{
    static const QStringList columns{u"ServiceUsedID"_s,
                                     u"ServiceID"_s,
                                     u"EquipmentID"_s,
                                     u"LastDateScheduled"_s,
                                     u"LastDatePerformed"_s,
                                     u"NextScheduledDate"_s,
                                     u"Name"_s,
                                     u"CrewID"_s,
                                     u"CostCenterID"_s,
                                     u"SeparateWo"_s,
                                     u"LaborEstimate"_s,
                                     u"CostEstimate"_s,
                                     u"Note"_s,
                                     u"Period"_s,
                                     u"JobNo"_s};
    return columns;
}

QString insertStatement(const QString &table, const QStringList &columns)
{
    const QStringList places(columns.size(), u"?"_s);
    return u"Insert into %1([%2]) values(%3)"_s.arg(table, columns.join(u"],["_s),
                                                    places.join(u','));
}

} // namespace

qint64 addOrder(qint64 EquipmentID)
{
    return gcnData->Insert(u"Insert into tblWorkOrder(EquipmentId,Printed) Values(?,'0')"_s,
                           {EquipmentID}, u"WorkorderNo"_s);
}

qint64 addService(qint64 WorkorderNo, const db::Row &source, const db::Recordset &parts,
                  const QVariantMap &given, std::optional<bool> used)
{
    QStringList columns{u"WorkorderNo"_s};
    QVariantList values{WorkorderNo};
    for (const auto &[column, value] : given.asKeyValueRange()) {
        columns.append(column);
        values.append(value);
    }
    for (const QString &column : copiedColumns()) {
        if (given.contains(column))
            continue;
        columns.append(column);
        values.append(source[column]);
    }
    const qint64 id = gcnData->Insert(insertStatement(u"tblWoServiceUsed"_s, columns), values,
                                      u"NServiceUsedID"_s);
    for (const db::Row part : parts)
        addPart(id,
                {part[u"partID"], part[u"QuantityRequired"], part[u"Price"], part[u"SupplierID"]},
                used);
    return id;
}

void addPart(qint64 NServiceUsedID, const Part &part, std::optional<bool> used)
{
    QStringList columns{u"ServiceUsedID"_s, u"PartID"_s, u"QuantityRequired"_s,
                        u"QuantityUsed"_s,  u"Price"_s,  u"SupplierID"_s};
    QVariantList values{NServiceUsedID, part.PartID, part.quantity,
                        part.quantity,  part.price,  part.SupplierID};
    if (used) {
        columns.append(u"Used"_s);
        values.append(*used);
    }
    gcnData->Execute(insertStatement(u"tblWoPartUsed"_s, columns), values);
}

} // namespace orderservices
