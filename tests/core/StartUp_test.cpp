#include "core/StartUp.h"

#include "core/CompanySession.h"
#include "core/DailyCopies.h"
#include "platform/db/DbError.h"
#include "platform/db/Proof.h"
#include "platform/system/SingleInstance.h"
#include "support/Damage.h"

using namespace Qt::StringLiterals;

namespace {

/// Starts the program in a folder of the test's own, with all steps of others recorded.
struct StartUp : testing::Test
{
    StartUp()
    {
        QDir().mkpath(path(u"Data/Backup"_s));
        settings::registry().setValue(settings::ProductKey, u"VERSION"_s, u"2.3.1"_s);
        steps.PrevInstance = [this] { return done(u"instance"_s, previousInstance); };
        steps.CheckForUpdate = [this] { return done(u"update"_s, updateFound); };
        steps.UpdateDatabase = [this](bool showFailure) {
            EXPECT_TRUE(showFailure);
            return done(u"migrate"_s, outOfDate);
        };
        steps.frmLogin = [this] { return done(u"login"_s, loggedIn); };
        steps.SetUserRole = [this] { done(u"role"_s); };
        steps.frmMainScreen = [this] { done(u"main"_s); };
        steps.End = [this] { done(u"end"_s); };
        steps.Failed = [this] { failed = true; };
    }
    ~StartUp() override
    {
        closeConnections();
        gbDatabaseOutOfDate = false;
        gsDatabasePath.clear();
    }

    bool done(const QString &step, bool result = true)
    {
        course << step;
        return result;
    }
    static QString path(const QString &below)
    {
        return base::environment().applicationFolder + u'/' + below;
    }
    static QString live() { return path(u"Data/Quorvantis.mdb"_s); }
    static QString backup(const QString &name = u"Quorvantis231.mdb"_s)
    {
        return path(u"Data/Backup/"_s + name);
    }
    void putDatabase() const { ASSERT_TRUE(QFile::copy(company.file(), live())); }
    static db::Target target(const QString &file = live())
    {
        db::Target target;
        target.file = file;
        target.forcedWrites = false;
        return target;
    }
    static void setOption(const QString &key, const QString &value)
    {
        db::Connection(target()).Execute(
            u"Update tblSysOption set itemValue = ? where SysOption = ?"_s, {value, key});
    }
    /// What a copy says that the company is called.
    static QString companyIn(const QString &file)
    {
        return db::Connection(target(file))
            .Open(u"Select itemValue from tblSysOption where SysOption = 'GEN_COMPANY_NAME'"_s)
            .value(0, 0)
            .toString();
    }
    static QString daily(const QString &day)
    {
        return path(u"Data/Backup/Daily/Quorvantis "_s + day + u".mdb"_s);
    }
    void expectBackupMessage(const QString &description, int number)
    {
        prompts.say(description + u' ' + QString::number(number) + u"Main Funtions(BackupDB) "_s);
    }
    void expectBackupProblem(const QString &description, int number)
    {
        expectBackupMessage(description, number);
        prompts.inform(u"Problem in taking backup of Database."_s);
    }
    void expectFailure(const QString &description, int number, const QString &where)
    {
        prompts.warn(description + u'\n' + QString::number(number) + u"\nmodData_Conntect ("_s +
                     where + u')');
    }

    test::TestEnvironment environment;
    test::CompanyDatabase company;
    test::ScriptedPrompts prompts;
    test::ErrorLog errors;
    StartUpSteps steps;
    QStringList course;
    bool previousInstance = false;
    bool updateFound = false;
    bool outOfDate = false;
    bool loggedIn = true;
    bool failed = false;
};

} // namespace

TEST_F(StartUp, RunsItsStepsInOrder)
{
    putDatabase();
    setOption(u"SECURITYONOFF"_s, u"1"_s);
    setOption(u"GEN_COMPANY_NAME"_s, u"Before the start"_s);
    QSet<QString> guids;
    for (const bool unfinished : {false, true}) {
        closeConnections();
        course.clear();
        outOfDate = unfinished;
        EXPECT_TRUE(Main(steps));
        EXPECT_EQ(course.join(u' '), u"update instance migrate login role main");
        EXPECT_EQ(gbDatabaseOutOfDate, unfinished);
        guids.insert(settings::registry().value(settings::ProductKey, u"GUID"_s));
    }
    EXPECT_EQ(companyIn(backup()), u"Before the start"_s);
    EXPECT_TRUE(connectionsAreOpen());
    EXPECT_EQ(gsDatabasePath, live());
    EXPECT_EQ(guids.size(), 1) << "made once";
    EXPECT_EQ(guids.begin()->size(), 32);
    EXPECT_FALSE(gWindowsVersion.name.isEmpty());
    EXPECT_TRUE(QFileInfo(base::environment().appData + u"/Quorvantis"_s).isDir());
}

