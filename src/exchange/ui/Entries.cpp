#include "exchange/ui/Entries.h"

#include "exchange/Carrier.h"
#include "exchange/Import.h"
#include "exchange/ui/frmExportXml.h"
#include "exchange/ui/frmImportXml.h"
#include "platform/base/Prompts.h"
#include "platform/input/ProgressBox.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// With a progress that the user may end.
bool importFiles()
{
    bool cancelled = false;
    const auto run = [&] {
        input::ProgressBox box(u"Importing what the handheld has recorded..."_s);
        box.offerCancel();
        return exchange::Importdata([&](int done, int all) {
            box.tell(done, all);
            cancelled = box.wasCancelled();
            if (cancelled)
                throw exchange::Cancelled();
        });
    };
    const bool done = run();
    if (cancelled)
        base::showMessage(u"The import was cancelled. Nothing has changed, and the files are still "
                          "there."_s);
    return done;
}

} // namespace

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

void mnuImporttXml_Click()
{
    if (!exchange::runCarrier(exchange::ImportCarrier))
        return;
    if (importFiles())
        base::showMessage(u"Import process Succesfully completed"_s);
}

void ShowImportXmlDetails()
{
    frmImportXml(QApplication::activeWindow()).showModal();
}
