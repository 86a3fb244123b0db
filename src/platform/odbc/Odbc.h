#pragma once

#include <QString>
#include <QVariantList>
#include <memory>

/// Databases of other makers, reached through the drivers that the computer has for them.
namespace odbc {

/// A connection to one. Each statement stands by itself; there are no transactions. All raise
/// base::Error InvalidCall with the driver's own words, from which the connection string and the
/// password in it are taken out.
class Connection
{
public:
    /// connectionString: "Driver=...;Server=...;Uid=...;Pwd=..." or "DSN=...". Seconds bound the
    /// login and each statement, where the driver can.
    explicit Connection(const QString &connectionString, int seconds = 15);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Runs a statement with a value for each "?" in it: whole numbers and date-times as such, all
    /// else as text.
    void execute(const QString &statement, const QVariantList &values = {});
    /// The text of the first value of a query's first row, at most 1000 letters; empty without a
    /// row.
    [[nodiscard]] QString firstValue(const QString &query);

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
    QString m_connectionString;
    int m_seconds;
};

/// The value behind "Pwd" or "Password" in a connection string; empty without one.
[[nodiscard]] QString passwordOf(const QString &connectionString);

} // namespace odbc
