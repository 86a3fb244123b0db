#include "administration/ui/frmbackup.h"

#include "administration/SealedFile.h"
#include "administration/SecondPlace.h"
#include "administration/ui/Entries.h"
#include "administration/ui/WaitPointer.h"
#include "core/Session.h"
#include "core/ui/Launch.h"
#include "core/ui/Openings.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "frmbackup";
constexpr int widthOfForm = 760;
const QString Options = u"frmSetup"_s;

} // namespace

void ShowBackup()
{
    frmbackup(QApplication::activeWindow()).showModal();
}

frmbackup::frmbackup(QWidget *parent)
    : Screen(u"frmbackup"_s, u"Make a BackUp"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    refillName();
    showPlan();
    // The boxes of the passphrase begin closed.
    chkSealed_Click();
    connect(cmdBrowse, &QToolButton::clicked, this, &frmbackup::cmdBrowse_Click);
    connect(cmdBackup, &QPushButton::clicked, this, &frmbackup::cmdBackup_Click);
    connect(chkSealed, &QCheckBox::toggled, this, &frmbackup::chkSealed_Click);
    connect(cmdPlan, &QPushButton::clicked, this, [this] {
        // The options may have changed what is copied without asking.
        openings().open(Options, {.key = u"pageBackups"_s});
        showPlan();
    });
    connect(cmdExit, &QPushButton::clicked, this, &frmbackup::unload);
}

void frmbackup::buildForm()
{
    input::FormBuilder form(this);
    form.beginGroup(u"Backup"_s, u"fraBackup"_s);
    txtFolderPath =
        form.textField(u"txtFolderPath"_s, u"Please choose a &destination for the backup"_s);
    cmdBrowse = form.sideButton(u"cmdBrowse"_s, u"Browse"_s, u"folder"_s);
    txtFileName = form.textField(u"txtFileName"_s, u"Please choose a &name for the backup"_s);
    chkSealed = form.checkBox(u"chkSealed"_s, u"&Protect it with a passphrase"_s);
    txtPassphrase = form.passwordField(u"txtPassphrase"_s, u"P&assphrase"_s);
    txtPassphraseAgain = form.passwordField(u"txtPassphraseAgain"_s, u"Passphrase a&gain"_s);
    form.note(u"Without the passphrase nobody can restore the backup. Keep it in a safe place."_s,
              u"lblPassphrase"_s);
    form.endGroup();
    form.beginGroup(u"Copies that are made without asking"_s, u"fraCopies"_s);
    lblPlan = form.note({}, u"lblPlan"_s);
    cmdPlan = form.inlineButton(u"cmdPlan"_s, u"&Change in the options..."_s);
    cmdPlan->setEnabled(openings().isJoined(Options));
    form.endGroup();
    form.stretch();
    cmdBackup = form.button(u"cmdBackup"_s, u"Pr&ocess"_s, theme::icon(u"backup"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    cmdBackup->setDefault(true);
    setMinimumWidth(widthOfForm);
}

/// A folder is chosen anew for each backup; the name is that of the day.
void frmbackup::refillName()
{
    txtFolderPath->clear();
    txtFileName->setText(administration::usualBackupName());
}

void frmbackup::showPlan()
{
    // Only words: a plan that can't be read keeps nobody from making a backup.
    base::trapped(module, "Form_Load", [this] {
        QString plan = copies::inWords(copies::keepRuleOf(lookupConnection()));
        const QString place = administration::secondPlace();
        plan += place.isEmpty()
                    ? u"\nThis computer has no second place for them."_s
                    : u"\nThe last program to end on a day copies the database to %1 too."_s.arg(
                          QDir::toNativeSeparators(place));
        lblPlan->setText(plan);
    });
}

administration::BackupRequest frmbackup::request() const
{
    return {.folder = txtFolderPath->text(),
            .name = txtFileName->text(),
            .passphrase = chkSealed->isChecked() ? txtPassphrase->text() : QString()};
}

bool frmbackup::mayTake(const administration::BackupRequest &request)
{
    // What can be refused at once, ahead of a question.
    if (const QString refusal = administration::refusalOfBackup(request); !refusal.isEmpty()) {
        base::showMessage(refusal);
        return false;
    }
    if (chkSealed->isChecked()) {
        if (request.passphrase.size() < administration::ShortestPassphrase) {
            base::showMessage(u"A passphrase needs at least %1 characters."_s.arg(
                administration::ShortestPassphrase));
            // A short one would be found by trying all there are.
            txtPassphrase->setFocus();
            return false;
        }
        if (request.passphrase != txtPassphraseAgain->text()) {
            base::showMessage(u"The two passphrases are not the same."_s);
            txtPassphraseAgain->setFocus();
            return false;
        }
    }
    return !administration::replacesAnothersFile(request) ||
           base::askYesNo(
               u"The file %1 exists already, and is no backup. Do you want to replace it?"_s.arg(
                   request.name.trimmed()));
}

void frmbackup::cmdBrowse_Click()
{
    if (const QString folder = BrowseForFolder(u"Please choose a lcoation for the backup"_s);
        !folder.isEmpty())
        txtFolderPath->setText(folder);
}

void frmbackup::cmdBackup_Click()
{
    base::trapped(module, "cmdBackup_Click", [this] {
        const administration::BackupRequest wanted = request();
        if (!mayTake(wanted))
            return;
        const QString proof = [&] {
            const administration::WaitPointer wait;
            return administration::takeBackup(wanted);
        }();
        base::showMessage(u"Backup taken Succesfully\n\n"_s + proof);
        // Only behind a success: after a failure all stands as it was typed.
        refillName();
        chkSealed->setChecked(false);
    });
}

void frmbackup::chkSealed_Click()
{
    // A passphrase that is not asked for is not kept either.
    for (QLineEdit *box : {txtPassphrase, txtPassphraseAgain}) {
        box->clear();
        box->setEnabled(chkSealed->isChecked());
    }
    if (chkSealed->isChecked())
        txtPassphrase->setFocus();
}
