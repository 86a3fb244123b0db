#pragma once

#include "platform/db/Connection.h"

#include <QDate>
#include <QTemporaryDir>

namespace test {

/// A database of a test's own, removed with the object: a copy of the empty one, with all tables
/// and first rows, that the build makes once. Declare it ahead of the connections to it.
///
///     test::CompanyDatabase database;
///     gcnData = database.open();
class CompanyDatabase
{
public:
    CompanyDatabase();
    CompanyDatabase(const CompanyDatabase &) = delete;
    CompanyDatabase &operator=(const CompanyDatabase &) = delete;

    [[nodiscard]] QString file() const;
    /// Without forced writes: the file may be lost.
    [[nodiscard]] db::Target target() const;
    /// A further connection to it.
    [[nodiscard]] std::unique_ptr<db::Connection> open() const;

protected:
    explicit CompanyDatabase(const QString &original);

private:
    QTemporaryDir m_folder;
};

/// The same with the small sample company in it, as of the day on which TestEnvironment stands.
class SampleCompany : public CompanyDatabase
{
public:
    SampleCompany();
    [[nodiscard]] static QDate today() { return {2024, 3, 15}; }
};

/// Rows as text, sorted, each with its values in the order of their columns' names; bytes as
/// digits.
[[nodiscard]] QStringList linesOf(const db::Recordset &rows);

} // namespace test
