#include "administration/AdministrationScreen.h"
#include "administration/Backup.h"
#include "administration/Restore.h"
#include "administration/ui/Entries.h"
#include "core/DailyCopies.h"
#include "core/database/Changes.h"

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

/// A backup of one machine, and a database of two.
class RestoreScreen : public test::AdministrationScreen
{
protected:
    RestoreScreen()
    {
        (void)administration::takeBackup({stick(), u"copy"_s, {}});
        addMachine(2);
    }
    static QString written(const QString &file)
    {
        return QFileInfo(file).lastModified().toLocalTime().toString(u"MM-dd-yyyy HH:mm"_s);
    }
    /// What is asked before a backup takes the place of what is there now.
    static QString question(const QString &backup, const QString &now = u": can't be read."_s)
    {
        return u"Do you want to put the backup in the place of the database?\n\nBackup of %1: machines 1, open work orders 0, posted work orders 0.\nNow%2"_s
            .arg(written(backup), now);
    }
    [[nodiscard]] QString question() const
    {
        return question(copy(),
                        u" of %1: machines 2, open work orders 0, posted work orders 0."_s.arg(
                            written(gsDatabasePath)));
    }
    [[nodiscard]] QString copy() const { return stick() + u"/copy"_s; }
    static void choose(const ScreenDriver &screen, const QString &file)
    {
        screen.control<QLineEdit>("txtFolderPath").setText(file);
    }
};

} // namespace

TEST_F(RestoreScreen, ShowsBothAndRestoresAfterAQuestion)
{
    work(ShowRestore, [&](const ScreenDriver &screen) {
        EXPECT_EQ(screen.text("lblNow1"), u"2"_s);
        prompts.expectChooser(u"Please Choose a backup file"_s, copy());
        screen.press("cmdBrowse");
        EXPECT_EQ(screen.text("lblBackup1"), u"1"_s);
        EXPECT_EQ(screen.text("lblBackup5"), QString::number(company::schemaVersion()));
        prompts.no(question());
        screen.press("cmdRestore");
        // The stick may be pulled out at the question.
        prompts.meanwhile([&] { QFile::rename(copy(), copy() + u".away"_s); });
        prompts.yes(question());
        screen.press("cmdRestore");
        EXPECT_EQ(errors.takeOne().ProcedureName, u"cmdRestore_Click"_s);
        EXPECT_EQ(count(u"tblEquipment"_s), 2);
        QFile::rename(copy() + u".away"_s, copy());
        prompts.yes(question());
        prompts.say(
            u"Restore Database Succesfully\n\nThe database that was there before is kept as %1."_s
                .arg(backups() + u"/Before restore 2024-03-15 093000.mdb"_s));
        screen.press("cmdRestore");
        EXPECT_EQ(screen.text("txtFolderPath"), QString());
        EXPECT_EQ(screen.text("lblNow1"), u"1"_s);
        EXPECT_EQ(screen.text("lblBackup1"), QString());
    });
    EXPECT_FALSE(QFile::exists(administration::temporaryCopy()));
    expectWorking(1);
}

TEST_F(RestoreScreen, RefusesWhatIsNoBackup)
{
    test::writeFile(stick() + u"/picture"_s, QByteArray(9000, 'p'));
    work(ShowRestore, [&](const ScreenDriver &screen) {
        for (const QString &path : {QString(), u"  "_s, stick(), stick() + u"/none"_s}) {
            choose(screen, path);
            prompts.say(u"Invalid Path Selected"_s);
            screen.press("cmdRestore");
        }
        choose(screen, gsDatabasePath);
        prompts.say(u"That is the database itself. Please choose a backup."_s);
        screen.press("cmdRestore");
        choose(screen, copy());
        db::Connection(target(copy()))
            .Execute(u"Update tblSysOption set itemValue = '9999' where SysOption = 'DBVERSION'"_s);
        prompts.say(
            u"This backup comes from a newer release of Quorvantis: its database has version 9999, and this program knows versions up to %1. Please install the newer release first. Nothing was changed."_s
                .arg(company::schemaVersion()));
        screen.press("cmdRestore");
        choose(screen, stick() + u"/picture"_s);
        prompts.say(u"Backup file is corrupt or not valid"_s);
        screen.press("cmdRestore");
    });
    EXPECT_TRUE(QFile::exists(administration::temporaryCopy())) << "until the next restore";
    expectWorking(2);
}

TEST_F(RestoreScreen, ASealedBackupAsksForItsPassphrase)
{
    (void)administration::takeBackup({stick(), u"sealed"_s, u"12345678"_s});
    work(ShowRestore, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("txtPassphrase"));
        prompts.expectChooser(u"Please Choose a backup file"_s, stick() + u"/sealed"_s);
        screen.press("cmdBrowse");
        EXPECT_EQ(screen.focused(), "txtPassphrase");
        screen.type("txtPassphrase", u"87654321"_s);
        prompts.say(u"The passphrase is not the one of this backup."_s);
        screen.press("cmdRestore");
        choose(screen, copy());
        EXPECT_FALSE(screen.isEnabled("txtPassphrase"));
        EXPECT_EQ(screen.text("txtPassphrase"), QString());
    });
    expectWorking(2);
}

TEST_F(RestoreScreen, IsOfferedAtTheStartWithTheNewestCopy)
{
    const base::Error lost(base::ErrorNumber::FileNotFound, u"It is gone."_s);
    const QString offer =
        u"It is gone.\n\nIf the database lies on another computer or disk, look first whether that is connected. If it is lost, a backup can take its place.\n\nDo you want to restore a backup?"_s;
    closeConnections();
    QFile::remove(gsDatabasePath);
    prompts.no(offer);
    EXPECT_FALSE(offerRestore(lost));
    EXPECT_FALSE(connectionsAreOpen());

    QDir().mkpath(copies::startCopiesFolder());
    const QString newest = copies::startCopiesFolder() + u"/Quorvantis 2024-03-14.mdb"_s;
    ASSERT_TRUE(QFile::rename(copy(), newest));
    db::Connection(target(newest))
        .Execute(u"Update tblSysOption set itemValue = '100' where SysOption = 'DBVERSION'"_s);
    const auto put = [](const QString &name, const QDateTime &moment) {
        test::writeFile(name, "no database");
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(moment, QFileDevice::FileModificationTime));
    };
    const QDateTime now = QFileInfo(newest).lastModified();
    put(backups() + u"/Quorvantis101.mdb"_s, now.addDays(-1));
    put(backups() + u"/Before restore 2024-03-15 093000.mdb"_s, now.addDays(1));
    put(backups() + u"/Backup_3_15_2024 damaged.mdb"_s, now.addDays(1));
    prompts.yes(offer);
    bool isRestored = false;
    test::inScreen([&] { isRestored = offerRestore(lost); },
                   [&](const ScreenDriver &screen) {
                       EXPECT_EQ(screen.text("txtFolderPath"), newest);
                       EXPECT_EQ(screen.text("lblNow0"), u"can't be read"_s);
                       prompts.yes(question(newest));
                       prompts.say(u"Restore Database Succesfully"_s);
                       screen.press("cmdRestore");
                       EXPECT_FALSE(screen.isOpen());
                   });
    EXPECT_TRUE(isRestored);
    expectWorking(1);
}
