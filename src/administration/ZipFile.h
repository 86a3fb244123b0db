#pragma once

#include <QIODevice>
#include <QString>
#include <QStringList>
#include <memory>

struct zip;

/// Zip archives, by the zip library. All raise base::Error with a sentence that names the file.
namespace administration {

/// Makes an archive. The same files give the same bytes at any time and place. It appears under its
/// name only when commit() has come back; what stood there stays until then.
class ZipWriter
{
public:
    explicit ZipWriter(QString path);
    ~ZipWriter();
    ZipWriter(const ZipWriter &) = delete;
    ZipWriter &operator=(const ZipWriter &) = delete;

    /// Adds a file under a name; it must stay there until commit().
    void add(const QString &name, const QString &file);
    /// Packs the files and puts the archive in its place.
    void commit();

private:
    [[nodiscard]] QString partial() const;

    QString m_path;
    zip *m_archive = nullptr;
};

/// Reads an archive.
class ZipReader
{
public:
    /// What is looked at before anything is read: whether all of the archive agrees with its list,
    /// as in those of our own making, or nothing. What is read is checked in any case.
    enum class Check { All, WhatIsRead };
    explicit ZipReader(QString path, Check check = Check::All);
    ~ZipReader();
    ZipReader(const ZipReader &) = delete;
    ZipReader &operator=(const ZipReader &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }
    [[nodiscard]] QStringList names() const;
    /// How long a file of the archive says to be, in bytes, unpacked; 0 for one that isn't there.
    [[nodiscard]] qint64 size(const QString &name) const;
    /// A file of the archive, open to be read from its beginning to its end. Raises FileNotFound. A
    /// read of a damaged file fails as reads of devices do.
    [[nodiscard]] std::unique_ptr<QIODevice> open(const QString &name) const;

private:
    QString m_path;
    zip *m_archive = nullptr;
};

} // namespace administration
