#include "core/General.h"

#include "core/Periods.h"
#include "core/Session.h"
#include "platform/base/Decimal.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/settings/Registry.h"
#include "platform/system/Process.h"

#include <QUuid>
#include <algorithm>

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";
constexpr qsizetype ShortestGuid = 30;

/// A value as a whole number, 0 for Null.
qint64 wholeNumber(const QVariant &value)
{
    if (value.isNull())
        return 0;
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        throw base::Error(base::ErrorNumber::TypeMismatch, u"Type mismatch"_s);
    return value.typeId() == QMetaType::Double ? base::roundedToEven(number) : value.toLongLong();
}

/// The first value of a query, 0 without a row.
qint64 firstNumber(db::Connection &connection, const QString &statement)
{
    const db::Recordset rows = connection.Open(statement);
    return rows.isEmpty() ? 0 : wholeNumber(rows.value(0, 0));
}

qint64 highestPlusOne(db::Connection &connection, const QString &Table, const QString &Column)
{
    return firstNumber(connection, u"SELECT max("_s + Column + u") From "_s + Table) + 1;
}

/// Runs a getter's query; what is wrong with its names is told in the users' words.
db::Recordset openNamed(db::Connection &connection, const QString &statement)
{
    try {
        return connection.Open(statement);
    } catch (const base::Error &error) {
        switch (error.number()) {
        case db::ErrorNumber::TableUnknown:
            throw base::Error(error.number(), u"Invalid Table Name"_s);
        case db::ErrorNumber::Syntax:
        case db::ErrorNumber::ValueMissing:
            throw base::Error(error.number(), u"Invalid Column Name"_s);
        default:
            throw;
        }
    }
}

QString tableQuery(const QString &Table, const QString &Order, const QString &Where)
{
    QString statement = u"Select * from "_s + Table;
    if (!Where.isEmpty())
        statement += u" Where "_s + Where;
    if (!Order.isEmpty())
        statement += u" Order by "_s + Order;
    return statement;
}

QString workstationGuid()
{
    return settings::registry().value(settings::ProductKey, u"GUID"_s);
}

} // namespace

// --- Identifiers and row tests -------------------------------------------------------------------

qint64 GenerateID(const QString &Table, const QString &Column)
{
    return trapped(Module, "GenerateID", qint64(0),
                   [&] { return highestPlusOne(dataConnection(), Table, Column); });
}

qint64 GenerateIDWithIndicator(const QString &Table, const QString &Column)
{
    return trapped(Module, "GenerateIDWithIndicator", qint64(0),
                   [&] { return highestPlusOne(lookupConnection(), Table, Column); });
}

qint64 GenrateUniqueID()
{
    return base::now().toString(u"MMddHHmmss").toLongLong();
}

QString GetGUID()
{
    return QString::fromLatin1(QUuid::createUuid().toRfc4122().toHex()).toUpper();
}

qint64 GetRecordCount(const QString &Table, const QString &Where)
{
    return trapped(Module, "GetRecordCount", qint64(0), [&] {
        QString statement = u"Select Count(*) as RecCount from "_s + Table;
        if (!Where.trimmed().isEmpty())
            statement += u" where "_s + Where;
        return firstNumber(dataConnection(), statement);
    });
}

bool IsRecordUsed(const QString &Table, const QString &Field, const QString &Value,
                  const QString &Type)
{
    return trapped(Module, "IsRecordUsed", false, [&] {
        // One row tells as much as all.
        const QString statement =
            u"Select top 1 * from "_s + Table + u" where "_s + Field + u" = "_s;
        const QString type = Type.toUpper();
        if (type == u"S")
            return !dataConnection().Open(statement + u'?', {Value}).isEmpty();
        if (type == u"N")
            return !dataConnection().Open(statement + Value).isEmpty();
        throw base::Error(
            base::ErrorNumber::InvalidCall,
            u"\"%1\" is not a type of value that a record can be looked up by."_s.arg(Type));
    });
}

bool IsDuplicate(const QString &Table, const QString &Column, const QVariant &OldValue,
                 const QString &NewValue, bool Numeric)
{
    return trapped(Module, "IsDuplicate", false, [&] {
        const QString value = NewValue.trimmed();
        if (base::toText(OldValue).trimmed().toUpper() == value.toUpper())
            return false;
        const QString statement =
            u"Select top 1 * from "_s + Table + u" Where "_s + Column + u" = "_s;
        if (Numeric)
            return !dataConnection().Open(statement + NewValue).isEmpty();
        return !dataConnection().Open(statement + u'?', {value}).isEmpty();
    });
}

