#include "administration/Restore.h"

#include "administration/AdministrationSession.h"
#include "administration/Backup.h"
#include "administration/CompactDatabase.h"
#include "administration/SealedFile.h"
#include "core/DailyCopies.h"
#include "core/database/Changes.h"
#include "support/Damage.h"

using namespace Qt::StringLiterals;
using namespace administration;
using test::raisedBy;

namespace {

/// A backup of one machine on the stick, and a database that has two meanwhile.
class Restores : public test::AdministrationSession
{
protected:
    Restores()
    {
        (void)takeBackup({stick(), u"copy"_s, {}});
        addMachine(2);
    }
    [[nodiscard]] Chosen copy() const { return {stick() + u"/copy"_s, {}}; }
    /// Fetches a backup for its check; what then restores it.
    static std::function<Restored()> checked(const Chosen &chosen)
    {
        const QByteArray fingerprint = fetchForCheck(chosen);
        const Summary summary = summaryOfBackup(temporaryCopy(), chosen.file);
        return [=] { return restoreDatabase(chosen, fingerprint, summary); };
    }
    static Restored restore(const Chosen &chosen) { return checked(chosen)(); }
    static QString script() { return below(u"\\Script\\DBChanges.mdb"_s); }
};

} // namespace

TEST_F(Restores, PutTheBackupInPlaceAndKeepWhatWasThere)
{
    const QFile::Permissions before = QFileInfo(gsDatabasePath).permissions();
    const Restored restored = restore(copy());
    expectWorking(1);
    EXPECT_EQ(restored.kept, backups() + u"/Before restore 2024-03-15 093000.mdb"_s);
    EXPECT_EQ(machinesIn(restored.kept), 2);
    EXPECT_FALSE(restored.isOlder);
    EXPECT_FALSE(QFile::exists(script()));
    EXPECT_EQ(QFileInfo(gsDatabasePath).permissions(), before);
    // A company file that was lost.
    closeConnections();
    QFile::remove(gsDatabasePath);
    EXPECT_EQ(restore({restored.kept, {}}).kept, QString());
    expectWorking(2);
}

TEST_F(Restores, KeepAsManyDatabasesAsTheCompanyWants)
{
    SetOption(copies::RestoresOption.toString(), 2, false);
    (void)takeBackup({stick(), u"copy"_s, {}});
    const QStringList others{u"BEFORE RESTORE 2020-01-01 000000.mdb"_s,
                             u"Before restore 2099-01-01 000000.mdb"_s,
                             u"Before restore of mine.mdb"_s};
    for (const QString &name : others)
        test::writeFile(backups() + u'/' + name, "mine");
    const auto kept = [&] {
        QStringList names = filesIn(backups());
        for (const QString &name : others)
            EXPECT_TRUE(names.removeOne(name)) << name.toStdString();
        return names;
    };
    const auto day = [](int number) {
        return u"Before restore 2024-03-%1 093000.mdb"_s.arg(number);
    };
    // Two in one second are two.
    restore(copy());
    restore(copy());
    EXPECT_EQ(kept(), (QStringList{day(15), u"Before restore 2024-03-15 093001.mdb"_s}));
    environment.addDays(1);
    restore(copy());
    EXPECT_EQ(kept(), (QStringList{u"Before restore 2024-03-15 093001.mdb"_s, day(16)}));
    // One of a damaged database is no reason to let a good one go.
    environment.addDays(1);
    closeConnections();
    test::spoilRows(gsDatabasePath);
    openConnections();
    restore(copy());
    EXPECT_EQ(kept(), (QStringList{u"Before restore 2024-03-15 093001.mdb"_s, day(16), day(17)}));
}

TEST_F(Restores, TellWhatIsThere)
{
    insert(u"tblWorkorder"_s, {{u"EquipmentID"_s, 1}});
    for (const int order : {5, 5, 6})
        insert(u"tblWOServiceUsedHistory"_s,
               {{u"WorkorderNo"_s, order},
                {u"CompleteDate"_s, base::wallClock(QDate(2024, 3, order), QTime())}});
    const Summary summary = summaryOf(*gcnData, gsDatabasePath);
    EXPECT_EQ(
        std::tuple(summary.machines, summary.openOrders, summary.postedOrders, summary.newestWork),
        std::tuple(2, 1, 2, QDate(2024, 3, 6)));
    EXPECT_EQ(summary.version, QString::number(company::schemaVersion()));
    EXPECT_TRUE(summary.written.isValid());
    EXPECT_FALSE(summaryOf(*gcnData, u"host"_s).written.isValid());
}

