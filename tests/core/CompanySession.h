#pragma once

#include "core/ErrorLog.h"
#include "core/Options.h"
#include "core/RegistryValues.h"
#include "core/RowTests.h"
#include "core/Session.h"
#include "platform/base/Format.h"
#include "platform/settings/Registry.h"
#include "support/CompanyDatabase.h"
#include "support/Raised.h"
#include "support/ScriptedPrompts.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QVariantMap>

namespace test {

/// A session of a workstation over an empty company of the test's own.
struct CompanySession : testing::Test
{
    CompanySession()
    {
        settings::registry().setValue(settings::ProductKey, QStringLiteral("GUID"),
                                      QStringLiteral("0123456789ABCDEF0123456789ABCDEF"));
        gsDatabasePath = database.file();
        gcnData = database.open();
        gcnLookup = database.open();
    }
    ~CompanySession() override { closeConnections(); }

    /// Puts a row into a table; a new number of the key column comes back.
    static qint64 insert(const QString &table, const QVariantMap &values, const QString &key = {})
    {
        const QString statement =
            QStringLiteral("Insert into %1([%2]) values(%3)")
                .arg(table, QStringList(values.keys()).join(u"],["),
                     QStringList(values.size(), QStringLiteral("?")).join(u','));
        if (!key.isEmpty())
            return gcnData->Insert(statement, values.values(), key);
        gcnData->Execute(statement, values.values());
        return 0;
    }
    /// The same, the columns parted by commas.
    static qint64 insert(const QString &table, const QString &columns, const QVariantList &values,
                         const QString &key = {})
    {
        QVariantMap row;
        for (qsizetype at = 0; at < values.size(); ++at)
            row.insert(columns.section(u',', at, at).trimmed(), values[at]);
        return insert(table, row, key);
    }
    /// The first value of a query's first row, Null without rows.
    static QVariant value(const QString &query, const QVariantList &parameters = {})
    {
        const db::Recordset rows = gcnData->Open(query, parameters);
        return rows.isEmpty() ? QVariant() : rows.value(0, 0);
    }
    static qint64 count(const QString &table, const QString &where = {})
    {
        return GetRecordCount(table, where);
    }
    /// A service's pattern that any day fits.
    static QVariantMap anyDay()
    {
        QVariantMap flags;
        for (const QStringView flag :
             QStringView(u"Sun Mon Tue Wed Thu Fri Sat FirstW SecondW ThirdW ForthW LastW Jan Feb "
                         "Mar Apr May Jun Jul Aug Sep Oct Nov Dece")
                 .split(u' '))
            flags.insert(flag.toString(), 1);
        return flags;
    }
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
