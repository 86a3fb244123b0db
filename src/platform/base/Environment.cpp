#include "platform/base/Environment.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QSysInfo>

namespace base {
namespace {

Environment &current()
{
    static Environment environment = Environment::ofProcess();
    return environment;
}

QString valueOr(const char *variable, const QString &otherwise)
{
    const QString value = qEnvironmentVariable(variable).trimmed();
    return value.isEmpty() ? otherwise : value;
}

QString joined(const QString &folder, const QString &stored)
{
    QString path = stored;
    path.replace(u'\\', u'/');
    if (!path.isEmpty() && !path.startsWith(u'/'))
        path.prepend(u'/');
    return folder + path;
}

} // namespace

Environment Environment::ofProcess()
{
    Environment result;
    result.clock = [] {
        const QDateTime local = QDateTime::currentDateTime();
        return wallClock(local.date(), local.time());
    };
    const QString beside =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
    result.applicationFolder = QDir(valueOr("QUORVANTIS_HOME", beside)).absolutePath();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    result.appData = valueOr("APPDATA", config);
    result.computerName = valueOr("ComputerName", QSysInfo::machineHostName());
    result.registryFile =
        valueOr("QUORVANTIS_REGISTRY", config + QStringLiteral("/Quorvantis/registry.ini"));
    return result;
}

const Environment &environment()
{
    return current();
}

void setEnvironment(Environment environment)
{
    current() = std::move(environment);
}

QDateTime wallClock(QDate date, QTime time)
{
    return QDateTime(date, time, Qt::UTC);
}

QDateTime now()
{
    QDateTime time = environment().clock();
    const QTime clock = time.time();
    time.setTime(QTime(clock.hour(), clock.minute(), clock.second()));
    return time;
}

QDate today()
{
    return environment().clock().date();
}

QString applicationPath(const QString &stored)
{
    return joined(environment().applicationFolder, stored);
}

QString appDataPath(const QString &stored)
{
    return joined(environment().appData + QStringLiteral("/Quorvantis"), stored);
}

} // namespace base