bool ServiceInWorkOrder(qint64 ServiceUsedID)
{
    return trapped(Module, "ServiceInWorkOrder", false, [&] {
        return !dataConnection()
                    .Open(u"Select ServiceUsedID from tblWoServiceUsed Left join tblWorkOrder on "
                          u"tblWoServiceUsed.Workorderno = tblWorkorder.WorkorderNo Where "
                          u"ServiceUSedID = ?"_s,
                          {ServiceUsedID})
                    .isEmpty();
    });
}

bool ChkCountryExist(const QString &Name)
{
    return trapped(Module, "ChkCountryExist", false, [&] {
        // The name goes in as it stands: one with an apostrophe is an error.
        const db::Recordset rows = lookupConnection().Open(
            u"Select itemName From tblIndicator where ParentID = 1 and itemname = '"_s + Name +
            u"'"_s);
        return !rows.isEmpty() && rows.row(0).text(u"itemName") == Name;
    });
}

// --- Recordset getters ---------------------------------------------------------------------------

db::Recordset GetTableInfo(const QString &Table, const QString &Order, const QString &Where)
{
    return trapped(Module, "GetTableInfo", db::Recordset(),
                   [&] { return openNamed(dataConnection(), tableQuery(Table, Order, Where)); });
}

db::Recordset GetTableInfoWithIndicator(const QString &Table, const QString &Order,
                                        const QString &Where)
{
    return trapped(Module, "GetTableInfoWithIndicator", db::Recordset(),
                   [&] { return openNamed(lookupConnection(), tableQuery(Table, Order, Where)); });
}

db::Recordset GetIndicatorInfo(qint64 ParentID, bool ShowAll, bool OrderByName)
{
    return trapped(Module, "GetIndicatorInfo", db::Recordset(), [&] {
        QString statement =
            u"Select * from tblIndicator where ParentID = "_s + QString::number(ParentID);
        if (!ShowAll)
            statement += u" and Show = -1"_s;
        statement += OrderByName ? u" Order by ItemName"_s : u" Order by ItemID"_s;
        return openNamed(lookupConnection(), statement);
    });
}

db::Recordset GetCrewInfo()
{
    return trapped(Module, "GetCrewInfo", db::Recordset(), [&] {
        return openNamed(lookupConnection(),
                         u"Select CrewID,cstr(CrewNumber) + '   ' + Description AS [CrewNumber] "
                         u"from tblCrew order by CrewNumber"_s);
    });
}

qint64 GetCrewIDByService(qint64 Id, const QString &Table)
{
    return trapped(Module, "GetCrewIDByService", qint64(0), [&] {
        const QString key = Table == u"tblWoserviceUsed" ? u"NServiceUsedID"_s : u"ServiceUsedID"_s;
        return firstNumber(dataConnection(), u"Select CrewID from "_s + Table + u" where "_s + key +
                                                 u" = "_s + QString::number(Id));
    });
}

// --- Options, registry, readings -----------------------------------------------------------------

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
        const bool exists = !gcnLookup
                                 ->Open(u"Select itemvalue From tblSysoption where Sysoption = ?"_s,
                                        {valueAndKey[1]})
                                 .isEmpty();
        try {
            gcnLookup->Execute(exists
                                   ? u"Update tblSysOption set itemValue = ? where SysOption = ?"_s
                                   : u"Insert into tblSysOption(itemValue,SysOption) values(?,?)"_s,
                               valueAndKey);
        } catch (const db::DbError &error) {
            // What a workstation remembers for itself is worth no message: the former value stays.
            if (!PerWorkstation || error.number() != db::ErrorNumber::LockConflict)
                throw;
        }
    });
}

qint64 GetEquipmentCount(qint64 EquipmentID, const QString &CountType)
{
    return trapped(Module, "GetEquipmentCount", qint64(0), [&] {
        return firstNumber(
            dataConnection(),
            u"Select top 1 countvalue from tblequipmentcount where equipmentid = "_s +
                QString::number(EquipmentID) + u" and counttype = '"_s + CountType +
                u"' order by changedate desc,countvalue desc"_s);
    });
}

qint64 GetEquipmentCountByCode(qint64 EquipmentID, const QString &PeriodCode)
{
    return GetEquipmentCount(EquipmentID, PeriodWord(PeriodCode));
}

QString PeriodWord(const QString &PeriodCode)
{
    const periods::Period *period = periods::ofCode(PeriodCode);
    return period ? period->word.toString() : PeriodCode;
}

QString GetVersionNo()
{
    return GetRegistryValue(u"VERSION"_s);
}

QString GetRegistryValue(const QString &Name)
{
    return trapped(Module, "GetRegistryValue", QString(),
                   [&] { return settings::registry().value(settings::ProductKey, Name); });
}

