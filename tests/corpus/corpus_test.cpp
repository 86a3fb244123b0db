#include "corpus/Statements.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/db/Connection.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace corpus {

void PrintTo(const Case &instance, std::ostream *stream)
{
    *stream << instance.name.toStdString();
}

namespace {

QString readFile(const QString &name)
{
    QFile file(QDir(QStringLiteral(QUORVANTIS_CORPUS_FOLDER)).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::FileNotFound, file.fileName());
    return QString::fromUtf8(file.readAll());
}

std::vector<Case> readAllCases(QStringList &problems)
{
    std::vector<Case> cases;
    const QDir folder(QStringLiteral(QUORVANTIS_CORPUS_FOLDER));
    for (const QString &name : folder.entryList({u"*.sql"_s}, QDir::Files, QDir::Name)) {
        const QString file = name.chopped(4);
        if (file == u"world"_s)
            continue;
        for (Case &instance : parseCases(file, readFile(name), problems))
            cases.push_back(std::move(instance));
    }
    return cases;
}

std::vector<Case> allCases()
{
    QStringList problems;
    return readAllCases(problems);
}

std::string nameOf(const testing::TestParamInfo<Case> &info)
{
    return info.param.testName().toStdString();
}

/// A new database with the rows of world.sql.
class World
{
public:
    World()
        : m_connection(m_database.open())
    {
        for (const QString &statement : parseStatements(readFile(u"world.sql"_s)))
            m_connection->Execute(statement);
    }
    [[nodiscard]] db::Connection &connection() { return *m_connection; }

private:
    test::CompanyDatabase m_database;
    std::unique_ptr<db::Connection> m_connection;
};

bool isQuery(const QString &statement)
{
    return statement.trimmed().startsWith(u"select"_s, Qt::CaseInsensitive);
}

/// Runs the steps of one case and checks what they give.
class Runner
{
public:
    explicit Runner(db::Connection &connection)
        : m_connection(connection)
    {}

    void check(Step step)
    {
        replaceKey(step.statement);
        for (RowCheck &check : step.rowChecks)
            for (QString &cell : check.cells)
                replaceKey(cell);
        try {
            if (isQuery(step.statement))
                checkRows(step, m_connection.Open(step.statement, step.parameters));
            else
                checkChanges(step, change(step));
            if (step.error)
                ADD_FAILURE() << "No error, though "
                              << QString::number(static_cast<uint>(*step.error), 16).toStdString()
                              << " was expected.";
        } catch (const base::Error &error) {
            checkError(step, error);
        }
    }

private:
    qint64 change(const Step &step)
    {
        if (step.keyColumn.isEmpty())
            return m_connection.Execute(step.statement, step.parameters);
        m_key = m_connection.Insert(step.statement, step.parameters, step.keyColumn);
        return 1;
    }

    void replaceKey(QString &text) const { text.replace(u"{key}"_s, QString::number(m_key)); }

    static void checkError(const Step &step, const base::Error &error)
    {
        const int number = step.error.value_or(0);
        EXPECT_EQ(error.number(), number)
            << "0x" << QString::number(static_cast<uint>(error.number()), 16).toStdString() << ' '
            << error.description().toStdString();
        EXPECT_FALSE(error.description().isEmpty());
    }

    static void checkChanges(const Step &step, qint64 changes)
    {
        if (step.changes) {
            EXPECT_EQ(changes, *step.changes);
        }
    }

    static void checkRows(const Step &step, const db::Recordset &rows)
    {
        if (step.rows) {
            if (step.orMore) {
                EXPECT_GE(rows.RecordCount(), *step.rows);
            } else {
                EXPECT_EQ(rows.RecordCount(), *step.rows);
            }
        }
        if (step.columns) {
            QStringList names;
            for (int column = 0; column < rows.columnCount(); ++column)
                names << rows.columnName(column);
            EXPECT_EQ(names.join(u" | "_s).toStdString(),
                      step.columns->join(u" | "_s).toStdString());
        }
        for (const RowCheck &check : step.rowChecks)
            checkRow(check, rows);
    }

    static QString rowDifference(const QStringList &cells, const db::Recordset &rows, int row)
    {
        if (cells.size() > rows.columnCount())
            return u"only %1 columns"_s.arg(rows.columnCount());
        for (int column = 0; column < cells.size(); ++column)
            if (const QString found = difference(cells[column], rows.value(row, column));
                !found.isEmpty())
                return u"%1 is %2 and not %3"_s.arg(rows.columnName(column), found, cells[column]);
        return {};
    }

