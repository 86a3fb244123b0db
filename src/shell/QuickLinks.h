#pragma once

#include <span>

/// The quick links of the main window's side bar as data.
namespace shell {

/// One quick link of the side bar; its place in the table is its index.
struct QuickLink
{
    const char *label;
    const char *icon;
    const char *key; ///< the key that follows the link without the mouse
    const char *purpose;
    const char *opening; ///< what it opens (core/OpeningTable.h), "" for an action of its own
};

enum QuickLinkIndex {
    WorkOrdersLink,
    EquipmentLink,
    ServicesLink,
    SuppliersLink,
    EmployeesLink,
    PartInventoryLink,
    ReportsLink,
    HelpLink
};

/// All links, in the order of QuickLinkIndex.
[[nodiscard]] std::span<const QuickLink> quickLinks();

/// What a find-and-open quick link looks for, and the form that opens what was found.
struct QuickFindTarget
{
    const char *field;
    const char *label;
    const char *table;
    const char *form;
};

/// The target of a find-and-open link, null for a link of another kind.
[[nodiscard]] const QuickFindTarget *quickFindTarget(int quickLink);

} // namespace shell
