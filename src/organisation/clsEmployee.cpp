#include "organisation/clsEmployee.h"

#include "core/MasterTable.h"
#include "core/Tables.h"

namespace {

constexpr const char *Module = "Employee";

constexpr record::Field<clsEmployee> Fields[] = {
    {u"EmployeeID", &clsEmployee::EmployeeID},
    {u"FirstName", &clsEmployee::FirstName},
    {u"Lastname", &clsEmployee::Lastname},
    {u"InitialName", &clsEmployee::InitialName},
    {u"BirthDate", &clsEmployee::BirthDate},
    {u"Gender", &clsEmployee::Gender},
    {u"Address", &clsEmployee::Address},
    {u"City", &clsEmployee::City},
    {u"State", &clsEmployee::State},
    {u"Country", &clsEmployee::Country},
    {u"Zip", &clsEmployee::Zip},
    {u"Phone", &clsEmployee::Phone},
    {u"CellPhone", &clsEmployee::CellPhone},
    {u"Email", &clsEmployee::Email},
    {u"Pager", &clsEmployee::Pager},
    {u"SS", &clsEmployee::SS},
    {u"LicenseNo", &clsEmployee::LicenseNo},
    {u"Site", &clsEmployee::Site},
    {u"Skills", &clsEmployee::Skills},
    {u"Crew", &clsEmployee::Crew},
    {u"EmpPosition", &clsEmployee::EmpPosition},
    {u"LaborCost", &clsEmployee::LaborCost},
    {u"LaborRate", &clsEmployee::LaborRate},
    {u"Inactive", &clsEmployee::Inactive},
    {u"IncludeWoList", &clsEmployee::IncludeWoList},
};

} // namespace

std::span<const record::Field<clsEmployee>> clsEmployee::fields()
{
    return Fields;
}

clsEmployee clsEmployee::fromRow(const db::Row &row)
{
    clsEmployee employee = record::load<clsEmployee>(row, Fields);
    // The row is found by it when the number is changed.
    employee.OldEmployeeID = employee.EmployeeID;
    return employee;
}

bool clsEmployee_Manager::SaveRecord(const clsEmployee &Employee, ::Mode Mode,
                                     const std::optional<clsEmployee> &Shown) const
{
    return base::trapped(Module, "SaveRecord", false, [&] {
        clsEmployee stored = Employee;
        stored.EmployeeID = stored.EmployeeID.trimmed();
        record::save<clsEmployee>(record::Store::Data, u"tblEmployee", Fields, stored, Shown, Mode,
                                  u"EmployeeID", Employee.OldEmployeeID, clsEmployee::fromRow);
        return true;
    });
}

bool clsEmployee_Manager::DeleteRecord(const QString &EmployeeID) const
{
    return base::trapped(Module, "DeleteRecord", false, [&] {
        try {
            gcnData->Execute(QStringLiteral("Delete from tblEmployee where EmployeeID = ?"),
                             {EmployeeID});
        } catch (const db::DbError &error) {
            // The engine's own words would name a constraint. Its number stays, by which the log
            // tells the causes apart.
            throw base::Error(error.number(), QStringLiteral("Deletion not allowed."));
        }
        return true;
    });
}

db::Recordset clsEmployee_Manager::GetEmployeeInfo() const
{
    return GetTableInfo(QStringLiteral("tblEmployee"), QStringLiteral("EmployeeId"));
}

db::Recordset clsEmployee_Manager::GetSiteInfo() const
{
    return GetTableInfo(QStringLiteral("tblSite"), QStringLiteral("SiteId"));
}

db::Recordset clsEmployee_Manager::GetCrewInfo() const
{
    return GetTableInfo(QStringLiteral("tblCrew"), QStringLiteral("CrewId"));
}
