#include "core/database/CreateDatabase.h"

#include "core/database/Changes.h"
#include "core/database/Csv.h"
#include "core/database/ListFile.h"
#include "core/database/Resources.h"
#include "core/database/RowWriter.h"
#include "core/database/Script.h"
#include "platform/base/Error.h"
#include "platform/db/Maintenance.h"

#include <QFile>
#include <QRegularExpression>

namespace company {
namespace {

using namespace Qt::StringLiterals;

/// Above all numbers of lists, so that a list that comes later finds its number free.
constexpr int FirstListMember = 101;

/// The statements of a schema that make its indexes, or all others. release: the folder of a former
/// release's files, with a slash; empty for those of this one.
void runSchema(db::Connection &connection, bool indexes, const QString &release)
{
    static const QRegularExpression makesIndex(u"^create\\s+(unique\\s+)?index\\b"_s);
    for (const QString &statement : splitStatements(resourceText(release + u"schema.sql"_s)))
        if (makesIndex.match(statement).hasMatch() == indexes)
            connection.Execute(statement);
}

void writeLists(Batch &batch, const QString &release)
{
    RowWriter writer(batch, u"tblIndicator"_s,
                     {u"ItemID"_s, u"ParentID"_s, u"ItemName"_s, u"Show"_s, u"FSize"_s});
    for (const ListItem &item : parseLists(resourceText(release + u"lists.txt"_s), FirstListMember))
        writer.add({item.id, item.parent, item.name, true, 0});
}

void writeFields(Batch &batch, const QString &release)
{
    const CsvTable fields(resourceText(release + u"fields.csv"_s));
    RowWriter writer(batch, u"tblTableFields"_s,
                     {u"Tablename"_s, u"RowID"_s, u"FieldDesc"_s, u"FieldName"_s, u"FieldType"_s});
    for (int row = 0; row < fields.rowCount(); ++row)
        writer.add({fields.text(row, u"Tablename"_s), row + 1, fields.text(row, u"FieldDesc"_s),
                    fields.text(row, u"FieldName"_s), fields.text(row, u"FieldType"_s)});
}

void writeFirstRows(db::Connection &connection, const QString &release)
{
    Batch batch(connection);
    for (const QString &statement : splitStatements(resourceText(release + u"firstrows.sql"_s)))
        connection.Execute(statement);
    writeLists(batch, release);
    writeFields(batch, release);
    batch.commit();
    const qint64 last =
        connection.Open(u"Select max(ItemID) as Last from tblIndicator"_s).row(0).integer(u"Last");
    setCounter(connection, u"tblIndicator"_s, u"ItemID"_s, last + 1);
}

/// Makes a database by its steps under another name, and gives it its own when they are done. On a
/// host, where files can't be renamed from here, it is made under its own name.
template<class Fill>
void createWhole(const db::Target &target, Fill &&fill)
{
    const bool local = target.host.isEmpty();
    if (local && QFile::exists(target.file))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file \"%1\" exists already."_s.arg(target.file));
    db::Target work = target;
    work.forcedWrites = false;
    if (local) {
        work.file += u".new"_s;
        QFile::remove(work.file);
    }
    try {
        db::createDatabase(work);
        {
            db::Connection connection(work);
            fill(connection);
        }
        if (target.forcedWrites) {
            db::Target safe = work;
            safe.forcedWrites = true;
            const db::Connection connection(safe);
        }
    } catch (...) {
        if (local)
            QFile::remove(work.file);
        throw;
    }
    if (local && !QFile::rename(work.file, target.file))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file \"%1\" can't be made."_s.arg(target.file));
}

void createRelease(const db::Target &target, const QString &release,
                   const std::function<void(db::Connection &)> &fill)
{
    createWhole(target, [&](db::Connection &connection) {
        runSchema(connection, false, release);
        writeFirstRows(connection, release);
        fill(connection);
        // Over rows that are there they are made faster, and denser, than row by row.
        runSchema(connection, true, release);
    });
}

} // namespace

void createEmptyDatabase(const db::Target &target)
{
    createDatabase(target, [](db::Connection &) {});
}

void createFirstRelease(const db::Target &target)
{
    createRelease(target, u"first/"_s, [](db::Connection &) {});
}

void createDatabase(const db::Target &target, const std::function<void(db::Connection &)> &fill)
{
    createRelease(target, {}, fill);
}

} // namespace company
