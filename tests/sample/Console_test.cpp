#include "console/Console.h"
#include "core/database/Resources.h"
#include "platform/base/Error.h"
#include "platform/db/Maintenance.h"
#include "platform/settings/Registry.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QDir>

namespace {

using namespace Qt::StringLiterals;

struct Outcome
{
    int code = 0;
    QString out{};
    QString err{};
};

Outcome runConsole(const QStringList &arguments, QString input = {})
{
    Outcome outcome;
    QTextStream in(&input);
    QTextStream out(&outcome.out);
    QTextStream err(&outcome.err);
    outcome.code = console::run(QStringList{u"quorvantis-console"_s} + arguments, {in, out, err});
    return outcome;
}

/// What a command that has to succeed prints.
QString printedBy(const QStringList &arguments, const QString &input = {})
{
    const Outcome outcome = runConsole(arguments, input);
    EXPECT_EQ(outcome.code, console::Success) << outcome.err.toStdString();
    return outcome.out;
}

QString complaintOf(const QStringList &arguments)
{
    const Outcome outcome = runConsole(arguments);
    EXPECT_EQ(outcome.code, console::Failed) << outcome.out.toStdString();
    return outcome.err;
}

std::vector<console::Request> requests(QString text)
{
    QTextStream in(&text);
    console::RequestReader reader(in);
    std::vector<console::Request> found;
    while (std::optional<console::Request> request = reader.next())
        found.push_back(*request);
    return found;
}

TEST(RequestReader, AStatementIsALineOrEndsWithASemicolonAndValuesStandBehindATab)
{
    const std::vector<console::Request> expected = {
        {u"Select 1 from t"_s, {}, 1},
        {u"delete * from u"_s, {}, 2},
        {u"Select a,\n'x;y'\nfrom v"_s, {}, 3},
        {u"update w\nset a = 1"_s, {}, 8},
    };
    EXPECT_EQ(requests(u"Select 1 from t\ndelete * from u\nSelect a,\n  'x;y'\n\tfrom v;\n"
                       "-- a remark\n\nupdate w\nset a = 1\n\n"_s),
              expected);
    const auto found = requests(
        u"insert into t values (?, ?, ?)\t[\"a;b\", 2.5, null]\nselect * from t where a = ?\t[1]"_s);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].statement, u"insert into t values (?, ?, ?)"_s);
    EXPECT_EQ(found[0].parameters, (QVariantList{u"a;b"_s, 2.5, QVariant()}));
    EXPECT_EQ(found[1].parameters.size(), 1);
    EXPECT_EQ(found[1].line, 2);
    EXPECT_THROW((void)requests(u"select 1\t[1,"_s), base::Error);
}

TEST(Console, WrongCommandLinesAreExplained)
{
    const QList<QStringList> lines = {{},
                                      {u"mend"_s, u"x"_s},
                                      {u"run"_s},
                                      {u"backup"_s, u"x"_s},
                                      {u"check"_s, u"x"_s, u"--deep"_s},
                                      {u"create-sample"_s, u"x"_s, u"--today"_s, u"15.3."_s},
                                      {u"create-sample"_s, u"x"_s, u"--seed"_s, u"one"_s},
                                      {u"import-file"_s, u"x"_s, u"y"_s},
                                      {u"import-file"_s, u"x"_s, u"y"_s, u"--kind"_s, u"z"_s}};
    for (const QStringList &line : lines) {
        const Outcome outcome = runConsole(line);
        EXPECT_EQ(outcome.code, console::WrongUsage) << line.join(u' ').toStdString();
        EXPECT_FALSE(outcome.err.isEmpty());
        EXPECT_TRUE(outcome.out.isEmpty());
    }
    EXPECT_TRUE(printedBy({u"--help"_s}).contains(u"create-sample FILE"_s));
}

class ConsoleRun : public testing::Test
{
protected:
    test::TestEnvironment m_environment;
    test::CompanyDatabase m_database;

    [[nodiscard]] Outcome run(const QString &input)
    {
        return runConsole({u"run"_s, m_database.file()}, input);
    }
};

