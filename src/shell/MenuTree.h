#pragma once

#include "core/Session.h"

#include <QStringView>
#include <span>

/// The main window's menus and quick links as data.
namespace shell {

enum class MenuKind { Menu, Entry, Separator };

/// One object of the menu tree. An entry comes after the menu that holds it.
struct MenuEntry
{
    MenuKind kind;
    const char *name;    ///< the object's name, by which screens join it
    const char *caption; ///< with "&" before a letter that is its key
    const char *parent;  ///< name of the menu that holds it, "" for the menu bar
    const char *purpose; ///< one line for the status bar, what it opens
    bool Rights::*right; ///< the right it needs, null when it is open to all
};

/// All objects, in the order of display.
[[nodiscard]] std::span<const MenuEntry> menuTree();
/// The object of a name, null when there is none.
[[nodiscard]] const MenuEntry *menuEntry(QStringView name);
/// True when the entry's right, if it needs one, is granted to the session's user.
[[nodiscard]] bool isAllowed(const MenuEntry &entry);

/// One quick link of the side bar; its place in the table is its index.
struct QuickLink
{
    const char *label;
    const char *icon;
    const char *key; ///< the key that follows the link without the mouse
    const char *purpose;
    const char *menuEntry; ///< the entry that it stands for, "" when it has an action of its own
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
