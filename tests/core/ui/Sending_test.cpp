#include "core/ui/Sending.h"

#include "core/CompanySession.h"
#include "core/ErrorReport.h"
#include "core/ErrorStore.h"
#include "core/MailAccount.h"
#include "core/Options.h"
#include "core/RowTests.h"
#include "core/Secrets.h"
#include "core/ui/ScreenDriver.h"
#include "core/ui/Working.h"
#include "core/ui/frmSendEmail.h"
#include "platform/odbc/Odbc.h"
#include "support/ScriptedPrompts.h"
#include "support/SmtpServer.h"
#include "support/TestFiles.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;
using Icon = base::Prompts::Icon;
using test::SmtpServer;

namespace {

/// Receives what would be opened by programs of the system.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop()
    {
        for (const QString &scheme : {u"mailto"_s, u"file"_s})
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Desktop() override
    {
        for (const QString &scheme : {u"mailto"_s, u"file"_s})
            QDesktopServices::unsetUrlHandler(scheme);
    }
    Q_SLOT void open(const QUrl &url) { opened << url.toString(QUrl::FullyEncoded); }

    QStringList opened;
};

struct Sending : test::CompanySession
{
    Sending()
    {
        installErrorReport();
        SetOption(u"GEN_COMPANY_EMAIL"_s, u"shop@example.com"_s, false);
        SetOption(u"GEN_COMPANY_NAME"_s, u"Green & Sons"_s, false);
        settings::registry().setValue(settings::MakerKey, u"ReportMailbox"_s,
                                      u"help@example.com"_s);
    }
    ~Sending() override { setReportTransport({}); }

    static void setUpMail(const SmtpServer &server)
    {
        SetOption(mailing::ServerOption, u"localhost"_s, false);
        SetOption(mailing::PortOption, server.port(), false);
        SetOption(mailing::SecurityOption, mailing::codeOf(mail::Security::None), false);
        joinReportTransport();
    }
    /// Reports an error and acts on its form.
    static void report(const std::function<void(test::ScreenDriver)> &act)
    {
        test::inScreen([] { ErrorHandler(u"M"_s, u"P"_s, 13, u"It's a mismatch"_s); }, act);
    }
    /// Sets up a store of errors of this test's own; its connection string.
    QString setUpStore() const
    {
        const QString store = u"Driver=SQLite3;Database=%1/errors.db"_s.arg(environment.folder());
        QStringList columns;
        for (const QString &name :
             u"ErrNumber ErrDescription LineNumber UserMsg ModuleName ProcedureName UserEmail "
             "Username APPversion DBversion WindowVersion WinVersionNo ServicePack Reply "
             "ErrdateTime"_s.split(u' '))
            columns.append(name + u" varchar(99)"_s);
        odbc::Connection(store).execute(u"create table tblError (%1)"_s.arg(columns.join(u',')));
        secrets::store(errorstore::ConnectionOption, store);
        return store;
    }
    /// Presses Cancel in the window of the steps, once it is there.
    static void cancelSteps()
    {
        QTimer::singleShot(150, [] {
            QWidget *steps = QApplication::activeModalWidget();
            ASSERT_TRUE(steps && steps->objectName() == u"working");
            EXPECT_TRUE(test::named<QLabel>(*steps, u"lblSteps"_s)
                            .text()
                            .contains(u"Connecting to localhost"_s));
            QTest::mouseClick(&test::named<QPushButton>(*steps, u"cmdCancel"_s), Qt::LeftButton);
        });
    }

    test::ScriptedPrompts prompts;
    Desktop desktop;
};

} // namespace

TEST_F(Sending, WorkRunsOnItsOwnThreadAndItsErrorComesBack)
{
    QStringList told;
    QThread *thread = QThread::currentThread();
    working::run(
        [&](const base::Steps &steps) {
            thread = QThread::currentThread();
            steps.say(u"one"_s);
            steps.say(u"two"_s);
            EXPECT_TRUE(steps.areCancelled());
        },
        [&](const QString &step) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            told << step;
        },
        [] { return true; });
    EXPECT_NE(thread, QThread::currentThread());
    EXPECT_EQ(told, (QStringList{u"one"_s, u"two"_s}));
    EXPECT_THROW(working::run([](const base::Steps &) { throw base::Error(5, u"no"_s); }),
                 base::Error);
}

TEST_F(Sending, AReportGoesToTheStoreAndByTheAccount)
{
    const QString store = setUpStore();
    const SmtpServer server({});
    setUpMail(server);
    prompts.expect(u"Thank You for reporting this error. This goes directly to our programmers "
                   u"for diagnosis and repair."_s,
                   Icon::Information);
    report([](const test::ScreenDriver &form) { form.press("cmdSend"); });
    EXPECT_EQ(errorstore::reportsIn(store), 1);
    ASSERT_EQ(server.taken().size(), 1);
    EXPECT_EQ(server.taken().first().recipients, QList<QByteArray>{"<help@example.com>"});
    EXPECT_EQ(server.taken().first().header("Subject"), "User---shop@example.com");
    // Long lines are broken by "=".
    EXPECT_TRUE(server.taken().first().text.replace("=\r\n", "").contains("It's a mismatch"));
    EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, {}), 0);
}

TEST_F(Sending, ACancelledReportStaysInItsForm)
{
    SmtpServer::Behaviour behaviour;
    behaviour.fault = SmtpServer::Fault::HangsAtOnce;
    const SmtpServer server(behaviour);
    setUpMail(server);
    const QString store = setUpStore();
    report([](const test::ScreenDriver &form) {
        for (int time = 0; time < 2; ++time) {
            cancelSteps();
            form.press("cmdSend");
            EXPECT_TRUE(form.isOpen());
        }
        EXPECT_EQ(form.control<QLabel>("lblFailure").text(), u"The report was not sent."_s);
        EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, {}), 0);
        form.press("cmdExit");
    });
    EXPECT_TRUE(desktop.opened.isEmpty());
    EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, {}), 1);
    EXPECT_EQ(errorstore::reportsIn(store), 1) << "a second try fills it no second time";
}

TEST_F(Sending, AReportThatTheServerRefusesGoesToTheUsersMailProgram)
{
    SmtpServer::Behaviour behaviour;
    behaviour.refusedRecipient = "help@example.com";
    const SmtpServer server(behaviour);
    setUpMail(server);
    report([](const test::ScreenDriver &form) { form.press("cmdSend"); });
    ASSERT_EQ(desktop.opened.size(), 1);
    EXPECT_TRUE(desktop.opened[0].startsWith(u"mailto:help@example.com?Subject=Error%20Report"_s));
    EXPECT_EQ(GetRecordCount(u"tblErrorList"_s, {}), 1);
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
    setUpMail(server);
    prompts.expectInput(question, std::nullopt);
    mailing::mailDocument(pdf);
    prompts.expectInput(question, u"a@example.com,b@example.com"_s);
    prompts.expect(u"\"a@example.com,b@example.com\" is not a mail address."_s, Icon::None);
    mailing::mailDocument(pdf);
    EXPECT_TRUE(server.taken().isEmpty());
    prompts.expectInput(question, u"a@example.com; b@example.com"_s);
    prompts.expect(u"The report was sent to a@example.com; b@example.com."_s, Icon::Information);
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

#include "Sending_test.moc"
