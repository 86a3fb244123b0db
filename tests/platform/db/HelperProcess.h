#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

namespace test {

/// The second program beside a test (Helper.cpp), killed with this object.
class HelperProcess
{
public:
    explicit HelperProcess(
        const QString &command, const QString &file, const QString &statement = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/database_helper"),
                        {command, file, statement});
        EXPECT_TRUE(m_process.waitForStarted());
    }
    ~HelperProcess() { kill(); }
    HelperProcess(const HelperProcess &) = delete;
    HelperProcess &operator=(const HelperProcess &) = delete;

    /// The next line that it says; empty when it ends or nothing comes.
    QString line()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(30'000))
                break;
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    void send()
    {
        m_process.write("\n");
        m_process.waitForBytesWritten();
    }
    /// At once, as when the power goes.
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    bool finish()
    {
        send();
        return m_process.waitForFinished() && m_process.exitCode() == 0;
    }

private:
    QProcess m_process;
};

} // namespace test
