#include "core/UpdateDatabase.h"

#include "core/CompanySession.h"
#include "core/database/Changes.h"
#include "core/database/CreateDatabase.h"
#include "platform/db/Structure.h"
#include "support/OwnLocks.h"

#include <QCoreApplication>
#include <QLockFile>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using company::Change;

namespace {

const QString Failure =
    u"Failed to update the database.\nPlease Choose File->Update Database, to update the Quorvantis database"_s;

/// A program's folder with a company, and a script database to be run on it.
struct Update : testing::Test
{
    Update()
    {
        for (const QString &folder : {u"\\Data"_s, u"\\Script"_s})
            QDir().mkpath(base::applicationPath(folder));
        settings::registry().setValue(settings::ProductKey, u"VERSION"_s, u"1.0.1"_s);
        settings::registry().setValue(settings::ProductKey, u"GUID"_s,
                                      u"0123456789ABCDEF0123456789ABCDEF"_s);
        gsDatabasePath = base::applicationPath(u"\\Data\\Quorvantis.mdb"_s);
    }
    ~Update() override { closeConnections(); }

    void openCompany()
    {
        QFile::copy(company.file(), gsDatabasePath);
        openConnections();
        SetOption(u"DBVERSION"_s, 100, false);
    }
    static QString script() { return base::applicationPath(u"\\Script\\DBChanges.mdb"_s); }
    static void ship(std::vector<Change> changes)
    {
        for (int sequence = 0; Change & change : changes)
            change.sequence = ++sequence;
        company::createScriptDatabase(script(), changes);
    }
    static Change statement(int version, const QString &text)
    {
        return {.version = version, .type = u"CREATE"_s, .statement = text};
    }
    static bool update(bool show = true) { return UpdateDatabase(show); }
    /// The update succeeds when another workstation has ended what it is at.
    static void expectUpdateThatWaits(const std::function<void()> &end)
    {
        std::thread other([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(700));
            end();
        });
        EXPECT_FALSE(update());
        other.join();
    }
    static db::Target target(const QString &file)
    {
        db::Target target;
        target.file = file;
        target.forcedWrites = false;
        return target;
    }
    /// The rows of the script that are still to be run, by their numbers.
    static QList<int> pending()
    {
        QList<int> rows;
        db::Connection connection(target(script()));
        for (const db::Row row :
             connection.Open(u"Select Id from tblChanges where Status = False order by Id"_s))
            rows << static_cast<int>(row.integer(u"Id"));
        return rows;
    }
    static qint64 count(const QString &table, const QString &where = {})
    {
        return GetRecordCount(table, where);
    }
    static QString version() { return GetOption(u"DBVERSION"_s, false); }
    static bool hasTable(const QString &name) { return gcnLookup->schema().find(name) != nullptr; }

    test::TestEnvironment environment;
    test::CompanyDatabase company;
    test::ScriptedPrompts prompts;
    test::ErrorLog errors;
};

TEST_F(Update, RunsTheRowsAboveTheDatabasesVersionInTheirOrder)
{
    openCompany();
    SetOption(u"DBVERSION"_s, 99, false);
    // As numbers 123 comes behind 99; the order is by version, then by place.
    ship({statement(123, u"insert into tblSite (SiteName) values ('second')"_s),
          statement(99, u"insert into tblSite (SiteName) values ('of old')"_s),
          statement(123, u"update tblSite set City = SiteName"_s),
          statement(101, u"insert into tblSite (SiteName) values ('first')"_s)});
    QFile(script()).setPermissions(QFileDevice::ReadOwner);
    EXPECT_FALSE(update());
    EXPECT_EQ(count(u"tblSite"_s, u"City = 'first'"_s), 1);
    EXPECT_EQ(count(u"tblSite"_s), 2);
    EXPECT_EQ(version(), u"123"_s);
    EXPECT_FALSE(QFile::exists(script()));
}

TEST_F(Update, OnlyRowsAboveTheDatabasesVersionAreLackingInItAndAProgramNeedsOne)
{
    openCompany();
    EXPECT_FALSE(update()) << "without a script there is nothing to do";
    for (const auto &[before, after] : {std::pair(u"100"_s, u"100"_s), std::pair(u" "_s, u"1"_s)}) {
        SetOption(u"DBVERSION"_s, before, false);
        ship({statement(0, u"create table tblNever (A long)"_s),
              statement(1, u"create table tblEver (A long)"_s)});
        EXPECT_FALSE(update());
        EXPECT_EQ(version(), after);
        EXPECT_EQ(hasTable(u"tblEver"_s), after == u"1");
        EXPECT_FALSE(hasTable(u"tblNever"_s) || QFile::exists(script()));
    }
    ship({statement(101, u"create table tblNew (A long)"_s)});
    settings::registry().setValue(settings::ProductKey, u"VERSION"_s, u" . "_s);
    prompts.warn(u"Failed to update Quorvantis."_s);
    EXPECT_FALSE(update());
    EXPECT_FALSE(hasTable(u"tblNew"_s));
    EXPECT_EQ(pending(), QList<int>{1});
}

