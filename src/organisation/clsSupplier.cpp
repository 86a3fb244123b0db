#include "organisation/clsSupplier.h"

#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsSupplier> Fields[] = {
    {u"SupplierID", &clsSupplier::SupplierID},
    {u"Name", &clsSupplier::Name},
    {u"Tax", &clsSupplier::Tax},
    {u"Terms", &clsSupplier::Terms},
    {u"CreditLimit", &clsSupplier::CreditLimit},
    {u"Email", &clsSupplier::Email},
    {u"WebSite", &clsSupplier::WebSite},
    {u"Address", &clsSupplier::Address},
    {u"Address2", &clsSupplier::Address2},
    {u"City", &clsSupplier::City},
    {u"State", &clsSupplier::State},
    {u"Zip", &clsSupplier::Zip},
    {u"Phone", &clsSupplier::Phone},
    {u"Fax", &clsSupplier::Fax},
    {u"Atten", &clsSupplier::Atten},
    {u"LicenseNo", &clsSupplier::LicenseNo},
    {u"ContactName", &clsSupplier::ContactName},
    {u"Notes", &clsSupplier::Notes},
};

constexpr UsageTest Usage[] = {
    {u"tblEquipment", u"SupplierID", u"Equipment"},
    {u"tblPart", u"SupplierID", u"Part"},
};

constexpr record::MasterTable<clsSupplier> Master{
    "Class Supplier manager",
    record::Store::Lookup,
    u"tblSupplier",
    u"SupplierID",
    &clsSupplier::SupplierID,
    Fields,
    Usage,
    u"SupplierID",
};

} // namespace

std::span<const record::Field<clsSupplier>> clsSupplier::fields()
{
    return Fields;
}

clsSupplier clsSupplier::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsSupplier_Manager::SaveRecord(const clsSupplier &Supplier, ::Mode Mode,
                                     const std::optional<clsSupplier> &Shown) const
{
    return record::saveRecord(Master, Supplier, Mode, Shown);
}

bool clsSupplier_Manager::DeleteRecord(qint64 SupplierID) const
{
    return record::deleteRecord(Master, SupplierID);
}

QString clsSupplier_Manager::CanDeleteLocation(qint64 SupplierID) const
{
    return usageWord(Usage, SupplierID);
}
