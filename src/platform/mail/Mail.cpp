#include "platform/mail/Mail.h"

#include "platform/base/Environment.h"
#include "platform/mail/Header.h"
#include "platform/web/Curl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <QUuid>
#include <new>

using namespace Qt::StringLiterals;

namespace mail {
namespace {

constexpr int PortOfMail = 25;
constexpr int PortOfSubmission = 587;
constexpr int PortOfTls = 465;
constexpr int LargestPort = 65535;
constexpr qsizetype LongestReply = 200;
// Replies of servers.
constexpr int Goodbye = 221;
constexpr int LoggedIn = 235;
constexpr int GoOn = 354;
constexpr int FirstRefusal = 400;

[[noreturn]] void raise(const QString &text, int number = base::ErrorNumber::InvalidCall)
{
    throw base::Error(number, text);
}

/// What the server says while a message is on its way.
struct Conversation
{
    const base::Steps *steps;
    web::Watch *watch;
    QByteArray refusal; ///< the server's last word, when it was one

    void hear(const QByteArray &line)
    {
        watch->moved();
        const int reply = line.left(3).toInt();
        // Kept until a later word shows that the server went on all the same; its goodbye shows
        // nothing.
        if (reply >= FirstRefusal)
            refusal = line.left(LongestReply);
        else if (reply != Goodbye)
            refusal.clear();
        if (reply == LoggedIn)
            steps->say(u"Logged in"_s);
        else if (reply == GoOn)
            steps->say(u"Sending the message"_s);
    }
    /// The refusal as it can be shown.
    [[nodiscard]] QString words() const { return QString::fromUtf8(refusal).simplified(); }
};

std::size_t takeLine(char *data, std::size_t, std::size_t size, void *conversation)
{
    static_cast<Conversation *>(conversation)->hear({data, static_cast<qsizetype>(size)});
    return size;
}

QByteArray serverAddress(const Account &account)
{
    QUrl url;
    url.setScheme(account.security == Security::Tls ? u"smtps"_s : u"smtp"_s);
    // Put together by parts, so that a name can bring no path, user or other server along.
    url.setHost(account.server.trimmed(), QUrl::StrictMode);
    if (url.host().isEmpty())
        raise(u"\"%1\" is not the name of a mail server."_s.arg(
            account.server.simplified().left(100)));
    if (account.port < 1 || account.port > LargestPort)
        raise(u"The port of a mail server is a number from 1 to 65535."_s);
    url.setPort(account.port);
    return url.toEncoded();
}

/// The sender that the server is told.
QString envelopeSender(const Account &account, const Message &message)
{
    return account.sender.isEmpty() ? message.sender : account.sender;
}

/// The time as mails carry it, with the zone of this computer.
QString dateText()
{
    const QDateTime now = base::now();
    return QDateTime(now.date(), now.time()).toString(Qt::RFC2822Date);
}

web::CurlList headerOf(const Account &account, const Message &message)
{
    const QString from = envelopeSender(account, message);
    web::CurlList lines;
    web::append(lines, textLine("Date", dateText()));
    web::append(lines, mailboxLine("From", message.senderName, from));
    // The account's address is who sends, since servers take no other; answers go to the person.
    if (message.sender != from)
        web::append(lines, mailboxLine("Reply-To", {}, message.sender));
    // Before they are joined: a line break in one would add lines to the header.
    for (const QString &recipient : message.recipients)
        requireAddress(recipient);
    web::append(lines, textLine("To", u'<' + message.recipients.join(u">, <"_s) + u'>'));
    web::append(lines, textLine("Subject", message.subject));
    web::append(lines, textLine("Message-ID",
                                u"<%1@%2>"_s.arg(QUuid::createUuid().toString(QUuid::WithoutBraces),
                                                 from.section(u'@', 1))));
    return lines;
}

/// A file's name in letters that every server passes on.
QByteArray plainName(const QString &name)
{
    QString plain;
    for (const QChar letter : name.normalized(QString::NormalizationForm_D)) {
        if (letter.isMark() || letter.isLowSurrogate())
            continue;
        plain += letter.unicode() < u'\x7f' ? letter : u'_';
    }
    return plain.toLatin1();
}

curl_mimepart *addPart(curl_mime *mime)
{
    curl_mimepart *part = curl_mime_addpart(mime);
    if (!part)
        throw std::bad_alloc();
    return part;
}

void addAttachment(curl_mime *mime, const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable())
        raise(u"The file can't be read: "_s + QDir::toNativeSeparators(path),
              base::ErrorNumber::FileNotFound);
    curl_mimepart *part = addPart(mime);
    if (curl_mime_filedata(part, QFile::encodeName(path).constData()) != CURLE_OK)
        raise(u"The file can't be read: "_s + QDir::toNativeSeparators(path),
              base::ErrorNumber::FileNotFound);
    curl_mime_filename(part, plainName(file.fileName()).constData());
    curl_mime_encoder(part, "base64");
}

web::CurlMime bodyOf(CURL *transfer, const Message &message)
{
    web::CurlMime mime(curl_mime_init(transfer));
    curl_mimepart *text = addPart(mime.get());
    const QByteArray html = message.html.toUtf8();
    curl_mime_data(text, html.constData(), static_cast<std::size_t>(html.size()));
    curl_mime_type(text, "text/html; charset=utf-8");
    curl_mime_encoder(text, "quoted-printable");
    if (!message.attachment.isEmpty())
        addAttachment(mime.get(), message.attachment);
    return mime;
}

void applyAccount(CURL *transfer, const Account &account)
{
    curl_easy_setopt(transfer, CURLOPT_URL, serverAddress(account).constData());
    curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    // Proxies of the web carry no mail.
    curl_easy_setopt(transfer, CURLOPT_PROXY, "");
    curl_easy_setopt(transfer, CURLOPT_USE_SSL,
                     long{account.security == Security::None ? CURLUSESSL_NONE : CURLUSESSL_ALL});
    curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT, long{account.timeOut});
    curl_easy_setopt(transfer, CURLOPT_SERVER_RESPONSE_TIMEOUT, long{account.timeOut});
    if (!account.authorities.isEmpty())
        curl_easy_setopt(transfer, CURLOPT_CAINFO,
                         QFile::encodeName(account.authorities).constData());
    if (account.user.isEmpty())
        return;
    if (account.security == Security::None)
        raise(u"A password is only sent over an encrypted connection. Choose STARTTLS or TLS, or "
              u"leave the user name empty."_s);
    curl_easy_setopt(transfer, CURLOPT_USERNAME, account.user.toUtf8().constData());
    curl_easy_setopt(transfer, CURLOPT_PASSWORD, account.password.toUtf8().constData());
}

