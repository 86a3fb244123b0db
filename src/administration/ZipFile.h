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
    explicit ZipReader(QString path);
    ~ZipReader();
    ZipReader(const ZipReader &) = delete;
    ZipReader &operator=(const ZipReader &) = delete;

    [[nodiscard]] QStringList names() const;
    /// A file of the archive, open to be read from its beginning to its end. Raises FileNotFound. A
    /// read of a damaged file fails as reads of devices do.
    [[nodiscard]] std::unique_ptr<QIODevice> open(const QString &name) const;

private:
    QString m_path;
    zip *m_archive = nullptr;
};

} // namespace administration
