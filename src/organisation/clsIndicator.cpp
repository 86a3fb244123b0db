#include "organisation/clsIndicator.h"

#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsIndicator> Fields[] = {
    {u"ParentID", &clsIndicator::ParentID},
    {u"ItemName", &clsIndicator::ItemName},
    {u"Show", &clsIndicator::Show},
    {u"FSize", &clsIndicator::FSize},
};

/// In their order; children are asked for before the first of them.
/// An item's number is looked for in the columns of other lists too: one that only seems to be in
/// use stays, which is the safe side.
constexpr UsageTest Usage[] = {
    {u"tblemployee", u"country", u"Employee"},
    {u"tblservices", u"CrewID", u"Services"},
    {u"tblemployee", u"Crew", u"Employee"},
    {u"tblequipment", u"CrewID", u"Equipment"},
    {u"tblemployee", u"EmpPosition", u"Employee"},
    {u"tblequipment", u"EquipmentType", u"Equipment"},
    {u"tblequipment", u"VehicleFuelType", u"Equipment(Vehicle Info)"},
    {u"tblequipment", u"EngineFuelType", u"Equipment(Engine Info)"},
    {u"tblequipment", u"leasecompany", u"Equipment(Lease)"},
    {u"tblequipment", u"EquipmentMake", u"Equipment"},
    {u"tblequipment", u"EngineMake", u"Equipment(Engine Info)"},
    {u"tblequipment", u"ManufactureID", u"Equipment(Purchase)"},
    {u"tblequipment", u"EquipmentModel", u"Equipment"},
    {u"tblequipment", u"EngineModel", u"Equipment(Engine Info)"},
    {u"tblpart", u"PartCategoryID", u"Part"},
    {u"tblSite", u"StateID", u"Site"},
    {u"tblEmployee", u"State", u"Employee"},
    {u"tblSupplier", u"State", u"Supplier"},
    {u"tblequipment", u"body", u"Equipment(Vehicle Info)"},
    {u"tblequipment", u"Chassis", u"Equipment(Vehicle Info)"},
    {u"tblequipment", u"vehicleenginetype", u"Equipment(Vehicle Info)"},
    {u"tblequipment", u"trans", u"Equipment(Vehicle Info)"},
};

constexpr record::MasterTable<clsIndicator> Master{
    "Class Indicator manager",
    record::Store::Lookup,
    u"tblIndicator",
    u"ItemID",
    &clsIndicator::ItemID,
    Fields,
    Usage,
    u"ItemID",
};

} // namespace

std::span<const record::Field<clsIndicator>> clsIndicator::fields()
{
    return Fields;
}

clsIndicator clsIndicator::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsIndicatorManager::SaveRecord(const clsIndicator &Indicator, ::Mode Mode,
                                     const std::optional<clsIndicator> &Shown) const
{
    return record::saveRecord(Master, Indicator, Mode, Shown);
}

bool clsIndicatorManager::DeleteRecord(qint64 ItemID) const
{
    return record::deleteRecord(Master, ItemID);
}

QString clsIndicatorManager::CanDeleteIndicator(qint64 ItemID) const
{
    // Children first: they would hang in the air, and no other list shows them.
    if (CanDeleteParent(ItemID))
        return QStringLiteral("Model/State");
    return usageWord(Usage, ItemID);
}

bool clsIndicatorManager::CanDeleteParent(qint64 ItemID) const
{
    return base::trapped(Master.module, "CanDeleteParent", false, [&] {
        return !gcnLookup
                    ->Open(QStringLiteral("Select * from tblIndicator where ParentID= ?"), {ItemID})
                    .isEmpty();
    });
}

qint64 clsIndicatorManager::ParentOf(qint64 ItemID) const
{
    const db::Recordset rows = gcnLookup->Open(
        QStringLiteral("select * from tblindicator where itemid = (select parentid  from "
                       "tblindicator where itemid=?)"),
        {ItemID});
    return rows.isEmpty() ? 0 : rows.current().integer(u"ItemID");
}

bool clsIndicatorManager::IsNameTaken(qint64 ParentID, const QString &Name) const
{
    return base::trapped(Master.module, "IsNameTaken", false, [&] {
        // Compared here and not by the statement: old rows have blanks around their names.
        const QString wanted = Name.trimmed().toUpper();
        for (const db::Row row :
             gcnLookup->Open(QStringLiteral("Select ItemName from tblIndicator where Parentid = ?"),
                             {ParentID}))
            if (row.text(u"ItemName").trimmed().toUpper() == wanted)
                return true;
        return false;
    });
}
