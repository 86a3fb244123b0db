#include "platform/mail/Mail.h"

#include "platform/mail/Header.h"
#include "support/Raised.h"
#include "support/SmtpServer.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using test::SmtpServer;
using Encryption = SmtpServer::Encryption;
using Fault = SmtpServer::Fault;

namespace {

std::shared_ptr<test::TestCertificate> certificateOf(const QString &host)
{
    return std::make_shared<test::TestCertificate>(host);
}

SmtpServer::Behaviour withLogin(Encryption encryption)
{
    return {.encryption = encryption,
            .fault = Fault::None,
            .user = "office",
            .password = "s3cret&more",
            .refusedRecipient = "gone@example.com",
            .certificate = certificateOf(u"localhost"_s)};
}

/// The account that fits a server.
mail::Account accountAt(const SmtpServer &server, const SmtpServer::Behaviour &behaviour)
{
    mail::Account account;
    account.server = u"localhost"_s;
    account.port = server.port();
    account.security = static_cast<mail::Security>(behaviour.encryption);
    account.user = QString::fromLatin1(behaviour.user);
    account.password = QString::fromLatin1(behaviour.password);
    account.sender = u"office@example.com"_s;
    if (behaviour.certificate)
        account.authorities = behaviour.certificate->file();
    account.timeOut = 1;
    return account;
}

mail::Message message()
{
    return {.sender = u"shop@example.com"_s,
            .senderName = u"Quorvantis--Administrator"_s,
            .recipients = {u"one@example.com"_s, u"two@example.com"_s},
            .subject = u"User---shop@example.com"_s,
            .html = u"<b>Hello</b>\r\n.\r\nm\u00fcde"_s,
            .attachment = {}};
}

/// Reads the coded words of a header line.
QString decoded(const QByteArray &line)
{
    QByteArray bytes;
    for (const QByteArray &word : line.split(' ')) {
        EXPECT_LE(word.size(), 75);
        EXPECT_TRUE(word.startsWith("=?UTF-8?B?") && word.endsWith("?=")) << word.toStdString();
        const QByteArray part = QByteArray::fromBase64(word.sliced(10).chopped(2));
        EXPECT_FALSE(QString::fromUtf8(part).contains(QChar::ReplacementCharacter));
        bytes += part;
    }
    return QString::fromUtf8(bytes);
}

} // namespace

TEST(Mail, GoesOutEncryptedAfterALoginWithItsAttachment)
{
    const test::TestEnvironment environment;
    const QString file = environment.folder() + u"/DBChanges.mdb"_s;
    test::writeFile(file, QByteArray("\0\1\2.\r\nbytes", 11));
    for (const Encryption encryption : {Encryption::StartTls, Encryption::Tls}) {
        const SmtpServer::Behaviour behaviour = withLogin(encryption);
        const SmtpServer server(behaviour);
        mail::Message sent = message();
        sent.attachment = file;
        QStringList steps;
        mail::send(accountAt(server, behaviour), sent,
                   {.tell = [&](const QString &step) { steps.append(step); }, .cancelled = {}});
        EXPECT_EQ(steps, (QStringList{u"Connecting to localhost"_s, u"Logged in"_s,
                                      u"Sending the message"_s, u"Sent"_s}));
        ASSERT_EQ(server.taken().size(), 1);
        const SmtpServer::Mail mail = server.taken().first();
        EXPECT_TRUE(mail.isEncrypted && mail.isLoggedIn);
        EXPECT_EQ(mail.from, "<office@example.com>");
        EXPECT_EQ(mail.recipients, (QList<QByteArray>{"<one@example.com>", "<two@example.com>"}));
        EXPECT_EQ(mail.header("From"), "\"Quorvantis--Administrator\" <office@example.com>");
        EXPECT_EQ(mail.header("Reply-To"), "<shop@example.com>");
        EXPECT_EQ(mail.header("To"), "<one@example.com>, <two@example.com>");
        EXPECT_EQ(mail.header("Subject"), "User---shop@example.com");
        EXPECT_TRUE(mail.header("Date").startsWith("15 Mar 2024 09:30:00 "))
            << mail.header("Date").toStdString();
        EXPECT_TRUE(mail.header("Message-ID").endsWith("@example.com>"));
        EXPECT_TRUE(mail.text.contains("text/html; charset=utf-8")) << mail.text.toStdString();
        EXPECT_TRUE(mail.text.contains("<b>Hello</b>\r\n.\r\nm=C3=BCde"));
        EXPECT_TRUE(mail.text.contains("filename=\"DBChanges.mdb\""));
        EXPECT_TRUE(mail.text.contains(QByteArray("\0\1\2.\r\nbytes", 11).toBase64()));
    }
}

