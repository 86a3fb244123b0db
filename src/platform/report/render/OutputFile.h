#pragma once

#include <QSaveFile>

namespace report {

/// A file that appears whole under its name or not at all: it is written beside its place and
/// renamed at the end. Left without finish, for whatever reason, it leaves nothing behind.
class OutputFile
{
public:
    /// Begins the file. Raises base::Error when the place can't be written to.
    explicit OutputFile(const QString &path);

    [[nodiscard]] QIODevice &device() { return m_file; }
    /// Raises base::Error when not all of it can be written, DiskFull for a full disk.
    void write(const QByteArray &bytes);
    /// Puts the file in its place. Raises base::Error as write does.
    void finish();

private:
    [[noreturn]] void fail();

    QSaveFile m_file;
};

} // namespace report
