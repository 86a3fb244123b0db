#pragma once

#include "core/CompanySession.h"

namespace test {

/// A workstation of release 2.3.1 on which nobody has logged in yet, with boxes that answer from a
/// script.
struct ShellSession : CompanySession
{
    ShellSession()
    {
        resetSession();
        SetRegistryValue(QStringLiteral("VERSION"), QStringLiteral("2.3.1"));
    }
    ~ShellSession() override { resetSession(); }

    /// Adds a user whose password is stored as typed, as older releases did.
    static void addUser(const QString &name, const QString &clearPassword,
                        const QString &employeeID = {})
    {
        insert(QStringLiteral("tblUser"), {{QStringLiteral("UserName"), name},
                                           {QStringLiteral("Password"), clearPassword},
                                           {QStringLiteral("EmployeeID"), employeeID}});
    }
    static QString storedPassword(const QString &name)
    {
        return value(QStringLiteral("select [Password] from tblUser where UserName = ?"), {name})
            .toString();
    }

    ScriptedPrompts prompts;

private:
    static void resetSession()
    {
        gsLoginUser.clear();
        gbDatabaseOutOfDate = false;
        gRights = {};
    }
};

} // namespace test