TEST_F(ConsoleRun, PrintsRowsAsCsvAndCountsChanges)
{
    const Outcome outcome =
        run(u"Insert into tblPart (PartID, Description, Price, Inactive) values (?, ?, 2.5, '1')"
            "\t[\"A-1\", \"Belt, \\\"V\\\"\"]\n"
            "Insert into tblPart (PartID, Price) values ('B-2', 0.1);\n"
            "Select PartID as [Part Number], Description, Price,\n"
            "  Inactive from tblPart order by PartID;\n"
            "Update tblPart set Price = 3\n"
            "Delete from tblPart where PartID = 'b-2'\n"_s);
    EXPECT_EQ(outcome.code, console::Success) << outcome.err.toStdString();
    EXPECT_EQ(outcome.out, u"1 row changed\n1 row changed\n"
                           "Part Number,Description,Price,Inactive\n"
                           "A-1,\"Belt, \"\"V\"\"\",2.5,-1\n"
                           "B-2,,0.1,0\n"
                           "2 rows changed\n1 row changed\n"_s);
    EXPECT_TRUE(outcome.err.isEmpty());
}

TEST_F(ConsoleRun, TellsFailuresAndGoesOn)
{
    const Outcome outcome = run(u"Select * from tblNowhere\n"
                                "Select Nothing from tblPart\n"
                                "Select 1 from tblPart\t[oops\n"
                                "Select count(*) as N from tblUser\n"_s);
    EXPECT_EQ(outcome.code, console::Failed);
    EXPECT_EQ(outcome.out, u"N\n1\n"_s);
    const QStringList failures = outcome.err.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(failures.size(), 3);
    EXPECT_TRUE(failures[0].startsWith(QString::number(db::ErrorNumber::TableUnknown) + u' '));
    EXPECT_TRUE(failures[1].startsWith(QString::number(db::ErrorNumber::ValueMissing) + u' '));
    EXPECT_TRUE(failures[2].contains(u"Line 3"_s));
    EXPECT_FALSE(complaintOf({u"run"_s, m_database.file() + u".not"_s}).isEmpty());
}

TEST(Console, MakesChecksCopiesAndCompacts)
{
    const test::TestEnvironment environment;
    const QDir folder(environment.folder());
    const QString file = folder.filePath(u"made.fdb"_s);
    const QString copy = folder.filePath(u"copy.fdb"_s);

    printedBy({u"create-empty"_s, file});
    EXPECT_FALSE(QFile::exists(file + u".new"_s));
    EXPECT_TRUE(complaintOf({u"create-empty"_s, file}).contains(u"exists already"_s));
    printedBy({u"check"_s, file});
    printedBy({u"backup"_s, file, copy});
    printedBy({u"compact"_s, file});
    for (const QString &database : {file, copy})
        EXPECT_EQ(printedBy({u"run"_s, database}, u"Select UserName from tblUser"_s),
                  u"UserName\nAdmin\n"_s);
    EXPECT_EQ(folder.entryList({u"made.fdb*"_s}, QDir::Files), QStringList{u"made.fdb"_s});
}

TEST(Console, ShipsOnlyAScriptThatLeadsToTheNewSchema)
{
    const test::TestEnvironment environment;
    const QDir folder(environment.folder());
    const QString text = folder.filePath(u"changes.sql"_s);
    const QString script = folder.filePath(u"DBChanges.mdb"_s);
    const QByteArray shipped = company::resourceText(u"changes.sql"_s).toUtf8();
    for (const auto &[what, content, complaint] :
         {std::tuple{"a change is lacking", shipped.left(shipped.indexOf("alter table")),
                     u"lacks tblEmployee.Skills"_s},
          std::tuple{"one too many", QByteArray(shipped + "create table tblMore (A long);"),
                     u"has tblMore.A"_s},
          std::tuple{"one that fails", QByteArray(shipped + "drop table tblNone;"),
                     u"drop table tblNone"_s},
          std::tuple{"an option that new ones lack",
                     QByteArray(shipped + "insert into tblSysOption (SysOption) values ('X');"),
                     u"has option X"_s}}) {
        test::writeFile(text, content);
        EXPECT_TRUE(complaintOf({u"make-script"_s, text, script}).contains(complaint)) << what;
        EXPECT_FALSE(QFile::exists(script)) << what;
    }
    test::writeFile(text, shipped);
    printedBy({u"check-changes"_s, text});
    printedBy({u"make-script"_s, text, script});
    EXPECT_EQ(printedBy({u"run"_s, script}, u"Select Status from tblChanges where squence = 1"_s),
              u"Status\n0\n"_s);
}

