#include "core/ErrorReport.h"

#include "core/CompanySession.h"
#include "core/ErrorStore.h"
#include "core/MailAccount.h"
#include "core/Secrets.h"
#include "core/StartUp.h"
#include "platform/odbc/Odbc.h"

using namespace Qt::StringLiterals;

namespace {

struct ErrorReports : test::CompanySession
{
    ErrorReports()
    {
        gWindowsVersion = {2, u"Windows XP"_s, u"5.1"_s, u"2600"_s, u"Service Pack 3"_s};
        SetRegistryValue(u"VERSION"_s, u"2.3.1"_s);
        SetRegistryValue(u"MainApp"_s, u"C:\\QV"_s);
        SetOption(u"DBVERSION"_s, 100, false);
        report = {u"General Function"_s,
                  u"GetTableInfo"_s,
                  -2147217900,
                  u"It's <wrong> & 50% off\nsecond line"_s,
                  0,
                  u"I pressed #1"_s,
                  u"o'brien@example.com"_s};
    }
    ~ErrorReports() override { gWindowsVersion = {}; }

    ErrorReport report;
    QString connection =
        u"Driver=SQLite3;Database=%1/errors.db;Pwd=hushhush"_s.arg(environment.folder());
};

} // namespace

TEST_F(ErrorReports, TheHandlerPassesAnErrorOnAndNoErrorNot)
{
    EXPECT_FALSE(ErrorHandler(u"M"_s, u"P"_s, 0, u"nothing"_s));
    EXPECT_TRUE(errors.take().empty());
    EXPECT_TRUE(ErrorHandler(u" Equipment "_s, u" cmdSave_Click"_s, 13, u"Type mismatch "_s));
    const ErrorReport shown = errors.takeOne();
    EXPECT_EQ(shown.ModuleName + u'|' + shown.ProcedureName + u'|' + shown.ErrDescription,
              u"Equipment|cmdSave_Click|Type mismatch"_s);
    base::trapped("Class X", "SaveRecord", [] { throw base::Error(6, u"Overflow"_s); });
    EXPECT_EQ(errors.takeOne().ErrNumber, 6);
}

TEST_F(ErrorReports, AStoredErrorOutlivesTheRollbackOfTheFailedWork)
{
    BeginTrans();
    gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name) values(1,'A')"_s);
    storeError(report);
    RollbackTrans();
    EXPECT_EQ(found(u"Select ErrNumber, ErrDescription, LineNumber, UserMsg, ModuleName, "
                    "ProcedureName, ErrDateTime, UserEmail from tblErrorList"_s),
              u"-2147217900|It's <wrong> & 50% off\nsecond line|0|I pressed #1|General Function|"
              "GetTableInfo|3/15/2024 9:30:00 AM|o'brien@example.com");
}

TEST_F(ErrorReports, ThePlainTextListsAllAndFitsAnAddress)
{
    EXPECT_EQ(plainBody(ErrorReportDetails::of(report)),
              u" App Version:- 2.3.1\r\n DBVERSION:- 100\r\n MainApp:-C:\\QV\r\n"
              u" Err Date Time:- 3/15/2024 9:30:00 AM\r\n Module Name:- General Function\r\n"
              u" Procedure Name:- GetTableInfo\r\n Err No:- -2147217900\r\n"
              u" Description:- It's <wrong> & 50% off\nsecond line\r\n Line Number:-0\r\n"
              u" User Email:-o'brien@example.com\r\n User Msg:- I pressed #1\r\n"
              u" User Name:- TESTBENCH\r\n Windows Version:-Windows XP\r\n"
              u" Version number:- 5.1\r\n Service Pack/misc:- Service Pack 3\r\n"_s);
    EXPECT_EQ(mailtoAddress(u"help@example.com"_s, u"#1\r\n<a> & 50%\nb"_s),
              u"mailto:help@example.com?Subject=Error Report&Body=%231%0A<a> %26 50%25%0Ab"_s);
}

