#pragma once

#include "platform/base/Progress.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/viewer/PageStore.h"

#include <functional>

class QPrinter;
class QWidget;

namespace report {

/// Lets the user choose the printer, copies and pages out of so many; False when cancelled.
using PrinterChooser = std::function<bool(QPrinter &printer, int pages, QWidget *parent)>;
/// The system's print window.
[[nodiscard]] bool choosePrinter(QPrinter &printer, int pages, QWidget *parent);

/// Sets a printer to a layout's paper, edge to edge: the layout has its own margins.
void setUpPrinter(QPrinter &printer, const PageSetup &page, const QString &title);
/// Refused: there are no pages, or the printer takes no more of them.
enum class Printed { Whole, Cancelled, Refused };
/// Prints the pages of the printer's range, and no more of them once isCancelled says so.
[[nodiscard]] Printed printPages(QPrinter &printer, const PageStore &pages,
                                 const base::Progress &progress = {},
                                 const std::function<bool()> &isCancelled = {});

} // namespace report
