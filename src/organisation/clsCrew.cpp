#include "organisation/clsCrew.h"

#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsCrew> Fields[] = {
    {u"CrewNumber", &clsCrew::CrewNumber},
    {u"Description", &clsCrew::Description},
};

constexpr UsageTest Usage[] = {
    {u"tblServices", u"CrewID", u"Services"},
    {u"tblServiceUsed", u"CrewID", u"ServiceUsed"},
    {u"tblEmployee", u"Crew", u"Employee"},
    {u"tblEquipment", u"CrewID", u"Equipment"},
};

constexpr record::MasterTable<clsCrew> Master{
    "Class Crew manager",
    record::Store::Lookup,
    u"tblCrew",
    u"CrewID",
    &clsCrew::CrewID,
    Fields,
    // In no order: the list stands as the crews were entered.
    Usage,
    u"",
};

} // namespace

std::span<const record::Field<clsCrew>> clsCrew::fields()
{
    return Fields;
}

clsCrew clsCrew::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsCrewManager::SaveRecord(const clsCrew &Crew, ::Mode Mode,
                                const std::optional<clsCrew> &Shown) const
{
    return record::saveRecord(Master, Crew, Mode, Shown);
}

bool clsCrewManager::DeleteRecord(qint64 CrewID) const
{
    return record::deleteRecord(Master, CrewID);
}

QString clsCrewManager::CanDeleteCrew(qint64 CrewID) const
{
    return usageWord(Usage, CrewID);
}

db::Recordset clsCrewManager::GetCrewInfo() const
{
    return record::list(Master);
}
