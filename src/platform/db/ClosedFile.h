#pragma once

#include <QString>

namespace db {

/// A database file that nobody is attached to, and that nobody can attach to for as long as this
/// lives: for putting another file in its place. Raises DbError.
class ClosedFile
{
public:
    /// Raises FileInUse when a program, this one included, is attached to the file. A backup of the
    /// engine's that was never ended is ended first.
    explicit ClosedFile(const QString &file);
    ~ClosedFile();
    ClosedFile(const ClosedFile &) = delete;
    ClosedFile &operator=(const ClosedFile &) = delete;

    /// Writes its bytes to another file, over one that may stand there, which stays until the copy
    /// is whole and on the disk.
    void copyTo(const QString &destination) const;
    /// Puts a file of the same folder in its place, in one step: whenever the computer stops, one
    /// of the two is there whole.
    void replaceBy(const QString &file);

private:
    QString m_file;
    int m_descriptor;
};

/// Makes sure that a file's bytes are on the disk, and its name in its folder.
void bringToDisk(const QString &file);

} // namespace db
