#include "parts/clsPart.h"

#include "core/Flag.h"
#include "core/Permission.h"
#include "core/RecordStore.h"
#include "core/Tables.h"
#include "core/Usage.h"
#include "platform/base/Trapped.h"

namespace {

constexpr const char *Module = "Class Part manager";

constexpr record::Field<clsPart> Fields[] = {
    {u"PartID", &clsPart::PartID},
    {u"Description", &clsPart::Description},
    {u"PartCategoryID", &clsPart::PartCategoryID},
    {u"Quantity", &clsPart::Quantity},
    {u"Price", &clsPart::Price},
    {u"SupplierID", &clsPart::SupplierID},
    {u"QtyMax", &clsPart::QtyMax},
    {u"QtyMin", &clsPart::QtyMin},
    {u"Inactive", &clsPart::Inactive},
    {u"Notes", &clsPart::Notes},
    {u"Bin", &clsPart::Bin},
    {u"Bar_Code", &clsPart::Bar_Code},
    {u"TrackInventory", &clsPart::TrackInventory},
};

} // namespace

std::span<const record::Field<clsPart>> clsPart::fields()
{
    return Fields;
}

clsPart clsPart::fromRow(const db::Row &row)
{
    clsPart part = record::load<clsPart>(row, Fields);
    part.OldPartID = part.PartID;
    part.Inactive = flagText(row.flag(u"Inactive"));
    part.TrackInventory = flagText(row.flag(u"TrackInventory"));
    return part;
}

db::Recordset clsPartManager::GetPartInfo() const
{
    return GetTableInfo(QStringLiteral("tblPart"), QStringLiteral("PartID"));
}

db::Recordset clsPartManager::GetPartCategory() const
{
    return GetTableInfo(QStringLiteral("tblPartCategory"), QStringLiteral("PartCategoryID"));
}

db::Recordset clsPartManager::GetSupplierInfo() const
{
    return GetTableInfo(QStringLiteral("tblSupplier"), QStringLiteral("Name"));
}

bool clsPartManager::SaveRecord(const clsPart &Part, ::Mode Mode,
                                const std::optional<clsPart> &Shown) const
{
    return base::trapped(Module, "SaveRecord", false, [&] {
        rights::demand(rights::Parts.toSave(Mode));
        clsPart stored = Part;
        stored.PartID = stored.PartID.trimmed();
        record::save<clsPart>(record::Store::Data, u"tblPart", Fields, stored, Shown, Mode,
                              u"PartID", Part.OldPartID, clsPart::fromRow);
        return true;
    });
}

bool clsPartManager::DeleteRecord(const QString &PartID) const
{
    return base::trapped(Module, "DeleteRecord", false, [&] {
        rights::demand(rights::Parts.remove);
        gcnData->Execute(QStringLiteral("Delete from tblPart where PartID=?"), {PartID});
        return true;
    });
}

QString clsPartManager::CanDeletePart(const QString &PartID) const
{
    static constexpr UsageTest Tests[] = {
        {u"tblEquipmentPart", u"PartID", u"Equipment"},
        {u"tblServicesPart", u"PartID", u"Services"},
        {u"tblServiceUsedPart", u"PartID", u"ServiceUsed Part"},
        {u"tblWoPartUsed", u"PartID", u"WorkOrder"},
    };
    return usageWord(Tests, PartID);
}

double clsPartManager::PartCommited(const QString &PartID) const
{
    return base::trapped(Module, "PartCommited", 0.0, [&] {
        return gcnData
            ->Open(
                QStringLiteral("Select Sum(QuantityRequired) as Commited from tblWoPartUsed Where "
                               "PartID = ?"),
                {PartID})
            .current()
            .real(u"Commited");
    });
}

db::Recordset clsPartManager::Selectable(const QStringList &LeftOut) const
{
    return gcnData
        ->Open(QStringLiteral(
            "SELECT tblPart.PartID as [Part Number] , tblPart.Description, tblIndicator.ItemName "
            "as [Part Category], tblPart.Quantity as [Qty on Hand], tblPart.Price, "
            "tblSupplier.Name as [Supplier], tblPart.Inactive, tblPart.SupplierID FROM (tblPart "
            "LEFT JOIN tblSupplier ON tblPart.SupplierID = tblSupplier.SupplierID) LEFT JOIN "
            "tblIndicator ON tblPart.PartCategoryID = tblIndicator.ItemID Where "
            "tblpart.Inactive=No order by tblpart.PartID"))
        .withoutTexts(u"Part Number", LeftOut);
}

void clsPartManager::ForgetPicked(const QString &PartID) const
{
    gcnData->Execute(QStringLiteral("Delete from tblTempServicePart where PartId=?"), {PartID});
}
