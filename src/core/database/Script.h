#pragma once

#include <QString>
#include <QStringList>

namespace company {

/// Cuts a script into its statements: they end with a semicolon, and "--" begins a comment up to
/// the end of the line. Neither counts inside quotes or brackets.
[[nodiscard]] QStringList splitStatements(QStringView script);

} // namespace company
