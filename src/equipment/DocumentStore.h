#pragma once

#include "platform/db/Recordset.h"

#include <QString>
#include <functional>

/// The documents of machines: their names are rows of the database, written on Data inside the
/// transaction of whoever holds one; their files lie beside the program in a folder for each
/// machine, and no transaction brings them back.
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

/// The names of a machine's documents, as [Document Name]. Raises DbError.
[[nodiscard]] db::Recordset names(qint64 EquipmentID);
/// Makes a file a document of the machine: copies the file and stores the name. mayReplace is asked
/// before one of that name is replaced. False when it was not added: it said no, or the user was
/// told why.
[[nodiscard]] bool addDocument(qint64 EquipmentID, const QString &file,
                               const std::function<bool(const QString &name)> &mayReplace);
/// Deletes a document's row, then its file. False when an error was reported; the row may have
/// gone by then.
[[nodiscard]] bool DeleteDocumentRecord(qint64 EquipmentID, const QString &DocumentName);

} // namespace documents
