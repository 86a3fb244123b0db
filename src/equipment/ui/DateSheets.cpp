#include "equipment/ui/DateSheets.h"

#include "equipment/ui/frmInspectionDateReading.h"
#include "equipment/ui/frmLicenseDateReading.h"

#include <QApplication>

void ShowInspectionDateReading()
{
    frmInspectionDateReading(QApplication::activeWindow()).showModal();
}

void ShowLicenseDateReading()
{
    frmLicenseDateReading(QApplication::activeWindow()).showModal();
}
