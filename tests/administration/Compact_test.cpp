#include "administration/CompactDatabase.h"

#include "administration/AdministrationSession.h"
#include "support/Damage.h"

using namespace Qt::StringLiterals;

namespace {

class Compacts : public test::AdministrationSession
{
protected:
    void compact()
    {
        prompts.say(u"System has finished compacting the database."_s);
        CompactDatabase();
    }
    static QString temporary() { return below(u"\\TP_TMP.mdb"_s); }
    static QString copyOfDay() { return backups() + u"/Backup_3_15_2024.mdb"_s; }
};

} // namespace

TEST_F(Compacts, GiveBackRoomAndKeepTheDaysCopy)
{
    fillWithPictures();
    gcnData->Execute(u"Delete from tblEquipmentImage"_s);
    const qint64 before = QFileInfo(gsDatabasePath).size();
    test::writeFile(temporary(), "left behind");
    test::writeFile(below(u"\\Backup_3_15_2024.mdb"_s), "left behind");
    compact();
    EXPECT_LT(QFileInfo(gsDatabasePath).size(), before - 1'000'000);
    EXPECT_EQ(filesIn(backups()), QStringList{u"Backup_3_15_2024.mdb"_s});
    EXPECT_EQ(QFileInfo(copyOfDay()).size(), before);
    EXPECT_FALSE(QFile::exists(temporary()));
    EXPECT_FALSE(QFile::exists(below(u"\\Backup_3_15_2024.mdb"_s)));
    expectWorking(1);
    // A second one of that day replaces the copy.
    addMachine(2);
    compact();
    EXPECT_EQ(filesIn(backups()), QStringList{u"Backup_3_15_2024.mdb"_s});
    EXPECT_EQ(machinesIn(copyOfDay()), 2);
    expectWorking(2);
}

TEST_F(Compacts, LeaveADatabaseInUseAlone)
{
    const db::Connection other(target(gsDatabasePath));
    prompts.say(u"Database is in use. System cannot perform this task now."_s);
    CompactDatabase();
    EXPECT_EQ(filesIn(backups()), QStringList());
    expectWorking(1);

    settings::registry().setValue(settings::ProductKey, u"HOST"_s, u"office"_s);
    CompactDatabase();
    EXPECT_TRUE(errors.takeOne().ErrDescription.contains(u"office"_s));
    EXPECT_EQ(filesIn(backups()), QStringList());
}

TEST_F(Compacts, LeaveADatabaseOfTheBackupsNameAlone)
{
    closeConnections();
    const QString renamed = below(u"\\Data\\backup_3_15_2024.mdb"_s);
    QFile::rename(gsDatabasePath, renamed);
    gsDatabasePath = renamed;
    openConnections();
    CompactDatabase();
    EXPECT_TRUE(connectionsAreOpen());
    EXPECT_EQ(filesIn(backups()), QStringList());
}

TEST_F(Compacts, AFailureLeavesTheDatabaseWorking)
{
    fillWithPictures();
    {
        const test::SmallDisk full(SmallDiskSize);
        CompactDatabase();
    }
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::DiskFull);
    expectWorking(1);
    EXPECT_EQ(filesIn(backups()), QStringList());
    EXPECT_FALSE(QFile::exists(temporary()));
}

TEST_F(Compacts, ADamagedDatabaseDoesNotReplaceTheGoodCopyOfTheDay)
{
    compact();
    closeConnections();
    test::spoilRows(gsDatabasePath);
    openConnections();
    CompactDatabase();
    (void)errors.takeOne();
    EXPECT_EQ(filesIn(backups()),
              (QStringList{u"Backup_3_15_2024 damaged.mdb"_s, u"Backup_3_15_2024.mdb"_s}));
    EXPECT_EQ(machinesIn(copyOfDay()), 1);
    EXPECT_TRUE(connectionsAreOpen());
}

TEST_F(Compacts, KilledAtAnyMomentLeaveTheDatabaseWhole)
{
    for (int delay = 0; delay < 1500; delay += 150) {
        closeConnections();
        killHelper(delay, u"compact"_s);
        EXPECT_EQ(machinesIn(gsDatabasePath), 1) << "killed after " << delay << " ms";
    }
    openConnections();
    compact();
    expectWorking(1);
}