TEST_F(Update, EachFailureIsTreatedByItsNumber)
{
    openCompany();
    for (const auto &[what, text, failed, told] :
         {std::tuple{"a table that exists", u"create table tblSite (A long)"_s, false, false},
          std::tuple{"an index that exists",
                     u"create index ixWorkorderEquipment on tblWorkorder (EquipmentID)"_s, false,
                     false},
          std::tuple{"an empty key", u"insert into tblUser (EmployeeID) values ('1')"_s, false,
                     false},
          std::tuple{"a slip of the pen", u"creat table tblNew (A long)"_s, true, false},
          std::tuple{"a column that exists", u"alter table tblSite add column City nvarchar(10)"_s,
                     true, false},
          std::tuple{"an unknown table", u"update tblSitt set City = ''"_s, true, true},
          std::tuple{"a row that exists", u"insert into tblUser (UserName) values ('Admin')"_s,
                     true, true}}) {
        QFile::remove(script());
        SetOption(u"DBVERSION"_s, 100, false);
        gcnData->Execute(u"Delete from tblSite"_s);
        ship({statement(101, text), statement(101, text),
              statement(101, u"insert into tblSite (SiteName) values ('behind')"_s)});
        if (told)
            prompts.inform(Failure);
        EXPECT_EQ(update(), told) << what;
        EXPECT_EQ(count(u"tblSite"_s), 1) << what << ": the rows behind it run";
        EXPECT_EQ(QFile::exists(script()), failed) << what;
        EXPECT_EQ(version(), failed ? u"100"_s : u"101"_s) << what;
        if (!failed)
            continue;
        // All are marked, so that the next start has nothing left to run.
        EXPECT_EQ(pending(), QList<int>()) << what;
        EXPECT_FALSE(update()) << what;
        EXPECT_FALSE(QFile::exists(script())) << what;
        EXPECT_EQ(count(u"tblSite"_s), 1) << what;
    }
}

TEST_F(Update, InsertsBringWhatIsLacking)
{
    openCompany();
    SetOption(u"SERVICE_LATE_RED"_s, 21, false);
    std::vector<Change> changes = company::parseChanges(
        u"version 101;"
        "insert into tblSysOption (SysOption, itemValue) values ('SERVICE_LATE_RED', '14');"
        "insert into tblSysOption (SysOption, itemValue) values ('NEW_KEY', '7');"
        "insert into tblTableFields (Tablename, FieldName, FieldDesc) values ('tblEquipment', "
        "'UnitNo', 'new');"
        "insert into tblTableFields (Tablename, FieldName, FieldDesc) values ('tblPart', 'UnitNo', "
        "'new');"_s);
    Change crew = statement(101, u"insert into tblCrew (CrewNumber) values (7)"_s);
    crew.type = u"insert"_s;
    changes.push_back(crew);
    ship(changes);
    EXPECT_FALSE(update());
    EXPECT_EQ(GetOption(u"SERVICE_LATE_RED"_s, false), u"21"_s);
    EXPECT_EQ(GetOption(u"NEW_KEY"_s, false), u"7"_s);
    EXPECT_EQ(count(u"tblTableFields"_s, u"FieldDesc = 'new'"_s), 1);
    EXPECT_EQ(count(u"tblTableFields"_s, u"Tablename = 'tblPart' and FieldName = 'UnitNo'"_s), 1);
    EXPECT_EQ(count(u"tblCrew"_s), 0) << "bound to the absence of the built-in user";

    gcnData->Execute(u"Delete from tblUser"_s);
    SetOption(u"DBVERSION"_s, 100, false);
    ship({crew});
    EXPECT_FALSE(update());
    EXPECT_EQ(count(u"tblCrew"_s), 1);
}

TEST_F(Update, WhatIsNoScriptStaysAndIsTold)
{
    openCompany();
    const QByteArray picture = QByteArray("\x89PNG\r\n\x1a\n") + QByteArray(9000, 'p');
    test::writeFile(script(), picture);
    prompts.inform(Failure);
    EXPECT_TRUE(update());
    EXPECT_TRUE(update(false)) << "the menu tells by its own screen";
    EXPECT_EQ(test::readFile(script()), picture);
    QFile::remove(script());
    QFile::copy(company.file(), script());
    EXPECT_TRUE(update(false)) << "a database of another kind";
    EXPECT_TRUE(QFile::exists(script()));
    EXPECT_EQ(version(), u"100"_s);
}

