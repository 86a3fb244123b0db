#include "scheduling/RequiredParts.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/Session.h"

namespace requiredparts {
namespace {

using namespace Qt::StringLiterals;

QString table(ServiceStore store)
{
    return store == ServiceStore::Catalogue ? u"tblServicesPart"_s : u"tblServiceUsedPart"_s;
}

QString keyColumn(ServiceStore store)
{
    return store == ServiceStore::Catalogue ? u"ServiceID"_s : u"ServiceUsedID"_s;
}

template<class Body>
void alone(Body &&body)
{
    orInTheWay(std::forward<Body>(body), [] {
        return u"Another workstation is changing the parts of this service. Please try again in a "
               "moment."_s;
    });
}

} // namespace

db::Recordset list(ServiceStore store, qint64 service)
{
    return gcnData->Open(
        u"Select  tblPart.PartID as [Part Number], Description, QuantityRequired as [Qty Req], "
        "%1.Price  From %1 left join tblPart on %1.PartID = tblPart.PartID where %2 = ?"_s.arg(
            table(store), keyColumn(store)),
        {service});
}

void add(ServiceStore store, qint64 service, const QList<parts::Chosen> &chosen)
{
    alone([&] {
        for (const parts::Chosen &part : chosen)
            gcnData->Execute(u"insert into %1(PartID,%2,QuantityRequired,Price,SupplierID) "
                             "values(?,?,?,?,?)"_s.arg(table(store), keyColumn(store)),
                             {part.PartID, service, part.Quantity, part.Price, part.SupplierID});
    });
}

void remove(ServiceStore store, qint64 service, const QString &PartID)
{
    alone([&] {
        gcnData->Execute(
            u"Delete from %1 where partID = ? and %2 = ?"_s.arg(table(store), keyColumn(store)),
            {PartID, service});
    });
}

void change(ServiceStore store, qint64 service, const QString &PartID, const QString &Column,
            const QVariant &Value, const std::optional<QVariant> &Shown)
{
    const QString line = u" where PartID = ? and %1 = ?"_s.arg(keyColumn(store));
    const auto write = [&](const QString &set, QVariantList values) {
        values << PartID << service;
        return gcnData->Execute(u"Update %1 set "_s.arg(table(store)) + set + line, values);
    };
    alone([&] {
        // Held before it is compared, as record::hold does for rows of one key.
        if (write(u"PartID = PartID"_s, {}) == 0)
            throw InTheWay(u"Part \"%1\" has been removed from this service on another "
                           "workstation. Nothing was stored."_s.arg(PartID));
        const db::Recordset now = gcnData->Open(
            u"Select [%1] from %2"_s.arg(Column, table(store)) + line, {PartID, service});
        record::demandShown(now.row(0), Column, Value, Shown);
        write(u"[%1] = ?"_s.arg(Column), {Value});
    });
}

} // namespace requiredparts
