#include "equipment/MachineParts.h"

#include "core/Session.h"
#include "parts/PartSelection.h"
#include "platform/base/Trapped.h"

namespace machineparts {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Equipment";

} // namespace

db::Recordset listed(qint64 EquipmentID)
{
    return dataConnection().Open(
        u"Select tblPart.Partid as [Part Number],Description, tblEquipmentPart.QuantityRequired as "
        "[Qty Req] ,tblEquipmentPart.Price as [Extended Cost] from tblEquipmentPart Left Join "
        "tblPart on tblEquipmentPart.PartID = tblPart.PartID where EquipmentID = ?"_s,
        {EquipmentID});
}

bool AddPartRecord(qint64 EquipmentID, const QString &selection)
{
    return base::trapped(Module, "AddPartRecord", false, [&] {
        for (const parts::Chosen &part : parts::parseSelection(selection))
            dataConnection().Execute(
                u"insert into tblEquipmentPart(EquipmentID,PartID,QuantityRequired,Price,"
                "SupplierID) values(?,?,?,?,?)"_s,
                {EquipmentID, part.PartID, part.Quantity, part.Price, part.SupplierID});
        return true;
    });
}

bool DeletePartRecord(qint64 EquipmentID, const QString &PartID)
{
    return base::trapped(Module, "DeletePartRecord", false, [&] {
        dataConnection().Execute(
            u"Delete From tblEquipmentPart where EquipmentId = ? and PartID = ?"_s,
            {EquipmentID, PartID});
        return true;
    });
}

} // namespace machineparts
