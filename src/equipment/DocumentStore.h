#pragma once

#include <QString>

/// The folders beside the program in which machines keep their documents, one for each machine.
namespace documents {

/// Full path of a machine's folder.
[[nodiscard]] QString folder(qint64 EquipmentID);
/// Full path of one of its documents.
[[nodiscard]] QString path(qint64 EquipmentID, const QString &DocumentName);
/// True when the document's file is there.
[[nodiscard]] bool exists(qint64 EquipmentID, const QString &DocumentName);

/// Copies a file into a machine's folder, over one of that name. Makes the folders that are
/// missing. Raises base::Error.
void store(qint64 EquipmentID, const QString &file, const QString &DocumentName);
/// Deletes a document's file. Raises FileNotFound when it has gone already.
void remove(qint64 EquipmentID, const QString &DocumentName);
/// Deletes a machine's files and its folder. A folder that isn't there is the normal case and
/// passes in silence; one that can't be deleted is told to the user.
void removeFolder(qint64 EquipmentID);

} // namespace documents
