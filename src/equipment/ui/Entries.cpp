#include "equipment/ui/Entries.h"

#include "equipment/ui/frmEquipment.h"

#include <QApplication>

qint64 ShowEquipmentDetail(Mode mode, qint64 equipmentID)
{
    return frmEquipment(QApplication::activeWindow()).showRecord(mode, equipmentID).toLongLong();
}
