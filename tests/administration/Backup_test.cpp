#include "administration/Backup.h"

#include "administration/AdministrationSession.h"
#include "administration/SealedFile.h"
#include "administration/SecondPlace.h"
#include "support/Damage.h"

#include <filesystem>

using namespace Qt::StringLiterals;
using namespace administration;
using test::raisedBy;

namespace {

using Backups = test::AdministrationSession;

} // namespace

TEST_F(Backups, AreCopiedProvenAndTold)
{
    EXPECT_EQ(usualBackupName(), u"Quorvantis3-15-2024"_s);
    const QString proof = takeBackup({stick(), u" copy "_s, {}});
    EXPECT_TRUE(proof.contains(u"rows, among them 1 machine and 0 open work orders"_s))
        << proof.toStdString();
    EXPECT_EQ(filesIn(stick()), QStringList{u"copy"_s});
    EXPECT_EQ(machinesIn(stick() + u"/copy"_s), 1);
    // A second one of that name takes its place, also while another workstation writes.
    addMachine(2);
    db::Connection other(target(gsDatabasePath));
    other.BeginTrans();
    other.Execute(u"Insert into tblEquipment (EquipmentID) values (77)"_s);
    (void)takeBackup({stick(), u"copy"_s, {}});
    EXPECT_EQ(machinesIn(stick() + u"/copy"_s), 2) << "not what is half done";
    other.CommitTrans();
    expectWorking(3);
}

TEST_F(Backups, SenselessRequestsAreRefusedInASentence)
{
    const QFileInfo live(gsDatabasePath);
    QDir().mkpath(stick() + u"/folder"_s);
    std::filesystem::create_hard_link(gsDatabasePath.toStdString(),
                                      stick().toStdString() + "/the same");
    for (const BackupRequest &request :
         {BackupRequest{{}, u"copy"_s, {}}, BackupRequest{u"  "_s, u"copy"_s, {}},
          BackupRequest{stick(), u" "_s, {}}})
        EXPECT_EQ(refusalOfBackup(request), u"Folder Path should not be blank."_s);
    for (const BackupRequest &request :
         {BackupRequest{stick(), u"../copy"_s, {}}, BackupRequest{stick(), u"a\\b"_s, {}},
          BackupRequest{live.absolutePath(), live.fileName(), {}},
          BackupRequest{live.absolutePath() + u"/../Data"_s, live.fileName(), {}},
          BackupRequest{stick(), u"the same"_s, {}}, BackupRequest{stick(), u"folder"_s, {}}}) {
        EXPECT_FALSE(refusalOfBackup(request).isEmpty()) << request.name.toStdString();
        EXPECT_EQ(raisedBy([&] { (void)takeBackup(request); }).description(),
                  refusalOfBackup(request));
    }
    EXPECT_EQ(refusalOfBackup({stick(), u"copy"_s, {}}), QString());
    expectWorking(1);
}

TEST_F(Backups, OnlyBackupsAreReplacedWithoutAQuestion)
{
    EXPECT_FALSE(replacesAnothersFile({stick(), u"new"_s, {}}));
    test::writeFile(stick() + u"/letter"_s, "Dear Sir");
    EXPECT_TRUE(replacesAnothersFile({stick(), u"letter"_s, {}}));
    QFile::copy(database.file(), stick() + u"/old"_s);
    EXPECT_FALSE(replacesAnothersFile({stick(), u"old"_s, {}}));
    seal(database.file(), stick() + u"/sealed"_s, u"12345678"_s);
    EXPECT_FALSE(replacesAnothersFile({stick(), u"sealed"_s, {}}));
}

