#pragma once

#include "platform/db/Recordset.h"

#include <QHash>
#include <QString>

namespace input {
class IdCombo;
}

/// Fills a list with texts and ids, the item "  " (two blanks, id 0) first if AddBlank, and shows
/// the first item. Gives back the ids as text by the items' texts, which is what a screen finds an
/// id from. All rows are listed; a text that was there already, whatever its case, is reported,
/// once while the program runs. An id that is too large stays 0 in the list. Leaves the recordset
/// at its end.
QHash<QString, QString> LoadItemWithIdToCombo(input::IdCombo &Combo, db::Recordset &Rows,
                                              const QString &IdField, const QString &TextField,
                                              bool AddBlank);
QHash<QString, QString> LoadItemWithIdToCombo(input::IdCombo &Combo, db::Recordset &&Rows,
                                              const QString &IdField, const QString &TextField,
                                              bool AddBlank);
/// The same with texts only.
void LoadItemOnlyIdToCombo(input::IdCombo &Combo, db::Recordset &Rows, const QString &Field,
                           bool AddBlank);
void LoadItemOnlyIdToCombo(input::IdCombo &Combo, db::Recordset &&Rows, const QString &Field,
                           bool AddBlank);
