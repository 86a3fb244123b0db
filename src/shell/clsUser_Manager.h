#pragma once

#include "core/Mode.h"
#include "platform/db/Recordset.h"
#include "shell/clsUser.h"

#include <optional>

/// Stores and deletes users, for the administrator alone (rights::demandAdministrator). All on
/// gcnData.
class clsUser_Manager final
{
public:
    /// Stores a user: mode Add inserts, with the rights left empty, Modify changes the row that was
    /// shown (that of the same name without one) where the user differs from it. A password other
    /// than the one that was shown is hashed, and counts whatever the row holds by now. A name that
    /// differs from another user's in case only is refused. Result tells whether the row was
    /// written; an error is reported, a Conflict among them.
    void SaveRecord(const clsUser &User, Mode SaveMode, bool &Result,
                    const std::optional<clsUser> &Shown = {}) const;
    /// Deletes a user. Result is False when that failed; the caller says so, nothing is reported.
    void DeleteRecord(const QString &UserName, bool &Result) const;
    /// True when a user has this name, to the database or once both are in upper case.
    [[nodiscard]] bool IsUserExist(const QString &UserName) const;
    /// The users that can be edited: all but the built-in one.
    [[nodiscard]] db::Recordset Users() const;
};
