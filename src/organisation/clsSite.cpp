#include "organisation/clsSite.h"

#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsSite> Fields[] = {
    {u"SiteName", &clsSite::SiteName}, {u"Address", &clsSite::Address}, {u"City", &clsSite::City},
    {u"StateID", &clsSite::StateID},   {u"Zip", &clsSite::Zip},
};

constexpr UsageTest Usage[] = {
    {u"tblLocation", u"Site", u"tblLocation"},
    {u"tblEquipment", u"SiteID", u"tblEquipment"},
    {u"tblEmployee", u"Site", u"tblEmployee"},
};

constexpr record::MasterTable<clsSite> Master{
    "Class Site manager",
    record::Store::Lookup,
    u"tblSite",
    u"SiteID",
    &clsSite::SiteID,
    Fields,
    Usage,
    u"SiteId",
};

} // namespace

std::span<const record::Field<clsSite>> clsSite::fields()
{
    return Fields;
}

clsSite clsSite::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsSiteManager::SaveRecord(const clsSite &Record, ::Mode Mode,
                                const std::optional<clsSite> &Shown) const
{
    return record::saveRecord(Master, Record, Mode, Shown);
}

bool clsSiteManager::DeleteRecord(qint64 SiteID) const
{
    return record::deleteRecord(Master, SiteID);
}

QString clsSiteManager::CanDeleteSite(qint64 SiteID) const
{
    return usageWord(Usage, SiteID);
}

db::Recordset clsSiteManager::GetSiteInfo() const
{
    return record::list(Master);
}
