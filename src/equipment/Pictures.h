#pragma once

#include "platform/db/Recordset.h"

#include <QByteArray>
#include <QString>
#include <functional>

/// The pictures of machines, kept in the database as the bytes of the files that they came from.
/// Data, inside the transaction of whoever holds one.
namespace pictures {

/// The names of a machine's pictures, as [Picture Name]. Raises DbError.
[[nodiscard]] db::Recordset names(qint64 EquipmentID);
/// The bytes of a picture, empty when there is none of that name. Raises DbError.
[[nodiscard]] QByteArray bytes(qint64 EquipmentID, const QString &ImageName);

/// Stores a file as a machine's picture under a name that it doesn't have yet. isPicture tells
/// whether bytes can be shown, since decoding is for those who show them. False when the user was
/// told why it was refused, or an error reported; then nothing is stored.
[[nodiscard]] bool SaveImageInEquipment(qint64 EquipmentID, const QString &file,
                                        const QString &ImageName,
                                        const std::function<bool(const QByteArray &)> &isPicture);
/// Deletes a picture. False when an error was reported.
[[nodiscard]] bool DeleteImageRecord(qint64 EquipmentID, const QString &ImageName);

/// The user's own file in which a picture lies while it is being loaded, whatever its format. It
/// goes with the object.
class ScratchFile
{
public:
    /// Writes the bytes over what may be left there. Raises base::Error.
    explicit ScratchFile(const QByteArray &bytes);
    ~ScratchFile();
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
};

} // namespace pictures
