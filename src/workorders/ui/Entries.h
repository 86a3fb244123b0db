#pragma once

#include <QString>

/// How other screens open those of this folder. Each waits until its screen is closed.

/// The work-order screen on what is due and what is to be printed; with a unit number the first
/// row of that machine without an order is selected.
void ShowPrintWorkorder(const QString &unitNo = {});
/// The work-order screen on recording; the order is selected unless it is 0.
void ShowCompleteWorkorder(qint64 WorkorderNo = 0);

/// Lets a posting ask for a service's next date. Once, when the program starts.
void joinDateConfirmation();
