#pragma once

#include <QString>

/// The programs that carry files to the handheld and back. They stand outside this one, in the
/// folder that the maker's registry value "Path" names, and are given no arguments.
namespace exchange {

inline const QString ExportCarrier = QStringLiteral("QuorvantisSync.exe");
inline const QString ImportCarrier = QStringLiteral("QV2Go ImportSync.exe");

/// Starts one and waits, without a time-out, until it has ended. False, after a message, when none
/// is installed. A carrier that can't be started is reported, and all goes on.
[[nodiscard]] bool runCarrier(const QString &program);
/// A folder of the registry, which may be written with backslashes, in the form that this system's
/// files need.
[[nodiscard]] QString systemPath(QString stored);

} // namespace exchange
