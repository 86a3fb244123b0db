
#include "core/CompanySession.h"
#include "core/ErrorStore.h"
#include "core/Permission.h"
#include "core/Secrets.h"
#include "core/ui/MailSetUp.h"
#include "core/ui/ScreenDriver.h"
#include "core/ui/frmQV_Log.h"
#include "core/ui/frmSendEmail.h"
#include "platform/odbc/Odbc.h"
#include "support/Desktop.h"

using namespace Qt::StringLiterals;
using test::ScreenDriver;
using test::SmtpServer;

namespace {

const QString Mailbox = u"help@example.com"_s;

struct Sending : test::CompanySession
{
    Sending()
    {
        installErrorReport();
        SetOption(u"GEN_COMPANY_EMAIL"_s, u"shop@example.com"_s, false);
        SetOption(u"GEN_COMPANY_NAME"_s, u"Green & Sons"_s, false);
    }
    ~Sending() override { setReportTransport({}); }

    /// Reports an error and acts on its form.
    static void report(const std::function<void(ScreenDriver)> &act)
    {
        test::inScreen([] { ErrorHandler(u"M"_s, u"P"_s, 13, u"It's a mismatch"_s); }, act);
    }
    static qint64 storedErrors() { return count(u"tblErrorList"_s); }
    /// Sets up a store of errors of this test's own; its connection string.
    QString setUpStore() const
    {
        const QString store = u"Driver=SQLite3;Database=%1/errors.db"_s.arg(environment.folder());
        odbc::Connection(store).execute(
            u"create table tblError (ErrNumber, ErrDescription, LineNumber, UserMsg, ModuleName, "
            "ProcedureName, UserEmail, Username, APPversion, DBversion, WindowVersion, "
            "WinVersionNo, ServicePack, Reply, ErrdateTime)"_s);
        secrets::store(errorstore::ConnectionOption, store);
        return store;
    }
    /// Presses Cancel in the window of the steps, once it is there and tells the first one.
    static void cancelSteps()
    {
        QTimer::singleShot(20, [] {
            QWidget *steps = QApplication::activeModalWidget();
            if (!steps || steps->objectName() != u"working" ||
                !ScreenDriver(*steps).text("lblSteps").contains(u"Connecting to localhost"_s))
                return cancelSteps();
            ScreenDriver(*steps).press("cmdCancel");
        });
    }

    test::ScriptedPrompts prompts;
    test::Desktop desktop;
};

} // namespace

TEST_F(Sending, AReportGoesToTheStoreAndByTheAccount)
{
    const QString store = setUpStore();
    const SmtpServer server({});
    test::setUpMail(server, Mailbox);
    prompts.inform(u"Thank You for reporting this error. This goes directly to our programmers "
                   u"for diagnosis and repair."_s);
    report([](ScreenDriver form) { form.press("cmdSend"); });
    EXPECT_EQ(errorstore::reportsIn(store), 1);
    ASSERT_EQ(server.taken().size(), 1);
    EXPECT_EQ(server.taken().first().recipients, QList<QByteArray>{"<help@example.com>"});
    EXPECT_EQ(server.taken().first().header("Subject"), "User---shop@example.com");
    EXPECT_EQ(server.taken().first().header("From"),
              "\"Quorvantis--Administrator\" <shop@example.com>");
    // Long lines are broken by "=".
    EXPECT_TRUE(server.taken().first().text.replace("=\r\n", "").contains("It's a mismatch"));
    EXPECT_EQ(storedErrors(), 0);
}

TEST_F(Sending, ACancelledReportStaysInItsForm)
{
    const SmtpServer server({.fault = SmtpServer::Fault::HangsAtOnce});
    test::setUpMail(server, Mailbox);
    const QString store = setUpStore();
    report([](ScreenDriver form) {
        for (int time = 0; time < 2; ++time) {
            cancelSteps();
            form.press("cmdSend");
            EXPECT_TRUE(form.isOpen());
        }
        EXPECT_EQ(form.text("lblFailure"), u"The report was not sent."_s);
        EXPECT_EQ(storedErrors(), 0);
        form.press("cmdExit");
    });
    EXPECT_TRUE(desktop.opened.isEmpty());
    EXPECT_EQ(storedErrors(), 1);
    EXPECT_EQ(errorstore::reportsIn(store), 1) << "a second try fills it no second time";
}

