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
    record::Store::Data,
    u"tblSupplier",
    u"SupplierID",
    &clsSupplier::SupplierID,
    Fields,
    Usage,
    u"SupplierID",
};

} // namespace

clsSupplier clsSupplier::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsSupplier_Manager::SaveRecord(const clsSupplier &Supplier, ::Mode Mode) const
{
    return record::saveRecord(Master, Supplier, Mode);
}

bool clsSupplier_Manager::DeleteRecord(qint64 SupplierID) const
{
    return record::deleteRecord(Master, SupplierID);
}

QString clsSupplier_Manager::CanDeleteLocation(qint64 SupplierID) const
{
    return usageWord(Usage, SupplierID);
}
