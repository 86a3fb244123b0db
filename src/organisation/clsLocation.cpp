#include "organisation/clsLocation.h"

#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsLocation> Fields[] = {
    {u"LocationName", &clsLocation::LocationName},
    {u"Description", &clsLocation::Description},
    {u"Site", &clsLocation::Site},
};

constexpr UsageTest Usage[] = {
    {u"tblEquipment", u"LocationID", u"Equipment"},
};

constexpr record::MasterTable<clsLocation> Master{
    "Class Location manager",
    record::Store::Lookup,
    u"tblLocation",
    u"LocationID",
    &clsLocation::LocationID,
    Fields,
    Usage,
    u"LocationID",
};

} // namespace

std::span<const record::Field<clsLocation>> clsLocation::fields()
{
    return Fields;
}

clsLocation clsLocation::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsLocation_Manager::SaveRecord(const clsLocation &Record, ::Mode Mode,
                                     const std::optional<clsLocation> &Shown) const
{
    return record::saveRecord(Master, Record, Mode, Shown);
}

bool clsLocation_Manager::DeleteRecord(qint64 LocationID) const
{
    return record::deleteRecord(Master, LocationID);
}

QString clsLocation_Manager::CanDeleteLocation(qint64 LocationID) const
{
    return usageWord(Usage, LocationID);
}

db::Recordset clsLocation_Manager::GetLocationInfo() const
{
    return record::list(Master);
}