TEST(Console, SetUpMakesTheFolderOnceAndLeavesItsDatabaseAlone)
{
    const test::TestEnvironment environment;
    const QString home = environment.folder() + u"/home"_s;
    const QString file = home + u"/Data/Quorvantis.mdb"_s;
    printedBy({u"set-up"_s, home});
    EXPECT_TRUE(QDir(home + u"/Data/Backup"_s).exists());
    EXPECT_FALSE(settings::registry().value(settings::ProductKey, u"Version"_s).isEmpty());
    // What the menus of the handheld start stands where the registry says.
    for (const QString &key : {settings::ProductKey, settings::MakerKey}) {
        const QString path = settings::registry().value(key, u"Path"_s);
        for (const char *name : {"QuorvantisSync.exe", "QV2Go ImportSync.exe"})
            EXPECT_TRUE(QFileInfo(path + QLatin1StringView(name)).isExecutable()) << name;
        EXPECT_TRUE(QFileInfo(path + u"Xml_IN"_s).isDir());
        EXPECT_TRUE(QFileInfo::exists(path + u"carrier.ini"_s));
    }
    printedBy({u"run"_s, file}, u"Delete * from tblUser"_s);
    printedBy({u"set-up"_s, home, u"--sample"_s});
    EXPECT_EQ(printedBy({u"run"_s, file}, u"Select count(*) as N from tblUser"_s), u"N\n0\n"_s);
    // A company of an earlier release gets the script beside it.
    const QString script = home + u"/Script/DBChanges.mdb"_s;
    EXPECT_FALSE(QFile::exists(script));
    printedBy({u"run"_s, file},
              u"Update tblSysOption set itemValue = '100' where SysOption = 'DBVERSION'"_s);
    printedBy({u"set-up"_s, home});
    EXPECT_TRUE(QFile::exists(script));
}

TEST_F(ConsoleRun, ImportsRowsOnceNothingSpeaksAgainstIt)
{
    const QString csv = m_environment.folder() + u"/rows.csv"_s;
    const auto import = [&](const QByteArray &text, const QStringList &more) {
        test::writeFile(csv, text);
        return runConsole(
            QStringList{u"import-file"_s, m_database.file(), csv, u"--kind"_s, u"machines"_s} +
            more);
    };
    const QByteArray good = "Unit,Name,Site\nT1,a,North\n";
    const Outcome wrong = import("Unit,Name\nT1,\n", {u"--dry-run"_s});
    EXPECT_EQ(wrong.code, console::Failed);
    EXPECT_EQ(wrong.err, u"Row 2, Equipment Name: It should not be blank.\n"_s);
    const Outcome dry = import(good, {u"--dry-run"_s, u"--make-entries"_s});
    EXPECT_EQ(dry.code, console::Success);
    EXPECT_EQ(dry.out, u"New: Site: North\n1 row was read without a problem. Nothing was imported "
                       "yet. 1 entry has to be added to the lists.\n"_s);
    EXPECT_EQ(import(good, {}).code, console::Failed) << "the site is missing";
    EXPECT_EQ(run(u"Select count(*) as N from tblEquipment"_s).out, u"N\n0\n"_s);
    EXPECT_EQ(import(good, {u"--make-entries"_s}).out,
              u"1 row was imported. 1 entry was added to the lists.\n"_s);
    EXPECT_EQ(
        run(u"Select e.UnitNo, s.SiteName from tblEquipment e left join tblSite s on e.SiteID = "
            "s.SiteID"_s)
            .out,
        u"UnitNo,SiteName\nT1,North\n"_s);
}

TEST_F(ConsoleRun, CarriesACompanyIntoAnotherFile)
{
    const QString zip = m_environment.folder() + u"/all.zip"_s;
    const QString copy = m_environment.folder() + u"/copy.mdb"_s;
    (void)run(u"Insert into tblPart (PartID) values ('A-1')"_s);
    printedBy({u"export-tables"_s, m_database.file(), zip});
    for (const bool isThere : {false, true}) {
        if (isThere)
            printedBy({u"create-empty"_s, copy});
        printedBy({u"import-tables"_s, copy, zip});
        EXPECT_EQ(printedBy({u"run"_s, copy}, u"Select PartID from tblPart"_s), u"PartID\nA-1\n"_s);
        EXPECT_NE(complaintOf({u"import-tables"_s, copy, zip}), QString()) << "it holds records";
        QFile::remove(copy);
    }
}

} // namespace
