#pragma once

#include "exchange/ImportLog.h"
#include "exchange/SectionFile.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace exchange {

/// The import of files that have the shape of the export, one at a time and without a transaction:
/// what was applied before a failure stays. One object is one visit to the screen. A kind of
/// section that a file of the visit has held is skipped in those that follow.
class ImportXml
{
public:
    struct File
    {
        QString name;
        QDateTime modified;
    };
    /// The files of "\XML_IN" by name. A missing folder has none, and the user is told.
    [[nodiscard]] static QList<File> files();

    /// Imports a file of the folder, keeps a copy of it, writes the log, and deletes the file when
    /// nothing of it had to be logged. True when its sections were gone through; otherwise the user
    /// was told why not, and nothing has changed. Data. Raises base::Error.
    [[nodiscard]] bool run(const QString &name);
    /// Forgets log, text and failure, but not which kinds of sections were handled.
    void clear();

private:
    [[nodiscard]] static QString path(const QString &name);
    static void Backup_xml(const QString &name);
    [[nodiscard]] bool IsWorkOrderExists() const { return m_file->has(u"tblWorkorder"); }
    void walk();
    /// One pass over the sections; True when another one has to follow.
    [[nodiscard]] bool pass();
    void deleteImported(const QString &name, const QByteArray &content) const;

    bool m_equipment = false;
    bool m_counts = false;
    bool m_workorders = false;
    bool m_services = false;
    bool m_parts = false;
    std::optional<SectionFile> m_file;
    ImportLog m_log;
};

} // namespace exchange
