#include "support/SmtpServer.h"

namespace test {

QByteArray SmtpServer::Mail::header(const QByteArray &name) const
{
    for (const QByteArray &line : text.left(text.indexOf("\r\n\r\n")).split('\n')) {
        if (line.startsWith(name + ':'))
            return line.sliced(name.size() + 1).trimmed();
    }
    return {};
}

SmtpServer::SmtpServer(Behaviour behaviour)
    : m_behaviour(std::move(behaviour))
    , m_server([this](LoopbackServer::Caller &caller) { talk(caller); })
{}

QList<SmtpServer::Mail> SmtpServer::taken() const
{
    const std::lock_guard lock(m_mutex);
    return m_taken;
}

QByteArray SmtpServer::heard() const
{
    const std::lock_guard lock(m_mutex);
    return m_heard;
}

void SmtpServer::talk(LoopbackServer::Caller &caller)
{
    Mail mail;
    if (m_behaviour.fault == Fault::HangsAtOnce)
        return caller.hang();
    if (m_behaviour.encryption == Encryption::Tls) {
        mail.isEncrypted =
            caller.encrypt(m_behaviour.certificate->file(), m_behaviour.certificate->key());
        if (!mail.isEncrypted)
            return;
    }
    caller.say("220 test ready\r\n");
    while (const auto line = caller.line()) {
        {
            const std::lock_guard lock(m_mutex);
            m_heard += *line + '\n';
        }
        if (!answer(caller, *line, mail))
            return;
    }
}

QByteArray SmtpServer::abilities(const Mail &mail) const
{
    QByteArray lines = "250-test\r\n";
    if (m_behaviour.encryption == Encryption::StartTls && !mail.isEncrypted &&
        m_behaviour.fault != Fault::OffersNothing)
        lines += "250-STARTTLS\r\n";
    if (!m_behaviour.user.isEmpty())
        lines += "250-AUTH PLAIN\r\n";
    return lines + "250 OK\r\n";
}

bool SmtpServer::answer(LoopbackServer::Caller &caller, const QByteArray &line, Mail &mail)
{
    const QByteArray word = line.toUpper();
    if (word.startsWith("EHLO")) {
        caller.say(abilities(mail));
    } else if (word == "STARTTLS") {
        caller.say("220 go on\r\n");
        mail.isEncrypted =
            caller.encrypt(m_behaviour.certificate->file(), m_behaviour.certificate->key());
        return mail.isEncrypted;
    } else if (word.startsWith("AUTH PLAIN")) {
        logIn(caller, line, mail);
    } else if (word.startsWith("MAIL FROM:")) {
        mail.from = line.sliced(10);
        caller.say(m_behaviour.user.isEmpty() || mail.isLoggedIn ? "250 OK\r\n"
                                                                 : "530 log in first\r\n");
    } else if (word.startsWith("RCPT TO:")) {
        const QByteArray recipient = line.sliced(8);
        const bool isRefused = recipient == '<' + m_behaviour.refusedRecipient + '>';
        if (!isRefused)
            mail.recipients.append(recipient);
        caller.say(isRefused ? "550 5.1.1 No such user here\r\n" : "250 OK\r\n");
    } else if (word == "DATA") {
        caller.say("354 go on\r\n");
        return takeText(caller, mail);
    } else if (word == "QUIT") {
        caller.say("221 bye\r\n");
        return false;
    } else {
        caller.say("502 not known\r\n");
    }
    return true;
}

void SmtpServer::logIn(LoopbackServer::Caller &caller, const QByteArray &line, Mail &mail)
{
    QByteArray coded = line.mid(11);
    if (coded.isEmpty()) {
        caller.say("334 \r\n");
        coded = caller.line().value_or(QByteArray());
    }
    const QByteArray expected = '\0' + m_behaviour.user + '\0' + m_behaviour.password;
    mail.isLoggedIn = QByteArray::fromBase64(coded) == expected;
    caller.say(mail.isLoggedIn ? "235 welcome\r\n" : "535 5.7.8 wrong password\r\n");
}

bool SmtpServer::takeText(LoopbackServer::Caller &caller, Mail &mail)
{
    if (m_behaviour.fault == Fault::IgnoresMessage) {
        caller.ignore();
        return false;
    }
    if (m_behaviour.fault == Fault::DropsAtMessage) {
        caller.close();
        return false;
    }
    while (const auto line = caller.line()) {
        if (*line == ".") {
            if (m_behaviour.fault == Fault::HangsAtMessage) {
                caller.hang();
                return false;
            }
            {
                const std::lock_guard lock(m_mutex);
                m_taken.append(mail);
            }
            caller.say("250 taken\r\n");
            return true;
        }
        mail.text += (line->startsWith('.') ? line->sliced(1) : *line) + "\r\n";
    }
    return false;
}

} // namespace test
