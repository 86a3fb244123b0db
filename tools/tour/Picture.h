#pragma once

#include <QString>

namespace tour {

/// Writes a picture of the screen: all windows as they lie above each other, dialogs with the frame
/// that a desktop would give them. Raises a Fault when it can't be written.
void savePicture(const QString &file);

} // namespace tour
