#include "exchange/ImportLog.h"

#include "platform/base/Environment.h"
#include "platform/system/Files.h"

using namespace Qt::StringLiterals;

namespace exchange {
namespace {

struct Wording
{
    QStringView header;
    QStringView failed;
    QStringView reason;
};

Wording wordingOf(ImportLog::Kind kind)
{
    switch (kind) {
    case ImportLog::Kind::Equipment:
        return {u" Equipment", u"Failed to Import Equipment Record",
                u"Reson:- Equipment has been deleted or modified"};
    case ImportLog::Kind::EquipmentCount:
        return {u" Equipment Count", u"Failed to Import Equipment Count Record",
                u"Reson:- Equipment has been deleted or modified"};
    case ImportLog::Kind::WorkOrder:
        return {u" WorkOrder", u"Failed to Import Work Order Record",
                u"Reson:- Either Work Order or Equipment has been deleted or modified"};
    case ImportLog::Kind::Part:
        break;
    }
    return {u" Part", u"Failed to Import Part Record",
            u"Reson:- Part has been deleted or modified"};
}

} // namespace

void ImportLog::add(Kind kind, const QStringList &ids)
{
    const Wording wording = wordingOf(kind);
    if (!m_text.contains(wording.header))
        m_text += wording.header.toString() + u"\r\n"_s;
    for (const QString &line :
         QStringList{wording.failed.toString()} + ids + QStringList{wording.reason.toString()})
        m_text += u"        "_s + line + u"\r\n"_s;
}

void ImportLog::CreateLogFile() const
{
    sys::makeFolder(base::applicationPath(u"\\Log"_s));
    sys::writeFile(
        base::applicationPath(u"\\Log\\QVLog.txt"_s),
        (m_text.trimmed().isEmpty() ? u"All Records are Imported succesfully"_s : m_text).toUtf8());
}

} // namespace exchange
