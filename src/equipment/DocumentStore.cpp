#include "equipment/DocumentStore.h"

#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QFileInfo>

namespace documents {

QString folder(qint64 EquipmentID)
{
    return base::applicationPath(QStringLiteral("\\Doc\\%1").arg(EquipmentID));
}

QString path(qint64 EquipmentID, const QString &DocumentName)
{
    return folder(EquipmentID) + u'/' + DocumentName;
}

bool exists(qint64 EquipmentID, const QString &DocumentName)
{
    return QFileInfo::exists(path(EquipmentID, DocumentName));
}

void store(qint64 EquipmentID, const QString &file, const QString &DocumentName)
{
    sys::makeFolder(folder(EquipmentID));
    sys::copyFile(file, path(EquipmentID, DocumentName));
}

void remove(qint64 EquipmentID, const QString &DocumentName)
{
    sys::removeFile(path(EquipmentID, DocumentName));
}

void removeFolder(qint64 EquipmentID)
{
    QDir machine(folder(EquipmentID));
    if (!machine.exists())
        return;
    bool whole = true;
    for (const QString &file : machine.entryList(QDir::Files | QDir::Hidden))
        whole &= machine.remove(file);
    if (!whole || !QDir().rmdir(machine.path()))
        base::showMessage(QStringLiteral("Unable to delete the folder. Some files is in use.\n"
                                         "You can delete folder manually\n"
                                         "\"%1\"")
                              .arg(QDir::toNativeSeparators(machine.path())));
}

} // namespace documents
