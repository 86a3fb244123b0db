#include "exchange/ui/Entries.h"

#include "core/General.h"
#include "exchange/Carrier.h"
#include "exchange/ui/frmExportXml.h"
#include "platform/base/Prompts.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void ShowExportXml()
{
    frmExportXml(QApplication::activeWindow()).showModal();
}

void mnuExportXml_Click()
{
    ShowExportXml();
    // Whatever came of the export: the device may lack what an earlier one has left.
    (void)exchange::runCarrier(exchange::ExportCarrier);
}
