#include "administration/ImportTables.h"

#include "administration/ClosedConnections.h"
#include "administration/TableText.h"
#include "administration/ZipFile.h"
#include "core/Permission.h"
#include "core/Session.h"
#include "core/database/Changes.h"
#include "core/database/CreateDatabase.h"
#include "core/database/RowWriter.h"
#include "platform/base/PreparedName.h"
#include "platform/db/ClosedFile.h"
#include "platform/db/Structure.h"

#include <QFile>
#include <algorithm>
#include <array>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// A picture of some hundred megabytes.
constexpr qsizetype longestField = 512'000'000;
/// The text of an export is the program's own: no delimiter is guessed, and what people would not
/// type is no fault.
constexpr CsvReader::Format exportedFormat{
    .delimiter = ',', .allowsAnyCharacter = true, .longestField = longestField};

/// What an archive's list says of a table.
struct Listed
{
    QString table;
    qint64 rows = 0;
    QString counter; ///< empty without one
    qint64 next = 0;
};

[[noreturn]] void refuse(const QString &sentence)
{
    throw base::Error(base::ErrorNumber::InvalidCall, sentence);
}

void demandReadable(const CsvReader &reader, const QString &table)
{
    if (reader.fault())
        refuse(u"%1, row %2: %3"_s.arg(table).arg(reader.row()).arg(reader.fault()->sentence));
}

std::vector<Listed> contentsOf(const ZipReader &archive)
{
    const QString name = ContentsFile.toString();
    if (!archive.names().contains(name))
        refuse(u"This archive was not made by an export of all tables: it holds no \"%1\"."_s.arg(
            name));
    const std::unique_ptr<QIODevice> file = archive.open(name);
    CsvReader reader(*file, exportedFormat);
    std::vector<Listed> listed;
    while (reader.next()) {
        demandReadable(reader, name);
        const auto &fields = reader.fields();
        if (fields.size() != 4)
            refuse(u"%1, row %2: there have to be 4 fields."_s.arg(name).arg(reader.row()));
        // Its rows would be read twice, and the count of the second time would be right.
        if (std::ranges::find(listed, fields[0].text, &Listed::table) != listed.end())
            refuse(u"%1, row %2: %3 stands there twice."_s.arg(name)
                       .arg(reader.row())
                       .arg(fields[0].text));
        // What is no number counts as 0, which the count of the rows then refuses.
        listed.push_back({fields[0].text, fields[1].text.toLongLong(), fields[2].text,
                          fields[3].text.toLongLong()});
    }
    return listed;
}

/// Reads one table's text into the table.
class TableReader
{
public:
    TableReader(company::Batch &batch, const sql::Table &table, QIODevice &file)
        : m_table(table)
        , m_reader(file, exportedFormat)
        , m_columns(columnsOf())
        , m_writer(batch, table.name, bracketed())
    {}

    qint64 read()
    {
        qint64 rows = 0;
        while (m_reader.next()) {
            demandReadable(m_reader, m_table.name);
            addRow();
            ++rows;
        }
        return rows;
    }

private:
    [[nodiscard]] std::vector<const sql::Column *> columnsOf() const
    {
        demandReadable(m_reader, m_table.name);
        std::vector<const sql::Column *> columns;
        for (const QString &name : m_reader.header()) {
            // The order of the columns is the file's: that of a table changes with the releases.
            const sql::Column *column = m_table.find(name);
            if (!column)
                refuse(u"%1: there is no column \"%2\"."_s.arg(m_table.name, name));
            if (std::ranges::find(columns, column) != columns.end())
                refuse(u"%1: the column \"%2\" stands there twice."_s.arg(m_table.name, name));
            columns.push_back(column);
        }
        return columns;
    }

    [[nodiscard]] QStringList bracketed() const
    {
        QStringList names;
        for (const sql::Column *column : m_columns)
            // Some columns are called like words of the language.
            names.append(u'[' + column->name + u']');
        return names;
    }

    void addRow()
    {
        const auto &fields = m_reader.fields();
        if (fields.size() != m_columns.size())
            refuse(u"%1, row %2: there have to be %3 fields, and there are %4."_s.arg(m_table.name)
                       .arg(m_reader.row())
                       .arg(m_columns.size())
                       .arg(fields.size()));
        QVariantList values;
        for (std::size_t i = 0; i < fields.size(); ++i)
            values.append(valueOf(fields[i], *m_columns[i]));
        try {
            m_writer.add(values);
        } catch (const base::Error &error) {
            throw base::Error(
                error.number(),
                u"%1, row %2: %3"_s.arg(m_table.name).arg(m_reader.row()).arg(error.description()));
        }
    }

    [[nodiscard]] QVariant valueOf(const RowReader::Field &field, const sql::Column &column) const
    {
        try {
            return fieldValue(field, column.kind);
        } catch (const base::Error &error) {
            refuse(u"%1, row %2, column %3: %4"_s.arg(m_table.name)
                       .arg(m_reader.row())
                       .arg(column.name, error.description()));
        }
    }

    const sql::Table &m_table;
    CsvReader m_reader;
    std::vector<const sql::Column *> m_columns;
    company::RowWriter m_writer;
};

