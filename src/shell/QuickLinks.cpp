#include "shell/QuickLinks.h"

#include <array>

namespace shell {
namespace {

// clang-format off
constexpr std::array<QuickLink, 8> links{{
    {"Work Orders", "work-order", "F2", "Make and print work orders for what has fallen due",
     "ShowPrintWorkorder"},
    {"Equipment", "equipment", "F3", "Find a machine and open it", ""},
    {"Services", "service", "F4", "The catalogue of services", "frmServicesManager"},
    {"Suppliers", "supplier", "F5", "Find a supplier and open it", ""},
    {"Employees", "employee", "F6", "Find an employee and open the record", ""},
    {"Part Inventory", "part", "F7", "Find a part and open it", ""},
    {"Reports", "report", "F8", "Show or hide the list of reports", ""},
    {"Help && Support", "help", "F1", "Open the help", "mnuQuorvantisHelp"},
}};
// clang-format on

constexpr QuickFindTarget equipmentSearch{"UnitNo", "Unit No", "tblEquipment", "frmEquipment"};
constexpr QuickFindTarget supplierSearch{"Name", "Supplier Name", "tblSupplier", "frmSupplier"};
constexpr QuickFindTarget employeeSearch{"EmployeeID", "Employee Number", "tblEmployee",
                                         "frmEmployee"};

} // namespace

std::span<const QuickLink> quickLinks()
{
    return links;
}

const QuickFindTarget *quickFindTarget(int quickLink)
{
    switch (quickLink) {
    case EquipmentLink:
        return &equipmentSearch;
    case SuppliersLink:
        return &supplierSearch;
    case EmployeesLink:
        return &employeeSearch;
    default:
        return nullptr;
    }
}

} // namespace shell
