#pragma once

#include "platform/base/Error.h"
#include "platform/sql/Errors.h"

namespace db {

/// A failure of the database, with a number that the system knows and a description that a user
/// can read.
class DbError : public base::Error
{
public:
    DbError(int number, QString description, QString statement = {});
    /// The statement that failed, as the caller gave it; empty when none was running.
    [[nodiscard]] const QString &statement() const noexcept { return m_statement; }

private:
    QString m_statement;
};

namespace ErrorNumber {
using namespace sql::ErrorNumber;
inline constexpr int DuplicateKey = -2147467259;
inline constexpr int TableExists = sql::ErrorNumber::Syntax;
inline constexpr int DivisionByZero = 11;
inline constexpr int Overflow = base::ErrorNumber::Overflow;
inline constexpr int TextTooLong = static_cast<int>(0x80040E57);
/// Another workstation holds the row or the table for the moment.
inline constexpr int LockConflict = 3218;
inline constexpr int FileInUse = base::ErrorNumber::PermissionDenied;
inline constexpr int FileMissing = base::ErrorNumber::FileNotFound;
inline constexpr int FileExists = 58;
/// The system refuses to open or write the file for this user.
inline constexpr int FileAccess = base::ErrorNumber::PathAccess;
inline constexpr int DiskFull = base::ErrorNumber::DiskFull;
/// The database may be read only.
inline constexpr int ReadOnly = 3027;
inline constexpr int NotADatabase = 3343;
inline constexpr int LoginRefused = static_cast<int>(0x80040E4D);
inline constexpr int ServerUnreachable = 462;
/// BeginTrans within a transaction; CommitTrans or RollbackTrans without one.
inline constexpr int WrongTransactionState = 3034;
/// Any other failure of the engine.
inline constexpr int Unspecified = static_cast<int>(0x80004005) + 3;
} // namespace ErrorNumber

} // namespace db
