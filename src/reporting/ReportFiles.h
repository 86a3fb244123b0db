#pragma once

#include "platform/report/layout/Layout.h"

#include <QString>

/// The layout files beside the program.
namespace reportfiles {

/// The file of a report's layout: the customer's own copy in "\Custom Reports\" when there is one,
/// else the delivered one in "\Reports\".
[[nodiscard]] QString layoutPath(const QString &report);
/// True when the customer has a layout of this report.
[[nodiscard]] bool hasOwnLayout(const QString &report);
/// True when the delivered layout is there.
[[nodiscard]] bool isDelivered(const QString &report);
/// Reads the one at layoutPath. A layout that isn't there or is damaged raises base::Error with the
/// place of the damage.
[[nodiscard]] report::Layout readLayout(const QString &report);
/// The same for the layout at a path.
[[nodiscard]] report::Layout readLayoutAt(const QString &path);
/// The same for the delivered one.
[[nodiscard]] report::Layout readDelivered(const QString &report);
/// Puts the delivered layouts into the folder "Reports" of an application folder, in place of those
/// of an earlier version. Raises base::Error.
void installDelivered(const QString &applicationFolder);

} // namespace reportfiles