TEST_F(Sending, AReportThatTheServerRefusesGoesToTheUsersMailProgram)
{
    const SmtpServer server({.refusedRecipient = "help@example.com"});
    test::setUpMail(server, Mailbox);
    report([](ScreenDriver form) {
        form.type("txtUserMsg", u"50% & more"_s);
        form.press("cmdSend");
    });
    ASSERT_EQ(desktop.opened.size(), 1);
    EXPECT_TRUE(
        desktop.opened[0].startsWith(u"mailto:help@example.com?Subject=Error%20Report&Body="_s));
    EXPECT_TRUE(desktop.opened[0].contains(u"%0A%20User%20Msg:-%2050%25%20%26%20more%0A"_s))
        << desktop.opened[0].toStdString();
    EXPECT_EQ(storedErrors(), 1);
}

TEST_F(Sending, APrintedReportGoesByTheAccountOrBesideTheUsersMailProgram)
{
    const QString pdf = environment.folder() + u"/Work & Order.pdf"_s;
    test::writeFile(pdf, "%PDF-1.4 pages");
    const QString question = u"Send to (several addresses parted by \";\"):"_s;
    mailing::mailDocument(pdf);
    EXPECT_EQ(desktop.opened,
              (QStringList{QUrl::fromLocalFile(environment.folder()).toString(QUrl::FullyEncoded),
                           u"mailto:?subject=Work%20%26%20Order"_s}));
    const SmtpServer server({});
    test::setUpMail(server, Mailbox);
    SetOption(u"GEN_COMPANY_EMAIL"_s, QString(), false);
    prompts.say(u"The mail has no sender. Enter the address of your company under File, Setup "
                "first."_s);
    mailing::mailDocument(pdf);
    SetOption(u"GEN_COMPANY_EMAIL"_s, u"shop@example.com"_s, false);
    prompts.expectInput(question, std::nullopt);
    mailing::mailDocument(pdf);
    prompts.expectInput(question, u"a@example.com,b@example.com"_s);
    prompts.say(u"\"a@example.com,b@example.com\" is not a mail address."_s);
    mailing::mailDocument(pdf);
    EXPECT_TRUE(server.taken().isEmpty());
    prompts.expectInput(question, u"a@example.com; b@example.com"_s);
    prompts.inform(u"The report was sent to a@example.com; b@example.com."_s);
    mailing::mailDocument(pdf);
    ASSERT_EQ(server.taken().size(), 1);
    const SmtpServer::Mail mail = server.taken().first();
    EXPECT_EQ(mail.recipients, (QList<QByteArray>{"<a@example.com>", "<b@example.com>"}));
    EXPECT_EQ(mail.header("From"), "\"Green & Sons\" <shop@example.com>");
    EXPECT_EQ(mail.header("Subject"), "Work & Order");
    EXPECT_TRUE(mail.text.contains("Green &amp; Sons"));
    EXPECT_TRUE(mail.text.contains(QByteArray("%PDF-1.4 pages").toBase64()));
    EXPECT_EQ(desktop.opened.size(), 2);
}

