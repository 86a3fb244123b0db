#include "core/ErrorStore.h"

#include "core/CompanySession.h"
#include "core/MailAccount.h"
#include "core/Secrets.h"
#include "core/StartUp.h"
#include "platform/odbc/Odbc.h"

using namespace Qt::StringLiterals;

namespace {

struct ErrorStore : test::CompanySession
{
    ErrorStore()
    {
        // The script that the makers run, as it stands in the documentation.
        const QString page =
            QString::fromUtf8(test::readFile(QStringLiteral(QUORVANTIS_DOCS "/error-store.md")));
        script = page.section(u"```sql"_s, 1, 1).section(u"```"_s, 0, 0).trimmed();
        script.chop(1);
    }

    QString connection =
        u"Driver=SQLite3;Database=%1/errors.db;Pwd=hushhush"_s.arg(environment.folder());
    QString script;
};

} // namespace

TEST_F(ErrorStore, TakesOneRowForAReport)
{
    EXPECT_TRUE(test::raisedBy([&] { errorstore::store(connection, {}); })
                    .description()
                    .contains(u"tblError"_s));
    odbc::Connection store(connection);
    store.execute(script);
    gWindowsVersion = {2, u"Windows XP"_s, u"5.1"_s, u"2600"_s, u"Service Pack 3"_s};
    SetRegistryValue(u"VERSION"_s, u"2.3.1"_s);
    SetOption(u"DBVERSION"_s, 101, false);
    const auto details =
        ErrorReportDetails::of({u"Equipment"_s, u"cmdSave_Click"_s, -2147217900, u"It's \u00fc"_s,
                                12, QString(5000, u'x'), u"shop@example.com"_s});
    errorstore::store(connection, details);
    EXPECT_EQ(errorstore::reportsIn(connection), 1);
    const QString row = store.firstValue(
        u"select ErrNumber || '|' || ErrDescription || '|' || LineNumber || '|' || "
        u"length(UserMsg) || '|' || ModuleName || '|' || ProcedureName || '|' || UserEmail || '|' "
        u"|| Username || '|' || APPversion || '|' || DBversion || '|' || WindowVersion || '|' || "
        u"WinVersionNo || '|' || ServicePack || '|' || Reply || '|' || ErrdateTime from "
        u"tblError"_s);
    EXPECT_TRUE(row.startsWith(
        u"-2147217900|It's \u00fc|12|4000|Equipment|cmdSave_Click|shop@example.com|TESTBENCH|"
        "2.3.1|101|Windows XP|5.1|Service Pack 3|0|2024-03-15 09:30:00"_s))
        << row.toStdString();
    EXPECT_THROW(
        errorstore::store(connection, details, {.tell = {}, .cancelled = [] { return true; }}),
        base::Cancelled);
    EXPECT_EQ(errorstore::reportsIn(connection), 1);
}

TEST_F(ErrorStore, ItsConnectionIsASecretAndItsPasswordOneMore)
{
    EXPECT_EQ(errorstore::connectionString(), QString());
    secrets::store(errorstore::ConnectionOption, connection);
    EXPECT_EQ(errorstore::connectionString(), connection);
    EXPECT_EQ(secrets::withheld(u"no hushhush here"_s), u"no *** here"_s);
    test::writeFile(base::appDataPath(u"\\secrets.key"_s), QByteArray(32, 'k'));
    EXPECT_TRUE(test::raisedBy([] { static_cast<void>(errorstore::connectionString()); })
                    .description()
                    .contains(u"not known on this computer"_s));
}

TEST_F(ErrorStore, TheMailAccountIsSharedButForItsPassword)
{
    EXPECT_FALSE(mailing::isSetUp());
    SetOption(mailing::ServerOption, u" mail.example.com "_s, false);
    SetRegistryValue(u"MAILAUTHORITIES"_s, u"/etc/own.pem"_s);
    EXPECT_TRUE(mailing::isSetUp());
    using enum mail::Security;
    const mail::Account first = mailing::account();
    EXPECT_EQ(first.server + u' ' + first.authorities, u"mail.example.com /etc/own.pem"_s);
    EXPECT_EQ(first.security, StartTls);
    for (const auto &[security, port] :
         {std::pair(StartTls, 587), std::pair(Tls, 465), std::pair(None, 25)}) {
        SetOption(mailing::SecurityOption, mailing::codeOf(security), false);
        EXPECT_EQ(mailing::account().port, port);
    }
    SetOption(mailing::PortOption, u"2525"_s, false);
    SetOption(mailing::UserOption, u"office"_s, false);
    SetOption(mailing::SenderOption, u"office@example.com"_s, false);
    EXPECT_TRUE(test::raisedBy([] { static_cast<void>(mailing::account()); })
                    .description()
                    .contains(u"not known on this computer"_s));
    secrets::store(mailing::PasswordOption, u"hushhush"_s);
    const mail::Account account = mailing::account();
    EXPECT_EQ(account.port, 2525);
    EXPECT_EQ(account.user + u' ' + account.password + u' ' + account.sender,
              u"office hushhush office@example.com"_s);
}
