#pragma once

#include "platform/db/Connection.h"

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
