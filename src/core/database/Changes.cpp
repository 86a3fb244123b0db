#include "core/database/Changes.h"

#include "core/database/CreateDatabase.h"
#include "core/database/Resources.h"
#include "core/database/RowWriter.h"
#include "core/database/Script.h"
#include "platform/base/Error.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Structure.h"
#include "platform/sql/Parser.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

namespace company {
namespace {

using namespace Qt::StringLiterals;

[[noreturn]] void refuse(const QString &why, const QString &statement)
{
    throw base::Error(base::ErrorNumber::InvalidCall, why + u": "_s + statement);
}

/// The literal that an insert gives to a column, "" when it gives none.
QString literalFor(const sql::Change &insert, QStringView column)
{
    for (std::size_t i = 0; i < std::min(insert.columns.size(), insert.values.size()); ++i) {
        if (insert.columns[i].name.compare(column, Qt::CaseInsensitive) == 0 &&
            insert.values[i]->kind == sql::Expression::Kind::Literal)
            return insert.values[i]->token.text.toString().replace(u"''"_s, u"'"_s);
    }
    return {};
}

/// The row that an insert brings, so that a database which has it is left alone.
void describeInsert(Change &change, const sql::Change &insert)
{
    change.table = insert.target->tableName.toString();
    if (change.table.compare(u"tblSysOption"_s, Qt::CaseInsensitive) == 0) {
        change.table = u"tblSysOption"_s;
        change.value = literalFor(insert, u"SysOption");
    } else if (change.table.compare(u"tblTableFields"_s, Qt::CaseInsensitive) == 0) {
        change.table = u"tblTableFields"_s;
        change.value = literalFor(insert, u"FieldName");
        change.parent = literalFor(insert, u"Tablename");
        if (change.parent.isEmpty())
            refuse(u"An insert into tblTableFields has to name the table"_s, change.statement);
    } else {
        refuse(u"An insert that isn't tied to an option or a search field never runs where there "
               "is a user Admin; write \"always insert\", and let it find out whether its row is "
               "there"_s,
               change.statement);
    }
    if (change.value.isEmpty())
        refuse(u"An insert has to give its key as a text"_s, change.statement);
}

Change changeOf(QString statement)
{
    static const QRegularExpression always(u"^always\\s+"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    Change change;
    const bool runsAlways = statement.contains(always);
    change.statement = statement.remove(always);
    const sql::Statement parsed = sql::Parser(change.statement).parseStatement();
    if (parsed.kind == sql::StatementKind::Query)
        refuse(u"A query changes nothing"_s, change.statement);
    change.type = change.statement.section(QRegularExpression(u"\\s"_s), 0, 0).toUpper();
    if (runsAlways)
        change.type.prepend(u"ALWAYS "_s);
    else if (parsed.kind == sql::StatementKind::Insert)
        describeInsert(change, *parsed.change);
    return change;
}

QSet<QString> optionsAndFields(const db::Target &target)
{
    db::Connection connection(target);
    QSet<QString> lines;
    for (const db::Row row : connection.Open(u"Select SysOption from tblSysOption"_s))
        lines.insert(u"option "_s + row.text(u"SysOption"));
    for (const db::Row row : connection.Open(u"Select * from tblTableFields"_s))
        lines.insert(QStringList{u"field"_s, row.text(u"Tablename"), row.text(u"FieldName"),
                                 row.text(u"FieldDesc"), row.text(u"FieldType")}
                         .join(u' '));
    return lines;
}

QSet<QString> contentOf(const db::Target &target)
{
    const QStringList structure = db::structureOf(target);
    return QSet<QString>(structure.begin(), structure.end()) + optionsAndFields(target);
}

} // namespace

std::vector<Change> parseChanges(QStringView text)
{
    static const QRegularExpression heading(u"^version\\s+(\\d{1,9})$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    std::vector<Change> changes;
    int version = 0;
    int sequence = 0;
    for (const QString &statement : splitStatements(text)) {
        if (const auto match = heading.match(statement); match.hasMatch()) {
            const int next = match.captured(1).toInt();
            if (next <= version)
                refuse(u"Versions have to rise"_s, statement);
            version = next;
            sequence = 0;
            continue;
        }
        if (version == 0)
            refuse(u"A release begins with its version, such as \"version 101;\""_s, statement);
        Change change = changeOf(statement);
        change.version = version;
        change.sequence = ++sequence;
        changes.push_back(std::move(change));
    }
    return changes;
}

std::vector<Change> shippedChanges()
{
    return parseChanges(resourceText(u"changes.sql"_s));
}

int schemaVersion()
{
    static const int version = shippedChanges().back().version;
    return version;
}

void createScriptDatabase(const QString &file, const std::vector<Change> &changes)
{
    if (QFile::exists(file))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file \"%1\" exists already."_s.arg(file));
    db::Target target;
    target.file = file + u".new"_s;
    target.forcedWrites = false; // on for whoever runs it
    QFile::remove(target.file);
    try {
        db::createDatabase(target);
        db::Connection connection(target);
        connection.Execute(
            u"create table tblChanges (Id counter, DBversion long, squence long, Status yesno, "
            "QType nvarchar(20), TableName nvarchar(60), DbQuery memo, [Value] nvarchar(120), "
            "ParentId nvarchar(60), EndString nvarchar(20), FieldName nvarchar(60), "
            "constraint pkChanges primary key (Id))"_s);
        Batch batch(connection);
        RowWriter rows(batch, u"tblChanges"_s,
                       {u"DBversion"_s, u"squence"_s, u"Status"_s, u"QType"_s, u"TableName"_s,
                        u"DbQuery"_s, u"[Value]"_s, u"ParentId"_s});
        for (const Change &change : changes)
            rows.add({change.version, change.sequence, false, change.type, change.table,
                      change.statement, change.value, change.parent});
        batch.commit();
    } catch (...) {
        QFile::remove(target.file);
        throw;
    }
    if (!QFile::rename(target.file, file))
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file \"%1\" can't be made."_s.arg(file));
}

QStringList differencesFromNew(const db::Target &target)
{
    const QTemporaryDir folder;
    db::Target made;
    made.file = folder.filePath(u"new.mdb"_s);
    made.forcedWrites = false;
    createEmptyDatabase(made);
    const QSet<QString> wanted = contentOf(made);
    const QSet<QString> present = contentOf(target);
    QStringList differences;
    for (const QString &line : wanted - present)
        differences << u"lacks "_s + line;
    for (const QString &line : present - wanted)
        differences << u"has "_s + line;
    differences.sort();
    return differences;
}

} // namespace company
