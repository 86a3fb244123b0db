#pragma once

#include "core/ErrorLog.h"
#include "core/Session.h"
#include "platform/settings/Registry.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

namespace test {

/// A session of a workstation over an empty company of the test's own.
class CompanySession : public testing::Test
{
protected:
    CompanySession()
    {
        settings::registry().setValue(settings::ProductKey, QStringLiteral("GUID"),
                                      QStringLiteral("0123456789ABCDEF0123456789ABCDEF"));
        gsDatabasePath = database.file();
        gcnData = database.open();
        gcnLookup = database.open();
    }
    ~CompanySession() override { closeConnections(); }

    TestEnvironment environment;
    CompanyDatabase database;
    ErrorLog errors;
};

} // namespace test
