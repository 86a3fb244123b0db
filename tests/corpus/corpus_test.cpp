#include "corpus/Statements.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/db/Connection.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <ranges>

using namespace Qt::StringLiterals;

namespace corpus {

void PrintTo(const Case &instance, std::ostream *stream)
{
    *stream << instance.name.toStdString();
}

namespace {

const QString Folder = QStringLiteral(QUORVANTIS_CORPUS_FOLDER);

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
        for (const QString &statement : statementsOf(contents(Folder + u"/world.sql"_s)))
            m_connection->Execute(statement);
    }
    [[nodiscard]] db::Connection &connection() { return *m_connection; }

private:
    test::CompanyDatabase m_database;
    std::unique_ptr<db::Connection> m_connection;
};

/// A value as a check writes it: null, a number, #a date#, a text in quotes.
QString cellOf(const QVariant &value)
{
    if (!value.isValid())
        return u"null"_s;
    switch (value.userType()) {
    case QMetaType::QDateTime: {
        const QDateTime moment = value.toDateTime();
        const QTime time = moment.time();
        return moment.toString(time == QTime(0, 0)  ? u"'#'MM-dd-yyyy'#'"_s
                               : time.second() == 0 ? u"'#'MM-dd-yyyy HH:mm'#'"_s
                                                    : u"'#'MM-dd-yyyy HH:mm:ss'#'"_s);
    }
    case QMetaType::QString:
        return u'\'' + value.toString().replace(u"'"_s, u"''"_s) + u'\'';
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', 15);
    default:
        return value.toString();
    }
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
        const auto replaceKey = [this](QString &text) {
            text.replace(u"{key}"_s, QString::number(m_key));
        };
        replaceKey(step.statement);
        for (Check &check : step.checks)
            replaceKey(check.value);
        const uint expected = step.check(u"error").toUInt(nullptr, 0);
        try {
            const db::Recordset rows = run(step);
            EXPECT_EQ(expected, 0u) << "an error was expected";
            for (const Check &check : std::as_const(step.checks))
                EXPECT_TRUE(holds(check, rows))
                    << qPrintable(check.keyword + u": "_s + check.value) << '\n'
                    << qPrintable(textOf(rows));
        } catch (const base::Error &error) {
            EXPECT_EQ(static_cast<uint>(error.number()), expected) << error.what();
            EXPECT_FALSE(error.description().isEmpty());
        }
    }

private:
    db::Recordset run(const Step &step)
    {
        m_changes = 1;
        if (step.statement.startsWith(u"select"_s, Qt::CaseInsensitive))
            return m_connection.Open(step.statement);
        if (const QString key = step.check(u"key"); !key.isEmpty())
            m_key = m_connection.Insert(step.statement, {}, key);
        else
            m_changes = m_connection.Execute(step.statement);
        return {};
    }

    [[nodiscard]] bool holds(const Check &check, const db::Recordset &rows) const
    {
        if (check.keyword == u"rows"_s)
            return rows.RecordCount() == check.value.toInt();
        if (check.keyword == u"changes"_s)
            return m_changes == check.value.toInt();
        if (check.keyword == u"columns"_s)
            return columnsOf(rows).join(u" | "_s) == check.value;
        if (check.keyword.startsWith(u"row "_s))
            return isRow(check.value, rows, check.keyword.sliced(4).toInt() - 1);
        if (check.keyword == u"has row"_s)
            return std::ranges::any_of(std::views::iota(0, rows.RecordCount()),
                                       [&](int row) { return isRow(check.value, rows, row); });
        return check.keyword == u"key"_s;
    }

    static bool isRow(const QString &cells, const db::Recordset &rows, int row)
    {
        const QStringList expected = cells.split(u'|');
        if (row >= rows.RecordCount() || expected.size() > rows.columnCount())
            return false;
        for (int column = 0; column < expected.size(); ++column) {
            const QVariant value = rows.value(row, column);
            const QString cell = expected[column].trimmed();
            const bool isBareText = value.userType() == QMetaType::QString && cell == value;
            if (!isBareText && cell != cellOf(value))
                return false;
        }
        return true;
    }

    static QStringList columnsOf(const db::Recordset &rows)
    {
        QStringList names;
        for (int column = 0; column < rows.columnCount(); ++column)
            names << rows.columnName(column);
        return names;
    }

    static QString textOf(const db::Recordset &rows)
    {
        QStringList lines{columnsOf(rows).join(u" | "_s)};
        for (const db::Row row : rows) {
            QStringList cells;
            for (int column = 0; column < rows.columnCount(); ++column)
                cells << cellOf(row[column]);
            lines << cells.join(u" | "_s);
        }
        return lines.join(u'\n');
    }

    db::Connection &m_connection;
    qint64 m_key = 0;
    int m_changes = 0;
};

TEST(Corpus, EveryFileCanBeRead)
{
    QStringList problems;
    EXPECT_FALSE(casesOf(Folder, problems).isEmpty());
    EXPECT_EQ(problems.join(u'\n'), QString());
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
        SCOPED_TRACE(
            qPrintable(u"%1.sql:%2: %3"_s.arg(instance.file).arg(step.line).arg(step.statement)));
        runner.check(step);
    }
    if (!own)
        connection.RollbackTrans();
}

QList<Case> allCases()
{
    QStringList problems;
    return casesOf(Folder, problems);
}

INSTANTIATE_TEST_SUITE_P(Corpus, Statements, testing::ValuesIn(allCases()), nameOf);

} // namespace
} // namespace corpus