TEST(Mail, WithoutAnAddressOfTheAccountTheSendersOwnIsTold)
{
    const test::TestEnvironment environment;
    const SmtpServer server({});
    mail::Account account = accountAt(server, {});
    account.sender.clear();
    mail::Message sent = message();
    sent.attachment = environment.folder() + u"/Gr\u00fcn \U0001F33F.pdf"_s;
    test::writeFile(sent.attachment, "%PDF");
    mail::send(account, sent);
    ASSERT_EQ(server.taken().size(), 1);
    EXPECT_EQ(server.taken().first().from, "<shop@example.com>");
    EXPECT_EQ(server.taken().first().header("Reply-To"), "");
    EXPECT_TRUE(server.taken().first().text.contains("filename=\"Grun _.pdf\""));
}

TEST(Mail, WhatTheServerDoesWrongIsToldAndNothingIsTaken)
{
    const test::TestEnvironment environment;
    struct Case
    {
        const char *told;
        std::function<void(mail::Account &, mail::Message &)> sender = [](auto &, auto &) {};
        std::function<void(SmtpServer::Behaviour &)> server = [](auto &) {};
    };
    const auto plain = [](Fault fault) {
        return [fault](SmtpServer::Behaviour &server) {
            server = {};
            server.fault = fault;
        };
    };
    const QString longFile = environment.folder() + u"/long.pdf"_s;
    test::writeFile(longFile, {});
    QFile::resize(longFile, 30 << 20);
    const auto unchanged = Case().sender;
    const Case cases[] = {
        {"refused the message: 550 5.1.1 No such user here",
         [](auto &, auto &message) { message.recipients.append(u"gone@example.com"_s); }},
        {"did not accept user name and password: 535 5.7.8 wrong password",
         [](auto &account, auto &) { account.password = u"wrong"_s; }},
        {"refused the message: 530 log in first",
         [](auto &account, auto &) { account.user.clear(); }},
        {"did not answer within 1 seconds", unchanged, plain(Fault::HangsAtOnce)},
        {"did not answer within 1 seconds", unchanged, plain(Fault::HangsAtMessage)},
        {"did not answer within 1 seconds",
         [&](auto &, auto &message) { message.attachment = longFile; },
         plain(Fault::IgnoresMessage)},
        {"broke off", unchanged, plain(Fault::DropsAtMessage)},
        {"certificate of the mail server is not valid for \"localhost\"", unchanged,
         [](auto &server) { server.certificate = certificateOf(u"elsewhere.example"_s); }},
        {"certificate of the mail server is not valid for \"localhost\"",
         [](auto &account, auto &) { account.authorities.clear(); }},
        {"does not offer the kind of encryption", unchanged,
         [](auto &server) { server.fault = Fault::OffersNothing; }},
        {"only sent over an encrypted connection", unchanged,
         [](auto &server) { server.encryption = Encryption::None; }},
        {"does not answer at port 1.", [](auto &account, auto &) { account.port = 1; }},
        {"port of a mail server is a number", [](auto &account, auto &) { account.port = 65536; }},
        {"is not the name of a mail server",
         [](auto &account, auto &) { account.server = u"local host/x"_s; }},
        {"is not a mail address",
         [](auto &, auto &message) {
             message.recipients = {u"one@example.com\r\nBcc: x@example.com"_s};
         }},
        {"A line break stands in",
         [](auto &, auto &message) { message.subject = u"Hello\nBcc: x@example.com"_s; }},
        {"no recipient", [](auto &, auto &message) { message.recipients.clear(); }},
        {"The file can't be read",
         [](auto &, auto &message) { message.attachment = u"/no/such.mdb"_s; }},
    };
    for (const Case &row : cases) {
        SmtpServer::Behaviour behaviour = withLogin(Encryption::StartTls);
        row.server(behaviour);
        const SmtpServer server(behaviour);
        mail::Account account = accountAt(server, behaviour);
        mail::Message sent = message();
        row.sender(account, sent);
        const auto error = test::raisedBy([&] { mail::send(account, sent); });
        EXPECT_TRUE(error.description().contains(QLatin1StringView(row.told)))
            << row.told << " -> " << error.what();
        EXPECT_TRUE(server.taken().isEmpty()) << row.told;
        // Nothing of worth leaves before the server has proven itself.
        if (behaviour.encryption == Encryption::None) {
            EXPECT_FALSE(server.heard().contains("AUTH")) << server.heard().toStdString();
        }
    }
}

