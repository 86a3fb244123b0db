#include "reporting/ui/FilterEntries.h"

#include "core/ui/Openings.h"
#include "reporting/ui/frmEquipmentListLandScape.h"
#include "reporting/ui/frmEquipmentListReport.h"
#include "reporting/ui/frmEquipmentUtilization.h"
#include "reporting/ui/frmFilterScreen.h"
#include "reporting/ui/frmScanHistory.h"
#include "reporting/ui/frmServiceHistory.h"
#include "reporting/ui/frmWorkorderhistoryReport.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// Shows a screen until it is closed.
template<class Form>
void showForm()
{
    Form(QApplication::activeWindow()).showModal();
}

} // namespace

void joinFilterScreens()
{
    Openings &all = openings();
    for (const frmFilterScreen::Entry &entry : frmFilterScreen::entries())
        all.join(entry.name.toString(),
                 [&entry] { frmFilterScreen(entry, QApplication::activeWindow()).showModal(); });
    all.join(u"frmEquipmentListReport"_s, showForm<frmEquipmentListReport>);
    all.join(u"frmEquipmentListLandScape"_s, showForm<frmEquipmentListLandScape>);
    all.join(u"frmEquipmentUtilization"_s, showForm<frmEquipmentUtilization>);
    all.join(u"frmScanHistory"_s, showForm<frmScanHistory>);
    all.join(u"frmServiceHistory"_s, showForm<frmServiceHistory>);
    all.join(u"frmWorkorderhistoryReport"_s, showForm<frmWorkorderhistoryReport>);
}
