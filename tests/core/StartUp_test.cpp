#include "core/StartUp.h"

#include "core/CompanySession.h"
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
    static db::Target target()
    {
        db::Target target;
        target.file = live();
        target.forcedWrites = false;
        return target;
    }
    static void setOption(const QString &key, const QString &value)
    {
        db::Connection connection(target());
        connection.Execute(u"Update tblSysOption set itemValue = ? where SysOption = ?"_s,
                           {value, key});
    }
    /// What a copy says that the company is called.
    static QString companyIn(const QString &file)
    {
        db::Target copy = target();
        copy.file = file;
        return db::Connection(copy)
            .Open(u"Select itemValue from tblSysOption where SysOption = 'GEN_COMPANY_NAME'"_s)
            .value(0, 0)
            .toString();
    }
    static QString daily(const QString &day)
    {
        return path(u"Data/Backup/Daily/Quorvantis "_s + day + u".mdb"_s);
    }
    static QString guid() { return settings::registry().value(settings::ProductKey, u"GUID"_s); }

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
    for (const bool unfinished : {false, true}) {
        closeConnections();
        course.clear();
        outOfDate = unfinished;
        EXPECT_TRUE(Main(steps));
        EXPECT_EQ(course.join(u' '), u"update instance migrate login role main");
        EXPECT_EQ(gbDatabaseOutOfDate, unfinished);
    }
    EXPECT_EQ(companyIn(backup()), u"Before the start"_s);
    EXPECT_TRUE(connectionsAreOpen());
    EXPECT_EQ(gsDatabasePath, live());
    EXPECT_EQ(guid().size(), 32);
    EXPECT_FALSE(gWindowsVersion.name.isEmpty());
    EXPECT_TRUE(QFileInfo(base::environment().appData + u"/Quorvantis"_s).isDir());
}

TEST_F(StartUp, TheWorkstationsGuidIsMadeOnce)
{
    putDatabase();
    EXPECT_TRUE(Main(steps));
    const QString made = guid();
    closeConnections();
    EXPECT_TRUE(Main(steps));
    EXPECT_EQ(guid(), made);
    closeConnections();
    // A short one is left to the next stored option.
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, u"ABC"_s);
    EXPECT_TRUE(Main(steps));
    EXPECT_EQ(guid(), u"ABC"_s);
}

TEST_F(StartUp, TheBackupHasTheVersionsNameAndTheLatestState)
{
    putDatabase();
    test::writeFile(backup(), "of the day before");
    setOption(u"GEN_COMPANY_NAME"_s, u"Latest"_s);
    EXPECT_TRUE(BackupDB());
    EXPECT_EQ(companyIn(backup()), u"Latest"_s);
    settings::registry().setValue(settings::ProductKey, u"VERSION"_s, QString());
    EXPECT_TRUE(BackupDB());
    EXPECT_EQ(companyIn(backup(u"Quorvantis.mdb"_s)), u"Latest"_s);
    EXPECT_EQ(QDir(path(u"Data/Backup"_s)).entryList(QDir::Files).size(), 2);
}

TEST_F(StartUp, EachDaysFirstCopyIsKeptAndOldOnesGo)
{
    putDatabase();
    setOption(u"GEN_COMPANY_NAME"_s, u"Friday"_s);
    EXPECT_TRUE(BackupDB());
    setOption(u"GEN_COMPANY_NAME"_s, u"Friday noon"_s);
    EXPECT_TRUE(BackupDB());
    EXPECT_EQ(companyIn(daily(u"2024-03-15"_s)), u"Friday"_s);
    {
        db::Connection connection(target());
        for (const auto &[key, value] :
             {std::pair(u"DAYS"_s, 2), std::pair(u"WEEKS"_s, 0), std::pair(u"MONTHS"_s, 0)})
            connection.Execute(u"Insert into tblSysOption (SysOption, itemValue) values (?, ?)"_s,
                               {u"BACKUP_KEEP_"_s + key, value});
    }
    for (int day = 0; day < 2; ++day) {
        environment.addDays(1);
        EXPECT_TRUE(BackupDB());
    }
    EXPECT_FALSE(QFile::exists(daily(u"2024-03-15"_s)));
    EXPECT_TRUE(QFile::exists(daily(u"2024-03-16"_s)));
    EXPECT_EQ(companyIn(daily(u"2024-03-17"_s)), u"Friday noon"_s);
}

