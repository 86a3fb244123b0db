#pragma once

#include "core/ui/ScreenCalls.h"

#include <QString>

/// How other screens open the finds and the pick list. Each waits until its dialog is closed.

/// Finds a record of a table; its key, blank when cancelled. With request.several the keys of all
/// ticked rows, joined by commas.
[[nodiscard]] QString ShowQuickFind(const ScreenCalls::QuickFind &request);

namespace frmPartQuickFindEntry {
/// Finds a part, beginning on the one of this number; its number, blank when cancelled.
[[nodiscard]] QString ShowQuickFind(const QString &partID);
} // namespace frmPartQuickFindEntry

/// Ticks rows of a query (selectText, a blank, filterText); the key values of the ticked rows
/// joined by commas, without quotes. A query that fails is told as "Incorrect Filter".
/// title: stands above the list. The search goes by the two columns, whose types are those of
/// search fields (INT, VARCHAR...).
[[nodiscard]] QString ShowItemListDetail(const QString &selectText, const QString &filterText,
                                         const QString &title, const QString &keyColumn,
                                         const QString &keyType, const QString &secondColumn,
                                         const QString &secondType);
/// The same list for a single choice: the "UnitNo" of the row that was chosen.
[[nodiscard]] QString ShowItemListDetailForEquUti(const QString &selectText,
                                                  const QString &filterText, const QString &title,
                                                  const QString &keyColumn, const QString &keyType,
                                                  const QString &secondColumn,
                                                  const QString &secondType);

/// Joins these to the calls that screens of earlier folders make.
void joinQuickFinds();
