#pragma once

#include <functional>

/// What the pages of a machine's services and readings ask of the machine's screen, which holds
/// them, the mode and the transaction. All functions have to be set before the page is used.
struct MachineScreen
{
    /// True while the machine is being looked at: mode Browse, no transaction open.
    std::function<bool()> isBrowsing;
    /// Before a change: mode Browse becomes Modify, and the shared transaction is opened unless it
    /// is open.
    std::function<void()> firstEdit;
    /// cmdUpdate_Click: checks, saves and commits the machine. True when it was saved.
    std::function<bool()> save;
    /// cmdCancel_Click: undoes the whole edit of the machine and shows it anew.
    std::function<void()> cancel;
    /// After the rows of a page changed, for what else depends on them (the marks of the tabs;
    /// after a change of services the readings, after a reading the services).
    std::function<void()> refreshOthers;
};
