#include "administration/ui/frmImport.h"

#include "administration/ImportTables.h"
#include "administration/ui/Entries.h"
#include "administration/ui/Plainly.h"
#include "administration/ui/WaitPointer.h"
#include "administration/ui/Watch.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Theme.h"
#include "platform/system/Files.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;
using administration::ImportFindings;
using administration::ImportKind;
using administration::NewEntry;

namespace {

constexpr auto module = "frmImport";
/// The numbers of the list's items: those of the kinds, from 1, and this one.
constexpr qint64 WholeCompany = 99;
/// More would make the box higher than a screen.
constexpr int entriesInQuestion = 8;

const QString RowColumn = u"Row"_s;
const QString NameColumn = u"Column"_s;
const QString FoundColumn = u"Found"_s;

} // namespace

void ShowImport()
{
    frmImport(QApplication::activeWindow()).showModal();
}

frmImport::frmImport(QWidget *parent)
    : Screen(u"frmImport"_s, u"Import"_s, parent)
{
    buildForm();
    adoptGrid(grdFindings, grdFindings->objectName());
    fileChanged();
    connect(cboKind, &input::IdCombo::activated, this, &frmImport::fileChanged);
    connect(txtFile, &QLineEdit::textChanged, this, &frmImport::fileChanged);
    connect(cmdBrowse, &QToolButton::clicked, this, &frmImport::cmdBrowse_Click);
    connect(cmdSheet, &QPushButton::clicked, this, &frmImport::cmdSheet_Click);
    connect(cmdCheck, &QPushButton::clicked, this, &frmImport::cmdCheck_Click);
    connect(cmdImport, &QPushButton::clicked, this, &frmImport::cmdImport_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmImport::unload);
}

