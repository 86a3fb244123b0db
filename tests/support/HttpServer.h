#pragma once

#include "support/LoopbackServer.h"

#include <QHash>

namespace test {

/// A web server for one test. Each path has its answer: all that is said, head and body; a path
/// without one is answered 404, and one whose answer is empty never. With a certificate, which has
/// to outlive it, it talks encrypted.
class HttpServer
{
public:
    explicit HttpServer(QHash<QByteArray, QByteArray> answers,
                        const TestCertificate *certificate = nullptr)
        : m_answers(std::move(answers))
        , m_certificate(certificate)
        , m_server([this](LoopbackServer::Caller &caller) { talk(caller); })
    {}

    /// "http://localhost:" or "https://localhost:", and the port.
    [[nodiscard]] QString site() const
    {
        return QStringLiteral("%1://localhost:%2")
            .arg(QLatin1StringView(m_certificate ? "https" : "http"))
            .arg(m_server.port());
    }
    [[nodiscard]] static QByteArray page(const QByteArray &body)
    {
        return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body;
    }
    [[nodiscard]] static QByteArray redirect(const QByteArray &address)
    {
        return "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " +
               address + "\r\n\r\n";
    }

private:
    void talk(LoopbackServer::Caller &caller) const
    {
        if (m_certificate && !caller.encrypt(m_certificate->file(), m_certificate->key()))
            return;
        const QByteArray request = caller.line().value_or(QByteArray());
        while (!caller.line().value_or(QByteArray()).isEmpty())
            ;
        const auto answer = m_answers.constFind(request.split(' ').value(1));
        if (answer == m_answers.cend())
            caller.say("HTTP/1.1 404 Not Found\r\nConnection: close\r\nContent-Length: 0\r\n\r\n");
        else if (answer->isEmpty())
            caller.hang();
        else
            caller.say(*answer);
    }

    QHash<QByteArray, QByteArray> m_answers;
    const TestCertificate *m_certificate;
    LoopbackServer m_server;
};

} // namespace test
