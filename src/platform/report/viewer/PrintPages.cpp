#include "platform/report/viewer/PrintPages.h"

#include "platform/report/render/PagePainter.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace report {

namespace {

constexpr double UnitsPerInch = 2540;

struct Range
{
    int first;
    int last;
};

Range rangeOf(const QPrinter &printer, int pages)
{
    // A printer that knows no range has zeros in it.
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() <= 0)
        return {0, pages - 1};
    return {printer.fromPage() - 1, qMin(printer.toPage(), pages) - 1};
}

} // namespace

bool choosePrinter(QPrinter &printer, int pages, QWidget *parent)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setMinMax(1, qMax(1, pages));
    dialog.setFromTo(1, qMax(1, pages));
    dialog.setPrintRange(QAbstractPrintDialog::AllPages);
    return dialog.exec() == QDialog::Accepted;
}

void setUpPrinter(QPrinter &printer, const PageSetup &page, const QString &title)
{
    // The toolkit takes the paper upright and turns it by the orientation.
    const Length shorter = qMin(page.width(), page.height());
    const Length longer = qMax(page.width(), page.height());
    printer.setPageSize(QPageSize(QSizeF(shorter / 100.0, longer / 100.0), QPageSize::Millimeter));
    printer.setPageOrientation(page.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    // The layout has its own margins; those of the printer would come on top of them.
    printer.setFullPage(true);
    printer.setPageMargins(QMarginsF());
    printer.setDocName(title);
}

Printed printPages(QPrinter &printer, const PageStore &pages, const base::Progress &progress,
                   const std::function<bool()> &isCancelled)
{
    QPainter painter;
    if (pages.count() == 0 || !painter.begin(&printer))
        return Printed::Refused;
    PagePainter pagePainter;
    const Range range = rangeOf(printer, pages.count());
    // Where the printer makes no copies by itself, they are printed one after another.
    const int copies = printer.supportsMultipleCopies() ? 1 : qMax(1, printer.copyCount());
    const int sheets = copies * (range.last - range.first + 1);
    int printed = 0;
    for (int copy = 0; copy < copies; ++copy) {
        for (int index = range.first; index <= range.last; ++index) {
            if (isCancelled && isCancelled()) {
                // Else the spooler would still print what it has been given.
                printer.abort();
                return Printed::Cancelled;
            }
            if (printed > 0 && !printer.newPage())
                return Printed::Refused;
            // Set for each page: the painter is the same one, and a printer may differ across and
            // down.
            painter.save();
            painter.scale(printer.logicalDpiX() / UnitsPerInch,
                          printer.logicalDpiY() / UnitsPerInch);
            pagePainter.paint(pages.page(index), painter);
            painter.restore();
            ++printed;
            if (progress)
                progress(printed, sheets);
        }
    }
    return painter.end() && printer.printerState() != QPrinter::Error ? Printed::Whole
                                                                      : Printed::Refused;
}

} // namespace report