TEST_F(Restores, OnlySoundDatabasesOfTheProgramAreUsable)
{
    const QByteArray whole = test::readFile(copy().file);
    const QString file = stick() + u"/file"_s;
    for (const auto &[what, content] :
         {std::pair{"a picture", QByteArray("\x89PNG\r\n\x1a\n") + QByteArray(9000, 'p')},
          std::pair{"one cut off", whole.left(whole.size() / 2)}, std::pair{"empty", QByteArray()},
          std::pair{"another's", QByteArray(whole).replace("tblEquipment", "tblAppliance")}}) {
        test::writeFile(file, content);
        EXPECT_FALSE(isUsableBackup(file)) << what;
    }
    test::writeFile(file, whole);
    EXPECT_TRUE(isUsableBackup(file));
    test::spoilRows(file);
    EXPECT_FALSE(isUsableBackup(file));
    test::writeFile(file, whole);
    db::Connection(target(file)).Execute(u"Drop table tblEquipment"_s);
    EXPECT_FALSE(isUsableBackup(file));
}

TEST_F(Restores, AnEarlierReleaseGetsItsScriptAndANewerOneIsRefused)
{
    const auto setVersion = [this](int version) {
        db::Connection(target(copy().file))
            .Execute(u"Update tblSysOption set itemValue = ? where SysOption = 'DBVERSION'"_s,
                     {QString::number(version)});
    };
    setVersion(company::schemaVersion() + 1);
    EXPECT_TRUE(raisedBy([&] { restore(copy()); })
                    .description()
                    .startsWith(u"This backup comes from a newer release"));
    expectWorking(2);
    EXPECT_EQ(filesIn(backups()), QStringList());
    setVersion(100);
    EXPECT_TRUE(restore(copy()).isOlder);
    EXPECT_TRUE(QFile::exists(script()));
    // A script that was left by an update that has failed begins anew; what is none is replaced.
    const auto done = [] {
        return db::Connection(target(script()))
            .Open(u"Select count(*) from tblChanges where Status = True"_s)
            .value(0, 0)
            .toInt();
    };
    db::Connection(target(script())).Execute(u"Update tblChanges set Status = True"_s);
    EXPECT_GT(done(), 0);
    EXPECT_TRUE(restore(copy()).isOlder);
    EXPECT_EQ(done(), 0);
    test::writeFile(script(), "no database");
    restore(copy());
    EXPECT_EQ(done(), 0);
    expectWorking(1);
}

TEST_F(Restores, WhatHasChangedSinceTheCheckIsRefused)
{
    const auto restoring = checked(copy());
    settings::registry().setValue(settings::ProductKey, u"HOST"_s, u"office"_s);
    EXPECT_TRUE(raisedBy(restoring).description().contains(u"office"_s))
        << "a server's files are left to it";
    settings::registry().setValue(settings::ProductKey, u"HOST"_s, {});
    db::Connection(target(copy().file)).Execute(u"Delete from tblEquipment"_s);
    EXPECT_NE(raisedBy(restoring).number(), 0);
    QFile::remove(copy().file);
    EXPECT_EQ(raisedBy(restoring).number(), base::ErrorNumber::FileNotFound)
        << "the stick was pulled out";
    expectWorking(2);
    EXPECT_EQ(filesIn(backups()), QStringList());
}

