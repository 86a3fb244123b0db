#pragma once

#include "platform/report/render/PdfDocument.h"

#include <QSize>

namespace report {

/// Writes a picture from its file's bytes: a photograph as it is packed already, another one anew
/// and without loss, see-through where it was. The number of its object, 0 when it can't be read;
/// size becomes that in dots.
[[nodiscard]] int writePdfPicture(PdfDocument &document, const QByteArray &data, QSize &size);

} // namespace report
