#pragma once

#include "core/Session.h"

#include <QSet>
#include <QString>
#include <optional>
#include <span>

/// The rights of a user: which exist, how they are loaded and how they are stored.
namespace shell {

/// The tab of the rights screen on which a right stands.
enum class RightsTab { Equipment, Services, Inventory };

struct RightEntry
{
    const char *column; ///< in tblUser, also the name of the right's boolean and of its box
    const char *caption;
    RightsTab tab;
    bool Rights::*member;
};

/// The 28 rights in the order of their columns.
[[nodiscard]] std::span<const RightEntry> rightsTable();

} // namespace shell

/// Loads the rights of gsLoginUser into gRights; grants all when nobody has logged in. A user
/// without a row is a reported error, and leaves the rights as they are. Data.
void SetUserRole();

/// The columns of the rights that a user has been granted. A user without a row raises. Data.
[[nodiscard]] QSet<QString> GrantedRights(const QString &UserName);
/// Stores all rights of a user: those in Granted, and no other, for the administrator alone. Raises
/// DbError, Refused, and InTheWay when the user is gone or has other rights by now than Shown.
/// Data.
void StoreRights(const QString &UserName, const QSet<QString> &Granted,
                 const std::optional<QSet<QString>> &Shown = {});
/// The statement that stores all rights of a user: '1' for the columns in Granted, '0' for the
/// others.
[[nodiscard]] QString BuildQueryString(const QString &UserName, const QSet<QString> &Granted);
