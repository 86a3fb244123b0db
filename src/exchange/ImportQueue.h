#pragma once

#include <QByteArray>
#include <QList>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <optional>

namespace exchange {

/// The folder in which the handheld's files wait for their import. They stay until a run has
/// committed them.
class ImportQueue
{
public:
    /// folder: full path, or empty where none is configured.
    explicit ImportQueue(QString folder);

    /// The full path of a file of the folder, whether it is there or not.
    [[nodiscard]] QString path(const QString &name) const;
    /// True when the transfer that filled the folder came to its end.
    [[nodiscard]] bool isMarked() const;

    /// Keeps other workstations out for as long as this queue lives; False when one is at work.
    [[nodiscard]] bool lock();

    struct File
    {
        QString name;
        QByteArray content;
    };
    /// The files as they stand now, by name; those that have another prefix come without their
    /// content. Raises base::Error: PathNotFound for a missing folder, PathAccess where nothing
    /// can be deleted afterwards or a file can't be read, InvalidCall for one too large to be a
    /// handheld's.
    [[nodiscard]] QList<File> read(const QStringList &prefixes);

    /// Deletes what read() gave. A file that has changed since, or come later, stays for the next
    /// run. One that was no XML is kept aside, its new place comes back. Raises PathAccess, naming
    /// what could not be deleted, after it has tried all.
    [[nodiscard]] QStringList clear(const QStringList &unreadable);

private:
    [[nodiscard]] bool hasChanged(const File &file) const;
    void remove(const QString &name) const;
    [[nodiscard]] QString putAside(const QString &name) const;

    QString m_folder;
    QList<File> m_files; ///< their content as a checksum
    QStringList m_read;  ///< the names of those whose content was read
    std::optional<QLockFile> m_lock;
};

} // namespace exchange
