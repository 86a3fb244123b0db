#include "administration/AdministrationScreen.h"
#include "administration/SealedFile.h"
#include "administration/SecondPlace.h"
#include "administration/ui/Entries.h"
#include "core/ui/Openings.h"
#include "platform/db/Structure.h"

#include <numeric>

using namespace Qt::StringLiterals;
using test::ScreenDriver;

namespace {

class BackupScreen : public test::AdministrationScreen
{
protected:
    void expectTaken()
    {
        const db::RowCounts counts = db::countRows(target(gsDatabasePath));
        const qint64 rows = std::accumulate(counts.begin(), counts.end(), qint64(0));
        prompts.say(
            u"Backup taken Succesfully\n\nThe copy was opened, checked and counted against the "
            "database: %1 rows, among them 1 machine and 0 open work orders."_s.arg(
                QLocale(QLocale::English).toString(rows)));
    }
};

} // namespace

TEST_F(BackupScreen, AsksBeforeItReplacesWhatIsNoBackupAndReportsAFailure)
{
    test::writeFile(stick() + u"/letter"_s, "Dear Sir");
    work(ShowBackup, [&](const ScreenDriver &screen) {
        screen.type("txtFolderPath", stick() + u"/pulled out"_s);
        screen.press("cmdBackup");
        EXPECT_EQ(errors.takeOne().ProcedureName, u"cmdBackup_Click"_s);
        EXPECT_EQ(screen.text("txtFolderPath"), stick() + u"/pulled out"_s);
        screen.type("txtFolderPath", stick());
        screen.type("txtFileName", u"letter"_s);
        prompts.no(
            u"The file letter exists already, and is no backup. Do you want to replace it?"_s);
        screen.press("cmdBackup");
    });
    EXPECT_EQ(test::readFile(stick() + u"/letter"_s), "Dear Sir");
}

TEST_F(BackupScreen, TellsTheProofOfABackupWhosePassphraseIsTypedTwice)
{
    work(ShowBackup, [&](const ScreenDriver &screen) {
        EXPECT_FALSE(screen.isEnabled("txtPassphrase"));
        EXPECT_EQ(screen.text("txtFileName"), u"Quorvantis3-15-2024"_s);
        prompts.say(u"Folder Path should not be blank."_s);
        screen.press("cmdBackup");
        prompts.expectChooser(u"Please choose a lcoation for the backup"_s, stick());
        screen.press("cmdBrowse");
        EXPECT_EQ(screen.text("txtFolderPath"), stick());
        screen.type("txtFileName", u"mine"_s);
        expectTaken();
        screen.press("cmdBackup");
        EXPECT_EQ(screen.text("txtFolderPath"), QString());
        EXPECT_EQ(screen.text("txtFileName"), u"Quorvantis3-15-2024"_s);
        screen.control<QCheckBox>("chkSealed").click();
        screen.type("txtFolderPath", stick());
        screen.type("txtFileName", u"sealed"_s);
        prompts.say(u"A passphrase needs at least 8 characters."_s);
        screen.press("cmdBackup");
        screen.type("txtPassphrase", u"12345678"_s);
        screen.type("txtPassphraseAgain", u"12345679"_s);
        prompts.say(u"The two passphrases are not the same."_s);
        screen.press("cmdBackup");
        screen.type("txtPassphraseAgain", u"12345678"_s);
        expectTaken();
        screen.press("cmdBackup");
        EXPECT_FALSE(screen.control<QCheckBox>("chkSealed").isChecked());
        EXPECT_EQ(screen.text("txtPassphrase"), QString());
    });
    EXPECT_EQ(machinesIn(stick() + u"/mine"_s), 1);
    EXPECT_TRUE(administration::isSealed(stick() + u"/sealed"_s));
    expectWorking(1);
}

TEST_F(BackupScreen, TellsThePlanAndLeadsToIt)
{
    SetOption(copies::WeeksOption.toString(), 1, false);
    QString page;
    openings().join(u"frmSetup"_s, [&](const OpeningArguments &arguments) {
        page = arguments.key;
        SetOption(copies::DailyOption.toString(), 0, false);
        SetOption(administration::SecondPlaceOption.toString(), stick(), true);
    });
    work(ShowBackup, [&](const ScreenDriver &screen) {
        EXPECT_EQ(screen.text("lblPlan"),
                  u"Each day's first start keeps a copy in the folder Data/Backup/Daily. "
                  "The newest of each of the last 7 days, 1 week and 12 months stays.\n"
                  "This computer has no second place for them."_s);
        screen.press("cmdPlan");
        EXPECT_EQ(screen.text("lblPlan"),
                  u"Starts of the program keep no copy of the day.\nThe last program to "
                  "end on a day copies the database to %1 too."_s.arg(stick()));
    });
    EXPECT_EQ(page, u"pageBackups"_s);
}
