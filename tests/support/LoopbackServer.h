#pragma once

#include <QSslSocket>
#include <QTemporaryDir>
#include <atomic>
#include <functional>
#include <thread>

namespace test {

/// A server on this computer, at a port of its own and on a thread of its own, as long as it lives.
/// It talks with one caller after the other.
class LoopbackServer
{
public:
    /// One caller on the server's side. What waits comes back when the caller or the server goes.
    class Caller
    {
    public:
        Caller(QSslSocket &socket, const std::atomic<bool> &stopped)
            : m_socket(socket)
            , m_stopped(stopped)
        {}

        /// The next line without its end; nothing when there is none any more.
        [[nodiscard]] std::optional<QByteArray> line();
        void say(const QByteArray &bytes);
        /// Says nothing until the caller or the server goes.
        void hang();
        /// Neither reads nor says anything until the server goes.
        void ignore() const;
        void close() { m_socket.abort(); }
        [[nodiscard]] bool isThere() const;
        /// Turns to encryption; False when the caller doesn't.
        bool encrypt(const QString &certificate, const QString &key);

    private:
        QSslSocket &m_socket;
        const std::atomic<bool> &m_stopped;
    };

    explicit LoopbackServer(std::function<void(Caller &)> talk);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    [[nodiscard]] int port() const { return m_port; }

private:
    void serve(std::function<void(int)> ready);

    std::function<void(Caller &)> m_talk;
    std::atomic<bool> m_stopped = false;
    int m_port = 0;
    std::thread m_thread;
};

/// A certificate that is signed by itself, for a host of this name.
class TestCertificate
{
public:
    explicit TestCertificate(const QString &host);

    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("cert.pem")); }
    [[nodiscard]] QString key() const { return m_folder.filePath(QStringLiteral("key.pem")); }

private:
    QTemporaryDir m_folder;
};

} // namespace test
