#include "core/ui/frmSendEmail.h"

#include "core/CompanySession.h"
#include "core/ErrorReport.h"
#include "core/Options.h"
#include "core/RowTests.h"
#include "core/ui/Modal.h"
#include "core/ui/frmQV_Log.h"
#include "platform/base/Error.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFiles.h"

#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;
using Icon = base::Prompts::Icon;

namespace {

/// Receives the addresses that would open the user's mail program.
class MailProgram : public QObject
{
    Q_OBJECT

public:
    MailProgram() { QDesktopServices::setUrlHandler(u"mailto"_s, this, "open"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(u"mailto"_s); }
    Q_SLOT void open(const QUrl &url) { opened << url; }

    QList<QUrl> opened;
};

class ErrorForm : public test::CompanySession
{
protected:
    ErrorForm() { installErrorReport(); }
    ~ErrorForm() override { setReportTransport({}); }

    /// Reports an error, and acts on the form that comes.
    static void report(const std::function<void(QWidget &)> &action)
    {
        test::onNextModal(action);
        EXPECT_TRUE(ErrorHandler(u"Equipment"_s, u"cmdSave_Click"_s, 13, u"It's a mismatch"_s));
    }
    static void click(QWidget &form, const QString &name)
    {
        QTest::mouseClick(&test::named<QPushButton>(form, name), Qt::LeftButton);
    }
    static QLineEdit &line(QWidget &form, const QString &name)
    {
        return test::named<QLineEdit>(form, name);
    }
    static qint64 storedErrors() { return GetRecordCount(u"tblErrorList"_s, {}); }

    test::ScriptedPrompts prompts;
    MailProgram mail;
};

const QString Address = u"shop@example.com"_s;

} // namespace

TEST_F(ErrorForm, ShowsTheErrorAndTheSender)
{
    SetOption(u"GEN_COMPANY_EMAIL"_s, u"  shop@example.com "_s, false);
    report([](QWidget &form) {
        EXPECT_EQ(form.windowTitle(), u"Error Report"_s);
        EXPECT_EQ(line(form, u"txtModuleName"_s).text(), u"Equipment"_s);
        EXPECT_EQ(line(form, u"txtProcedureName"_s).text(), u"cmdSave_Click"_s);
        EXPECT_EQ(line(form, u"txtErrNumber"_s).text(), u"13"_s);
        EXPECT_EQ(line(form, u"txtLineNumber"_s).text(), u"0"_s);
        EXPECT_EQ(test::named<QPlainTextEdit>(form, u"txtErrDescription"_s).toPlainText(),
                  u"It's a mismatch"_s);
        EXPECT_TRUE(line(form, u"txtErrNumber"_s).isReadOnly());
        EXPECT_EQ(line(form, u"txtEmail"_s).text(), Address);
        EXPECT_FALSE(test::named<QLabel>(form, u"lblProgress"_s).isVisible());
        click(form, u"cmdExit"_s);
    });
}

TEST_F(ErrorForm, ClosedUnsentItStoresOneRowHoweverItIsClosed)
{
    using Close = std::function<void(QWidget &)>;
    int closed = 0;
    for (const Close &close : {Close([](QWidget &form) { click(form, u"cmdExit"_s); }),
                               Close([](QWidget &form) { QTest::keyClick(&form, Qt::Key_Escape); }),
                               Close([](QWidget &form) { form.close(); }), Close([](QWidget &form) {
                                   QTest::keyClick(&form, Qt::Key_R, Qt::AltModifier);
                                   EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
                               })}) {
        // The failed work is undone while its error stays.
        BeginTrans();
        gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name) values(1,'A')"_s);
        report(close);
        RollbackTrans();
        EXPECT_EQ(storedErrors(), ++closed);
    }
    EXPECT_EQ(GetRecordCount(u"tblSupplier"_s, {}), 0);
    EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, u"ErrDescription = 'It''s a mismatch'"_s), closed);
    EXPECT_TRUE(mail.opened.isEmpty());
}

TEST_F(ErrorForm, AsksForAValidAddressBeforeItSends)
{
    prompts.expect(u"Please enter your email Address."_s, Icon::None);
    prompts.expect(u"Please enter a valid email Address, so that we can get back to you."_s,
                   Icon::None);
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(u"   "_s);
        click(form, u"cmdSend"_s);
        line(form, u"txtEmail"_s).setText(u"nobody@example"_s);
        click(form, u"cmdSend"_s);
        EXPECT_TRUE(line(form, u"txtEmail"_s).hasFocus());
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(storedErrors(), 0);
        click(form, u"cmdExit"_s);
    });
    EXPECT_EQ(storedErrors(), 1);
    EXPECT_TRUE(mail.opened.isEmpty());
}

TEST_F(ErrorForm, AFailedSendStoresOneRowAndOpensTheUsersMailProgram)
{
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(Address);
        QTest::keyClicks(&test::named<QPlainTextEdit>(form, u"txtUserMsg"_s), u"50% & more"_s);
        click(form, u"cmdSend"_s);
    });
    EXPECT_EQ(storedErrors(), 1);
    ASSERT_EQ(mail.opened.size(), 1);
    const QString address = mail.opened.first().toString(QUrl::FullyEncoded);
    EXPECT_TRUE(address.startsWith(u"mailto:?Subject=Error%20Report&Body="_s))
        << qUtf8Printable(address);
    EXPECT_TRUE(address.contains(u"%0A%20User%20Msg:-%2050%25%20%26%20more%0A"_s))
        << qUtf8Printable(address);
}

