#pragma once

#include "core/Session.h"
#include "platform/base/Trapped.h"
#include "support/TestEnvironment.h"

#include <QString>
#include <vector>

class QWidget;

namespace test {

/// A new database, open on both connections, in surroundings of its own; all session state is as at
/// process start, before and after. Trapped errors are kept.
class ShellSession
{
public:
    ShellSession();
    ~ShellSession();
    ShellSession(const ShellSession &) = delete;
    ShellSession &operator=(const ShellSession &) = delete;

    struct TrappedError
    {
        QString module, procedure;
        int number;
        QString description;
    };
    std::vector<TrappedError> errors;
    TestEnvironment environment;

    /// Adds a user whose password is stored as typed, as older releases did.
    static void addUser(const QString &name, const QString &clearPassword,
                        const QString &employeeID = {});
    static QString storedPassword(const QString &name);
    static qint64 count(const QString &table, const QString &where);

private:
    base::ErrorReporter m_formerReporter;
};

} // namespace test
