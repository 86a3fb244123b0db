#include "platform/db/Maintenance.h"

#include "platform/db/Attachment.h"
#include "platform/db/EngineErrors.h"
#include "platform/db/FileCopy.h"
#include "platform/db/Service.h"
#include "platform/db/SharedUse.h"
#include "platform/sql/EngineTypes.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>

namespace db {

using namespace Qt::StringLiterals;

namespace {

using engine::ParameterBlock;

constexpr int pageSize = 8192;

Target localFile(const QString &file)
{
    Target target;
    target.file = file;
    return target;
}

/// What a task leaves in its first lines when it fails without raising an error.
void refuseFailure(const QStringList &lines)
{
    for (const QString &line : lines) {
        if (line.contains(u"ERROR"_s) || line.contains(u"due to errors"_s))
            throw DbError(ErrorNumber::Unspecified, lines.join(u' '));
    }
}

/// Ends a backup that the engine began for a program that was killed meanwhile.
void endStaleBackup(const Target &source)
{
    engine::Attachment attachment(source);
    attachment.executeAlone(u"ALTER DATABASE END BACKUP"_s);
    attachment.detach();
}

/// A copy of a file that others are writing to, made by the engine.
void copyInUse(const Target &source, const QString &destination)
{
    const SharedUse use(source.file);
    engine::Service service(source);
    ParameterBlock task(ParameterBlock::Kind::ServiceStart);
    task.tag(isc_action_svc_nbak);
    task.text(isc_spb_dbname, source.file);
    task.text(isc_spb_nbk_file, destination);
    task.number(isc_spb_nbk_level, 0);
    (void)service.run(task); // tells only the time that it took
    finishEngineCopy(destination);
}

void backupToPortable(const QString &source, const QString &destination)
{
    engine::Service service(localFile(source));
    ParameterBlock task(ParameterBlock::Kind::ServiceStart);
    task.tag(isc_action_svc_backup);
    task.text(isc_spb_dbname, source);
    task.text(isc_spb_bkp_file, destination);
    // Old versions of rows stay in the source, which is to be left as it is.
    task.number(isc_spb_options, isc_spb_bkp_no_garbage_collect);
    refuseFailure(service.run(task));
}

/// A database on a host is fetched through the host's own connection: its files are not ours.
void fetchPortable(const Target &source, const QString &destination)
{
    QFile output(destination);
    if (!output.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw engine::fileError(errno, destination);
    engine::Service service(source);
    ParameterBlock task(ParameterBlock::Kind::ServiceStart);
    task.tag(isc_action_svc_backup);
    task.text(isc_spb_dbname, source.file);
    task.text(isc_spb_bkp_file, u"stdout"_s);
    service.runInto(task, output);
    if (!output.flush())
        throw engine::fileError(errno, destination);
}

void restorePortable(const QString &source, const QString &destination)
{
    engine::Service service(localFile(destination));
    ParameterBlock task(ParameterBlock::Kind::ServiceStart);
    task.tag(isc_action_svc_restore);
    task.text(isc_spb_bkp_file, source);
    task.text(isc_spb_dbname, destination);
    task.number(isc_spb_res_page_size, pageSize);
    task.number(isc_spb_options, isc_spb_res_create);
    refuseFailure(service.run(task));
}

/// What the engine says about a file as it stands.
Findings findingsOf(const QString &file)
{
    const SharedUse use(file);
    engine::Service service(localFile(file));
    ParameterBlock task(ParameterBlock::Kind::ServiceStart);
    task.tag(isc_action_svc_validate);
    task.text(isc_spb_dbname, file);
    // Each line begins with the time; the ones that only tell how far the check is are left out.
    static const QRegularExpression time(u"^\\d\\d:\\d\\d:\\d\\d\\.\\d\\d\\s*"_s);
    static const QRegularExpression progress(
        u"^(Validation (started|finished)|Relation \\d+ \\(.*\\)( is ok)?|process pointer page .*|"
        "Index \\d+ \\(.*\\)|Relation \\d+ \\(.*\\) : \\d+ WARNINGS found)$"_s);
    Findings findings;
    for (QString line : service.run(task)) {
        line.remove(time);
        if (line.isEmpty() || progress.match(line).hasMatch())
            continue;
        (line.startsWith(u"Warning:"_s) ? findings.remarks : findings.damage) << line;
    }
    return findings;
}

/// The same of a copy without the rows of programs that were ended: the engine counts a row whose
/// entries in the indexes were never written as an error, also when nobody will ever see the row.
Findings findingsOfCleared(const QString &file)
{
    const PartialFile copy(file, u".check~"_s);
    if (!FreeFile(file).copyTo(copy.path()))
        throw engine::fileError(EBUSY, file);
    {
        engine::Service service(localFile(copy.path()));
        ParameterBlock task(ParameterBlock::Kind::ServiceStart);
        task.tag(isc_action_svc_repair);
        task.text(isc_spb_dbname, copy.path());
        task.number(isc_spb_options, isc_spb_rpr_sweep_db);
        refuseFailure(service.run(task));
    }
    return findingsOf(copy.path());
}

} // namespace

void createDatabase(const Target &target)
{
    if (target.host.isEmpty() && QFileInfo::exists(target.file))
        throw engine::fileError(EEXIST, target.file);
    engine::Attachment attachment(target, engine::Attachment::Disposition::Create);
    try {
        // Before any column is made: texts and literals are then compared without regard to case.
        attachment.executeAlone(u"ALTER CHARACTER SET UTF8 SET DEFAULT COLLATION UNICODE_CI"_s);
        for (const QString &statement : sql::EngineTypes::preparationStatements())
            attachment.executeAlone(statement);
    } catch (const DbError &) {
        // A half-made file would pass for a database.
        attachment.drop();
        throw;
    }
    attachment.detach();
}

bool isHeld(const QString &file)
{
    return !FreeFile(file).isFree();
}

void endAbandonedBackup(const QString &file)
{
    const FreeFile source(file);
    // Of a file in use the backup may be running.
    if (source.isFree() && source.isDiverted())
        endStaleBackup(localFile(file));
}

void backupOnline(const Target &source, const QString &destinationFile)
{
    if (!source.host.isEmpty()) {
        const PartialFile portable(destinationFile, u".portable~"_s);
        PartialFile database(destinationFile, u".part~"_s);
        fetchPortable(source, portable.path());
        restorePortable(portable.path(), database.path());
        database.moveTo(destinationFile);
        return;
    }
    PartialFile copy(destinationFile, u".part~"_s);
    FreeFile file(source.file);
    if (file.isFree() && file.isDiverted())
        endStaleBackup(source);
    // Also when somebody came while it was copied byte by byte.
    if (!file.isFree() || !file.copyTo(copy.path()))
        copyInUse(source, copy.path());
    copy.moveTo(destinationFile);
}

void compact(const QString &sourceFile, const QString &destinationFile)
{
    if (isHeld(sourceFile))
        throw engine::fileError(EBUSY, sourceFile);
    if (QFileInfo::exists(destinationFile))
        throw engine::fileError(EEXIST, destinationFile);
    const SharedUse use(sourceFile);
    const PartialFile portable(destinationFile, u".portable~"_s);
    PartialFile database(destinationFile, u".part~"_s);
    backupToPortable(sourceFile, portable.path());
    restorePortable(portable.path(), database.path());
    database.moveTo(destinationFile);
}

Findings validate(const QString &file)
{
    if (isHeld(file))
        throw engine::fileError(EBUSY, file);
    Findings findings = findingsOf(file);
    if (findings.damage.isEmpty())
        return findings;
    try {
        const Findings lasting = findingsOfCleared(file);
        for (const QString &line : std::as_const(findings.damage)) {
            if (!lasting.damage.contains(line))
                findings.remarks << line;
        }
        findings.damage = lasting.damage;
    } catch (const DbError &) {
        // What can't even be cleared away is damage; and so is everything when there is no copy.
    }
    return findings;
}

} // namespace db
