#include "support/LoopbackServer.h"

#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTcpServer>
#include <future>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace test {
namespace {

constexpr int Moment = 20; // milliseconds

/// Hands out sockets that can turn to encryption.
class Listener : public QTcpServer
{
protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        addPendingConnection(socket);
    }
};

} // namespace

bool LoopbackServer::Caller::isThere() const
{
    return !m_stopped && m_socket.state() == QAbstractSocket::ConnectedState;
}

std::optional<QByteArray> LoopbackServer::Caller::line()
{
    while (!m_socket.canReadLine() && isThere())
        m_socket.waitForReadyRead(Moment);
    if (!m_socket.canReadLine())
        return std::nullopt;
    QByteArray text = m_socket.readLine();
    while (text.endsWith('\n') || text.endsWith('\r'))
        text.chop(1);
    return text;
}

void LoopbackServer::Caller::say(const QByteArray &bytes)
{
    m_socket.write(bytes);
    while (m_socket.bytesToWrite() > 0 && isThere())
        m_socket.waitForBytesWritten(Moment);
}

void LoopbackServer::Caller::hang()
{
    while (isThere())
        m_socket.waitForReadyRead(Moment);
}

void LoopbackServer::Caller::ignore() const
{
    while (!m_stopped)
        std::this_thread::sleep_for(std::chrono::milliseconds(Moment));
}

bool LoopbackServer::Caller::encrypt(const QString &certificate, const QString &key)
{
    m_socket.setLocalCertificate(certificate);
    m_socket.setPrivateKey(key, QSsl::Ec);
    m_socket.startServerEncryption();
    return m_socket.waitForEncrypted();
}

LoopbackServer::LoopbackServer(std::function<void(Caller &)> talk)
    : m_talk(std::move(talk))
{
    std::promise<int> port;
    m_thread = std::thread([&] { serve([&](int number) { port.set_value(number); }); });
    m_port = port.get_future().get();
}

LoopbackServer::~LoopbackServer()
{
    m_stopped = true;
    m_thread.join();
}

void LoopbackServer::serve(std::function<void(int)> ready)
{
    Listener listener;
    listener.listen(QHostAddress::LocalHost);
    ready(listener.serverPort());
    while (!m_stopped) {
        if (!listener.waitForNewConnection(Moment))
            continue;
        auto *socket = static_cast<QSslSocket *>(listener.nextPendingConnection());
        Caller caller(*socket, m_stopped);
        m_talk(caller);
        if (caller.isThere()) {
            socket->disconnectFromHost();
            if (socket->state() != QAbstractSocket::UnconnectedState)
                socket->waitForDisconnected(Moment);
        }
        delete socket;
    }
}

TestCertificate::TestCertificate(const QString &host)
{
    QProcess::execute(u"openssl"_s,
                      {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                       u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"2"_s,
                       u"-subj"_s, u"/CN="_s + host, u"-addext"_s, u"subjectAltName=DNS:"_s + host,
                       u"-keyout"_s, key(), u"-out"_s, file()});
    EXPECT_TRUE(QFile::exists(file())) << "no certificate for " << host.toStdString();
}

} // namespace test
