#include "exchange/ImportXml.h"

#include "core/Told.h"
#include "exchange/ReceivedFile.h"
#include "exchange/XmlUpdates.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/system/Files.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

const QString Folder = u"\\XML_IN\\"_s;
const QString BackupFolder = u"\\XML_IN\\XML_IN_BackUP"_s;

/// Applies the records of a section; one without attributes has no end that could be reached.
template<class Apply>
void eachRecord(const Section &section, const Apply &apply)
{
    for (const SectionRecord &record : section.records) {
        if (!record.isEmpty())
            apply(record);
    }
}

} // namespace

QString ImportXml::path(const QString &name)
{
    return base::applicationPath(Folder + name);
}

QList<ImportXml::File> ImportXml::files()
{
    const QDir folder(path({}));
    if (!folder.exists()) {
        told::critical(u"System Folder has been deleted or modified\rData Import process "
                       "failed."_s);
        return {};
    }
    QList<File> files;
    for (const QFileInfo &file :
         folder.entryInfoList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name))
        files.append({file.fileName(),
                      base::wallClock(file.lastModified().date(), file.lastModified().time())});
    return files;
}

void ImportXml::Backup_xml(const QString &name)
{
    const QString folder = base::applicationPath(BackupFolder);
    sys::makeFolder(folder);
    sys::copyFile(path(name), folder + u"/Last.xml"_s);
}

bool ImportXml::run(const QString &name)
{
    // First of all, so that whatever the import makes of the file can be looked into afterwards.
    Backup_xml(name);
    const QByteArray content = contentOf(path(name));
    m_file.emplace(content);
    if (const auto &fault = m_file->fault()) {
        told::critical(fault->text() + u"\nData Import process Failed "_s);
        return false;
    }
    if (m_file->sections().isEmpty()) {
        told::message(name + u" does not contain any data which can be imported."_s);
        return false;
    }
    walk();
    m_log.CreateLogFile();
    if (!m_log.hasFailures())
        deleteImported(name, content);
    return true;
}

void ImportXml::clear()
{
    m_file.reset();
    m_log.clear();
}

void ImportXml::walk()
{
    // A pass ends where orders were completed, and the next one finds what had to wait for them.
    while (pass()) {
    }
}

bool ImportXml::pass()
{
    for (const Section &section : m_file->sections()) {
        if (section.is(u"tblEquipment") && !std::exchange(m_equipment, true)) {
            eachRecord(section, [this](const SectionRecord &record) {
                Update_Crew(attribute(record, {u"EquipmentID"}), attribute(record, {u"CrewID"}),
                            attribute(record, {u"Equip_BarCode"}), m_log);
            });
        } else if (section.is(u"tblEquipmentCount")) {
            // Orders go before readings, wherever they stand.
            if ((!m_workorders && IsWorkOrderExists()) || std::exchange(m_counts, true))
                continue;
            eachRecord(section, [this](const SectionRecord &record) {
                Update_EquipmentCount(
                    attribute(record, {u"EquipmentID"}), attribute(record, {u"ChangeDate"}),
                    attribute(record, {u"CountType"}), attribute(record, {u"CurrentCount"}),
                    attribute(record, {u"LastCount"}), m_log);
            });
        } else if (section.is(u"tblWorkorder") && !m_workorders) {
            eachRecord(section, [this](const SectionRecord &record) {
                Update_Workorder(attribute(record, {u"WorkorderNo"}),
                                 attribute(record, {u"EquipmentID"}),
                                 attribute(record, {u"CompletedDate"}), m_log);
            });
            // From the beginning again: readings that stood before the orders are due now.
            m_workorders = true;
            return true;
        } else if (section.is(u"tblServiceUsed") && !std::exchange(m_services, true)) {
            base::trapped("frmImportXml", "Update_ServiceUsed",
                          [this] { ServiceUpdates(*m_file, m_log).Update_ServiceUsed(); });
        } else if (section.is(u"tblParts") && !std::exchange(m_parts, true)) {
            eachRecord(section, [this](const SectionRecord &record) {
                Update_Part(attribute(record, {u"PartID"}), attribute(record, {u"QtyReceived"}),
                            attribute(record, {u"Part_BarCode"}), m_log);
            });
        }
    }
    return false;
}

/// One that has been replaced meanwhile was not imported.
void ImportXml::deleteImported(const QString &name, const QByteArray &content) const
{
    if (contentOf(path(name)) != content)
        return;
    // Some devices write files that only can be read.
    QFile::setPermissions(path(name), QFile::permissions(path(name)) | QFileDevice::WriteOwner);
    sys::removeFile(path(name));
}

} // namespace exchange
