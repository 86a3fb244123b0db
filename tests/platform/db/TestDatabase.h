#pragma once

#include "platform/db/Connection.h"

#include <QDir>
#include <QString>
#include <QTemporaryDir>

namespace test {

/// A database of a test's own in a temporary folder, without forced writes; removed with the
/// object. Made by copying an empty one that each test program makes once.
class TestDatabase
{
public:
    /// An empty database.
    TestDatabase();
    /// A copy of another database file, such as a template with a schema.
    explicit TestDatabase(const QString &templateFile);

    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString file() const { return m_target.file; }
    /// A file beside it, and the names of all that are there.
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files); }
    [[nodiscard]] const db::Target &target() const { return m_target; }
    /// A new connection, one beside the others.
    [[nodiscard]] db::Connection connect() const { return db::Connection(m_target); }

private:
    QTemporaryDir m_folder;
    db::Target m_target;
};

/// An empty database that each test program makes once, to be copied.
[[nodiscard]] QString emptyDatabase();

} // namespace test