    static void checkRow(const RowCheck &check, const db::Recordset &rows)
    {
        if (check.row > 0) {
            if (check.row > rows.RecordCount()) {
                ADD_FAILURE() << "No row " << check.row;
                return;
            }
            const QString found = rowDifference(check.cells, rows, check.row - 1);
            EXPECT_TRUE(found.isEmpty()) << "Row " << check.row << ": " << found.toStdString();
            return;
        }
        std::string all;
        for (int row = 0; row < rows.RecordCount(); ++row) {
            const QString found = rowDifference(check.cells, rows, row);
            if (found.isEmpty())
                return;
            all += "\n  row " + std::to_string(row + 1) + ": " + found.toStdString();
        }
        ADD_FAILURE() << "No row " << check.cells.join(u" | "_s).toStdString() << all;
    }

    db::Connection &m_connection;
    qint64 m_key = 0;
};

std::string place(const Case &instance, const Step &step)
{
    return u"%1.sql:%2: %3"_s.arg(instance.file).arg(step.line).arg(step.statement).toStdString();
}

TEST(Difference, TellsWhatAValueIs)
{
    const QVariant date = base::wallClock({2024, 3, 15}, {9, 30});
    struct Row
    {
        QString cell;
        QVariant value;
        QString difference;
    };
    const Row values[] = {
        // Nothing, and numbers.
        Row{u"null"_s, {}, {}}, Row{u"null"_s, 0, u"0"_s}, Row{u"0"_s, {}, u"null"_s},
        Row{u"''"_s, {}, u"null"_s}, Row{u"''"_s, u""_s, {}}, Row{u"7"_s, qint64(7), {}},
        Row{u"7"_s, 7.0, {}}, Row{u"7"_s, 7.1, u"7.1"_s}, Row{u"7"_s, u"7"_s, {}},
        Row{u"'7'"_s, u"7"_s, {}}, Row{u"'7'"_s, qint64(7), u"7"_s},
        Row{u"0.333333333333333"_s, 1.0 / 3, {}}, Row{u"0"_s, 1e-9, u"1e-09"_s},
        // Texts and dates.
        Row{u"it's"_s, u"it's"_s, {}}, Row{u"'it''s '"_s, u"it's "_s, {}},
        Row{u"it's"_s, u"it's "_s, u"'it's '"_s}, Row{u"#03-15-2024 09:30#"_s, date, {}},
        Row{u"#03-15-2024#"_s, date, u"#03-15-2024 09:30:00#"_s}, Row{u"abc"_s, qint64(0), u"0"_s}};
    for (const Row &row : values)
        EXPECT_EQ(difference(row.cell, row.value), row.difference) << row.cell.toStdString();
}

TEST(Corpus, EveryFileCanBeRead)
{
    QStringList problems;
    const std::vector<Case> cases = readAllCases(problems);
    EXPECT_FALSE(cases.empty());
    EXPECT_TRUE(problems.isEmpty()) << problems.join(u'\n').toStdString();
}

/// The clock of the world, and one database for all cases of a file that change no tables.
class Statements : public testing::TestWithParam<Case>
{
protected:
    static void SetUpTestSuite() { s_environment = std::make_unique<test::TestEnvironment>(); }
    static void TearDownTestSuite()
    {
        s_worlds.clear();
        s_environment.reset();
    }

    static World &worldOf(const QString &file)
    {
        auto &world = s_worlds[file];
        if (!world)
            world = std::make_unique<World>();
        return *world;
    }

private:
    static inline std::unique_ptr<test::TestEnvironment> s_environment;
    static inline std::map<QString, std::unique_ptr<World>> s_worlds;
};

TEST_P(Statements, GiveWhatTheyShould)
{
    const Case &instance = GetParam();
    std::unique_ptr<World> own;
    if (instance.ownDatabase)
        own = std::make_unique<World>();
    db::Connection &connection = own ? own->connection() : worldOf(instance.file).connection();
    Runner runner(connection);
    if (!own)
        connection.BeginTrans();
    for (const Step &step : instance.steps) {
        SCOPED_TRACE(place(instance, step));
        runner.check(step);
    }
    if (!own)
        connection.RollbackTrans();
}

INSTANTIATE_TEST_SUITE_P(Corpus, Statements, testing::ValuesIn(allCases()), nameOf);

} // namespace
} // namespace corpus