void SetRegistryValue(const QString &Name, const QString &Value)
{
    trapped(Module, "SetRegistryValue",
            [&] { settings::registry().setValue(settings::ProductKey, Name, Value); });
}

QString GetMakerRegistryValue(const QString &Name)
{
    return trapped(Module, "GetMakerRegistryValue", QString(),
                   [&] { return settings::registry().value(settings::MakerKey, Name); });
}

// --- Small conversions ---------------------------------------------------------------------------

bool CheckArray(std::span<const int> Values)
{
    return !Values.empty() && std::ranges::find(Values.subspan(1), 1) != Values.end();
}

QString ChangeMinuteInHour(int Minutes)
{
    return u"%1:%2"_s.arg(Minutes / 60).arg(Minutes % 60, 2, 10, QChar(u'0'));
}

void RunAndWait(const QString &CommandLine)
{
    trapped(Module, "RunAndWait", [&] { sys::runAndWait(CommandLine); });
}

QString BrowseForFolder(const QString &Title)
{
    return trapped(Module, "BrowseForFolder", QString(),
                   [&] { return base::prompts().chooseFolder(Title); });
}

bool ValidateEmail(const QString &Address, QString &Message)
{
    const QString address = Address.trimmed();
    const auto refuse = [&](const QString &reason) {
        Message = reason;
        return false;
    };
    const auto isOuter = [&](qsizetype at) { return at == 0 || at == address.size() - 1; };
    const auto isAllowed = [](QChar c) {
        const char16_t lower = c.toLower().unicode();
        return (lower >= u'a' && lower <= u'z') || (lower >= u'0' && lower <= u'9') ||
               QStringView(u"@.-_").contains(lower);
    };

    if (address.size() < 8)
        return refuse(u"Too short"_s);
    const qsizetype at = address.indexOf(u'@');
    if (at < 0)
        return refuse(u"Missing the @"_s);
    if (address.indexOf(u'@', at + 1) >= 0)
        return refuse(u"Too many @"_s);
    const qsizetype period = address.indexOf(u'.');
    if (period < 0)
        return refuse(u"Missing the period"_s);
    if (isOuter(at) || isOuter(period))
        return refuse(u"Invalid format"_s);
    if (!std::ranges::all_of(address, isAllowed))
        return refuse(u"Invalid character"_s);

    QStringView suffix = QStringView(address).last(4);
    for (const qsizetype kept : {3, 2, 1}) {
        if (suffix.size() > kept && suffix[suffix.size() - kept - 1] == u'.')
            suffix = suffix.last(kept);
    }
    if (suffix.size() < 2)
        return refuse(u"Suffix too short"_s);
    if (suffix.size() > 3)
        return refuse(u"Suffix too long"_s);
    return true;
}

// --- Labour --------------------------------------------------------------------------------------

double SetLaborCost(qint64 CrewID)
{
    return trapped(Module, "SetLaborCost", 0.0, [&] {
        const db::Recordset rows = dataConnection().Open(
            u"SELECT Sum(tblEmployee.LaborCost)/Count(tblEmployee.EmployeeID) AS Expr1 FROM "
            u"tblEmployee LEFT JOIN tblCrew ON tblEmployee.Crew = tblCrew.CrewID where  "
            u"tblCrew.CrewID="_s +
            QString::number(CrewID) + u" and (Inactive = '0' and IncludeWoList = '1')"_s);
        if (rows.isEmpty() || rows.isNull(0, 0))
            return 0.0;
        return base::roundedDecimals(rows.value(0, 0).toDouble(), 2);
    });
}

bool ChangeServiceLabourEstimate(qint64 CrewID)
{
    return trapped(Module, "ChangeServiceLabourEstimate", false, [&] {
        const QString rate = base::twoDecimals(SetLaborCost(CrewID));
        for (const QString &table : {u"tblServiceUsed"_s, u"tblWoServiceUsed"_s}) {
            dataConnection().Execute(u"update "_s + table +
                                     // In cents, as everywhere else that a cost is worked out.
                                     u" set CostEstimate = Round(CCur(LaborEstimate * "_s + rate +
                                     u"), 2) where crewID = "_s + QString::number(CrewID));
        }
        return true;
    });
}

bool ChangeCrew(qint64 EquipmentID, const QString &CrewNumber, const QString &CrewDescription)
{
    return trapped(Module, "ChangeCrew", false, [&] {
        dataConnection().Execute(
            u"Insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription) "
            "values(?,?,?)"_s,
            {EquipmentID, CrewNumber, CrewDescription});
        return true;
    });
}
