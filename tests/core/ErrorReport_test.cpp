#include "core/ErrorReport.h"

#include "core/CompanySession.h"
#include "core/StartUp.h"
#include "core/Tables.h"

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
