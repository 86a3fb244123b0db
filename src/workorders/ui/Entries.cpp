#include "workorders/ui/Entries.h"

#include "workorders/Posting.h"
#include "workorders/ui/frmServiceDateConfirmation.h"
#include "workorders/ui/frmWorkorder.h"

#include <QApplication>

void ShowPrintWorkorder(const QString &unitNo)
{
    frmWorkorder screen(QApplication::activeWindow());
    // Filled before it is shown, so that it opens on the row that was asked for.
    screen.ShowPrintWorkorder(unitNo);
    screen.showModal();
}

void ShowCompleteWorkorder(qint64 WorkorderNo)
{
    frmWorkorder screen(QApplication::activeWindow());
    screen.ShowCompleteWorkorder(WorkorderNo);
    screen.showModal();
}

void joinDateConfirmation()
{
    posting::setDateConfirmation(frmServiceDateConfirmation::ShowServiceDateConfirmationForm);
}
