#include "parts/ui/Entries.h"

#include "parts/ui/frmInventryCheckIn.h"
#include "parts/ui/frmPart.h"
#include "parts/ui/frmPartManager.h"

#include <QApplication>

QString showPartDetail(Mode mode, const QString &partID)
{
    return frmPart(QApplication::activeWindow()).showRecord(mode, partID);
}

void ShowInventoryCheckIn()
{
    frmInventryCheckIn(QApplication::activeWindow()).showModal();
}

bool frmPartManagerEntry::ShowServiceManager(QString &selection, bool selectMode)
{
    frmPartManager screen(selection, selectMode, QApplication::activeWindow());
    screen.showModal();
    selection = screen.selection();
    return !selection.isEmpty();
}
