#include "platform/db/EngineHome.h"

#include "platform/db/DbError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <array>
#include <fcntl.h>
#include <mutex>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace db {
namespace {

using namespace Qt::StringLiterals;

[[noreturn]] void refuse(const QString &description)
{
    throw DbError(ErrorNumber::Unspecified, description);
}

/// Where the distribution put the engine: the newest version that is there.
QString installedEngine()
{
    for (const QString &library : {u"/usr/lib"_s, u"/usr/lib64"_s, u"/usr/local/lib"_s}) {
        QStringList candidates;
        for (const QString &version : {u"4.0"_s, u"3.0"_s}) {
            candidates << library + u"/firebird/"_s + version;
            const QDir folder(library);
            for (const QString &architecture :
                 folder.entryList({u"*-linux-gnu*"_s}, QDir::Dirs | QDir::NoDotAndDotDot))
                candidates << library + u'/' + architecture + u"/firebird/"_s + version;
        }
        candidates << library + u"/firebird"_s;
        for (const QString &candidate : std::as_const(candidates)) {
            const QDir plugins(candidate + u"/plugins"_s);
            if (!plugins.entryList({u"libEngine*.so"_s}, QDir::Files).isEmpty())
                return candidate;
        }
    }
    refuse(u"The database engine is not installed on this computer."_s);
}

/// Makes a link so that at no moment another process sees none or half of it.
void makeLink(const QString &target, const QString &link)
{
    const QByteArray wanted = QFile::encodeName(target);
    const QByteArray place = QFile::encodeName(link);
    std::array<char, 4096> present{};
    const ssize_t length = ::readlink(place.constData(), present.data(), present.size());
    if (length == wanted.size() &&
        wanted == QByteArray::fromRawData(present.data(), static_cast<int>(length)))
        return;
    // Under a name of this process alone, then renamed over the old one.
    const QByteArray fresh = place + '.' + QByteArray::number(::getpid());
    ::unlink(fresh.constData());
    if (::symlink(wanted.constData(), fresh.constData()) != 0 ||
        ::rename(fresh.constData(), place.constData()) != 0) {
        ::unlink(fresh.constData());
        refuse(u"The folder of the database engine can't be written: "_s + link);
    }
}

void writeWhenDifferent(const QString &path, const QByteArray &content)
{
    QFile present(path);
    // Programs that run already read this file; only a change is worth the risk of writing it.
    if (present.open(QIODevice::ReadOnly) && present.readAll() == content)
        return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        refuse(u"The folder of the database engine can't be written: "_s + path);
}

/// SuperClassic lets several programs on one computer hold one file; each attachment then has a
/// cache of its own, whose size the connections choose. Local paths go straight to the engine in
/// this process: a failure must not turn into a search for a server.
QByteArray settings()
{
    return "ServerMode = SuperClassic\n"
           "Providers = Remote,Engine12,Engine13\n"
           "DefaultDbCachePages = 2048\n"
           "TempCacheLimit = 67108864\n"
           "AuthClient = Srp256, Srp, Legacy_Auth\n"
           "WireCrypt = Enabled\n"
           "BugcheckAbort = 0\n";
}

/// Makes a folder for the user alone, or takes his own that is there: no link, nobody else's, and
/// nobody else could ever put anything into it.
bool takeOwnFolder(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    ::mkdir(path.constData(), S_IRWXU);
    struct stat found
    {};
    return ::lstat(path.constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == ::geteuid() && (found.st_mode & (S_IWGRP | S_IWOTH)) == 0 &&
           ::chmod(path.constData(), S_IRWXU) == 0;
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           u"/Quorvantis"_s;
}

/// The first of these that is the user's own. A place in the folder for temporary files can be
/// guessed by everybody, so somebody may have been there first.
QString ownFolder(const QStringList &places)
{
    for (const QString &place : places) {
        if (QDir().mkpath(QFileInfo(place).path()) && takeOwnFolder(place))
            return place;
    }
    refuse(u"The folder of the database engine must be the user's own: "_s + places.join(u", "_s));
}

QString numbered(const QString &name)
{
    return QDir::tempPath() + u'/' + name + QString::number(::geteuid());
}

QString chosenHome()
{
    return qEnvironmentVariable("QUORVANTIS_ENGINE");
}

QString writableFolder()
{
    if (const QString folder = chosenHome(); !folder.isEmpty())
        return QDir::cleanPath(QDir(folder).absolutePath());
    const QString usual = userFolder() + u"/engine"_s;
    // From before, made as open as the user makes his folders.
    ::chmod(QFile::encodeName(usual).constData(), S_IRWXU);
    return ownFolder({usual, numbered(u"quorvantis-engine-"_s)});
}

/// Whoever names the folder himself may share it with a group, but not with everybody.
QString chosenLockFolder()
{
    const QString folder = engineHome() + u"/lock"_s;
    const QByteArray path = QFile::encodeName(folder);
    QDir().mkpath(engineHome());
    ::mkdir(path.constData(), S_IRWXU);
    struct stat found
    {};
    if (::lstat(path.constData(), &found) != 0 || !S_ISDIR(found.st_mode) ||
        ::access(path.constData(), R_OK | W_OK | X_OK) != 0)
        refuse(u"The folder for the database's locks can't be made: "_s + folder);
    if ((found.st_mode & S_IWOTH) != 0)
        refuse(u"The folder for the database's locks must not be everybody's: "_s + folder);
    return folder;
}

/// A program that is ended while it attaches can leave a lock in these files which nobody ever
/// gives back; all programs after it would wait for ever. So each holds a file of the folder open
/// under a shared lock, and whoever finds himself alone there removes what the engine has left
/// behind.
void clearWhenAlone(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + u"/in-use"_s);
    // Never closed: the lock on it has to last as long as the process.
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                            S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP);
    if (file < 0)
        return;
    // Whoever comes meanwhile waits at the shared lock.
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        QDir left(folder);
        for (const QString &name : left.entryList({u"fb*_*"_s}, QDir::Files | QDir::System))
            left.remove(name);
    }
    // Held, by its descriptor, until this process ends, however it ends.
    ::flock(file, LOCK_SH);
}

void prepare()
{
    const QString installed = installedEngine();
    const QString home = engineHome();
    if (!QDir().mkpath(home))
        refuse(u"The folder of the database engine can't be made: "_s + home);
    for (const QString &part :
         {u"plugins"_s, u"intl"_s, u"firebird.msg"_s, u"plugins.conf"_s, u"UDF"_s, u"lib"_s}) {
        if (QFileInfo::exists(installed + u'/' + part))
            makeLink(installed + u'/' + part, home + u'/' + part);
    }
    writeWhenDifferent(home + u"/firebird.conf"_s, settings());
    // Before the engine is loaded, which looks for its parts there.
    qputenv("FIREBIRD", QFile::encodeName(home));
    clearWhenAlone(engineLockFolder());
    qputenv("FIREBIRD_LOCK", QFile::encodeName(engineLockFolder()));
}

} // namespace

QString engineHome()
{
    static const QString folder = writableFolder();
    return folder;
}

QString engineLockFolder()
{
    // In the folder for temporary files first: a home may lie on another computer.
    static const QString folder =
        chosenHome().isEmpty()
            ? ownFolder({numbered(u"quorvantis-lock-"_s), userFolder() + u"/lock"_s})
            : chosenLockFolder();
    return folder;
}

void prepareEngineHome()
{
    static std::once_flag done;
    std::call_once(done, prepare);
}

} // namespace db
