#include "scheduling/ui/Entries.h"

#include "core/ui/MayDo.h"
#include "scheduling/Readings.h"
#include "scheduling/ui/frmAssignCrew.h"
#include "scheduling/ui/frmCountReading.h"
#include "scheduling/ui/frmEquipmentReading.h"
#include "scheduling/ui/frmServices.h"
#include "scheduling/ui/frmServicesManager.h"

#include <QApplication>

qint64 showServicesDetail(Mode mode, qint64 ServiceID)
{
    if (mode == Mode::Add && !mayDo(rights::Services.add))
        return 0;
    frmServices screen(ServiceStore::Catalogue, QApplication::activeWindow());
    screen.display(mode, ServiceID);
    screen.showModal();
    return screen.currentKey();
}

void ShowServiceUsedDetail(qint64 ServiceUsedID)
{
    frmServices screen(ServiceStore::Assigned, QApplication::activeWindow());
    screen.display(Mode::Browse, ServiceUsedID);
    screen.showModal();
}

bool frmServicesManagerEntry::ShowServiceManager(QString &selection, qint64 EquipmentID,
                                                 QString &kind, bool selectMode,
                                                 bool equipmentOption)
{
    frmServicesManager screen({.leftOut = selection,
                               .EquipmentID = EquipmentID,
                               .kind = kind,
                               .selectMode = selectMode,
                               .equipmentOption = equipmentOption},
                              QApplication::activeWindow());
    screen.showModal();
    selection = screen.selection();
    kind = screen.kind();
    return !selection.isEmpty();
}

void frmServicesManagerEntry::showCatalogue()
{
    frmServicesManager({.equipmentOption = true}, QApplication::activeWindow()).showModal();
}

bool frmCountReadingEntry::ShowCountReadingForm(qint64 EquipmentID, const QString &CountType)
{
    frmCountReading screen(EquipmentID, CountType, QApplication::activeWindow());
    screen.showModal();
    return screen.saved();
}

bool frmCountReadingEntry::ShowCountReadingForService(qint64 EquipmentID, qint64 ServiceUsedID,
                                                      const QString &ServiceName,
                                                      QString &CountType)
{
    frmCountReading screen(EquipmentID, ServiceUsedID, ServiceName, CountType,
                           QApplication::activeWindow());
    screen.showModal();
    if (screen.saved())
        CountType = screen.countType();
    return screen.saved();
}

void ShowEquipmentReading()
{
    frmEquipmentReading(QApplication::activeWindow()).showModal();
}

bool ShowAssignCrewForm(qint64 EquipmentID)
{
    frmAssignCrew screen(EquipmentID, QApplication::activeWindow());
    screen.showModal();
    return screen.saved();
}

void joinFirstReading()
{
    readings::setFirstReadingAsker(&frmCountReadingEntry::ShowCountReadingForService);
}
