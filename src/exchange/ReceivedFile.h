#pragma once

#include <QByteArray>
#include <QString>

namespace exchange {

/// What stands in a file from a handheld. Raises base::Error, which names the file, for one that
/// can't be read or is larger than any that a handheld writes.
[[nodiscard]] QByteArray contentOf(const QString &path);

} // namespace exchange
