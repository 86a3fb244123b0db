#pragma once

#include <QString>

/// Copying a database file as plain bytes. Raises DbError.
namespace db {

/// A database file opened for copying. Never keeps anybody from attaching to it for longer than
/// the moment of a test.
class FreeFile
{
public:
    /// Opens the file and tests whether somebody is attached to it. Raises DbError when it can't be
    /// opened.
    explicit FreeFile(const QString &file);
    ~FreeFile();
    FreeFile(const FreeFile &) = delete;
    FreeFile &operator=(const FreeFile &) = delete;

    /// True when no program was attached to the file at the latest test.
    [[nodiscard]] bool isFree() const { return m_isFree; }
    /// True while a backup of the engine's own has diverted the changes into a second file, so that
    /// this one is old.
    [[nodiscard]] bool isDiverted() const;
    /// Writes the file's bytes to a new file and makes sure that they are on the disk. False, and
    /// no file, when somebody attached to the source meanwhile, since he may have changed it.
    [[nodiscard]] bool copyTo(const QString &destination);

private:
    void test();

    QString m_file;
    int m_descriptor;
    bool m_isFree = false;
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
