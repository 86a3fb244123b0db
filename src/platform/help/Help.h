#pragma once

#include <QString>

class QWidget;

/// The help window: contents, search and pages, all within the program's own file.
namespace help {

/// Opens the help at a topic ("users", or "users#rights"), or at its default page; a window that
/// can be reached is used again. Opened from within a modal screen, whose windows alone can be
/// used, the help window belongs to that screen and goes with it.
void showHelp(QWidget *parent, const QString &topic = {});
/// Opens the help at the page about a widget's screen, found by the object names of the widget and
/// those that hold it, or at the default page.
void showHelpFor(QWidget *widget);
/// Closes every help window.
void closeAll();
/// Makes F1 open the help for whichever screen has the focus, for as long as the program runs.
void installHelpKey();

} // namespace help
