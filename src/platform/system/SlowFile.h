#pragma once

#include <QString>
#include <chrono>
#include <optional>

namespace sys {

/// The first line of a text file in UTF-8, without its end; empty for an empty file. Nothing when
/// it has not come within the limit: a share that hangs can't be told to stop, so the read is left
/// to itself then. Raises base::Error PathNotFound without its folder, FileNotFound
/// without the file, PermissionDenied where it can't be read.
[[nodiscard]] std::optional<QString> firstLine(const QString &path,
                                               std::chrono::milliseconds limit);

} // namespace sys
