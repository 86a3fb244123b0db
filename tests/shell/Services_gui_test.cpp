#include "core/ErrorStore.h"
#include "core/Secrets.h"
#include "core/ui/MailSetUp.h"
#include "core/ui/ScreenDriver.h"
#include "platform/odbc/Odbc.h"
#include "shell/ShellSession.h"
#include "shell/Updates.h"
#include "shell/ui/CheckForUpdates.h"
#include "shell/ui/frmSendDBUpdate.h"
#include "shell/ui/frmSetup.h"
#include "support/Desktop.h"
#include "support/HttpServer.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;
using Icon = base::Prompts::Icon;
using test::ScreenDriver;
using test::SmtpServer;

namespace {

constexpr int MailPage = 4;
constexpr int ErrorReportsPage = 5;
constexpr int UpdatesPage = 6;

struct Services : test::ShellSession
{
    Services()
    {
        for (const char *proxy : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
            qunsetenv(proxy);
    }
    ~Services() override { setReportTransport({}); }

    /// Acts on a page of the options.
    static void inSetup(int page, const std::function<void(ScreenDriver)> &act)
    {
        frmSetup screen;
        test::bringUp(screen);
        const ScreenDriver driver(screen);
        driver.control<QTabWidget>("tabOptions").setCurrentIndex(page);
        act(driver);
    }
    static void maker(const QString &name, const QString &value)
    {
        settings::registry().setValue(settings::MakerKey, name, value);
    }
};

} // namespace

TEST_F(Services, TheMailAccountIsStoredWithItsPasswordSealed)
{
    inSetup(MailPage, [](const ScreenDriver &page) {
        page.type("txtMailServer", u"mail.example.com"_s);
        page.choose("cboMailSecurity", u"TLS"_s);
        EXPECT_EQ(page.control<QLineEdit>("txtMailPort").placeholderText(), u"465"_s);
        page.type("txtMailPort", u"2465"_s);
        page.type("txtMailSender", u"office@example.com"_s);
        page.type("txtMailUser", u"office"_s);
        page.type("txtMailPassword", u"hushhush"_s);
        EXPECT_NE(page.control<QLineEdit>("txtMailPassword").echoMode(), QLineEdit::Normal);
        page.press("cmdApply");
        EXPECT_EQ(page.text("txtMailPassword"), QString());
    });
    const mail::Account account = mailing::account();
    EXPECT_EQ((QStringList{account.server, account.sender, account.user, account.password}),
              u"mail.example.com office@example.com office hushhush"_s.split(u' '));
    EXPECT_EQ(account.security, mail::Security::Tls);
    EXPECT_EQ(account.port, 2465);
    // What is not typed anew stays.
    inSetup(MailPage, [](const ScreenDriver &page) {
        EXPECT_EQ(page.text("txtMailPassword"), QString());
        EXPECT_EQ(page.text("cboMailSecurity"), u"TLS"_s);
        page.type("txtMailPassword", u"x"_s);
        page.type("txtMailPassword", QString());
        page.press("cmdApply");
        EXPECT_TRUE(secrets::isKept(mailing::PasswordOption));
        page.press("cmdForgetMailPassword");
        EXPECT_TRUE(secrets::isKept(mailing::PasswordOption)) << "until it is applied";
        page.press("cmdOk");
    });
    EXPECT_FALSE(secrets::isKept(mailing::PasswordOption));
}

TEST_F(Services, ATestMailShowsWhetherTheAccountWorks)
{
    const auto certificate = std::make_shared<test::TestCertificate>(u"localhost"_s);
    const SmtpServer server({.encryption = SmtpServer::Encryption::StartTls,
                             .user = "office",
                             .password = "hushhush",
                             .certificate = certificate});
    SetRegistryValue(u"MAILAUTHORITIES"_s, certificate->file());
    inSetup(MailPage, [&](const ScreenDriver &page) {
        page.type("txtMailServer", u"localhost"_s);
        page.type("txtMailPort", QString::number(server.port()));
        page.type("txtMailUser", u"office"_s);
        prompts.say(u"\"office\" is not a mail address."_s);
        page.type("txtMailSender", u"office"_s);
        QTest::mouseClick(&page.control("txtMailUser"), Qt::LeftButton);
        EXPECT_EQ(page.focused(), "txtMailSender");
        prompts.say(u"\"office\" is not a mail address."_s);
        page.control<QAbstractButton>("cmdApply").click(); // Alt+A leaves no field
        EXPECT_EQ(GetOption(mailing::SenderOption, false), QString());
        page.type("txtMailSender", u"office@example.com"_s);
        prompts.say(
            u"The mail server did not accept user name and password: 535 5.7.8 wrong password"_s);
        page.type("txtMailPassword", u"mistaken"_s);
        page.press("cmdTestMail");
        prompts.inform(u"The test was sent to office@example.com. Look whether it arrives."_s);
        page.type("txtMailPassword", u"hushhush"_s);
        page.press("cmdTestMail");
        // The one that is kept does as well.
        page.press("cmdApply");
        prompts.inform(u"The test was sent to office@example.com. Look whether it arrives."_s);
        page.press("cmdTestMail");
    });
    ASSERT_EQ(server.taken().size(), 2);
    EXPECT_EQ(server.taken().first().recipients, QList<QByteArray>{"<office@example.com>"});
}

TEST_F(Services, TheErrorStoreIsCheckedBeforeItIsTrusted)
{
    const QString connection = u"Driver=SQLite3;Database=%1/errors.db"_s.arg(environment.folder());
    inSetup(ErrorReportsPage, [&](const ScreenDriver &page) {
        prompts.say(u"Enter the connection first."_s);
        page.press("cmdTestErrorStore");
        odbc::Connection(connection).execute(u"create table tblError (Reply integer)"_s);
        page.type("txtErrorStore", connection);
        prompts.inform(u"The error store answers. It holds 0 reports."_s);
        page.press("cmdTestErrorStore");
        page.press("cmdOk");
    });
    EXPECT_EQ(errorstore::connectionString(), connection);
}

TEST_F(Services, TheLookForReleasesCanBeTurnedOff)
{
    inSetup(UpdatesPage, [](const ScreenDriver &page) {
        EXPECT_FALSE(page.isEnabled("chkCheckForUpdate"));
        EXPECT_FALSE(page.isEnabled("cmdCheckForUpdates"));
        EXPECT_EQ(page.text("lblReleaseShare"), u"(not set up)"_s);
    });
    SetRegistryValue(u"PATH"_s, u"/office/"_s);
    maker(u"UpdateSite"_s, u"https://example.com"_s);
    for (const bool on : {false, true}) {
        inSetup(UpdatesPage, [on](const ScreenDriver &page) {
            EXPECT_TRUE(page.isEnabled("cmdCheckForUpdates"));
            EXPECT_EQ(page.text("lblReleaseShare"), u"/office/Client"_s);
            auto &box = page.control<QCheckBox>("chkCheckForUpdate");
            EXPECT_NE(box.isChecked(), on);
            box.setChecked(on);
            page.press("cmdOk");
        });
        EXPECT_EQ(GetRegistryValue(updates::AtStartValue), on ? u"1"_s : u"0"_s);
    }
}

TEST_F(Services, TheScriptOfAFailedUpdateGoesToTheMakers)
{
    SetOption(u"GEN_COMPANY_EMAIL"_s, u"shop@example.com"_s, false);
    SetRegistryValue(u"CLIENTVERSION"_s, u"2.2"_s);
    const auto expectExporting = [](bool isReached) {
        const ScreenDriver form(*QApplication::activeModalWidget());
        EXPECT_EQ(form.isEnabled("lblExporting"), isReached);
    };
    const auto sendIt = [] {
        test::inScreen(frmSendDBUpdate::ShowSendDBUpdateDetails, [](const ScreenDriver &form) {
            EXPECT_EQ(form.text("txtEmail"), u"shop@example.com"_s);
            form.press("cmdSend");
            EXPECT_FALSE(form.isOpen());
        });
    };
    joinReportTransport();
    prompts.say(u"The report could not be sent. No mail account is set up for it. File, Setup "
                u"has a page Mail for that."_s);
    sendIt();

    const SmtpServer server({});
    test::setUpMail(server, u" ; "_s);
    prompts.say(u"The report could not be sent. The installation names no mailbox of the "
                u"makers."_s);
    sendIt();
    test::setUpMail(server, u"help@example.com; more@example.com"_s);
    const QString script = base::applicationPath(u"\\Script\\DBChanges.mdb"_s);
    prompts.say(u"The report could not be sent. The file can't be read: "_s + script);
    sendIt();

    QDir().mkpath(base::applicationPath(u"\\Script"_s));
    test::writeFile(script, "marked rows");
    prompts.meanwhile([&] { expectExporting(true); });
    prompts.inform(u"Thank You for reporting this error. This goes directly to our programmers "
                   u"for diagnosis and repair."_s);
    sendIt();
    ASSERT_EQ(server.taken().size(), 1);
    const SmtpServer::Mail mail = server.taken().first();
    EXPECT_EQ(mail.recipients, (QList<QByteArray>{"<help@example.com>", "<more@example.com>"}));
    EXPECT_EQ(mail.header("Subject"), "User---shop@example.com");
    EXPECT_EQ(mail.header("From"), "\"Quorvantis--Administrator\" <shop@example.com>");
    EXPECT_TRUE(mail.text.contains(QByteArray("marked rows").toBase64()));
    EXPECT_TRUE(mail.text.contains("CLIENTVESION"));

    prompts.meanwhile([&] { expectExporting(false); });
    prompts.say(u"Please enter a valid email Address, so that we can get back to you."_s);
    test::inScreen(frmSendDBUpdate::ShowSendDBUpdateDetails, [](const ScreenDriver &form) {
        form.type("txtEmail", u"shop@example"_s);
        form.press("cmdSend");
        EXPECT_TRUE(form.isOpen());
        EXPECT_EQ(form.focused(), "txtEmail");
        EXPECT_FALSE(form.isEnabled("lblCheckData"));
        form.press("cmdExit");
    });
    EXPECT_EQ(server.taken().size(), 1);
}

TEST_F(Services, TheUpdateSiteIsAskedAndOnlyTheWebIsOpened)
{
    test::Desktop browser;
    const auto feed = [](const QByteArray &offer) {
        return test::HttpServer::page("<a><QUORVANTIS>" + offer + "</QUORVANTIS></a>");
    };
    struct Case
    {
        QByteArray answer;
        QList<std::pair<QString, Icon>> told;
        QStringList opened;
    };
    const Case cases[] = {
        {feed("<v>2.3.2</v><u>http://localhost/get</u><t>2.3.2</t>"),
         {{u"Quorvantis 2.3.2 is available."_s, Icon::Information}},
         {u"http://localhost/get"_s}},
        {feed("<v>2.3.2</v><u>http://localhost/get</u><t/>"), {}, {u"http://localhost/get"_s}},
        {feed("<v>2.3.1</v><u>http://localhost/get</u><t>2.3.1</t>"),
         {{u"No updates available"_s, Icon::None}},
         {}},
        {feed("<v>2.3.2</v><u>file:///usr/bin/true</u><t>2.3.2</t>"),
         {{u"Quorvantis 2.3.2 is available."_s, Icon::Information},
          {u"The update site names no address of the web to get it from, so none is opened."_s,
           Icon::None}},
         {}},
        {"HTTP/1.1 404 Gone\r\nConnection: close\r\nContent-Length: 0\r\n\r\n",
         {{u"The latest version could not be looked up. \"localhost\" answered with the error 404."_s,
           Icon::None}},
         {}},
    };
    for (const Case &row : cases) {
        const test::HttpServer server({{"/setup/LatestUPT/Quorvantis.xml", row.answer}});
        maker(u"UpdateSite"_s, server.site());
        for (const auto &[text, icon] : row.told)
            prompts.expect(text, icon);
        browser.opened.clear();
        mnuCheckForUpdates_Click();
        EXPECT_EQ(browser.opened, row.opened) << row.answer.toStdString();
    }
}
