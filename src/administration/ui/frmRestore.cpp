#include "administration/ui/frmRestore.h"

#include "administration/SealedFile.h"
#include "administration/ui/Entries.h"
#include "administration/ui/WaitPointer.h"
#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/system/Files.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;
using administration::Summary;

namespace {

constexpr auto module = "frmRestore";
constexpr int widthOfForm = 700;

const std::array Captions{u"File written"_s,       u"Machines"_s,    u"Open work orders"_s,
                          u"Posted work orders"_s, u"Newest work"_s, u"Database version"_s};

QString dateText(const QDateTime &moment)
{
    return moment.isValid() ? moment.toString(u"MM-dd-yyyy HH:mm"_s) : QString();
}

QString dateText(QDate day)
{
    return day.isValid() ? day.toString(u"MM-dd-yyyy"_s) : QString();
}

std::array<QString, 6> linesOf(const Summary &summary)
{
    const auto number = [](qint64 value) { return QLocale(QLocale::English).toString(value); };
    return {dateText(summary.written),    number(summary.machines),     number(summary.openOrders),
            number(summary.postedOrders), dateText(summary.newestWork), summary.version};
}

QString inOneLine(const Summary &summary)
{
    const auto lines = linesOf(summary);
    const QString written = lines[0].isEmpty() ? QString() : u" of "_s + lines[0];
    return written + u": machines %1, open work orders %2, posted work orders %3."_s.arg(
                         lines[1], lines[2], lines[3]);
}

} // namespace

void ShowRestore()
{
    frmRestore(QApplication::activeWindow()).showModal();
}

bool offerRestore(const base::Error &why)
{
    if (!base::askYesNo(
            why.description() +
            u"\n\nIf the database lies on another computer or disk, look first whether that is connected. If it is lost, a backup can take its place.\n\nDo you want to restore a backup?"_s))
        return false;
    // Without a parent: there is no main window yet, and the restored database is opened by the
    // start itself.
    frmRestore screen(nullptr, frmRestore::Occasion::Start);
    screen.showModal();
    return screen.hasRestored();
}

frmRestore::frmRestore(QWidget *parent, Occasion occasion)
    : Screen(u"frmRestore"_s, u"Restore a BackUp"_s, parent, StoreWhat::SizeOnly)
    , m_occasion(occasion)
{
    buildForm();
    showNow();
    pathChanged();
    connect(cmdBrowse, &QToolButton::clicked, this, &frmRestore::cmdBrowse_Click);
    connect(txtFolderPath, &QLineEdit::textChanged, this, &frmRestore::pathChanged);
    connect(cmdRestore, &QPushButton::clicked, this, &frmRestore::cmdRestore_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmRestore::unload);
    if (m_occasion == Occasion::Start)
        // Who has lost the database should not have to look for its copy first.
        txtFolderPath->setText(QDir::toNativeSeparators(administration::newestCopy()));
}

