#include "platform/db/Connection.h"

#include "platform/db/EngineHome.h"
#include "platform/db/Maintenance.h"
#include "support/Raised.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The same code over a database server, started by hand on this computer.
namespace {

using namespace Qt::StringLiterals;
using test::raisedBy;
namespace ErrorNumber = db::ErrorNumber;

const QString password = u"mower7"_s;

/// A server with a folder, a user and a port of its own.
class Server
{
public:
    /// The server's program, empty when it isn't installed.
    static QString program()
    {
        const QString given = qEnvironmentVariable("QUORVANTIS_TEST_SERVER");
        return given.isEmpty()
                   ? QStandardPaths::findExecutable(u"firebird"_s, {u"/usr/sbin"_s, u"/usr/bin"_s})
                   : given;
    }

    Server()
        : m_port(freePort())
    {
        const QString installed = installedEngine();
        for (const auto &part : {u"plugins"_s, u"intl"_s, u"firebird.msg"_s, u"plugins.conf"_s})
            QFile::link(installed + u'/' + part, m_home.filePath(part));
        const QString security = m_home.filePath(u"security.fdb"_s);
        test::writeFile(
            m_home.filePath(u"firebird.conf"_s),
            u"RemoteServicePort = %1\nRemoteBindAddress = 127.0.0.1\n"
            "SecurityDatabase = %2\nAuthServer = Srp\nUserManager = Srp\nProviders = Engine12,Engine13\n"_s
                .arg(m_port)
                .arg(security)
                .toUtf8());
        m_environment.insert(u"FIREBIRD"_s, m_home.path());
        m_environment.insert(u"FIREBIRD_LOCK"_s, m_home.path());
        run(QStandardPaths::findExecutable(u"isql-fb"_s), {},
            u"create database '%1' user SYSDBA;\ncreate user SYSDBA password '%2' using plugin Srp;\ncommit;\n"_s
                .arg(security, password));
        m_process.setProcessEnvironment(m_environment);
        m_process.setProcessChannelMode(QProcess::ForwardedChannels);
        m_process.start(program(), QStringList());
        EXPECT_TRUE(m_process.waitForStarted());
        for (int i = 0; i < 100 && !listens(); ++i)
            m_process.waitForFinished(100);
    }
    ~Server()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    [[nodiscard]] db::Target target(const QString &name) const
    {
        db::Target target;
        target.host = u"127.0.0.1/%1"_s.arg(m_port);
        target.file = m_home.filePath(name);
        target.password = password;
        target.forcedWrites = false;
        return target;
    }
    [[nodiscard]] QString path(const QString &name) const { return m_home.filePath(name); }

private:
    static quint16 freePort()
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        return server.serverPort();
    }
    /// Where the links of the program's own engine folder lead.
    static QString installedEngine()
    {
        db::prepareEngineHome();
        return QFileInfo(QFileInfo(db::engineHome() + u"/plugins"_s).symLinkTarget()).path();
    }
    [[nodiscard]] bool listens() const
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        return socket.waitForConnected(100);
    }
    void run(const QString &command, const QStringList &arguments, const QString &input) const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(command, arguments);
        ASSERT_TRUE(process.waitForStarted()) << command.toStdString();
        process.write(input.toUtf8());
        process.closeWriteChannel();
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardOutput().toStdString();
    }

    QTemporaryDir m_home;
    quint16 m_port;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_process;
};

TEST(Server, ServesTheSameStatementsToSeveralConnections)
{
    if (Server::program().isEmpty() || QStandardPaths::findExecutable(u"isql-fb"_s).isEmpty())
        GTEST_SKIP() << "needs the programs firebird and isql-fb of the database server";
    const Server server;
    const db::Target target = server.target(u"q.mdb"_s);
    const base::Error missing = raisedBy([&] { db::Connection{target}; });
    EXPECT_EQ(missing.number(), ErrorNumber::FileMissing) << missing.what();
    db::createDatabase(target);
    db::Target stranger = target;
    stranger.password = u"wrong"_s;
    EXPECT_EQ(raisedBy([&] { db::Connection{stranger}; }).number(), ErrorNumber::LoginRefused);

    db::Connection data(target);
    db::Connection lookup(target);
    data.Execute(
        u"Create table tblSite (SiteID counter primary key, SiteName text(40), Plan longbinary)"_s);
    const QByteArray picture(300'000, 'p');
    EXPECT_EQ(data.Insert(u"Insert into tblSite(SiteName, Plan) values(?, ?)"_s,
                          {u"Größe"_s, picture}, u"SiteID"_s),
              1);
    data.BeginTrans();
    data.Execute(u"Update tblSite set SiteName = 'x' where SiteID = 1"_s);
    EXPECT_EQ(raisedBy([&] { lookup.Execute(u"Delete from tblSite"_s); }).number(),
              ErrorNumber::LockConflict);
    const db::Recordset rs =
        lookup.Open(u"Select SiteName, Plan from tblSite where SiteName = 'GRÖßE'"_s);
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.value(0, 1), QVariant(picture));
    data.CommitTrans();

    // A backup comes over the connection and is a database of its own here.
    db::backupOnline(target, server.path(u"copy.mdb"_s));
    db::Target copy;
    copy.file = server.path(u"copy.mdb"_s);
    db::Connection here(copy);
    EXPECT_EQ(here.Open(u"Select SiteName from tblSite"_s).value(0, 0), QVariant(u"x"_s));
}

} // namespace
