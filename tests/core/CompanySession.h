#pragma once

#include "core/ErrorLog.h"
#include "core/Session.h"
#include "platform/base/Format.h"
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

    /// What a query finds, as text: a line for each row, its values parted by '|'.
    static QString found(const QString &query, const QVariantList &parameters = {})
    {
        QStringList lines;
        const db::Recordset rows = gcnData->Open(query, parameters);
        for (int row = 0; row < rows.RecordCount(); ++row) {
            QStringList values;
            for (int column = 0; column < rows.columnCount(); ++column)
                values.append(base::toText(rows.value(row, column)));
            lines.append(values.join(u'|'));
        }
        return lines.join(u'\n');
    }

    TestEnvironment environment;
    CompanyDatabase database;
    ErrorLog errors;
};

} // namespace test
