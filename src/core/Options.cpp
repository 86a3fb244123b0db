#include "core/Options.h"

#include "core/Identifiers.h"
#include "core/Session.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/settings/Registry.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";
constexpr qsizetype ShortestGuid = 30;

QString workstationGuid()
{
    return settings::registry().value(settings::ProductKey, u"GUID"_s);
}

void store(db::Connection &connection, const QVariantList &valueAndKey)
{
    const QString update = u"Update tblSysOption set itemValue = ? where SysOption = ?"_s;
    if (connection.Execute(update, valueAndKey) > 0)
        return;
    try {
        connection.Execute(u"Insert into tblSysOption(itemValue,SysOption) values(?,?)"_s,
                           valueAndKey);
    } catch (const db::DbError &error) {
        // Another workstation was the first to store this option: the later value stays.
        if (error.number() != db::ErrorNumber::DuplicateKey)
            throw;
        connection.Execute(update, valueAndKey);
    }
}

} // namespace

QString GetOption(const QString &Key, bool PerWorkstation)
{
    return trapped(Module, "GetOption", QString(), [&] {
        // Errors before the database is open have a report form too, which asks for its place.
        const QString guid = workstationGuid();
        if (!gcnLookup || guid.isEmpty())
            return QString();
        const db::Recordset rows =
            gcnLookup->Open(u"Select itemvalue From tblSysoption where Sysoption = '"_s +
                            (PerWorkstation ? guid + Key : Key) + u"'"_s);
        return rows.isEmpty() ? QString() : rows.row(0).text(u"itemvalue");
    });
}

QDate dateOption(const QString &Key, QDate Fallback)
{
    const auto date = base::parseMonthFirst(GetOption(Key, true).trimmed());
    return date ? date->date() : Fallback;
}

void SetOption(const QString &Key, const QVariant &Value, bool PerWorkstation)
{
    trapped(Module, "SetOption", [&] {
        if (!gcnLookup)
            return;
        QString guid = workstationGuid();
        if (guid.size() < ShortestGuid) {
            guid = GetGUID();
            settings::registry().setValue(settings::ProductKey, u"GUID"_s, guid);
        }
        const QVariantList valueAndKey{base::toText(Value), PerWorkstation ? guid + Key : Key};
        try {
            store(*gcnLookup, valueAndKey);
        } catch (const db::DbError &error) {
            // What a workstation remembers for itself is worth no message: the former value stays.
            if (!PerWorkstation || error.number() != db::ErrorNumber::LockConflict)
                throw;
        }
    });
}
