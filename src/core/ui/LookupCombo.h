#pragma once

#include "platform/input/IdCombo.h"

#include <utility>

/// Lists of lookup items on screens.

/// Fills a list with the members of a lookup list by name, a blank row first. Lookup.
void loadLookupList(input::IdCombo &combo, qint64 list);
/// Fills a list with the states of all countries by name, a blank row first. Lookup.
void loadAllStates(input::IdCombo &combo);
/// Fills a list with the sites by the given column, a blank row first. Lookup.
void loadSites(input::IdCombo &combo, const QString &order);
/// Fills a list with the crews, number and description, a blank row first. Lookup.
void loadCrews(input::IdCombo &combo);

/// Shows the item of an id, 0 for the blank row. An item that is there no more is told to the user
/// ("One of lookup item has been deleted"); the list is blank then, and keeps the id.
void showLookup(input::IdCombo &combo, qint64 id);

/// RefreshCombo: rebuilds a list after its editor was closed, and keeps the earlier choice, shown
/// as far as it is still there.
template<class Load>
void rebuildKeepingChoice(input::IdCombo &combo, Load &&load)
{
    const qint64 chosen = combo.id();
    std::forward<Load>(load)();
    combo.display(chosen);
}