TEST_F(Update, WaitsForAnotherWorkstationWhichMayHaveRunTheScript)
{
    openCompany();
    ship({statement(101, u"insert into tblSite (SiteName) values ('once')"_s)});
    QLockFile other(script() + u".lock"_s);
    ASSERT_TRUE(other.tryLock(0));
    expectUpdateThatWaits([&] {
        QFile::remove(script());
        other.unlock();
    });
    EXPECT_EQ(count(u"tblSite"_s), 0) << "the other one has";
    EXPECT_EQ(version(), u"100"_s);
    // What it holds is waited for too.
    ship({statement(101, u"update tblUser set EmployeeID = '7'"_s)});
    db::Connection holder(databaseTarget());
    holder.BeginTrans();
    holder.Execute(u"update tblUser set EmployeeID = '5'"_s);
    expectUpdateThatWaits([&] { holder.RollbackTrans(); });
    EXPECT_EQ(count(u"tblUser"_s, u"EmployeeID = '7'"_s), 1);
}

/// A company of the first release, with rows in all tables.
struct Upgrade : Update
{
    Upgrade()
    {
        company::createFirstRelease(target(original()));
        db::Connection connection(target(original()));
        connection.BeginTrans();
        const db::RowCounts tables = db::countRows(target(original()));
        for (auto table = tables.begin(); table != tables.end(); ++table) {
            for (int row = 1; row <= 3; ++row)
                addRow(connection, table.key(), row);
        }
        // Two workstations have made orders of one service at once.
        for (int order = 0; order < 2; ++order)
            connection.Execute(
                u"insert into tblWoServiceUsed (WorkorderNo, ServiceUsedID, Name) values (90, 77, 'twice')"_s);
        connection.CommitTrans();
    }
    [[nodiscard]] QString original() const { return environment.folder() + u"/first.mdb"_s; }

    static void addRow(db::Connection &connection, const QString &tableName, int row)
    {
        const sql::Table &table = *connection.schema().find(tableName);
        QStringList columns;
        QVariantList values;
        for (const sql::Column &column : table.columns) {
            if (column.autoNumber)
                continue;
            columns << u'[' + column.name + u']';
            values << valueFor(column, row);
        }
        connection.Execute(
            u"insert into %1 (%2) values (%3)"_s.arg(tableName, columns.join(u','),
                                                     QStringList(values.size(), u"?"_s).join(u',')),
            values);
    }
    static QVariant valueFor(const sql::Column &column, int row)
    {
        switch (column.kind) {
        case sql::ColumnKind::Text:
            return QString(QString::number(row) + u" Grün & “%1”"_s.arg(column.name))
                .left(column.length);
        case sql::ColumnKind::Date:
            return base::wallClock(QDate(2024, 2, 27 + row), QTime(1, 2, 3));
        case sql::ColumnKind::Binary:
            return QByteArray(3000, static_cast<char>(row));
        case sql::ColumnKind::YesNo:
            return row == 1;
        case sql::ColumnKind::Real:
        case sql::ColumnKind::Money:
            return row + 0.25;
        default:
            return row;
        }
    }

    /// All rows of all tables, each with its values by the names of its columns.
    static QStringList rowsOf(const QString &file)
    {
        QStringList lines;
        const db::RowCounts tables = db::countRows(target(file));
        db::Connection connection(target(file));
        for (auto table = tables.begin(); table != tables.end(); ++table) {
            for (const QString &line :
                 test::linesOf(connection.Open(u"Select * from ["_s + table.key() + u']')))
                lines << table.key() + u' ' + line;
        }
        return lines;
    }
    void putCompany()
    {
        closeConnections();
        QFile::remove(gsDatabasePath);
        QFile::remove(script());
        ASSERT_TRUE(QFile::copy(original(), gsDatabasePath));
        company::createScriptDatabase(script(), company::shippedChanges());
    }
    /// What is expected of a company that was updated: nothing lost, and nothing lacking.
    void expectUpdated(const QString &what)
    {
        closeConnections();
        QStringList wanted = rowsOf(original());
        // What a release changes by intent.
        for (QString &line : wanted) {
            if (line.contains(u"Name=twice") && line.contains(u"NServiceUsedID=5 "))
                line.replace(u"ServiceUsedID=77"_s, u"ServiceUsedID=0"_s);
        }
        const QStringList found = rowsOf(gsDatabasePath);
        const auto withoutVersion = [](QStringList lines) {
            lines.removeIf([](const QString &line) { return line.contains(u"DBVERSION"); });
            return lines;
        };
        EXPECT_EQ(withoutVersion(found), withoutVersion(wanted)) << what.toStdString();
        QStringList differences = company::differencesFromNew(target(gsDatabasePath));
        // The rows that this test has put into every table.
        differences.removeIf([](const QString &line) { return line.contains(u"Grün"); });
        EXPECT_EQ(differences, QStringList()) << what.toStdString();
    }
    void killedBefore(int change)
    {
        const QTemporaryDir locks;
        QProcess program;
        program.setProcessEnvironment(test::withOwnLocks(locks));
        program.start(QCoreApplication::applicationDirPath() + u"/core_update_helper"_s,
                      {base::environment().applicationFolder, base::environment().registryFile,
                       QString::number(change)});
        ASSERT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << change;
    }
};