TEST_F(ErrorForm, ASentReportIsThankedForAndNotStored)
{
    QStringList course;
    ReportMail sent;
    setReportTransport({[&](const ErrorReportDetails &details) {
                            course << u"store "_s + details.report.UserEmail;
                        },
                        [&](const ReportMail &report) {
                            course << u"mail"_s;
                            sent = report;
                            return true;
                        },
                        {}});
    prompts.expect(u"Thank You for reporting this error. This goes directly to our programmers "
                   u"for diagnosis and repair."_s,
                   Icon::Information);
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(Address);
        click(form, u"cmdSend"_s);
    });
    EXPECT_EQ(course, QStringList({u"store shop@example.com"_s, u"mail"_s}));
    EXPECT_EQ(sent.subject, u"User---shop@example.com"_s);
    EXPECT_EQ(sent.sender, Address);
    EXPECT_EQ(sent.senderName, u"Quorvantis--Administrator"_s);
    EXPECT_TRUE(sent.html.contains(u"It's a mismatch"_s) || sent.html.contains(u"It&#39;s"_s));
    EXPECT_EQ(storedErrors(), 0);
    EXPECT_TRUE(mail.opened.isEmpty());
}

TEST_F(ErrorForm, AnErrorOfTheMakersStoreIsAFailedSend)
{
    setReportTransport(
        {[](const ErrorReportDetails &) { throw base::Error(17, u"no such server"_s); },
         [](const ReportMail &) { return true; },
         {}});
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(Address);
        click(form, u"cmdSend"_s);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(storedErrors(), 1);
    EXPECT_EQ(mail.opened.size(), 1);
}

TEST_F(ErrorForm, WithoutAMailProgramTheFormItselfTellsIt)
{
    QDesktopServices::unsetUrlHandler(u"mailto"_s);
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(Address);
        for (int i = 0; i < 2; ++i) {
            click(form, u"cmdSend"_s);
            EXPECT_TRUE(form.isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &form) << "no second form";
            EXPECT_TRUE(test::named<QLabel>(form, u"lblFailure"_s)
                            .text()
                            .endsWith(u"It is kept in the error list of the database."_s));
        }
        click(form, u"cmdExit"_s);
    });
    EXPECT_EQ(storedErrors(), 1);
}

TEST_F(ErrorForm, AnErrorThatCantBeStoredIsToldOnceInTheForm)
{
    gcnLookup->Execute(u"Drop table tblErrorList"_s);
    report([](QWidget &form) {
        EXPECT_FALSE(test::named<QLabel>(form, u"lblFailure"_s).isVisible());
        click(form, u"cmdExit"_s);
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
        EXPECT_TRUE(test::named<QLabel>(form, u"lblFailure"_s).isVisible());
        click(form, u"cmdExit"_s);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ErrorForm, OpensWithoutADatabaseToo)
{
    closeConnections();
    report([](QWidget &form) { click(form, u"cmdExit"_s); });
    openConnections();
    // Nor does an unusable database open one form after another.
    gcnLookup->Execute(u"Drop table tblSysOption"_s);
    report([](QWidget &form) { click(form, u"cmdExit"_s); });
    EXPECT_EQ(storedErrors(), 1);
}

TEST_F(ErrorForm, KeepsTheSendersAddressWithItsApostropheDoubled)
{
    report([](QWidget &form) {
        line(form, u"txtEmail"_s).setText(u"o'brien@example.com"_s);
        click(form, u"cmdExit"_s);
    });
    EXPECT_EQ(GetOption(u"GEN_COMPANY_EMAIL"_s, false), u"o''brien@example.com"_s);
    EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, u"UserEmail = 'o''brien@example.com'"_s), 1);
    EXPECT_NE(GetOption(u"HEIGHTfrmSendEmail"_s, true), QString());
    EXPECT_EQ(GetOption(u"LEFTfrmSendEmail"_s, true), QString());
}

TEST_F(ErrorForm, TheLogViewerShowsTheWholeLogOrNothing)
{
    const auto shown = [] {
        QString text;
        test::onNextModal([&](QWidget &form) {
            EXPECT_EQ(form.windowTitle(), u"Log File"_s);
            text = test::named<QPlainTextEdit>(form, u"txtLog"_s).toPlainText();
            click(form, u"cmdExit"_s);
        });
        frmQV_Log::ShowQV_LogDetails();
        return text;
    };
    EXPECT_EQ(shown(), QString());
    QDir().mkpath(base::applicationPath(u"\\Log"_s));
    const auto write = [](const QByteArray &bytes) {
        test::writeFile(base::applicationPath(u"\\Log\\QVLog.txt"_s), bytes);
    };
    write("");
    EXPECT_EQ(shown(), QString());
    write("first\r\nIt\xe9 second");
    EXPECT_EQ(shown(), u"first\nIt\u00e9 second"_s);
    write("\xc3\xa9t\xc3\xa9\n");
    EXPECT_EQ(shown(), u"\u00e9t\u00e9\n"_s);
}

#include "frmSendEmail_test.moc"
