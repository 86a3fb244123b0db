#include "app/Screens.h"

#include "core/ui/frmSendEmail.h"
#include "equipment/ui/DateSheets.h"
#include "equipment/ui/Entries.h"
#include "organisation/ui/Entries.h"
#include "parts/ui/Entries.h"
#include "platform/help/Help.h"
#include "reporting/ui/QuickFindEntries.h"
#include "reporting/ui/frmReportPreview.h"
#include "scheduling/ui/Entries.h"
#include "shell/ui/ScreenEntries.h"
#include "workorders/ui/Entries.h"
#include "workorders/ui/ServiceTime.h"
#include "workorders/ui/frmOverDueWork.h"

#include <QPointer>
#include <memory>

using namespace Qt::StringLiterals;

namespace app {
namespace {

void joinOrganisation()
{
    auto &entries = shell::screenEntries();
    entries.add(u"mnuViewSupplier"_s, [] { ShowSupplierDetail(Mode::Browse, 0); });
    entries.add(u"mnuAddSupplier"_s, [] { ShowSupplierDetail(Mode::Add, 0); });
    entries.add(u"mnuViewEmployee"_s, [] { ShowEmployeeDetail(Mode::Browse, u"0"_s); });
    entries.add(u"mnuAddEmployee"_s, [] { ShowEmployeeDetail(Mode::Add, u"0"_s); });
    entries.addRecordScreen(u"frmSupplier"_s, [](const QString &key) {
        ShowSupplierDetail(Mode::Browse, key.toLongLong());
    });
    entries.addRecordScreen(u"frmEmployee"_s,
                            [](const QString &key) { ShowEmployeeDetail(Mode::Browse, key); });
    setNewRecordScreen(u"tblSupplier"_s, [] { ShowSupplierDetail(Mode::Add, 0); });
    setNewRecordScreen(u"tblEmployee"_s, [] { ShowEmployeeDetail(Mode::Add, u"0"_s); });
}

void joinParts()
{
    auto &entries = shell::screenEntries();
    entries.add(u"mnuViewPart"_s, [] { showPartDetail(Mode::Browse, u"0"_s); });
    entries.add(u"mnuAddPart"_s, [] { showPartDetail(Mode::Add, u"0"_s); });
    entries.addRecordScreen(u"frmPart"_s,
                            [](const QString &key) { showPartDetail(Mode::Browse, key); });
    entries.ShowPartQuickFind = [] { return frmPartQuickFindEntry::ShowQuickFind({}); };
    setNewRecordScreen(u"tblPart"_s, [] { showPartDetail(Mode::Add, u"0"_s); });
}

void joinScheduling()
{
    auto &entries = shell::screenEntries();
    entries.add(u"mnuViewService"_s, [] { frmServicesManagerEntry::showCatalogue(); });
    entries.add(u"mnuAddService"_s, [] { (void)showServicesDetail(Mode::Add, 0); });
    entries.add(u"mnuRecordCount"_s, [] { ShowEquipmentReading(); });
    joinFirstReading();
}

void joinEquipment()
{
    auto &entries = shell::screenEntries();
    entries.add(u"mnuViewEqipment"_s, [] { ShowEquipmentDetail(Mode::Browse, 0); });
    entries.add(u"mnuAddEquipment"_s, [] { ShowEquipmentDetail(Mode::Add, 0); });
    entries.addRecordScreen(u"frmEquipment"_s, [](const QString &key) {
        ShowEquipmentDetail(Mode::Browse, key.toLongLong());
    });
    setNewRecordScreen(u"tblEquipment"_s, [] { ShowEquipmentDetail(Mode::Add, 0); });
    entries.add(u"munInspectiondate"_s, [] { ShowInspectionDateReading(); });
    entries.add(u"munLicenseDate"_s, [] { ShowLicenseDateReading(); });
}

void joinWorkorders()
{
    auto &entries = shell::screenEntries();
    entries.add(u"mnuRecordWork"_s, [] { ShowCompleteWorkorder(); });
    entries.add(u"mnuPrintWO"_s, [] { ShowPrintWorkorder(); });
    joinDateConfirmation();
    joinServiceTime();

    const auto board = std::make_shared<QPointer<frmOverDueWork>>();
    entries.board.make = [board](QWidget *parent) {
        *board = new frmOverDueWork(parent);
        return board->data();
    };
    entries.board.LoadData = [board] {
        if (*board)
            (*board)->LoadData();
    };
    entries.board.reportsVisible = [board] { return *board && (*board)->reportsVisible(); };
    entries.board.LoadUnloadReportsNavigator = [board](bool show) {
        if (*board)
            (*board)->LoadUnloadReportsNavigator(show);
    };
}

} // namespace

void joinScreens()
{
    installErrorReport();
    help::installHelpKey();
    joinQuickFinds();
    joinOrganisation();
    joinParts();
    joinScheduling();
    joinEquipment();
    joinWorkorders();
    joinReports();
    shell::screenEntries().add(u"mnuPrintCount"_s, [] { EquipmentCountReport(); });
}

} // namespace app
