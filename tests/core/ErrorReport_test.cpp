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
    EXPECT_EQ(shown.ModuleName, u"Equipment"_s);
    EXPECT_EQ(shown.ProcedureName, u"cmdSave_Click"_s);
    EXPECT_EQ(shown.ErrDescription, u"Type mismatch"_s);
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
    const QString body = plainBody(ErrorReportDetails::of(report));
    EXPECT_EQ(body, u" App Version:- 2.3.1\r\n DBVERSION:- 100\r\n MainApp:-C:\\QV\r\n"
                    u" Err Date Time:- 3/15/2024 9:30:00 AM\r\n Module Name:- General Function\r\n"
                    u" Procedure Name:- GetTableInfo\r\n Err No:- -2147217900\r\n"
                    u" Description:- It's <wrong> & 50% off\nsecond line\r\n Line Number:-0\r\n"
                    u" User Email:-o'brien@example.com\r\n User Msg:- I pressed #1\r\n"
                    u" User Name:- TESTBENCH\r\n Windows Version:-Windows XP\r\n"
                    u" Version number:- 5.1\r\n Service Pack/misc:- Service Pack 3\r\n"_s);
    const QString address = mailtoAddress(u"help@example.com"_s, body);
    EXPECT_TRUE(address.startsWith(u"mailto:help@example.com?Subject=Error Report&Body= App "
                                   u"Version:- 2.3.1%0A DBVERSION:- 100%0A"_s));
    EXPECT_TRUE(address.contains(u"It's <wrong> %26 50%25 off%0Asecond line%0A"_s));
    EXPECT_TRUE(address.contains(u"I pressed %231%0A"_s));
}

TEST_F(ErrorReports, TheReportOfAnUpdateTellsVersionsAndSystem)
{
    const QString body = updateReportHtml(ErrorReportDetails::of(report), u"2.2"_s);
    EXPECT_EQ(body,
              u"<font color=\"red\"><b>Product Information</b></font>"
              "<br><br><b>App Version:-</b> 2.3.1<br><br><b>DBVERSION:-</b> 100"
              "<br><br><b>CLIENTVESION:-</b> 2.2<br><br><b>User Email:-</b> o'brien@example.com"
              "<br><br><b>User Name:-</b> TESTBENCH<br><br>"
              "<font color=\"red\"><b>Windows Information</b></font>"
              "<br><br><b>Windows Version:-</b> Windows XP<br><br><b>Version number:-</b> 5.1"
              "<br><br><b>Service Pack/misc:-</b> Service Pack 3"_s);
}

TEST_F(ErrorReports, TheHtmlListsAllInOrderAndEscapesValues)
{
    const QString body = htmlBody(ErrorReportDetails::of(report));
    qsizetype at = 0;
    for (const QString &label :
         {u"App Version:-"_s, u"DBVERSION:-"_s, u"MainApp:-"_s, u"Err DateTime:-"_s,
          u"Module Name:-"_s, u"Procedure Name:-"_s, u"Err No:-"_s, u"Description:-"_s,
          u"Line Number:-"_s, u"User Email:-"_s, u"User Msg:-"_s, u"User Name:-"_s,
          u"Windows Version:-"_s, u"Version number:-"_s, u"Service Pack/misc:-"_s}) {
        const qsizetype next = body.indexOf(u"<br><br><b>"_s + label + u"</b>"_s, at);
        EXPECT_GE(next, at) << qUtf8Printable(label);
        at = next;
    }
    EXPECT_TRUE(body.contains(u"It's &lt;wrong&gt; &amp; 50% off<br>second line"_s));
    EXPECT_FALSE(body.contains(u"<wrong>"_s));
}