TEST_F(Sending, AReportClosedUnsentIsStoredOnceHoweverItIsClosed)
{
    const std::function<void(ScreenDriver)> ways[] = {
        [](ScreenDriver form) { form.press("cmdExit"); },
        [](ScreenDriver form) { QTest::keyClick(&form.screen(), Qt::Key_Escape); },
        [](ScreenDriver form) { form.screen().close(); },
        [](ScreenDriver form) {
            QTest::keyClick(&form.screen(), Qt::Key_R, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isOpen(); }));
        }};
    int closed = 0;
    for (const auto &close : ways) {
        // The failed work is undone while its error stays.
        BeginTrans();
        insert(u"tblSupplier"_s, {{u"SupplierID"_s, 1}});
        report(close);
        RollbackTrans();
        EXPECT_EQ(storedErrors(), ++closed);
    }
    EXPECT_EQ(count(u"tblSupplier"_s), 0);
    EXPECT_EQ(count(u"tblErrorList"_s, u"ErrDescription = 'It''s a mismatch'"_s), closed);
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(Sending, ShowsTheErrorAndTheSenderWhoNeedsAValidAddress)
{
    SetOption(u"GEN_COMPANY_EMAIL"_s, u"  shop@example.com "_s, false);
    prompts.say(u"Please enter your email Address."_s);
    prompts.say(u"Please enter a valid email Address, so that we can get back to you."_s);
    report([](ScreenDriver form) {
        QStringList shown;
        for (const char *box : {"txtModuleName", "txtProcedureName", "txtErrNumber",
                                "txtLineNumber", "txtErrDescription", "txtEmail"})
            shown.append(form.text(box));
        EXPECT_EQ(shown.join(u'|'), u"M|P|13|0|It's a mismatch|shop@example.com"_s);
        EXPECT_TRUE(form.control<QLineEdit>("txtErrNumber").isReadOnly());
        EXPECT_FALSE(form.isShown("lblProgress"));
        form.type("txtEmail", u"   "_s);
        form.press("cmdSend");
        form.type("txtEmail", u"nobody@example"_s);
        form.press("cmdSend");
        EXPECT_EQ(form.focused(), "txtEmail");
        EXPECT_EQ(storedErrors(), 0);
        // It is kept with its apostrophe doubled.
        form.type("txtEmail", u"o'brien@example.com"_s);
        form.press("cmdExit");
    });
    EXPECT_EQ(GetOption(u"GEN_COMPANY_EMAIL"_s, false), u"o''brien@example.com"_s);
    EXPECT_EQ(count(u"tblErrorList"_s, u"UserEmail = 'o''brien@example.com'"_s), 1);
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(Sending, WhatIsNoFaultOfTheProgramIsToldInItsSentence)
{
    prompts.inform(test::NoRights);
    base::trapped("Part", "SaveRecord", [] { rights::demand(rights::Parts.add); });
    prompts.inform(test::NoReport);
    base::trapped("Reports", "ShowReport", [] { rights::demand(&Rights::EqList); });
    insert(u"tblPart"_s, {{u"PartID"_s, u"F1"_s}});
    const auto other = database.open();
    other->BeginTrans();
    other->Execute(u"Update tblPart set Bin = 'A'"_s);
    prompts.say(u"Another workstation is changing this record. Please try again in a moment."_s);
    base::trapped("Part", "SaveRecord", [] { gcnData->Execute(u"Delete from tblPart"_s); });
    EXPECT_EQ(storedErrors(), 0);
}

TEST_F(Sending, WithoutAMailProgramTheFormItselfTellsIt)
{
    desktop.leave(u"mailto"_s);
    report([](ScreenDriver form) {
        for (int i = 0; i < 2; ++i) {
            form.press("cmdSend");
            EXPECT_TRUE(form.isOpen());
            EXPECT_EQ(QApplication::activeModalWidget(), &form.screen()) << "no second form";
            EXPECT_TRUE(form.text("lblFailure")
                            .endsWith(u"It is kept in the error list of the database."_s));
        }
        form.press("cmdExit");
    });
    EXPECT_EQ(storedErrors(), 1);
}

TEST_F(Sending, TheFormOpensWithoutADatabaseAndTellsWhatItCantStore)
{
    closeConnections();
    report([](ScreenDriver form) { form.press("cmdExit"); });
    openConnections();
    // Nor does an unusable database open one form after another.
    gcnLookup->Execute(u"Drop table tblSysOption"_s);
    report([](ScreenDriver form) { form.press("cmdExit"); });
    EXPECT_EQ(storedErrors(), 1);
    gcnLookup->Execute(u"Drop table tblErrorList"_s);
    report([](ScreenDriver form) {
        EXPECT_FALSE(form.isShown("lblFailure"));
        form.press("cmdExit");
        EXPECT_EQ(QApplication::activeModalWidget(), &form.screen());
        EXPECT_TRUE(form.isShown("lblFailure"));
        form.press("cmdExit");
        EXPECT_FALSE(form.isOpen());
    });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Sending, TheLogViewerShowsTheWholeLogOrNothing)
{
    QDir().mkpath(base::applicationPath(u"\\Log"_s));
    const QString log = base::applicationPath(u"\\Log\\QVLog.txt"_s);
    EXPECT_EQ(frmQV_Log().findChild<QPlainTextEdit *>()->toPlainText(), QString());
    const std::pair<QByteArray, QString> rows[] = {
        {"first\r\nIt\xe9 second", u"first\nIt\u00e9 second"_s},
        {"\xc3\xa9t\xc3\xa9\n", u"\u00e9t\u00e9\n"_s},
    };
    for (const auto &[bytes, shown] : rows) {
        test::writeFile(log, bytes);
        test::inScreen([] { frmQV_Log::ShowQV_LogDetails(); },
                       [&](ScreenDriver form) {
                           EXPECT_EQ(form.text("txtLog"), shown);
                           form.press("cmdExit");
                       });
    }
}
