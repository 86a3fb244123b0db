#pragma once

#include "platform/db/Recordset.h"
#include "shell/clsUser.h"

/// Stores and deletes users. All on gcnData.
class clsUser_Manager final
{
public:
    /// Stores a user: Mode "A" inserts, with the rights left empty, "M" updates. A password other
    /// than the stored text is hashed. FormerName is the row's name when "M" renames the user,
    /// otherwise empty. Result tells whether the row was written; an error is reported.
    void SaveRecord(const clsUser &User, const QString &Mode, bool &Result,
                    const QString &FormerName = {}) const;
    /// Deletes a user. Result is False when that failed; the caller says so, nothing is reported.
    void DeleteRecord(const QString &UserName, bool &Result) const;
    /// True when a user has this name, in any case.
    [[nodiscard]] bool IsUserExist(const QString &UserName) const;
    /// The users that can be edited: all but the built-in one.
    [[nodiscard]] db::Recordset Users() const;
};
