#include "console/Releases.h"

#include "core/Session.h"
#include "core/UpdateDatabase.h"
#include "core/database/Changes.h"
#include "platform/base/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace console {
namespace {

using namespace Qt::StringLiterals;

/// The session's two connections to a scratch database, for as long as it lives.
class ScratchSession
{
public:
    explicit ScratchSession(const db::Target &target)
    {
        gcnData = std::make_unique<db::Connection>(target);
        gcnLookup = std::make_unique<db::Connection>(target);
    }
    ~ScratchSession() { closeConnections(); }
    ScratchSession(const ScratchSession &) = delete;
    ScratchSession &operator=(const ScratchSession &) = delete;
};

std::vector<company::Change> changesIn(const QString &textFile)
{
    QFile file(textFile);
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::FileNotFound,
                          u"The file \"%1\" can't be read."_s.arg(textFile));
    return company::parseChanges(QString::fromUtf8(file.readAll()));
}

QString versionIn(db::Connection &connection)
{
    const db::Recordset rows =
        connection.Open(u"Select itemValue from tblSysOption where SysOption = 'DBVERSION'"_s);
    return rows.isEmpty() ? QString() : rows.row(0).text(u"itemValue");
}

bool leadsToNew(const std::vector<company::Change> &changes, const Streams &streams)
{
    const QTemporaryDir folder;
    db::Target former;
    former.file = folder.filePath(u"former.mdb"_s);
    former.forcedWrites = false;
    company::createFirstRelease(former);
    const QString script = folder.filePath(u"changes.mdb"_s);
    company::createScriptDatabase(script, changes);
    ChangesRun run;
    {
        const ScratchSession session(former);
        run = runChanges(script, versionIn(lookupConnection()));
    }
    for (const ChangeFailure &failure : std::as_const(run.failures)) {
        const company::Change &change = changes[static_cast<std::size_t>(failure.id - 1)];
        streams.err << "Version " << change.version << ", statement " << change.sequence << ": "
                    << failure.error.number() << ' ' << failure.error.description() << "\n  "
                    << change.statement << Qt::endl;
    }
    const QStringList differences = company::differencesFromNew(former);
    for (const QString &line : differences)
        streams.err << "An updated database " << line << Qt::endl;
    return run.failures.isEmpty() && differences.isEmpty();
}

} // namespace

bool checkChanges(const QString &textFile, const Streams &streams)
{
    return leadsToNew(changesIn(textFile), streams);
}

bool makeScript(const QString &textFile, const QString &scriptFile, const Streams &streams)
{
    const std::vector<company::Change> changes = changesIn(textFile);
    if (!leadsToNew(changes, streams))
        return false;
    company::createScriptDatabase(QFileInfo(scriptFile).absoluteFilePath(), changes);
    return true;
}

void putScriptBeside(const QString &programFolder)
{
    const QDir folder(programFolder);
    const QString script = folder.filePath(u"Script/DBChanges.mdb"_s);
    if (QFileInfo::exists(script))
        return;
    try {
        db::Target target;
        target.file = folder.filePath(u"Data/Quorvantis.mdb"_s);
        db::Connection connection(target);
        if (versionIn(connection).toInt() >= company::schemaVersion())
            return;
    } catch (const base::Error &) {
        return;
    }
    company::createScriptDatabase(script, company::shippedChanges());
}

} // namespace console
