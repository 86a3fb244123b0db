#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace test {

/// The surroundings of a program that is going to be killed at any moment: the engine's locks lie
/// in a folder of its own, for one that is killed while it attaches can leave them held for ever,
/// and all other programs of the folder would hang.
[[nodiscard]] inline QProcessEnvironment withOwnLocks(const QTemporaryDir &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QUORVANTIS_ENGINE"),
                       folder.filePath(QStringLiteral("engine")));
    return environment;
}

} // namespace test
