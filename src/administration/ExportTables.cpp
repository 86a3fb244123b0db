#include "administration/ExportTables.h"

#include "administration/TableText.h"
#include "administration/ZipFile.h"
#include "platform/db/Counters.h"
#include "platform/db/Maintenance.h"
#include "platform/db/Structure.h"

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// Some megabytes of any table but those with pictures.
constexpr int rowsAtOnce = 5000;

/// A text file that is written line by line.
class Lines
{
public:
    explicit Lines(const QString &path)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            refuse();
    }
    void add(const QByteArray &line)
    {
        // The end of a line is the same on all systems: the same content gives the same bytes.
        if (m_file.write(line + '\n') < 0)
            refuse();
    }
    void close()
    {
        // A full disk may show only here.
        if (!m_file.flush())
            refuse();
        m_file.close();
    }

private:
    [[noreturn]] void refuse() const
    {
        throw base::Error(
            m_file.error() == QFileDevice::ResourceError ||
                    m_file.error() == QFileDevice::WriteError
                ? base::ErrorNumber::DiskFull
                : base::ErrorNumber::PathAccess,
            u"The file can't be written (%1): %2"_s.arg(m_file.errorString(), m_file.fileName()));
    }

    QFile m_file;
};

/// The columns at a table's beginning that the engine can put in an order in which no two different
/// values are equal: to it, texts in another case are.
int columnsInOrder(const sql::Table &table)
{
    const auto first = std::ranges::find_if(table.columns, [](const sql::Column &column) {
        return column.kind == sql::ColumnKind::Text || column.kind == sql::ColumnKind::Binary;
    });
    return static_cast<int>(first - table.columns.begin());
}

/// Writes a table's rows in an order that hangs on nothing but what they hold: by the leading
/// columns as the engine orders them, rows that agree there by their text.
class TableWriter
{
public:
    TableWriter(db::Connection &connection, const sql::Table &table, const QString &path)
        : m_connection(connection)
        , m_table(table)
        , m_leading(columnsInOrder(table))
        , m_lines(path)
    {
        QByteArrayList names;
        for (const sql::Column &column : table.columns) {
            names.append(column.name.toUtf8());
            m_columns.append(u'[' + column.name + u']');
        }
        m_lines.add(names.join(','));
    }

    qint64 write()
    {
        // The first column of all large tables is a number, and mostly the key.
        if (m_table.columns.front().kind == sql::ColumnKind::Integer)
            writeByFirstColumn();
        else
            addAll(m_connection.Open(query()));
        m_lines.close();
        return m_rows;
    }

private:
    [[nodiscard]] QString query(const QString &condition = {}) const
    {
        QString statement =
            u"Select %1 from %2"_s.arg(m_columns.join(u", "_s), m_table.name) + condition;
        if (m_leading > 0)
            statement += u" order by "_s + m_columns.first(m_leading).join(u", "_s);
        return statement;
    }

    /// A table may be more than the memory holds, so it is read some thousand rows at a time; of
    /// pictures those of one machine.
    void writeByFirstColumn()
    {
        const QString &column = m_columns.first();
        const bool hasPictures = std::ranges::any_of(
            m_table.columns, [](const auto &each) { return each.kind == sql::ColumnKind::Binary; });
        const int atOnce = hasPictures ? 1 : rowsAtOnce;
        // No range holds these.
        addAll(m_connection.Open(query(u" where %1 is null"_s.arg(column))));
        const db::Recordset keys = m_connection.Open(
            u"Select %1 as [Key], count(*) as [Rows] from %2 where %1 is not null group by %1 order by %1"_s
                .arg(column, m_table.name));
        qint64 rows = 0;
        for (int key = 0, first = 0; key < keys.RecordCount(); ++key) {
            rows += keys.value(key, 1).toLongLong();
            // A key is never parted, so that rows which agree in it are sorted together.
            if (rows < atOnce && key + 1 < keys.RecordCount())
                continue;
            addAll(m_connection.Open(query(u" where %1 between ? and ?"_s.arg(column)),
                                     {keys.value(first, 0), keys.value(key, 0)}));
            first = key + 1;
            rows = 0;
        }
    }