void frmRestore::buildForm()
{
    input::FormBuilder form(this);
    txtFolderPath = form.textField(u"txtFolderPath"_s, u"Please locate the backup file"_s);
    cmdBrowse = form.sideButton(u"cmdBrowse"_s, u"Browse"_s, u"folder"_s);
    txtPassphrase = form.passwordField(u"txtPassphrase"_s, u"&Passphrase of the backup"_s);
    form.beginGroup(u"What it brings back"_s, u"fraComparison"_s);
    form.widget(makeComparison());
    form.endGroup();
    form.note(
        u"The database that is there now is kept in the folder Data/Backup before anything is replaced."_s);
    form.stretch();
    cmdRestore = form.button(u"cmdRestore"_s, u"Process"_s, theme::icon(u"restore"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    cmdRestore->setDefault(true);
    setMinimumWidth(widthOfForm);
}

QWidget *frmRestore::makeComparison()
{
    auto *table = new QWidget(this);
    auto *grid = new QGridLayout(table);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(24);
    for (int line = 0; line < Lines; ++line)
        grid->addWidget(new QLabel(Captions[static_cast<std::size_t>(line)], table), line + 1, 0);
    int place = 1;
    for (Column *column : {&m_backup, &m_now}) {
        auto *head = new QLabel(column->name, table);
        QFont bold = head->font();
        bold.setBold(true);
        head->setFont(bold);
        grid->addWidget(head, 0, place);
        for (int line = 0; line < Lines; ++line) {
            auto *value = new QLabel(table);
            value->setObjectName(u"lbl%1%2"_s.arg(column->name).arg(line));
            value->setAccessibleName(Captions[static_cast<std::size_t>(line)] + u", "_s +
                                     column->name);
            // A version comes out of a file that anybody may have made.
            value->setTextFormat(Qt::PlainText);
            column->values[static_cast<std::size_t>(line)] = value;
            grid->addWidget(value, line + 1, place);
        }
        grid->setColumnStretch(place++, 1);
    }
    return table;
}

void frmRestore::showNow()
{
    base::trapped(module, "Form_Load", [this] {
        // A damaged database has nothing to show, and is a reason to be here.
        try {
            m_present = administration::summaryOf(dataConnection(), gsDatabasePath);
            show(*m_present, m_now);
        } catch (const base::Error &) {
            m_present.reset();
            m_now.values[0]->setText(u"can't be read"_s);
        }
    });
}

void frmRestore::show(const Summary &summary, Column &column)
{
    const auto lines = linesOf(summary);
    for (std::size_t line = 0; line < lines.size(); ++line)
        column.values[line]->setText(lines[line]);
}

/// What a file holds is shown when it has been checked, and not for a path that is being typed.
void frmRestore::clearChosen()
{
    for (QLabel *value : m_backup.values)
        value->clear();
}

void frmRestore::pathChanged()
{
    clearChosen();
    const bool sealed = administration::isSealed(chosen().file);
    // A passphrase is for the file that it was typed for.
    if (!sealed)
        txtPassphrase->clear();
    txtPassphrase->setEnabled(sealed);
}

administration::Chosen frmRestore::chosen() const
{
    return {.file = txtFolderPath->text().trimmed(), .passphrase = txtPassphrase->text()};
}

void frmRestore::IsValidBackup(const QString &Path, bool &Result) const
{
    Result = administration::isUsableBackup(Path);
}

std::optional<QByteArray> frmRestore::fetched()
{
    try {
        return administration::fetchForCheck(chosen());
    } catch (const base::Error &error) {
        // What is wrong with the user's file is told; a disk or a folder in the way is reported.
        if (error.number() == administration::SealedDamaged)
            base::showMessage(u"Backup file is corrupt or not valid"_s);
        else if (error.number() == administration::WrongPassphrase)
            base::showMessage(u"The passphrase is not the one of this backup."_s);
        else
            throw;
    }
    return std::nullopt;
}

std::optional<frmRestore::Checked> frmRestore::check()
{
    const administration::WaitPointer wait;
    const std::optional<QByteArray> fingerprint = fetched();
    if (!fingerprint)
        return std::nullopt;
    bool valid = false;
    // The copy and not the file itself: what was checked is what is restored, by its fingerprint.
    IsValidBackup(administration::temporaryCopy(), valid);
    if (!valid) {
        base::showMessage(u"Backup file is corrupt or not valid"_s);
        return std::nullopt;
    }
    Checked checked{*fingerprint, administration::summaryOfBackup(administration::temporaryCopy(),
                                                                  chosen().file)};
    // Of a sealed backup it is the plain content, which must not stay behind.
    QFile::remove(administration::temporaryCopy());
    show(checked.summary, m_backup);
    if (const QString refusal = administration::refusalOfVersion(checked.summary);
        !refusal.isEmpty()) {
        base::showMessage(refusal);
        return std::nullopt;
    }
    return checked;
}

bool frmRestore::isWanted(const Summary &summary) const
{
    return base::askYesNo(
        u"Do you want to put the backup in the place of the database?\n\nBackup"_s +
        inOneLine(summary) + u"\nNow"_s +
        (m_present ? inOneLine(*m_present) : u": can't be read."_s));
}

void frmRestore::tell(const administration::Restored &restored) const
{
    QString message = u"Restore Database Succesfully"_s;
    if (!restored.kept.isEmpty())
        message += u"\n\nThe database that was there before is kept as %1."_s.arg(
            QDir::toNativeSeparators(restored.kept));
    // The start that goes on brings it up to date.
    if (restored.isOlder && m_occasion == Occasion::Menu)
        message +=
            u"\n\nThe backup comes from an earlier release. Please close the program and start it again, so that the database is brought up to date."_s;
    base::showMessage(message);
}

void frmRestore::cmdBrowse_Click()
{
    base::trapped(module, "cmdBrowse_Click", [this] {
        const QString file =
            base::prompts().chooseFile(u"Please Choose a backup file"_s, {u"*.* (*)"_s});
        if (file.isEmpty())
            return;
        txtFolderPath->setText(file);
        // What is sealed can be looked into only once its passphrase is there.
        if (administration::isSealed(file))
            txtPassphrase->setFocus();
        else
            (void)check();
    });
}

void frmRestore::cmdRestore_Click()
{
    base::trapped(module, "cmdRestore_Click", [this] {
        // Taken once, since boxes come in between.
        const administration::Chosen wanted = chosen();
        if (wanted.file.isEmpty() || !QFileInfo(wanted.file).isFile()) {
            base::showMessage(u"Invalid Path Selected"_s);
            return;
        }
        // It would be put in its own place, and be gone if that failed.
        if (sys::isSameFile(wanted.file, gsDatabasePath)) {
            base::showMessage(u"That is the database itself. Please choose a backup."_s);
            return;
        }
        const std::optional<Checked> checked = check();
        if (!checked || !isWanted(checked->summary))
            return;
        const administration::Restored restored = [&] {
            const administration::WaitPointer wait;
            return administration::restoreDatabase(wanted, checked->fingerprint, checked->summary);
        }();
        // Ahead of the message: the start asks for it whatever happens to the box.
        m_hasRestored = true;
        tell(restored);
        if (m_occasion == Occasion::Start)
            return unload();
        // What was restored is what is there now: both columns would say the same.
        txtFolderPath->clear();
        showNow();
    });
}
