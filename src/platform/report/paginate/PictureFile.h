#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <optional>

/// Pictures of reports, which may come with a layout of strangers.
namespace report {

/// The picture file of a name in a folder or below it; nothing for a name that leads elsewhere: by
/// its path, by a link, to a device, or to another computer.
[[nodiscard]] std::optional<QString> pictureFileBeside(const QString &folder, const QString &name);

/// Why the bytes of a picture can't be shown, told from their head alone: "is too large", "is no
/// picture". Empty for those that can.
[[nodiscard]] QString pictureFault(const QByteArray &data);

/// A picture's image; a null one when it can't be shown. Reads no file, whatever the bytes name.
[[nodiscard]] QImage pictureImage(const QByteArray &data);

} // namespace report
