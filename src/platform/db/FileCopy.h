#pragma once

#include <QString>

/// Copying a database file as plain bytes. Raises DbError.
namespace db {

/// An exclusive hold on a database file: nobody can attach to it meanwhile.
class FileHold
{
public:
    /// Opens the file; held() tells whether the hold was granted. Raises DbError when the file
    /// can't be opened.
    explicit FileHold(const QString &file);
    ~FileHold();
    FileHold(const FileHold &) = delete;
    FileHold &operator=(const FileHold &) = delete;

    /// False when some program is attached to the file.
    [[nodiscard]] bool held() const { return m_held; }
    /// True while a backup of the engine's own has diverted the changes into a second file, so that
    /// this one is old.
    [[nodiscard]] bool isDiverted() const;
    /// Writes the file's bytes to a new file and makes sure that they are on the disk.
    void copyTo(const QString &destination) const;

private:
    QString m_file;
    int m_descriptor;
    bool m_held;
};

/// Marks a copy that the engine made of a file in use as a database of its own.
void finishEngineCopy(const QString &file);

/// Removes a file at the end unless it was moved to its place: no failure leaves half a file
/// behind.
class PartialFile
{
public:
    /// A name beside the destination; what stands there from an earlier failure is removed.
    explicit PartialFile(const QString &destination, const QString &suffix);
    ~PartialFile();
    PartialFile(const PartialFile &) = delete;
    PartialFile &operator=(const PartialFile &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }
    /// Puts the file in its place, over a file that may stand there.
    void moveTo(const QString &destination);

private:
    QString m_path;
};

} // namespace db
