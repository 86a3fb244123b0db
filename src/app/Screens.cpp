#include "app/Screens.h"

#include "administration/ui/Entries.h"
#include "core/UpdateDatabase.h"
#include "core/ui/Openings.h"
#include "core/ui/Sending.h"
#include "core/ui/frmSendEmail.h"
#include "equipment/ui/DateSheets.h"
#include "equipment/ui/Entries.h"
#include "exchange/ui/Entries.h"
#include "organisation/ui/Entries.h"
#include "parts/ui/Entries.h"
#include "platform/base/Prompts.h"
#include "platform/help/Help.h"
#include "reporting/ui/FilterEntries.h"
#include "reporting/ui/OwnReportEntries.h"
#include "reporting/ui/QuickFindEntries.h"
#include "reporting/ui/ShowReport.h"
#include "scheduling/ui/Entries.h"
#include "shell/ui/MainBoard.h"
#include "workorders/ui/Entries.h"
#include "workorders/ui/ServiceTime.h"
#include "workorders/ui/frmOverDueWork.h"

#include <QElapsedTimer>
#include <QPointer>
#include <memory>

using namespace Qt::StringLiterals;

namespace app {
namespace {

using Arguments = OpeningArguments;

// Each folder's screens by themselves, in the order in which folders build on each other.

void joinOrganisation(Openings &all)
{
    all.join(u"frmSupplier"_s,
             [](const Arguments &a) { ShowSupplierDetail(a.mode, a.key.toLongLong()); });
    all.join(u"frmEmployee"_s, [](const Arguments &a) { ShowEmployeeDetail(a.mode, a.key); });
}

void joinParts(Openings &all)
{
    all.join(u"frmPart"_s, [](const Arguments &a) { showPartDetail(a.mode, a.key); });
}

void joinScheduling(Openings &all)
{
    all.join(u"frmServicesManager"_s, frmServicesManagerEntry::showCatalogue);
    all.join(u"frmServices"_s,
             [](const Arguments &a) { showServicesDetail(a.mode, a.key.toLongLong()); });
    all.join(u"frmEquipmentReading"_s, ShowEquipmentReading);
    joinFirstReading();
}

void joinEquipment(Openings &all)
{
    all.join(u"frmEquipment"_s,
             [](const Arguments &a) { ShowEquipmentDetail(a.mode, a.key.toLongLong()); });
    all.join(u"frmInspectionDateReading"_s, ShowInspectionDateReading);
    all.join(u"frmLicenseDateReading"_s, ShowLicenseDateReading);
}

void joinBoard()
{
    // The board belongs to its window: the pointer is null once that has gone, and the functions
    // below stay.
    const auto board = std::make_shared<QPointer<frmOverDueWork>>();
    const auto sinceMade = std::make_shared<QElapsedTimer>();
    shell::MainBoard &main = shell::mainBoard();
    main.make = [board, sinceMade](QWidget *parent) {
        *board = new frmOverDueWork(parent);
        sinceMade->start();
        return board->data();
    };
    main.LoadData = [board, sinceMade] {
        // A window that appears is activated, too, and has just read its board.
        constexpr int appearing = 1000; // milliseconds
        const bool isFresh = sinceMade->isValid() && sinceMade->elapsed() < appearing;
        // For the first activation only: who comes back sees the board anew.
        sinceMade->invalidate();
        if (*board && !isFresh)
            (*board)->LoadData();
    };
    main.reportsVisible = [board] { return *board && (*board)->reportsVisible(); };
    main.LoadUnloadReportsNavigator = [board](bool show) {
        if (*board)
            (*board)->LoadUnloadReportsNavigator(show);
    };
}

void joinWorkorders(Openings &all)
{
    all.join(u"ShowCompleteWorkorder"_s, [] { ShowCompleteWorkorder(); });
    all.join(u"ShowPrintWorkorder"_s, [] { ShowPrintWorkorder(); });
    joinDateConfirmation();
    joinServiceTime();
    joinBoard();
}

void joinExchange(Openings &all)
{
    all.join(u"mnuExportXml"_s, mnuExportXml_Click);
    all.join(u"mnuImporttXml"_s, mnuImporttXml_Click);
    all.join(u"ShowImportXmlDetails"_s, ShowImportXmlDetails);
}

/// The update from the menu; a failure can be reported to the makers.
void updateDatabase()
{
    // Told here in its own way, not in the sentence of the start.
    bool showFailure = false;
    if (!UpdateDatabase(showFailure))
        return;
    if (openings().isJoined(u"frmSendDBUpdate"))
        openings().open(u"frmSendDBUpdate");
    else
        base::showInformation(u"Failed to update the database."_s);
}

void joinAdministration(Openings &all)
{
    all.join(u"frmbackup"_s, ShowBackup);
    all.join(u"frmRestore"_s, ShowRestore);
    all.join(u"frmImport"_s, ShowImport);
    all.join(u"ShowExport"_s, ShowExport);
    all.join(u"mnuUpdateDatabase"_s, updateDatabase);
}

} // namespace

void joinScreens()
{
    // First, so that a slip in what follows is reported too.
    installErrorReport();
    joinReportTransport();
    help::installHelpKey();
    joinQuickFinds();
    Openings &all = openings();
    joinOrganisation(all);
    joinParts(all);
    joinScheduling(all);
    joinEquipment(all);
    joinWorkorders(all);
    joinReports();
    joinFilterScreens();
    joinOwnReports();
    joinExchange(all);
    joinAdministration(all);
}

} // namespace app
