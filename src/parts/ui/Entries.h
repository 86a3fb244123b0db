#pragma once

#include "core/Mode.h"

#include <QString>

/// How other screens open those of this folder. Each waits until its screen is closed.

/// Opens the part screen, on a new record or on the part of this number ("0" for none); the number
/// of the part shown last comes back.
QString showPartDetail(Mode mode, const QString &partID);
/// Receives goods into stock.
void ShowInventoryCheckIn();

namespace frmPartManagerEntry {
/// Shows the list of parts, in spite of its name. selection: in, the quoted and comma-separated
/// part numbers to leave out; out, the selection text (PartSelection.h). True when something was
/// selected.
bool ShowServiceManager(QString &selection, bool selectMode);
} // namespace frmPartManagerEntry
