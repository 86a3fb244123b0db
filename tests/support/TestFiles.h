#pragma once

#include <QFile>
#include <gtest/gtest.h>

namespace test {

/// Makes a file with these bytes, or replaces it.
inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

/// The bytes of a file; "(none)" when it isn't there.
[[nodiscard]] inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(none)";
}

} // namespace test