[[noreturn]] void raiseFailure(CURLcode code, const Account &account,
                               const Conversation &conversation)
{
    const QString server = account.server.trimmed();
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
        raise(u"The mail server \"%1\" is not known. Check its name, and whether this computer is "
              u"connected."_s.arg(server));
    case CURLE_COULDNT_CONNECT:
        raise(
            u"The mail server \"%1\" does not answer at port %2."_s.arg(server).arg(account.port));
    case CURLE_OPERATION_TIMEDOUT:
        raise(u"The mail server \"%1\" did not answer within %2 seconds."_s.arg(server).arg(
            account.timeOut));
    case CURLE_PEER_FAILED_VERIFICATION:
        raise(
            u"The certificate of the mail server is not valid for \"%1\". Nothing was sent."_s.arg(
                server));
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_USE_SSL_FAILED:
        raise(u"The mail server \"%1\" does not offer the kind of encryption that is chosen. "
              u"Nothing was sent."_s.arg(server));
    case CURLE_LOGIN_DENIED:
        raise(u"The mail server did not accept user name and password: "_s + conversation.words());
    case CURLE_SSL_CACERT_BADFILE:
        raise(u"The file of trusted certificates can't be read: "_s +
              QDir::toNativeSeparators(account.authorities));
    default:
        break;
    }
    if (!conversation.refusal.isEmpty())
        raise(u"The mail server refused the message: "_s + conversation.words());
    raise(u"The connection to the mail server \"%1\" broke off (%2)."_s.arg(
        server, QString::fromLatin1(curl_easy_strerror(code))));
}

} // namespace

QStringList addressesOf(const QString &text)
{
    QStringList addresses;
    for (const QString &address : text.split(u';'))
        if (!address.trimmed().isEmpty())
            addresses.append(address.trimmed());
    return addresses;
}

int usualPort(Security security)
{
    switch (security) {
    case Security::None:
        return PortOfMail;
    case Security::StartTls:
        return PortOfSubmission;
    case Security::Tls:
        return PortOfTls;
    }
    return PortOfSubmission;
}

void send(const Account &account, const Message &message, const base::Steps &steps)
{
    if (message.recipients.isEmpty())
        raise(u"The mail has no recipient."_s);
    const web::Curl transfer = web::makeTransfer();
    CURL *handle = transfer.get();
    applyAccount(handle, account);
    const web::CurlList header = headerOf(account, message);
    const web::CurlMime body = bodyOf(handle, message);
    web::CurlList recipients;
    for (const QString &recipient : message.recipients)
        web::append(recipients, '<' + recipient.toUtf8() + '>');
    curl_easy_setopt(handle, CURLOPT_MAIL_FROM,
                     ('<' + envelopeSender(account, message).toUtf8() + '>').constData());
    curl_easy_setopt(handle, CURLOPT_MAIL_RCPT, recipients.get());
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, header.get());
    curl_easy_setopt(handle, CURLOPT_MIMEPOST, body.get());

    web::Watch watch(steps, account.timeOut);
    watch.over(handle);
    Conversation conversation{.steps = &steps, .watch = &watch, .refusal = {}};
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &takeLine);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &conversation);

    steps.say(u"Connecting to "_s + account.server.trimmed());
    const CURLcode code = curl_easy_perform(handle);
    if (code == CURLE_OK)
        return steps.say(u"Sent"_s);
    // Asked first: the library calls a transfer that was cancelled broken off.
    if (steps.areCancelled())
        throw base::Cancelled();
    raiseFailure(watch.isStalled() ? CURLE_OPERATION_TIMEDOUT : code, account, conversation);
}

} // namespace mail