void frmImport::buildForm()
{
    input::FormBuilder form(this);
    cboKind = form.comboField(u"cboKind"_s, u"&What the file holds:"_s);
    for (const auto &[kind, caption] :
         {std::pair{ImportKind::Machines, u"Machines"_s}, std::pair{ImportKind::Parts, u"Parts"_s},
          std::pair{ImportKind::Employees, u"Employees"_s},
          std::pair{ImportKind::Readings, u"Meter readings"_s}})
        cboKind->add(caption, static_cast<qint64>(kind) + 1);
    // Last, behind what one imports from day to day.
    cboKind->add(u"A whole company (an export)"_s, WholeCompany);
    cboKind->setCurrentIndex(0);
    txtFile = form.textField(u"txtFile"_s, u"&File:"_s);
    cmdBrowse = form.sideButton(u"cmdBrowse"_s, u"Browse"_s, u"folder"_s);
    form.note(
        u"A spreadsheet (.xlsx, its first table) or a table saved as CSV, with the names of its columns in the first row. Nothing is written before all rows were found right."_s);
    grdFindings = makeListGrid(
        this, u"grdFindings"_s, u"What was found"_s,
        {{.name = RowColumn, .width = 60, .locked = true, .kind = sql::ColumnKind::Integer},
         {.name = NameColumn, .width = 150, .locked = true},
         {.name = FoundColumn, .width = 470, .locked = true}});
    form.widget(grdFindings, true);
    lblSummary = form.note({}, u"lblSummary"_s);
    cmdSheet = form.leftButton(u"cmdSheet"_s, u"&Save Empty Sheet"_s, theme::icon(u"document"_s));
    cmdCheck = form.button(u"cmdCheck"_s, u"&Check"_s, theme::icon(u"find"_s));
    cmdImport = form.button(u"cmdImport"_s, u"&Import"_s, theme::icon(u"import"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    cmdCheck->setDefault(true);
    resize(760, 480);
}

bool frmImport::isWholeCompany() const
{
    return cboKind->id() == WholeCompany;
}

ImportKind frmImport::kind() const
{
    return static_cast<ImportKind>(cboKind->id() - 1);
}

/// What was found is of the file and the kind that were looked at.
void frmImport::fileChanged()
{
    // The current row first: it would be looked for among rows that are gone.
    grdFindings->clearCurrent();
    grdFindings->rows().clear();
    lblSummary->clear();
    const bool hasFile = !txtFile->text().trimmed().isEmpty();
    cmdSheet->setEnabled(!isWholeCompany());
    cmdCheck->setEnabled(hasFile && !isWholeCompany());
    cmdImport->setEnabled(hasFile);
}

void frmImport::cmdBrowse_Click()
{
    const QString file = base::prompts().chooseFile(
        u"Please choose the file to import"_s,
        {isWholeCompany() ? u"Archives (*.zip)"_s : u"Tables (*.xlsx *.csv *.txt *.tsv)"_s,
         u"All files (*)"_s});
    if (!file.isEmpty())
        txtFile->setText(file);
}

void frmImport::cmdSheet_Click()
{
    base::trapped(module, "cmdSheet_Click", [this] {
        const QString name = administration::importTable(kind()).name.toString() + u".csv"_s;
        const QString file =
            base::prompts().chooseSaveFile(u"Save an empty sheet"_s, {u"Tables (*.csv)"_s}, name);
        if (file.isEmpty())
            return;
        sys::writeFile(file, administration::emptySheet(kind()));
        base::showMessage(
            u"The sheet was saved. Fill it in with a spreadsheet, one row for each record. Columns that you don't need may go."_s);
    });
}

std::optional<ImportFindings> frmImport::check()
{
    return administration::plainly(
        module, "cmdCheck_Click", std::optional<ImportFindings>(), [this] {
            return administration::watched(
                u"Checking the file..."_s, this, [this](const base::Progress &progress) {
                    return administration::checkFile(kind(), txtFile->text().trimmed(), progress);
                });
        });
}

void frmImport::show(const ImportFindings &findings)
{
    grid::GridModel &rows = grdFindings->rows();
    grdFindings->clearCurrent();
    rows.clear();
    for (const administration::ImportProblem &problem : findings.problems)
        rows.insertRow({{RowColumn, problem.row},
                        {NameColumn, problem.column},
                        {FoundColumn, problem.sentence}});
    // With problems these are of no interest yet, and once written they stand in the lists.
    if (!findings.isWritten && findings.problemCount == 0) {
        for (const NewEntry &entry : findings.newEntries)
            rows.insertRow({{NameColumn, entry.list},
                            {FoundColumn, u"New in the list: "_s + entry.nameAndPlace()}});
    }
    lblSummary->setText(findings.summary());
    grdFindings->selectRow(rows.rowCount() > 0 ? 0 : -1);
}

bool frmImport::mayMake(const std::vector<NewEntry> &entries) const
{
    if (entries.empty())
        return true;
    QStringList lines;
    for (const NewEntry &entry : entries) {
        if (lines.size() == entriesInQuestion) {
            lines.append(u"and %1 more"_s.arg(entries.size() - entriesInQuestion));
            break;
        }
        lines.append(entry.text());
    }
    return base::askYesNo(
        u"The file names entries that the lists do not have yet:\n\n%1\n\nDo you want to add them to the lists?"_s
            .arg(lines.join(u'\n')));
}

void frmImport::cmdCheck_Click()
{
    if (const auto findings = check())
        show(*findings);
}

void frmImport::importRows()
{
    // Looked at anew, whatever "Check" has shown: the file and the lists may have changed since.
    const auto found = check();
    if (!found)
        return;
    show(*found);
    // No box for each problem: they stand in the list, with their rows.
    if (found->problemCount > 0) {
        base::showMessage(found->summary());
        return;
    }
    // A slip of the pen in a name would otherwise become an entry that all screens offer.
    if (!mayMake(found->newEntries))
        return;
    const auto imported =
        administration::plainly(module, "cmdImport_Click", std::optional<ImportFindings>(), [&] {
            return administration::watched(
                u"Importing..."_s, this, [&](const base::Progress &progress) {
                    return administration::importFile(kind(), txtFile->text().trimmed(),
                                                      found->newEntries, progress);
                });
        });
    if (!imported)
        return;
    show(*imported);
    base::showMessage(imported->summary());
}

void frmImport::importCompany()
{
    if (!base::askYesNo(
            u"This puts the exported company in the place of this one, which has to be empty. Do you want to continue?"_s))
        return;
    const bool isDone = administration::plainly(module, "cmdImport_Click", false, [this] {
        const administration::WaitPointer wait;
        (void)administration::replaceOwnCompany(txtFile->text().trimmed());
        return true;
    });
    if (!isDone)
        return;
    // Rights, options and the board of this session are those of the company that was replaced.
    base::showMessage(u"The company was imported. Please end the program and start it again."_s);
    unload();
}

void frmImport::cmdImport_Click()
{
    if (isWholeCompany())
        importCompany();
    else
        importRows();
}