TEST_F(StartUp, TheBackupHasTheLatestStateAndEachDaysFirstCopyIsKept)
{
    putDatabase();
    setOption(u"GEN_COMPANY_NAME"_s, u"Friday"_s);
    EXPECT_TRUE(BackupDB());
    setOption(u"GEN_COMPANY_NAME"_s, u"Friday noon"_s);
    EXPECT_TRUE(BackupDB());
    EXPECT_EQ(companyIn(daily(u"2024-03-15"_s)), u"Friday"_s);
    EXPECT_EQ(companyIn(backup()), u"Friday noon"_s);
    settings::registry().setValue(settings::ProductKey, u"VERSION"_s, QString());
    const auto add = [](const QString &option, int value) {
        db::Connection(target()).Execute(
            u"Insert into tblSysOption (SysOption, itemValue) values (?, ?)"_s, {option, value});
    };
    add(copies::DaysOption.toString(), 2);
    add(copies::WeeksOption.toString(), 0);
    add(copies::MonthsOption.toString(), 0);
    for (int day = 0; day < 2; ++day) {
        environment.addDays(1);
        EXPECT_TRUE(BackupDB());
    }
    EXPECT_FALSE(QFile::exists(daily(u"2024-03-15"_s)));
    EXPECT_TRUE(QFile::exists(daily(u"2024-03-16"_s)));
    EXPECT_EQ(companyIn(daily(u"2024-03-17"_s)), u"Friday noon"_s);
    EXPECT_EQ(QDir(path(u"Data/Backup"_s)).entryList(QDir::Files),
              (QStringList{u"Quorvantis.mdb"_s, u"Quorvantis231.mdb"_s}));
    // A company may do without them.
    add(copies::DailyOption.toString(), 0);
    environment.addDays(1);
    EXPECT_TRUE(BackupDB());
    EXPECT_FALSE(QFile::exists(daily(u"2024-03-18"_s)));
}

TEST_F(StartUp, TwoWorkstationsThatCopyAtOnceDontMeet)
{
    putDatabase();
    // What the other one is about to prove.
    const QString others = backup(u"Quorvantis231.mdb.another.new~"_s);
    test::writeFile(others, "half a copy");
    EXPECT_TRUE(BackupDB());
    EXPECT_EQ(test::readFile(others), "half a copy");
    EXPECT_EQ(QDir(path(u"Data/Backup"_s)).entryList(QDir::Files).size(), 2);
}

TEST_F(StartUp, ADamagedDatabaseReplacesNoGoodCopyAndPrunesNone)
{
    putDatabase();
    EXPECT_TRUE(BackupDB());
    const QByteArray good = test::readFile(backup());
    environment.addDays(400);
    test::spoilRows(live());
    const QString damage = test::raisedBy([] { (void)db::prove(live()); }).description();
    expectBackupMessage(u"No backup was made, the last good one stays. "_s + damage, 3343);
    EXPECT_FALSE(BackupDB());
    EXPECT_EQ(test::readFile(backup()), good);
    EXPECT_EQ(QDir(path(u"Data/Backup/Daily"_s)).entryList(QDir::Files),
              QStringList{u"Quorvantis 2024-03-15.mdb"_s});
    EXPECT_EQ(QDir(path(u"Data/Backup"_s)).entryList(QDir::Files).size(), 1);
}

