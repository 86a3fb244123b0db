#pragma once

#include <QString>
#include <exception>

namespace base {

/// A failure with the number and description that the user is shown and that the error list keeps.
/// Everything that the program throws on purpose is one of these.
class Error : public std::exception
{
public:
    Error(int number, QString description);

    /// The number by which the error log knows it, and the sentence for the user.
    [[nodiscard]] int number() const noexcept { return m_number; }
    [[nodiscard]] const QString &description() const noexcept { return m_description; }
    /// The description in UTF-8, for logs and test output.
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_utf8;
};

/// Error numbers that procedures treat on their own. Database numbers stand in db/DbError.h.
namespace ErrorNumber {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int DiskFull = 61;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int InvalidProperty = 380;
inline constexpr int DuplicateKeyInCollection = 457;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoCurrentRow = 3021;
inline constexpr int NoSuchItem = 3265;
} // namespace ErrorNumber

} // namespace base
