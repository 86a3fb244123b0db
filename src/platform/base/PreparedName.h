#pragma once

#include <QString>

namespace base {

/// The name beside a file under which this computer prepares what is to take the file's place. Two
/// workstations that do so at once must not take each other's work for their own, and what a
/// program has left that was killed is in the way of its next run only.
[[nodiscard]] QString preparedName(const QString &file, const QString &mark);

} // namespace base