TEST_F(Upgrade, ACompanyOfTheFirstReleaseKeepsAllItsRows)
{
    putCompany();
    openConnections();
    EXPECT_FALSE(update());
    EXPECT_EQ(version(), QString::number(company::schemaVersion()));
    EXPECT_FALSE(QFile::exists(script()));
    expectUpdated(u"updated"_s);
    // A later release's script brings all rows once more to a database that lost its number.
    company::createScriptDatabase(script(), company::shippedChanges());
    openConnections();
    SetOption(u"DBVERSION"_s, 100, false);
    EXPECT_FALSE(update());
    EXPECT_FALSE(QFile::exists(script()));
    expectUpdated(u"updated twice"_s);
}

TEST_F(Upgrade, IsTakenUpAgainWhereverItWasEnded)
{
    const std::vector<Change> changes = company::shippedChanges();
    const int statements = static_cast<int>(changes.size());
    // The last of them is ended before the version is noted down.
    for (int change = 1; change <= statements + 1; ++change) {
        for (const bool hasRun : {false, true}) {
            if (hasRun && change > statements)
                continue;
            putCompany();
            killedBefore(change);
            EXPECT_EQ(pending().size(), statements - change + 1);
            openConnections();
            // Between a statement and its mark.
            if (hasRun)
                gcnLookup->Execute(changes[static_cast<std::size_t>(change - 1)].statement);
            EXPECT_FALSE(update()) << change;
            EXPECT_FALSE(QFile::exists(script())) << change;
            expectUpdated(u"ended at %1, %2"_s.arg(change).arg(hasRun));
        }
    }
}

/// A column is made anew in steps, between which a program may be ended too.
TEST_F(Upgrade, AColumnThatWasHalfMadeAnewIsFinished)
{
    const QString half[] = {u"alter table tblEmployee add column [~moved] memo"_s,
                            u"update tblEmployee set [~moved] = Skills"_s,
                            u"alter table tblEmployee drop column Skills"_s};
    for (int steps = 1; steps <= 3; ++steps) {
        putCompany();
        openConnections();
        for (int step = 0; step < steps; ++step)
            gcnLookup->Execute(half[step]);
        EXPECT_FALSE(update()) << steps;
        expectUpdated(u"after step %1"_s.arg(steps));
    }
}

TEST(Changes, AreReadAsTheScriptTakesThem)
{
    const std::vector<Change> changes = company::parseChanges(
        u"-- first; not a statement\nversion 101;\ncreate table tblA (A long);\n"
        "insert into tblSysOption (itemValue, SysOption) values ('7', 'IT''S');\n"
        "Version 110;\nALWAYS insert into tblCrew (CrewNumber) values (1);\n"
        "insert into TBLTABLEFIELDS (Tablename, FieldName) values ('tblA', 'A');"_s);
    const std::vector<Change> expected = {
        {101, 1, u"CREATE"_s, u"create table tblA (A long)"_s, {}, {}, {}},
        {101,
         2,
         u"INSERT"_s,
         u"insert into tblSysOption (itemValue, SysOption) values ('7', 'IT''S')"_s,
         u"tblSysOption"_s,
         u"IT'S"_s,
         {}},
        {110, 1, u"ALWAYS INSERT"_s, u"insert into tblCrew (CrewNumber) values (1)"_s, {}, {}, {}},
        {110, 2, u"INSERT"_s,
         u"insert into TBLTABLEFIELDS (Tablename, FieldName) values ('tblA', 'A')"_s,
         u"tblTableFields"_s, u"A"_s, u"tblA"_s}};
    EXPECT_EQ(changes, expected);
    for (const QString &text :
         {u"create table tblA (A long);"_s, u"version 1; select * from tblSite;"_s,
          u"version 2; version 2;"_s, u"version 1; creat table tblA (A long);"_s,
          u"version 1; insert into tblCrew (CrewNumber) values (1);"_s,
          u"version 1; insert into tblSysOption (itemValue) values ('1');"_s,
          u"version 1; insert into tblTableFields (FieldName) values ('A');"_s})
        EXPECT_NE(test::raisedBy([&] { (void)company::parseChanges(text); }).number(), 0)
            << text.toStdString();
}

} // namespace