TEST(Mail, IsCancelledWhileTheServerHangs)
{
    const test::TestEnvironment environment;
    SmtpServer::Behaviour behaviour;
    behaviour.fault = Fault::HangsAtOnce;
    const SmtpServer server(behaviour);
    mail::Account account = accountAt(server, behaviour);
    account.timeOut = 60;
    QElapsedTimer clock;
    clock.start();
    EXPECT_THROW(mail::send(account, message(),
                            {.tell = {}, .cancelled = [&] { return clock.elapsed() > 100; }}),
                 base::Cancelled);
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST(MailHeader, RefusesWhatIsNoAddress)
{
    for (const QString &address :
         {u""_s, u"office"_s, u"@example.com"_s, u"office@"_s, u"a@b@c"_s, u"a b@example.com"_s,
          u"a@example.com\n"_s, u"a@exa\rmple.com"_s, u"<a@example.com>"_s, u"a@example.com,b"_s,
          u"a;b@example.com"_s, u"m\u00fc@example.com"_s, u"a\u2028@example.com"_s,
          QString(250, u'a') + u"@x.de"_s})
        EXPECT_THROW(mail::requireAddress(address), base::Error) << address.toStdString();
    for (const QString &address : {u"o'brien+x@mail.example.com"_s, u"a@b"_s})
        EXPECT_NO_THROW(mail::requireAddress(address)) << address.toStdString();
    EXPECT_EQ(mail::addressesOf(u" a@b ; c@d;;"_s), (QStringList{u"a@b"_s, u"c@d"_s}));
}

TEST(MailHeader, CodesLettersBeyondAsciiInWholeWords)
{
    const QString name = u"Gr\u00fcn & S\u00f6hne \U0001F33F "_s.repeated(6);
    EXPECT_EQ(decoded(mail::textLine("Subject", name).sliced(9)), name);
    EXPECT_EQ(mail::mailboxLine("From", u"A \"B\" \\ C"_s, u"a@b"_s),
              "From: \"A \\\"B\\\" \\\\ C\" <a@b>");
    EXPECT_EQ(mail::mailboxLine("From", {}, u"a@b"_s), "From: <a@b>");
    const QByteArray coded = mail::mailboxLine("From", u"M\u00fcller"_s, u"a@b"_s);
    EXPECT_EQ(decoded(coded.sliced(6).chopped(6)), u"M\u00fcller"_s);
    for (const QString &text : {u"a\nb"_s, u"a\rb"_s, u"a\u0085b"_s, u"a\u2029b"_s, u"a\tb"_s})
        EXPECT_THROW(static_cast<void>(mail::mailboxLine("From", text, u"a@b"_s)), base::Error);
}
