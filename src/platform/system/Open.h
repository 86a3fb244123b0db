#pragma once

#include <QString>

namespace sys {

/// Hands a file or an address to the program that the system has for it. Raises base::Error
/// FileNotFound for a path at which nothing stands, InvalidCall when no program takes it.
void openWithDefault(const QString &pathOrAddress);

} // namespace sys
