#include "exchange/ui/frmImportXml.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "core/ui/frmQV_Log.h"
#include "exchange/Import.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "frmImportXml";
const QString NameColumn = u"File Name"_s;
const QString DateColumn = u"Date"_s;

} // namespace

frmImportXml::frmImportXml(QWidget *parent)
    : Screen(u"frmImportXml"_s, u"Import from XML"_s, parent)
{
    buildForm();
    adoptGrid(grdFiles, grdFiles->objectName());
    ShowGrid();
    EnableControls();
}

void frmImportXml::buildForm()
{
    input::FormBuilder form(this);
    form.note(u"Existing Files List"_s, u"lblFiles"_s);
    grdFiles = makeListGrid(
        this, u"grdFiles"_s, u"Existing Files List"_s,
        {{.name = NameColumn, .width = 370, .locked = true},
         {.name = DateColumn, .width = 110, .locked = true, .align = grid::Align::Right}});
    showWhenEmpty(*grdFiles, u"No files wait to be imported."_s);
    form.widget(grdFiles, true);
    // The development path: there for whoever works on it, and no user's business.
    cmdImportData = form.leftButton(u"cmdImportData"_s, u"Import &Data"_s);
    cmdImportData->hide();
    cmdImport = form.button(u"cmdImport"_s, u"&Import"_s, theme::icon(u"import"_s));
    cmdViewLog = form.button(u"cmdViewLog"_s, u"&View Log"_s, theme::icon(u"document"_s));
    cmdViewLog->hide();
    cmdExit = form.button(u"cmdExit"_s, u"E&xit"_s, theme::icon(u"exit"_s));
    form.finish();
    resize(520, 360);

    connect(cmdImportData, &QPushButton::clicked, this, &frmImportXml::cmdImportData_Click);
    connect(cmdImport, &QPushButton::clicked, this, &frmImportXml::cmdImport_Click);
    connect(cmdViewLog, &QPushButton::clicked, this, &frmImportXml::cmdViewLog_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmImportXml::cmdExit_Click);
}

void frmImportXml::ShowGrid()
{
    base::trapped(Module, "ShowGrid", [this] {
        grid::GridModel &rows = grdFiles->rows();
        grdFiles->clearCurrent();
        rows.clear();
        for (const exchange::ImportXml::File &file : exchange::ImportXml::files())
            rows.insertRow(
                {{NameColumn, file.name}, {DateColumn, base::toText(file.modified.date())}});
        grdFiles->selectRow(grdFiles->displayedOrder().value(0, -1));
    });
}

void frmImportXml::EnableControls()
{
    cmdImport->setEnabled(grdFiles->rows().rowCount() > 0);
}

void frmImportXml::cmdImport_Click()
{
    base::trapped(Module, "cmdImport_Click", [this] {
        if (grdFiles->currentRow() < 0)
            return;
        const QString name = grdFiles->rows().text(grdFiles->currentRow(), NameColumn);
        if (!base::askYesNo(u"This will import all the data from \"%1\" to Quorvantis Database.\n"
                            "Do you want to continue?"_s.arg(name)) ||
            !m_import.run(name))
            return;
        base::showMessage(u"Quorvantis data has been imported."_s);
        ShowGrid();
        cmdImport->setEnabled(false);
        cmdViewLog->show();
        cmdViewLog_Click();
    });
}

void frmImportXml::cmdViewLog_Click()
{
    frmQV_Log::ShowQV_LogDetails(this);
    if (grdFiles->rows().rowCount() == 0) {
        unload();
        return;
    }
    cmdImport->setEnabled(true);
    m_import.clear();
}

bool frmImportXml::Importdata() const
{
    return exchange::olderImportdata();
}

void frmImportXml::cmdImportData_Click()
{
    if (Importdata())
        base::showMessage(u"Import process Succesfully completed"_s);
}

void frmImportXml::cmdExit_Click()
{
    unload();
}
