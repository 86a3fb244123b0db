#pragma once

#include "support/LoopbackServer.h"

#include <QStringList>
#include <memory>
#include <mutex>

namespace test {

/// A mail server for one test, which behaves as it is told.
class SmtpServer
{
public:
    enum class Encryption { None, StartTls, Tls };
    enum class Fault {
        None,
        HangsAtOnce,    ///< never greets
        HangsAtMessage, ///< takes the message and says nothing more
        IgnoresMessage, ///< lets the message come and doesn't read it
        DropsAtMessage, ///< goes away when the message comes
        OffersNothing   ///< says that it knows no encryption
    };
    struct Behaviour
    {
        Encryption encryption = Encryption::None;
        Fault fault = Fault::None;
        QByteArray user{}; ///< with a user a login is asked for
        QByteArray password{};
        QByteArray refusedRecipient{};
        std::shared_ptr<TestCertificate> certificate{};
    };
    struct Mail
    {
        QByteArray from;
        QList<QByteArray> recipients;
        QByteArray text; ///< with the lines above it
        bool isEncrypted = false;
        bool isLoggedIn = false;

        /// The value of a line above the text; empty without one.
        [[nodiscard]] QByteArray header(const QByteArray &name) const;
    };

    explicit SmtpServer(Behaviour behaviour);

    [[nodiscard]] int port() const { return m_server.port(); }
    /// The mails that were taken, in their order.
    [[nodiscard]] QList<Mail> taken() const;
    /// All that callers have said, but for the texts of mails.
    [[nodiscard]] QByteArray heard() const;

private:
    void talk(LoopbackServer::Caller &caller);
    bool answer(LoopbackServer::Caller &caller, const QByteArray &line, Mail &mail);
    void logIn(LoopbackServer::Caller &caller, const QByteArray &line, Mail &mail);
    bool takeText(LoopbackServer::Caller &caller, Mail &mail);
    [[nodiscard]] QByteArray abilities(const Mail &mail) const;

    Behaviour m_behaviour;
    mutable std::mutex m_mutex;
    QList<Mail> m_taken;
    QByteArray m_heard;
    LoopbackServer m_server; ///< last, so that its thread ends first
};

} // namespace test
