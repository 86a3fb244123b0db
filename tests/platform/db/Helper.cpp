#include "platform/db/Attachment.h"
#include "platform/db/Connection.h"
#include "platform/db/Maintenance.h"

#include <QCoreApplication>
#include <QTextStream>

#include <csignal>
#include <functional>
#include <map>
#include <sys/resource.h>

/// A second program beside a test: takes a command and a database file.
namespace {

using namespace Qt::StringLiterals;

void say(const QString &line)
{
    QTextStream(stdout) << line << Qt::endl;
}

void waitForInput()
{
    QTextStream(stdin).readLine();
}

db::Target targetOf(const QString &file)
{
    db::Target target;
    target.file = file;
    target.forcedWrites = false;
    return target;
}

/// Writes pairs of rows, a transaction each, and says each number that is committed, until killed.
void writeForever(const QString &file)
{
    db::Connection connection(targetOf(file));
    for (int i = 1;; ++i) {
        connection.BeginTrans();
        for (int side = 0; side < 2; ++side)
            connection.Execute(u"Insert into tblLog(Number, Side) values(?, ?)"_s, {i, side});
        connection.CommitTrans();
        say(QString::number(i));
    }
}

/// Runs a statement in a transaction and keeps it open until a line comes in; then rolls back.
void holdRow(const QString &file, const QString &statement)
{
    db::Connection connection(targetOf(file));
    connection.BeginTrans();
    connection.Execute(statement);
    say(u"holding"_s);
    waitForInput();
    connection.RollbackTrans();
}

/// Stays attached until a line comes in.
void attach(const QString &file)
{
    const db::Connection connection(targetOf(file));
    say(u"attached"_s);
    waitForInput();
}

/// Inserts until the file can't grow any more; says the number of the error.
void fillDisk(const QString &file)
{
    std::signal(SIGXFSZ, SIG_IGN);
    db::Connection connection(targetOf(file));
    const rlimit limit{4'000'000, 4'000'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
        const QByteArray block(100'000, 'x');
        for (int i = 0; i < 1000; ++i)
            connection.Execute(u"Insert into tblLog(Number, Picture) values(?, ?)"_s, {i, block});
        say(u"no error"_s);
    } catch (const db::DbError &error) {
        say(QString::number(error.number()));
    }
    // The engine can't write its pages at a normal end either.
    std::_Exit(0);
}

/// Makes a new database and says that it works.
void create(const QString &file)
{
    db::createDatabase(targetOf(file));
    db::Connection(targetOf(file)).Execute(u"Create table tblLog (Number integer)"_s);
    say(u"created"_s);
}

/// Leaves the file as the engine's own backup does while it runs.
void beginBackup(const QString &file)
{
    db::engine::Attachment attachment(targetOf(file));
    attachment.executeAlone(u"ALTER DATABASE BEGIN BACKUP"_s);
    say(u"begun"_s);
    waitForInput();
}

void execute(const QString &file, const QString &statement)
{
    db::Connection(targetOf(file)).Execute(statement);
    say(u"executed"_s);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    const QString &file = arguments[2];
    const std::map<QString, std::function<void()>> commands = {
        {u"write-forever"_s, [&] { writeForever(file); }},
        {u"hold-row"_s, [&] { holdRow(file, arguments.value(3)); }},
        {u"attach"_s, [&] { attach(file); }},
        {u"fill-disk"_s, [&] { fillDisk(file); }},
        {u"create"_s, [&] { create(file); }},
        {u"check"_s, [&] { say(QString::number(db::validate(file).damage.size())); }},
        {u"begin-backup"_s, [&] { beginBackup(file); }},
        {u"execute"_s, [&] { execute(file, arguments.value(3)); }}};
    const auto command = commands.find(arguments[1]);
    if (command == commands.end())
        return 2;
    try {
        command->second();
    } catch (const base::Error &error) {
        say(u"error %1: %2"_s.arg(error.number()).arg(error.description()));
        return 1;
    }
    return 0;
}