TEST_F(StartUp, AnUpdateOrAFirstInstanceEndsTheProcessBeforeTheBackup)
{
    putDatabase();
    updateFound = true;
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update end");
    EXPECT_FALSE(failed);
    updateFound = false;
    course.clear();
    const sys::SingleInstance running(base::environment().applicationFolder);
    steps.PrevInstance = [] {
        return !sys::SingleInstance(base::environment().applicationFolder).isFirst();
    };
    prompts.inform(u"Quorvantis application is already open."_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update end");
    EXPECT_FALSE(QFile::exists(backup()) || connectionsAreOpen());
    EXPECT_TRUE(failed);
}

TEST_F(StartUp, AHeldDatabaseIsNotCopiedAndOpensAllTheSame)
{
    putDatabase();
    const db::Connection other(target());
    EXPECT_TRUE(Main(steps));
    EXPECT_FALSE(QFile::exists(backup()));
    EXPECT_EQ(course.last(), u"main"_s);
    closeConnections();
    EXPECT_TRUE(Main({})) << "none of the others' steps is needed";
}

TEST_F(StartUp, AFailedBackupDoesNotStopTheStart)
{
    putDatabase();
    QDir(path(u"Data/Backup"_s)).removeRecursively();
    expectBackupProblem(u"Path not found: "_s + path(u"Data/Backup"_s), 76);
    EXPECT_TRUE(Main(steps));
    EXPECT_EQ(course.last(), u"main"_s);
    closeConnections();

    // What can't be written: a folder stands in the file's place.
    QDir().mkpath(backup());
    expectBackupProblem(u"A folder stands where a file is to be written: "_s + backup(), 75);
    EXPECT_TRUE(Main(steps));
}

/// What stands in the database's place, and what is said of it.
struct NoDatabase
{
    std::optional<QByteArray> content; ///< nothing for a file that is gone
    QString sentence;
    QString ofBackup = {}; ///< where the backup says it in its own way
    int number = db::ErrorNumber::NotADatabase;
};

TEST_F(StartUp, WhatIsNoDatabaseIsLeftAsItIsUntilABackupTakesItsPlace)
{
    const QByteArray whole = test::readFile(company.file());
    const QString unreadable = u"The file is not a database that this program can read: %1"_s;
    for (const NoDatabase &row : std::initializer_list<NoDatabase>{
             {std::nullopt, u"Could not find file '%1'."_s, u"File not found: %1"_s,
              base::ErrorNumber::FileNotFound},
             {"", u"The database file is empty: %1"_s},
             {"Dear Sir or Madam", unreadable},
             {QByteArray(100'000, 'x') + whole.mid(100'000), unreadable},
             {whole.left(whole.size() / 2),
              u"The database file is damaged: its end is missing: %1"_s},
             {QByteArray(whole).replace("tblEquipment", "tblAppliance"),
              u"The file is not a database of this program: %1"_s}}) {
        const QString sentence = row.sentence.arg(live());
        closeConnections();
        QFile::remove(live());
        if (row.content)
            test::writeFile(live(), *row.content);
        test::writeFile(backup(), "the last good one");
        const auto start = [&](bool isRestored) {
            course.clear();
            failed = false;
            expectBackupProblem(row.ofBackup.isEmpty() ? sentence : row.ofBackup.arg(live()),
                                row.number);
            if (!isRestored)
                expectFailure(sentence, row.number, u"ConnectToDB"_s);
            EXPECT_EQ(Main(steps), isRestored);
            EXPECT_EQ(failed, !isRestored);
            return course.join(u' ');
        };
        steps.frmRestore = nullptr;
        EXPECT_EQ(start(false), u"update instance end");
        steps.frmRestore = [&](const base::Error &error) {
            EXPECT_EQ(error.description(), sentence);
            return done(u"refused"_s, false);
        };
        EXPECT_EQ(start(false), u"update instance refused end");
        EXPECT_EQ(test::readFile(live()), row.content.value_or("(none)")) << "not one byte";
        EXPECT_EQ(test::readFile(backup()), "the last good one");
        steps.frmRestore = [&](const base::Error &) {
            QFile::remove(live());
            putDatabase();
            return done(u"restored"_s);
        };
        EXPECT_EQ(start(true), u"update instance restored migrate role main");
    }
}

TEST_F(StartUp, SecurityThatCantBeReadLetsNobodyIn)
{
    putDatabase();
    db::Connection(target()).Execute(u"alter table tblSysOption drop column ItemValue"_s);
    const base::Error error = test::raisedBy([] {
        (void)db::Connection(target()).Open(
            u"Select itemvalue From tblSysoption where Sysoption = 'SECURITYONOFF'"_s);
    });
    expectFailure(error.description(), error.number(), u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_FALSE(course.contains(u"main"_s));
    EXPECT_TRUE(failed);
}

TEST_F(StartUp, ACancelledLoginEndsAfterBackupAndMigration)
{
    putDatabase();
    setOption(u"SECURITYONOFF"_s, u"1"_s);
    loggedIn = false;
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update instance migrate login end");
    EXPECT_TRUE(QFile::exists(backup()));
    closeConnections();
    EXPECT_FALSE(failed) << "his own wish";
    // Nobody passes a login that isn't there.
    steps.frmLogin = nullptr;
    EXPECT_FALSE(Main(steps));
}

TEST_F(StartUp, WithoutSecurityNobodyIsAsked)
{
    putDatabase();
    for (const QString &value : {u"0"_s, u""_s, u"-1"_s, u"True"_s}) {
        setOption(u"SECURITYONOFF"_s, value);
        course.clear();
        EXPECT_TRUE(Main(steps));
        EXPECT_FALSE(course.contains(u"login"_s)) << qPrintable(value);
        closeConnections();
    }
}

TEST_F(StartUp, AnErrorEndsTheProcessUnlessItIsBehindTheMainForm)
{
    putDatabase();
    const QString folder = base::environment().appData + u"/Quorvantis"_s;
    test::writeFile(folder, "a file in its place");
    expectFailure(u"The folder can't be made: "_s + folder, 75, u"Main"_s);
    EXPECT_TRUE(Main(steps));
    EXPECT_EQ(course.last(), u"main"_s);
    closeConnections();

    steps.frmMainScreen = [] { throw base::Error(13, u"Type mismatch"_s); };
    expectFailure(u"Type mismatch"_s, 13, u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.last(), u"end"_s);
    closeConnections();

    const QString settings = base::environment().registryFile;
    test::writeFile(settings, "nonsense");
    const QString description =
        u"The file with the program's settings is damaged at line 1: "_s + settings;
    expectBackupProblem(description, settings::RegistryDamaged);
    expectFailure(description, settings::RegistryDamaged, u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(test::readFile(settings), "nonsense");
}
