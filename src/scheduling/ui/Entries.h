#pragma once

#include "core/Mode.h"

#include <QString>

/// How other screens open those of this folder. Each waits until its screen is closed.

/// Opens a service of the catalogue, or a new one in mode Add. Returns the key of the service shown
/// last; 0 when none was, or when the user may not add one and has been told so.
qint64 showServicesDetail(Mode mode, qint64 ServiceID);
/// Opens the service of a machine.
void ShowServiceUsedDetail(qint64 ServiceUsedID);

namespace frmServicesManagerEntry {
/// Shows a list of services: "SL" the catalogue, "EL" those of the machine. selection: in, the
/// comma-joined catalogue keys to leave out; out, the keys picked in select mode, joined by ", ".
/// equipmentOption lets the user turn to the services of a machine that he then finds. True when
/// something was picked; kind then says whose keys these are.
bool ShowServiceManager(QString &selection, qint64 EquipmentID, QString &kind, bool selectMode,
                        bool equipmentOption);
/// The catalogue, to look through and manage.
void showCatalogue();
} // namespace frmServicesManagerEntry

namespace frmCountReadingEntry {
/// Takes a reading of a machine's meter; with an empty type the user chooses it. True when a
/// reading was saved.
bool ShowCountReadingForm(qint64 EquipmentID, const QString &CountType);
/// Asks for the reading at which a service was last performed. The type may come back changed.
bool ShowCountReadingForService(qint64 EquipmentID, qint64 ServiceUsedID,
                                const QString &ServiceName, QString &CountType);
} // namespace frmCountReadingEntry

/// The sheet of the meters that have not been read lately.
void ShowEquipmentReading();
/// Gives a machine to another crew. True when it was changed.
bool ShowAssignCrewForm(qint64 EquipmentID);

/// Lets the scheduling rules ask the user for first readings. Once, when the program starts.
void joinFirstReading();
