#include "equipment/DocumentStore.h"

#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Trapped.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QFileInfo>

namespace documents {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Equipment";
constexpr qsizetype LongestName = 200; // what the database keeps of a name

/// The name under which a machine has a document already, in whatever case; empty without one.
QString storedName(qint64 equipment, const QString &name)
{
    const db::Recordset rows = dataConnection().Open(
        u"Select DocumentName from tblEquipmentDocument where Equipmentid = ? and DocumentName = ?"_s,
        {equipment, name});
    return rows.isEmpty() ? QString() : rows.current().text(u"DocumentName");
}

void deleteRow(qint64 equipment, const QString &name)
{
    dataConnection().Execute(
        u"Delete From tblEquipmentDocument where EquipmentId = ? and DocumentName = ?"_s,
        {equipment, name});
}

void tellFolderIsGone()
{
    told::message(u"Folder(Doc) has been deleted by user. Please create a folder named'Doc' at "
                  "following path "_s +
                  QDir::toNativeSeparators(base::environment().applicationFolder));
}

} // namespace

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
    // One that is in use doesn't keep the others from going.
    for (const QString &file : machine.entryList(QDir::Files | QDir::Hidden))
        whole &= machine.remove(file);
    if (!whole || !QDir().rmdir(machine.path()))
        told::message(QStringLiteral("Unable to delete the folder. Some files is in use.\n"
                                     "You can delete folder manually\n"
                                     "\"%1\"")
                          .arg(QDir::toNativeSeparators(machine.path())));
}

db::Recordset names(qint64 EquipmentID)
{
    return dataConnection().Open(
        u"Select DocumentName as [Document Name] from tblEquipmentDocument Where EquipmentID = ?"_s,
        {EquipmentID});
}

bool addDocument(qint64 EquipmentID, const QString &file,
                 const std::function<bool(const QString &)> &mayReplace)
{
    return base::trapped(Module, "cmdAddDocument_Click", false, [&] {
        const QFileInfo chosen(file);
        if (!chosen.isFile()) {
            told::message(u"Invalid File or Incorrect Path."_s);
            return false;
        }
        if (chosen.fileName().size() > LongestName) {
            told::message(u"The name of the file is too long: a document's name may have %1 "
                          "characters at most. Please rename the file."_s.arg(LongestName));
            return false;
        }
        const QString present = storedName(EquipmentID, chosen.fileName());
        const QString name = present.isEmpty() ? chosen.fileName() : present;
        if (!present.isEmpty() && exists(EquipmentID, name) && !mayReplace(name))
            return false;
        // The row first: what the database refuses must leave no file. A name that is there
        // already only gets its file, be it anew.
        if (present.isEmpty())
            dataConnection().Execute(
                u"Insert Into tblEquipmentDocument(EquipmentId,DocumentName) values(?,?)"_s,
                {EquipmentID, name});
        try {
            store(EquipmentID, file, name);
        } catch (const base::Error &) {
            if (present.isEmpty())
                deleteRow(EquipmentID, name);
            if (QFileInfo::exists(folder(EquipmentID)))
                throw;
            tellFolderIsGone();
            return false;
        }
        return true;
    });
}

bool DeleteDocumentRecord(qint64 EquipmentID, const QString &DocumentName)
{
    return base::trapped(Module, "DeleteDocumentRecord", false, [&] {
        deleteRow(EquipmentID, DocumentName);
        remove(EquipmentID, DocumentName);
        return true;
    });
}

} // namespace documents
