#include "organisation/clsCostCenter.h"

#include "core/Identifiers.h"
#include "core/MasterTable.h"

namespace {

constexpr record::Field<clsCostCenter> Fields[] = {
    {u"Description", &clsCostCenter::Description},
    {u"Budget", &clsCostCenter::Budget},
};

constexpr UsageTest Usage[] = {
    {u"tblServices", u"CostCenterID", u"Services"},
};

constexpr record::MasterTable<clsCostCenter> Master{
    "Class CostCenter manager",
    record::Store::Lookup,
    u"tblCostCenter",
    u"CostCenterID",
    &clsCostCenter::CostCenterID,
    Fields,
    Usage,
    u"CostCenterID",
};

} // namespace

std::span<const record::Field<clsCostCenter>> clsCostCenter::fields()
{
    return Fields;
}

clsCostCenter clsCostCenter::fromRow(const db::Row &row)
{
    return record::fromRow(Master, row);
}

bool clsCostCenterManager::SaveRecord(const clsCostCenter &Record, ::Mode Mode,
                                      const std::optional<clsCostCenter> &Shown) const
{
    return record::saveRecord(Master, Record, Mode, Shown);
}

bool clsCostCenterManager::DeleteRecord(qint64 CostCenterID) const
{
    return record::deleteRecord(Master, CostCenterID);
}

QString clsCostCenterManager::CanDeleteCostCenter(qint64 CostCenterID) const
{
    return usageWord(Usage, CostCenterID);
}

db::Recordset clsCostCenterManager::GetCostCenterInfo() const
{
    return record::list(Master);
}

qint64 clsCostCenterManager::GenrateID() const
{
    return GenerateIDWithIndicator(QStringLiteral("tblCostCenter"), QStringLiteral("CostCenterID"));
}