TEST_F(ErrorReports, TheHtmlOfAnErrorAndOfAnUpdateTellsVersionsAndSystem)
{
    // A line break as a stroke, a heading in angle brackets.
    const auto lines = [](QString html) {
        html.replace(u"<font color=\"red\"><b>"_s, u"["_s).replace(u"</b></font>"_s, u"]"_s);
        return html.replace(u"<br>"_s, u"|"_s).remove(u"<b>"_s).remove(u"</b>"_s);
    };
    const ErrorReportDetails details = ErrorReportDetails::of(report);
    const QString windows = u"||[Windows Information]||Windows Version:- Windows XP||Version "
                            "number:- 5.1||Service Pack/misc:- Service Pack 3"_s;
    EXPECT_EQ(lines(htmlBody(details)),
              u"[Product Information]||App Version:- 2.3.1||DBVERSION:- 100||MainApp:- C:\\QV"
              "||[Error Information]||Err DateTime:- 3/15/2024 9:30:00 AM||Module Name:- General "
              "Function||Procedure Name:- GetTableInfo||Err No:- -2147217900||Description:- It's "
              "&lt;wrong&gt; &amp; 50% off|second line||Line Number:- 0||User Email:- "
              "o'brien@example.com||User Msg:- I pressed #1||User Name:- TESTBENCH"_s +
                  windows);
    EXPECT_EQ(lines(updateReportHtml(details, u"2.2"_s)),
              u"[Product Information]||App Version:- 2.3.1||DBVERSION:- 100||CLIENTVESION:- 2.2"
              "||User Email:- o'brien@example.com||User Name:- TESTBENCH"_s +
                  windows);
}

TEST_F(ErrorReports, TheMakersStoreTakesOneRowForEach)
{
    EXPECT_TRUE(test::raisedBy([&] { errorstore::store(connection, {}); })
                    .description()
                    .contains(u"tblError"_s));
    // The script that the makers run, as it stands in the documentation.
    const QString page =
        QString::fromUtf8(test::readFile(QStringLiteral(QUORVANTIS_DOCS "/error-store.md")));
    QString script = page.section(u"```sql"_s, 1, 1).section(u"```"_s, 0, 0).trimmed();
    script.chop(1);
    odbc::Connection store(connection);
    store.execute(script);
    report.UserMsg = QString(5000, u'x');
    const auto details = ErrorReportDetails::of(report);
    errorstore::store(connection, details);
    EXPECT_EQ(errorstore::reportsIn(connection), 1);
    const QString row = store.firstValue(
        u"select ErrNumber || '|' || ErrDescription || '|' || LineNumber || '|' || "
        u"length(UserMsg) || '|' || ModuleName || '|' || ProcedureName || '|' || UserEmail || '|' "
        u"|| Username || '|' || APPversion || '|' || DBversion || '|' || WindowVersion || '|' || "
        u"WinVersionNo || '|' || ServicePack || '|' || Reply || '|' || ErrdateTime from "
        u"tblError"_s);
    EXPECT_TRUE(row.startsWith(
        u"-2147217900|It's <wrong> & 50% off\nsecond line|0|4000|General Function|GetTableInfo|"
        "o'brien@example.com|TESTBENCH|2.3.1|100|Windows XP|5.1|Service Pack 3|0|2024-03-15 "
        "09:30:00"_s))
        << row.toStdString();
    EXPECT_THROW(
        errorstore::store(connection, details, {.tell = {}, .cancelled = [] { return true; }}),
        base::Cancelled);
    EXPECT_EQ(errorstore::reportsIn(connection), 1);
}

TEST_F(ErrorReports, TheStoresConnectionIsASecretAndItsPasswordOneMore)
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

TEST_F(ErrorReports, TheMailAccountIsSharedButForItsPassword)
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
    EXPECT_TRUE(test::raisedBy([] { static_cast<void>(mailing::account()); })
                    .description()
                    .contains(u"not known on this computer"_s));
    secrets::store(mailing::PasswordOption, u"hushhush"_s);
    EXPECT_EQ(mailing::account().port, 2525);
}
