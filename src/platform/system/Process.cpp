#include "platform/system/Process.h"

#include "platform/base/Error.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

struct Command
{
    QString program;
    QStringList arguments;
};

Command parse(const QString &commandLine)
{
    QStringList parts = QProcess::splitCommand(commandLine);
    if (parts.isEmpty())
        throw base::Error(base::ErrorNumber::InvalidCall, u"No program was named."_s);
    Command command{parts.takeFirst(), parts};
    // Looked for by hand, since the reason that the toolkit gives doesn't tell a missing program
    // from a forbidden one.
    if (!QFileInfo::exists(command.program) &&
        QStandardPaths::findExecutable(command.program).isEmpty()) {
        throw base::Error(base::ErrorNumber::FileNotFound,
                          u"File not found: "_s + QDir::toNativeSeparators(command.program));
    }
    return command;
}

[[noreturn]] void raiseNotRun(const Command &command, const QString &reason)
{
    throw base::Error(base::ErrorNumber::InvalidCall,
                      u"The program %1 can't be run: %2"_s.arg(
                          QDir::toNativeSeparators(command.program), reason));
}

} // namespace

int runAndWait(const QString &commandLine)
{
    const Command command = parse(commandLine);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(command.program, command.arguments);
    if (!process.waitForStarted(-1))
        raiseNotRun(command, process.errorString());
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit)
        raiseNotRun(command, process.errorString());
    return process.exitCode();
}

void startProgram(const QString &commandLine)
{
    const Command command = parse(commandLine);
    QProcess process;
    process.setProgram(command.program);
    process.setArguments(command.arguments);
    if (!process.startDetached())
        raiseNotRun(command, process.errorString());
}

} // namespace sys
