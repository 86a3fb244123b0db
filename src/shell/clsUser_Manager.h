#pragma once

#include "core/Mode.h"
#include "platform/db/Recordset.h"
#include "shell/clsUser.h"

/// Stores and deletes users. All on gcnData.
class clsUser_Manager final
{
public:
    /// Stores a user: mode Add inserts, with the rights left empty, Modify updates the row of
    /// FormerName (the user's own name unless the name was changed too). A password other than the
    /// stored text is hashed. A name that differs
    /// from another user's in case only is refused. Result tells whether the row was written; an
    /// error is reported.
    void SaveRecord(const clsUser &User, Mode SaveMode, bool &Result,
                    const QString &FormerName = {}) const;
    /// Deletes a user. Result is False when that failed; the caller says so, nothing is reported.
    void DeleteRecord(const QString &UserName, bool &Result) const;
    /// True when a user has this name, to the database or once both are in upper case.
    [[nodiscard]] bool IsUserExist(const QString &UserName) const;
    /// The users that can be edited: all but the built-in one.
    [[nodiscard]] db::Recordset Users() const;
};
