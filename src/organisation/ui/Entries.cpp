#include "organisation/ui/Entries.h"

#include "organisation/ui/frmCostCenter.h"
#include "organisation/ui/frmCrew.h"
#include "organisation/ui/frmEmployee.h"
#include "organisation/ui/frmIndicator.h"
#include "organisation/ui/frmLocation.h"
#include "organisation/ui/frmSite.h"
#include "organisation/ui/frmSupplier.h"

#include <QApplication>

// A screen lives for one call: what another workstation changes meanwhile is there at the next
// opening. It stands above the window it was asked from, which may itself be a dialog.
void ShowCrewDetail(Mode mode, qint64 id)
{
    frmCrew(QApplication::activeWindow()).showRecord(mode, id);
}

void showSiteDetail(Mode mode, qint64 id)
{
    frmSite(QApplication::activeWindow()).showRecord(mode, id);
}

void ShowLocationDetail(Mode mode, qint64 id)
{
    frmLocation(QApplication::activeWindow()).showRecord(mode, id);
}

void ShowCostCenterDetail(Mode mode, qint64 id)
{
    frmCostCenter(QApplication::activeWindow()).showRecord(mode, id);
}

void ShowSupplierDetail(Mode mode, qint64 id)
{
    frmSupplier(QApplication::activeWindow()).showRecord(mode, id);
}

QString ShowEmployeeDetail(Mode mode, const QString &employeeID)
{
    return frmEmployee(QApplication::activeWindow()).showRecord(mode, employeeID);
}

void ShowIndicatorDetail(qint64 listNumber, qint64 itemID, const QString &parentValue,
                         qint64 typeID, bool engine)
{
    frmIndicator({listNumber, itemID, parentValue, typeID, engine}, QApplication::activeWindow())
        .showModal();
}