    void addAll(const db::Recordset &rows)
    {
        for (int row = 0; row < rows.RecordCount(); ++row)
            add(rows, row);
        flush();
    }

    void add(const db::Recordset &rows, int row)
    {
        QByteArrayList fields;
        for (int column = 0; column < rows.columnCount(); ++column)
            fields.append(fieldText(rows.value(row, column),
                                    m_table.columns[static_cast<std::size_t>(column)].kind));
        const QByteArrayList leading = fields.first(m_leading);
        // Rows that the engine holds for equal come in any order, and wait until the next different
        // one.
        if (leading != m_equal)
            flush();
        m_equal = leading;
        m_pending.push_back(fields.join(','));
        ++m_rows;
    }

    void flush()
    {
        std::ranges::sort(m_pending);
        for (const QByteArray &line : m_pending)
            m_lines.add(line);
        m_pending.clear();
    }

    db::Connection &m_connection;
    const sql::Table &m_table;
    QStringList m_columns; ///< in brackets
    int m_leading;
    Lines m_lines;
    QByteArrayList m_equal;            ///< what the leading columns of the pending rows hold
    std::vector<QByteArray> m_pending; ///< rows that agree in the leading columns
    qint64 m_rows = 0;
};

/// A copy of a company that nobody else knows; removed in the end.
class PrivateCopy
{
public:
    PrivateCopy(const db::Target &company, const QString &path)
    {
        db::backupOnline(company, path);
        m_target.file = path;
    }
    [[nodiscard]] const db::Target &target() const { return m_target; }

private:
    db::Target m_target;
};

QByteArray contentsLine(const QString &table, qint64 rows, const std::vector<db::Counter> &counters)
{
    const auto counter = std::ranges::find(counters, table, &db::Counter::table);
    const bool counts = counter != counters.end();
    return QByteArrayList{table.toUtf8(), QByteArray::number(rows),
                          counts ? counter->column.toUtf8() : QByteArray(),
                          counts ? QByteArray::number(counter->next) : QByteArray()}
        .join(',');
}

} // namespace

Exported exportTables(const db::Target &company, const QString &zip, const base::Progress &progress)
{
    // First of all: a place that can't be written is told before a large company has been read.
    ZipWriter archive(zip);
    // Beside the archive, where the user has room for it.
    const QTemporaryDir folder(zip + u".XXXXXX"_s);
    if (!folder.isValid())
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"The file can't be written (%1): %2"_s.arg(folder.errorString(), zip));
    // Of one moment, whatever others write meanwhile, and nobody waits for the export.
    const PrivateCopy copy(company, folder.filePath(u"company"_s));
    const std::vector<db::Counter> counters = db::countersOf(copy.target());
    const QStringList tables = db::countRows(copy.target()).keys();
    Exported exported;
    {
        db::Connection connection(copy.target());
        Lines contents(folder.filePath(ContentsFile.toString()));
        contents.add("Table,Rows,Counter,Next");
        for (const QString &table : tables) {
            if (progress)
                progress(exported.tables, static_cast<int>(tables.size()));
            TableWriter writer(connection, *connection.schema().find(table),
                               folder.filePath(table + u".csv"_s));
            const qint64 rows = writer.write();
            contents.add(contentsLine(table, rows, counters));
            exported.rows += rows;
            ++exported.tables;
        }
        contents.close();
    }
    archive.add(ContentsFile.toString(), folder.filePath(ContentsFile.toString()));
    for (const QString &table : tables)
        archive.add(table + u".csv"_s, folder.filePath(table + u".csv"_s));
    archive.commit();
    return exported;
}

} // namespace administration
