#include "equipment/Pictures.h"

#include "core/Session.h"
#include "core/Told.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/system/Files.h"

#include <QFile>

namespace pictures {
namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "Equipment";

bool refuse(const QString &text, const QString &title = {})
{
    told::message(text, title);
    return false;
}

} // namespace

db::Recordset names(qint64 EquipmentID)
{
    return dataConnection().Open(
        u"Select ImageName as [Picture Name] from tblEquipmentImage Where EquipmentID = ?"_s,
        {EquipmentID});
}

QByteArray bytes(qint64 EquipmentID, const QString &ImageName)
{
    const db::Recordset rows = dataConnection().Open(
        u"Select imagedata from tblEquipmentImage where ImageName = ? and EquipmentID = ?"_s,
        {ImageName, EquipmentID});
    return rows.isEmpty() ? QByteArray() : rows[u"imagedata"].toByteArray();
}

bool SaveImageInEquipment(qint64 EquipmentID, const QString &file, const QString &ImageName,
                          const std::function<bool(const QByteArray &)> &isPicture)
{
    return base::trapped(Module, "SaveImageInEquipment", false, [&] {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly))
            return refuse(u"Invalid path of picture."_s);
        const QByteArray content = source.readAll();
        if (source.error() != QFileDevice::NoError)
            return refuse(u"Invalid path of picture."_s);
        if (!isPicture(content))
            return refuse(u"Invalid Picture File!"_s, u"Oops!"_s);
        const db::Recordset sameName = dataConnection().Open(
            u"Select ImageName from tblEquipmentImage where EquipmentID = ? and ImageName = ?"_s,
            {EquipmentID, ImageName});
        if (!sameName.isEmpty())
            return refuse(u"File Name already exists. Please Enter Different Name"_s);
        dataConnection().Execute(
            u"Insert into tblEquipmentImage(EquipmentID,ImageName,ImageData) values(?,?,?)"_s,
            {EquipmentID, ImageName, content});
        return true;
    });
}

bool DeleteImageRecord(qint64 EquipmentID, const QString &ImageName)
{
    return base::trapped(Module, "DeleteImageRecord", false, [&] {
        dataConnection().Execute(
            u"Delete From tblEquipmentImage where EquipmentId = ? and ImageName = ?"_s,
            {EquipmentID, ImageName});
        return true;
    });
}

ScratchFile::ScratchFile(const QByteArray &bytes)
    : m_path(base::appDataPath(u"\\Temp.bmp"_s))
{
    sys::makeFolder(base::appDataPath());
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw base::Error(
            base::ErrorNumber::PathAccess,
            u"The picture can't be shown, since this file can't be written: %1 (%2)"_s.arg(
                m_path, file.errorString()));
}

ScratchFile::~ScratchFile()
{
    QFile::remove(m_path);
}

} // namespace pictures
