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
/// Another workstation holds the row or file for the moment.
inline constexpr int LockConflict = static_cast<int>(0x80004005) + 1;
inline constexpr int TableExists = sql::ErrorNumber::Syntax;
inline constexpr int DivisionByZero = 11;
inline constexpr int Overflow = base::ErrorNumber::Overflow;
inline constexpr int TextTooLong = static_cast<int>(0x80040E57);
inline constexpr int FileInUse = base::ErrorNumber::PermissionDenied;
inline constexpr int NotADatabase = static_cast<int>(0x80004005) + 2;
/// Any other failure of the engine.
inline constexpr int Unspecified = static_cast<int>(0x80004005) + 3;
} // namespace ErrorNumber

} // namespace db