/// Before anything is read: a newer release has tables and columns that this one lacks.
void demandKnownVersion(const ZipReader &archive)
{
    const std::unique_ptr<QIODevice> file = archive.open(u"tblSysOption.csv"_s);
    CsvReader reader(*file, exportedFormat);
    qint64 version = 0;
    while (reader.next()) {
        const auto &fields = reader.fields();
        if (fields.size() == 2 && fields[0].text == u"DBVERSION")
            version = fields[1].text.toLongLong();
    }
    if (version > company::schemaVersion())
        refuse(
            u"This export comes from a newer release of Quorvantis: its database has version %1, and this program knows versions up to %2."_s
                .arg(version)
                .arg(company::schemaVersion()));
}

Exported fillFrom(const ZipReader &archive, db::Connection &connection,
                  const base::Progress &progress)
{
    // What can be refused without writing comes first.
    const std::vector<Listed> listed = contentsOf(archive);
    demandKnownVersion(archive);
    Exported imported;
    company::Batch batch(connection);
    for (const QString &table : db::countRows(connection.target()).keys()) {
        if (std::ranges::find(listed, table, &Listed::table) == listed.end())
            refuse(u"The table %1 is missing in the archive."_s.arg(table));
        // A new database has first rows, which the archive brings in the company's own form.
        connection.Execute(u"Delete from "_s + table);
    }
    for (const Listed &entry : listed) {
        if (progress)
            // Raises when the user has cancelled; the database is not in its place yet.
            progress(imported.tables, static_cast<int>(listed.size()));
        const sql::Table *table = connection.schema().find(entry.table);
        if (!table)
            refuse(u"There is no table \"%1\"."_s.arg(entry.table));
        const std::unique_ptr<QIODevice> file = archive.open(entry.table + u".csv"_s);
        const qint64 rows = TableReader(batch, *table, *file).read();
        // A table that was cut off ends like a whole one.
        if (rows != entry.rows)
            refuse(u"%1: there have to be %2 rows, and there are %3."_s.arg(entry.table)
                       .arg(entry.rows)
                       .arg(rows));
        imported.rows += rows;
        ++imported.tables;
    }
    // Counters behind the rows, whose inserts move them. They are no part of a transaction.
    batch.commit();
    for (const Listed &entry : listed) {
        if (entry.counter.isEmpty())
            continue;
        const sql::Column *column = connection.schema().find(entry.table)->find(entry.counter);
        if (!column || !column->autoNumber)
            refuse(u"%1: there is no counter \"%2\"."_s.arg(entry.table, entry.counter));
        company::setCounter(connection, entry.table, column->name, entry.next);
    }
    return imported;
}

/// A file that is made beside another; removed unless it was moved away.
class Beside
{
public:
    Beside(const QString &file, const QString &ending)
        : m_path(base::preparedName(file, ending))
    {
        QFile::remove(m_path);
    }
    ~Beside() { QFile::remove(m_path); }
    Beside(const Beside &) = delete;
    Beside &operator=(const Beside &) = delete;

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    QString m_path;
};

db::Target localTarget(const QString &file)
{
    db::Target target;
    target.file = file;
    return target;
}

} // namespace

Exported importTables(const QString &zip, const db::Target &company, const base::Progress &progress)
{
    const ZipReader archive(zip);
    Exported imported;
    // The database gets its name when it is filled: a failure leaves no file.
    company::createDatabase(company, [&](db::Connection &connection) {
        imported = fillFrom(archive, connection, progress);
    });
    return imported;
}

bool isEmptyCompany(db::Connection &connection)
{
    // Lists, options and users are there from the beginning.
    static constexpr std::array work{"tblEquipment", "tblPart",      "tblEmployee",
                                     "tblSupplier",  "tblSite",      "tblCrew",
                                     "tblServices",  "tblWorkorder", "tblWOServiceUsedHistory"};
    return std::ranges::all_of(work, [&](const char *table) {
        return connection.Open(u"Select top 1 * from "_s + QLatin1StringView(table)).isEmpty();
    });
}

Exported replaceEmptyCompany(const QString &zip, const QString &database,
                             const base::Progress &progress)
{
    const auto demandEmpty = [](const QString &file) {
        db::Connection connection(localTarget(file));
        if (!isEmptyCompany(connection))
            refuse(
                u"The company holds records already. An export of all tables is read into an empty company only. Nothing was changed."_s);
    };
    demandEmpty(database);
    // On the same disk, so that it takes its place by one renaming.
    const Beside made(database, u".import~"_s);
    const Exported imported = importTables(zip, localTarget(made.path()), progress);
    // Whoever could work with the company goes on doing so.
    QFile::setPermissions(made.path(), QFile::permissions(database));
    db::ClosedFile live(database);
    // Another workstation may have begun to work meanwhile. The file itself can't be opened now.
    const Beside copy(database, u".check~"_s);
    live.copyTo(copy.path());
    demandEmpty(copy.path());
    live.replaceBy(made.path());
    return imported;
}

Exported replaceOwnCompany(const QString &zip)
{
    if (const QString host = databaseTarget().host; !host.isEmpty())
        throw base::Error(
            base::ErrorNumber::PermissionDenied,
            u"The database is kept by the computer %1, and is replaced there."_s.arg(host));
    // Who may not add records one by one may not bring in thousands either.
    for (const auto right : {rights::Machines.add, rights::Parts.add, rights::Services.add})
        rights::demand(right);
    // Closed ahead of all, since the file can't be replaced while this program has it open. An
    // error on the way opens them again.
    ClosedConnections closed;
    const Exported imported = replaceEmptyCompany(zip, gsDatabasePath);
    closed.reopen();
    return imported;
}

} // namespace administration