TEST_F(Backups, OfTwoWorkstationsAtOnceDontMeet)
{
    // What the other one is about to prove under that name.
    const QString others = stick() + u"/copy.another.unproven~"_s;
    test::writeFile(others, "half a copy");
    test::writeFile(others + u".another.part~"_s, "half a copy");
    (void)takeBackup({stick(), u"copy"_s, {}});
    base::Environment oddly = base::environment();
    oddly.computerName = u"a/b\\c"_s;
    base::setEnvironment(oddly);
    (void)takeBackup({stick(), u"copy"_s, u"12345678"_s});
    EXPECT_EQ(test::readFile(others), "half a copy");
    EXPECT_EQ(filesIn(stick()).size(), 3);
    expectWorking(1);
}

TEST_F(Backups, AFailureLeavesTheFormerOneAndTheSessionWorking)
{
    test::writeFile(stick() + u"/copy"_s, "the last good one");
    fillWithPictures();
    {
        const test::SmallDisk full(SmallDiskSize);
        for (const QString &passphrase : {QString(), u"12345678"_s})
            EXPECT_EQ(raisedBy([&] {
                          (void)takeBackup({stick(), u"copy"_s, passphrase});
                      }).number(),
                      base::ErrorNumber::DiskFull);
    }
    EXPECT_EQ(raisedBy([&] {
                  (void)takeBackup({stick() + u"/pulled out"_s, u"copy"_s, {}});
              }).number(),
              base::ErrorNumber::PathNotFound);
    expectWorking(1);
    closeConnections();
    test::spoilRows(gsDatabasePath, 1);
    openConnections();
    EXPECT_NE(raisedBy([&] { (void)takeBackup({stick(), u"copy"_s, {}}); }).number(), 0);
    EXPECT_TRUE(connectionsAreOpen());
    EXPECT_EQ(test::readFile(stick() + u"/copy"_s), "the last good one");
    EXPECT_EQ(filesIn(stick()), QStringList{u"copy"_s});
    EXPECT_EQ(filesIn(backups()), QStringList());
}

TEST_F(Backups, HaveASecondPlaceOfTheWorkstationsOwn)
{
    EXPECT_FALSE(endingCopy());
    SetOption(SecondPlaceOption.toString(), u" /media/stick "_s, true);
    EXPECT_EQ(secondPlace(), u"/media/stick"_s);
    EXPECT_EQ(endingCopy()->folder, u"/media/stick"_s);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s,
                                  u"ANOTHERANOTHERANOTHERANOTHERANOT"_s);
    EXPECT_FALSE(endingCopy());
    SetOption(SecondPlaceOption.toString(), u"/x"_s, true);
    settings::registry().setValue(settings::ProductKey, u"HOST"_s, u"office"_s);
    EXPECT_FALSE(endingCopy()) << "the files of a host are not ours";
}

TEST_F(Backups, TheLastProgramOfTheDayCopiesAndPrunesOrTellsWhyNot)
{
    for (const QString &day : {u"2024-03-13"_s, u"2024-03-14"_s})
        test::writeFile(stick() + u"/Quorvantis %1.mdb"_s.arg(day), "a day");
    const EndingCopy copy{stick(), {.days = 2, .weeks = 0, .months = 0}};
    {
        const db::Connection other(target(gsDatabasePath));
        copyAtEnd(copy);
        EXPECT_EQ(filesIn(stick()).size(), 2) << "another workstation is still working";
    }
    copyAtEnd(copy);
    EXPECT_FALSE(connectionsAreOpen());
    EXPECT_EQ(filesIn(stick()),
              (QStringList{u"Quorvantis 2024-03-14.mdb"_s, u"Quorvantis 2024-03-15.mdb"_s}));
    EXPECT_EQ(machinesIn(stick() + u"/Quorvantis 2024-03-15.mdb"_s), 1);
    openConnections();
    addMachine(2);
    copyAtEnd(copy);
    EXPECT_EQ(machinesIn(stick() + u"/Quorvantis 2024-03-15.mdb"_s), 2);
    const QString folder = stick() + u"/none"_s;
    prompts.inform(u"Today's copy for %1 could not be made: the folder can't be reached.\nThe "
                   "database itself is as it was."_s.arg(folder));
    copyAtEnd({folder, {}});
    openConnections();
    expectWorking(2);
}