TEST_F(Restores, NoFailureTouchesTheDatabase)
{
    {
        const db::Connection other(target(gsDatabasePath));
        EXPECT_EQ(raisedBy([&] { restore(copy()); }).number(), db::ErrorNumber::FileInUse);
    }
    expectWorking(2);
    fillWithPictures();
    (void)takeBackup({stick(), u"copy"_s, {}});
    const auto restoring = checked(copy());
    {
        const test::SmallDisk full(SmallDiskSize);
        EXPECT_NE(raisedBy([&] { (void)fetchForCheck(copy()); }).number(), 0);
        EXPECT_NE(raisedBy(restoring).number(), 0);
    }
    expectWorking(2);
    // The copy that is kept can't be written.
    QDir(backups()).removeRecursively();
    test::writeFile(backups(), "a file in its place");
    EXPECT_NE(raisedBy(restoring).number(), 0);
    QFile::remove(backups());
    expectWorking(2);
    // What can't be opened gives its place back.
    const Chosen junk{stick() + u"/junk"_s, {}};
    test::writeFile(junk.file, QByteArray(9000, 'j'));
    const QByteArray fingerprint = fetchForCheck(junk);
    const Summary summary = summaryOf(*gcnData, gsDatabasePath);
    EXPECT_EQ(raisedBy([&] { restoreDatabase(junk, fingerprint, summary); }).number(),
              db::ErrorNumber::NotADatabase);
    expectWorking(2);
}

TEST_F(Restores, ASealedBackupNeedsItsPassphrase)
{
    const Chosen sealed{stick() + u"/sealed"_s, u"12345678"_s};
    EXPECT_TRUE(takeBackup({stick(), u"sealed"_s, sealed.passphrase}).contains(u"2 machines"_s));
    EXPECT_EQ(filesIn(stick()), (QStringList{u"copy"_s, u"sealed"_s}));
    EXPECT_EQ(filesIn(backups()), QStringList()) << "nowhere in plain";
    EXPECT_FALSE(test::readFile(sealed.file).contains("TBLEQUIPMENT"));
    addMachine(3);
    EXPECT_EQ(raisedBy([&] {
                  (void)fetchForCheck({sealed.file, u"87654321"_s});
              }).number(),
              WrongPassphrase);
    restore(sealed);
    expectWorking(2);
}

TEST_F(Restores, FoldersMayHaveAnyName)
{
    const QString odd = u"/O'Brien & Söhne; 100% \"new\""_s;
    closeConnections();
    base::Environment elsewhere = base::environment();
    elsewhere.applicationFolder += odd;
    elsewhere.appData += odd;
    base::setEnvironment(elsewhere);
    QDir().mkpath(backups());
    QDir().mkpath(stick() + odd);
    const QString former = std::exchange(gsDatabasePath, below(u"\\Data\\Quorvantis.mdb"_s));
    ASSERT_TRUE(QFile::copy(former, gsDatabasePath));
    openConnections();
    const QString name = u"it's the \"copy\" of Größe"_s;
    const Chosen odds[] = {{stick() + odd + u'/' + name, {}},
                           {stick() + odd + u"/sealed "_s + name, u"pässwörd's"_s}};
    {
        db::Connection other(target(gsDatabasePath));
        other.Execute(u"Insert into tblEquipment (EquipmentID) values (77)"_s);
        for (const Chosen &place : odds)
            (void)takeBackup({stick() + odd, QFileInfo(place.file).fileName(), place.passphrase});
    }
    for (const Chosen &place : odds) {
        gcnData->Execute(u"Delete from tblEquipment"_s);
        restore(place);
        expectWorking(3);
    }
    prompts.say(u"System has finished compacting the database."_s);
    CompactDatabase();
    expectWorking(3);
}

TEST_F(Restores, KilledAtAnyMomentLeaveOneOfTheTwoWhole)
{
    closeConnections();
    bool old = false;
    bool restored = false;
    for (int delay = 0; delay < 200 && !(old && restored && delay > 10); delay += 3 + delay / 3) {
        QFile::remove(gsDatabasePath);
        QFile::copy(database.file(), gsDatabasePath);
        openConnections();
        addMachine(1);
        addMachine(2);
        closeConnections();
        killHelper(delay, copy().file);
        const qint64 machines = machinesIn(gsDatabasePath);
        EXPECT_TRUE(machines == 1 || machines == 2) << "killed after " << delay << " ms";
        (machines == 1 ? restored : old) = true;
    }
    EXPECT_TRUE(old);
    // What it left behind is in nobody's way.
    openConnections();
    restore(copy());
    expectWorking(1);
}