TEST_F(StartUp, ACompanyMayDoWithoutTheDaysCopy)
{
    putDatabase();
    db::Connection(target()).Execute(
        u"Insert into tblSysOption (SysOption, itemValue) values ('BACKUP_DAILY', '0')"_s);
    EXPECT_TRUE(BackupDB());
    EXPECT_TRUE(QFile::exists(backup()));
    EXPECT_FALSE(QFile::exists(daily(u"2024-03-15"_s)));
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

TEST_F(StartUp, AnUpdateEndsTheProcessBeforeAnythingElse)
{
    putDatabase();
    updateFound = true;
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update end");
    EXPECT_FALSE(QFile::exists(backup()));
    EXPECT_FALSE(failed);
}

TEST_F(StartUp, ASecondInstanceStopsBeforeTheBackup)
{
    putDatabase();
    const sys::SingleInstance running(base::environment().applicationFolder);
    steps.PrevInstance = [] {
        return !sys::SingleInstance(base::environment().applicationFolder).isFirst();
    };
    prompts.inform(u"Quorvantis application is already open."_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update end");
    EXPECT_FALSE(QFile::exists(backup()));
    EXPECT_FALSE(connectionsAreOpen());
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

TEST_F(StartUp, AMissingDatabaseEndsTheProcess)
{
    expectBackupProblem(u"File not found: "_s + live(), 53);
    expectFailure(u"Could not find file '%1'."_s.arg(live()), 53, u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.join(u' '), u"update instance end");
    EXPECT_FALSE(QFile::exists(live()));
    EXPECT_FALSE(connectionsAreOpen());
}

TEST_F(StartUp, ABackupMayTakeThePlaceOfALostDatabase)
{
    for (const char *content : {"", "Dear Sir or Madam"}) {
        closeConnections();
        QFile::remove(live());
        if (*content != 0)
            test::writeFile(live(), content);
        course.clear();
        QString why;
        bool isWanted = false;
        steps.frmRestore = [&](const base::Error &error) {
            why = error.description();
            if (isWanted) {
                QFile::remove(live());
                putDatabase();
            }
            return done(u"restore"_s, isWanted);
        };
        const QString sentence =
            *content != 0 ? u"The file is not a database that this program can read: "_s + live()
                          : u"Could not find file '%1'."_s.arg(live());
        const int number = *content != 0 ? db::ErrorNumber::NotADatabase : 53;
        const QString problem = *content != 0 ? sentence : u"File not found: "_s + live();
        expectBackupProblem(problem, number);
        expectFailure(sentence, number, u"ConnectToDB"_s);
        EXPECT_FALSE(Main(steps));
        EXPECT_EQ(why, sentence);
        isWanted = true;
        expectBackupProblem(problem, number);
        EXPECT_TRUE(Main(steps));
        EXPECT_EQ(
            course,
            u"update instance restore end update instance restore migrate role main"_s.split(u' '));
    }
}

TEST_F(StartUp, AFileThatIsNoDatabaseIsLeftAsItIs)
{
    const QByteArray whole = test::readFile(company.file());
    struct Case
    {
        QByteArray content;
        QString sentence;
    };
    QByteArray anothers = whole;
    anothers.replace("tblEquipment", "tblAppliance");
    for (const auto &[content, sentence] :
         {Case{{}, u"The database file is empty: "_s},
          Case{"Dear Sir or Madam", u"The file is not a database that this program can read: "_s},
          Case{QByteArray(100'000, 'x') + whole.mid(100'000),
               u"The file is not a database that this program can read: "_s},
          Case{whole.left(whole.size() / 2),
               u"The database file is damaged: its end is missing: "_s},
          Case{anothers, u"The file is not a database of this program: "_s}}) {
        test::writeFile(live(), content);
        test::writeFile(backup(), "the last good one");
        course.clear();
        failed = false;
        expectBackupProblem(sentence + live(), db::ErrorNumber::NotADatabase);
        expectFailure(sentence + live(), db::ErrorNumber::NotADatabase, u"ConnectToDB"_s);
        EXPECT_FALSE(Main(steps));
        EXPECT_EQ(course.last(), u"end"_s);
        EXPECT_TRUE(failed);
        EXPECT_EQ(test::readFile(live()), content) << "not one byte";
        EXPECT_EQ(test::readFile(backup()), "the last good one");
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
    for (const QString &value : {u"0"_s, u""_s, u"-1"_s, u"True"_s, u"(none)"_s}) {
        setOption(u"SECURITYONOFF"_s, value);
        db::Connection(target()).Execute(
            u"Delete from tblSysOption where SysOption = 'SECURITYONOFF' and itemValue = '(none)'"_s);
        course.clear();
        EXPECT_TRUE(Main(steps));
        EXPECT_FALSE(course.contains(u"login"_s)) << qPrintable(value);
        closeConnections();
    }
}

TEST_F(StartUp, ADamagedRegistryEndsTheProcess)
{
    putDatabase();
    test::writeFile(base::environment().registryFile, "nonsense");
    const QString description = u"The file with the program's settings is damaged at line 1: "_s +
                                base::environment().registryFile;
    expectBackupProblem(description, settings::RegistryDamaged);
    expectFailure(description, settings::RegistryDamaged, u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(test::readFile(base::environment().registryFile), "nonsense");
}

TEST_F(StartUp, AnErrorOfALaterStepEndsTheProcessWithItsMessage)
{
    putDatabase();
    steps.frmMainScreen = [] { throw base::Error(13, u"Type mismatch"_s); };
    expectFailure(u"Type mismatch"_s, 13, u"ConnectToDB"_s);
    EXPECT_FALSE(Main(steps));
    EXPECT_EQ(course.last(), u"end"_s);
}

TEST_F(StartUp, AnErrorBehindTheMainFormLeavesItRunning)
{
    putDatabase();
    const QString folder = base::environment().appData + u"/Quorvantis"_s;
    test::writeFile(folder, "a file in its place");
    expectFailure(u"The folder can't be made: "_s + folder, 75, u"Main"_s);
    EXPECT_TRUE(Main(steps));
    EXPECT_EQ(course.last(), u"main"_s);
}
