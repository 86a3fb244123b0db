#include "scheduling/clsServices.h"

#include "core/Identifiers.h"
#include "core/Permission.h"
#include "core/RecordStore.h"
#include "core/RowTests.h"
#include "core/Tables.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "scheduling/GetNextScheduledDate.h"
#include "scheduling/Readings.h"

#include <optional>

namespace {

using namespace Qt::StringLiterals;

constexpr const char *Module = "clsServicesManager";

/// All columns that both stores have, in the order of the insert, but the key.
constexpr record::Field<clsServices> Fields[] = {
    {u"Name", &clsServices::Name},
    {u"CrewID", &clsServices::CrewID},
    {u"CostCenterID", &clsServices::CostCenterID},
    {u"Period", &clsServices::Period},
    {u"EInterval", &clsServices::EInterval},
    {u"RenewalOn", &clsServices::RenewalOn},
    {u"Mon", &clsServices::Mon},
    {u"Tue", &clsServices::Tue},
    {u"Wed", &clsServices::Wed},
    {u"Thu", &clsServices::Thu},
    {u"Fri", &clsServices::Fri},
    {u"Sat", &clsServices::Sat},
    {u"Sun", &clsServices::Sun},
    {u"FirstW", &clsServices::FirstW},
    {u"SecondW", &clsServices::SecondW},
    {u"ThirdW", &clsServices::ThirdW},
    {u"ForthW", &clsServices::ForthW},
    {u"LastW", &clsServices::LastW},
    {u"DOM", &clsServices::Dom},
    {u"DOM1", &clsServices::DOM1},
    {u"DOM2", &clsServices::DOM2},
    {u"DOM3", &clsServices::DOM3},
    {u"DOM4", &clsServices::DOM4},
    {u"DOM5", &clsServices::DOM5},
    {u"Jan", &clsServices::Jan},
    {u"Feb", &clsServices::Feb},
    {u"Mar", &clsServices::Mar},
    {u"Apr", &clsServices::Apr},
    {u"May", &clsServices::May},
    {u"Jun", &clsServices::Jun},
    {u"Jul", &clsServices::Jul},
    {u"Aug", &clsServices::Aug},
    {u"Sep", &clsServices::Sep},
    {u"Oct", &clsServices::Oct},
    {u"Nov", &clsServices::Nov},
    {u"Dece", &clsServices::Dece},
    {u"SeparateWo", &clsServices::SeparateWo},
    {u"LaborEstimate", &clsServices::LaborEstimate},
    {u"CostEstimate", &clsServices::CostEstimate},
    {u"Note", &clsServices::Note},
    {u"JobNo", &clsServices::JobNo},
};

QVariant dateOrNull(const QDateTime &date)
{
    return date.isValid() ? QVariant(date) : QVariant();
}

void insertIntoCatalogue(const clsServices &service)
{
    std::vector<QStringView> columns{u"ServiceID"};
    for (const record::Field<clsServices> &field : Fields)
        columns.push_back(field.column);
    QVariantList values{service.ServiceID};
    values += record::values<clsServices>(service, Fields);
    gcnData->Execute(record::insertStatement(u"tblServices", columns), values);
}

/// A field of the service as one of the assigned service.
record::Field<AssignedService> assignedField(const record::Field<clsServices> &field)
{
    return {field.column, std::visit(
                              [](auto member) -> record::Member<AssignedService> {
                                  using Value = std::decay_t<decltype(clsServices().*member)>;
                                  return static_cast<Value AssignedService::*>(member);
                              },
                              field.member)};
}

std::vector<record::Field<AssignedService>> assignedFields()
{
    std::vector<record::Field<AssignedService>> fields;
    std::ranges::transform(Fields, std::back_inserter(fields), assignedField);
    fields.push_back({u"NextScheduledDate", &AssignedService::NextScheduledDate});
    fields.push_back({u"Inactive", &AssignedService::Inactive});
    fields.push_back({u"NextScheduledCount", &AssignedService::NextScheduledCount});
    return fields;
}

AssignedService whole(const clsServices &service, const AssignedSchedule &schedule)
{
    return {service, schedule};
}

void change(const clsServices &service, const std::optional<AssignedService> &shown)
{
    std::optional<clsServices> before;
    if (shown)
        before = *shown;
    record::change<clsServices>(record::Store::Data, u"tblServices", Fields, service, before,
                                u"ServiceID", service.ServiceID, [](const db::Row &row) {
                                    return clsServicesManager::fromRow(row,
                                                                       ServiceStore::Catalogue);
                                });
}

void change(const AssignedService &service, const std::optional<AssignedService> &shown)
{
    record::change<AssignedService>(record::Store::Data, u"tblServiceUsed",
                                    AssignedService::fields(), service, shown, u"ServiceUsedID",
                                    service.ServiceID, AssignedService::fromRow);
}

/// A count service needs a first reading to count from; without a date of its own it may be due on
/// the meter already.
void followTheMeter(qint64 serviceUsedID)
{
    const AssignedService service = AssignedService::fromRow(
        clsServicesManager().GetServiceInfo(serviceUsedID, ServiceStore::Assigned).row(0));
    const AssignedSchedule &schedule = service;
    QString countType = readings::countType(service.Period);
    if (countType.isEmpty())
        return;
    if (!readings::hasAny(schedule.EquipmentID, countType)) {
        readings::addFirst(schedule.EquipmentID, service.ServiceID, service.Name, countType);
        // The first reading is where the service counts from, so it is not due on it, whatever
        // target it was stored with before.
        gcnData->Execute(
            u"Update tblServiceUsed set NextScheduledCount = ?, NextScheduledDate = ? "
            "where ServiceUsedID = ?"_s,
            {readings::newest(schedule.EquipmentID, countType).value + service.EInterval,
             dateOrNull(schedule.NextScheduledDate), service.ServiceID});
    }
    if (schedule.NextScheduledDate.isValid())
        return;
    const base::Whole whole;
    const QDateTime due = GetNextScheduledDate(service.ServiceID);
    if (due.isValid())
        gcnData->Execute(
            u"Update tblServiceUsed Set NextScheduledDate = ? Where ServiceUsedID = ?"_s,
            {due, service.ServiceID});
}

} // namespace

std::span<const record::Field<clsServices>> clsServices::fields()
{
    return Fields;
}

std::span<const record::Field<AssignedService>> AssignedService::fields()
{
    static const std::vector<record::Field<AssignedService>> fields = assignedFields();
    return fields;
}

AssignedService AssignedService::fromRow(const db::Row &row)
{
    AssignedService service{clsServicesManager::fromRow(row, ServiceStore::Assigned), {}};
    service.EquipmentID = row.integer(u"EquipmentID");
    service.NextScheduledDate = row.date(u"NextScheduledDate");
    service.NextScheduledCount = row.integer(u"NextScheduledCount");
    service.Inactive = static_cast<int>(row.integer(u"Inactive"));
    return service;
}

bool clsServicesManager::SaveRecord(clsServices &Service, ::Mode Mode, ServiceStore Store,
                                    const AssignedSchedule &Schedule,
                                    const std::optional<AssignedService> &Shown) const
{
    const auto write = [&] {
        if (Mode == Mode::Add) {
            insertIntoCatalogue(Service);
        } else if (Store == ServiceStore::Catalogue) {
            change(Service, Shown);
        } else {
            change(whole(Service, Schedule), Shown);
            followTheMeter(Service.ServiceID);
        }
    };
    return base::trapped(Module, "SaveRecord", false, [&] {
        rights::demand(rights::Services.toSave(Mode));
        constexpr int Tries = 10;
        for (int tries = 1;; ++tries) {
            try {
                write();
                return true;
            } catch (const db::DbError &error) {
                // A changed row keeps its key: with another one it would not be found at all.
                if (error.number() != db::ErrorNumber::DuplicateKey || Mode != Mode::Add ||
                    tries == Tries)
                    throw;
                Service.ServiceID = qMax(GenrateUniqueID(), Service.ServiceID + 1);
                Service.JobNo = GenerateID(u"tblServices"_s, u"JobNO"_s);
            }
        }
    });
}

bool clsServicesManager::DeleteRecord(qint64 ServiceID) const
{
    return base::trapped(Module, "DeleteRecord", false, [&] {
        rights::demand(rights::Services.remove);
        // The transaction of a machine's edit is ended by the machine's screen.
        std::optional<TransactionScope> own;
        if (!gbInTransaction)
            own.emplace();
        gcnData->Execute(u"Delete from tblServices where serviceID=?"_s, {ServiceID});
        gcnData->Execute(u"Delete from tblServicesPart where serviceID=?"_s, {ServiceID});
        if (own)
            own->commit();
        return true;
    });
}

QString clsServicesManager::CanDeletePart(qint64 ServiceID) const
{
    return IsRecordUsed(u"tblServiceUsed"_s, u"ServiceID"_s, QString::number(ServiceID), u"N"_s)
               ? u"Service Used"_s
               : QString();
}

db::Recordset clsServicesManager::GetServiceInfo(qint64 ServiceID, ServiceStore Store) const
{
    return gcnData->Open(Store == ServiceStore::Assigned
                             ? u"Select * from tblServiceUsed where ServiceUsedID = ?"_s
                             : u"Select * from tblServices where ServiceID = ?"_s,
                         {ServiceID});
}

db::Recordset clsServicesManager::GetCostCenterInfo() const
{
    return GetTableInfoWithIndicator(u"tblCostCenter"_s, u"CostCenterId"_s);
}

bool clsServicesManager::SaveServiceUsedRecord(qint64 ServiceUsedID,
                                               const QDateTime &LastDateScheduled,
                                               const QDateTime &LastDatePerformed,
                                               const QDateTime &NextScheduledDate) const
{
    return base::trapped(Module, "SaveServiceUsedRecord", false, [&] {
        gcnData->Execute(u"Update tblServiceUsed set LastDateScheduled = ?, LastDatePerformed = ?, "
                         "NextScheduledDate = ? Where ServiceUsedID = ?"_s,
                         {dateOrNull(LastDateScheduled), dateOrNull(LastDatePerformed),
                          dateOrNull(NextScheduledDate), ServiceUsedID});
        return true;
    });
}

bool clsServicesManager::UpdateJobNoForAllService(qint64 ServiceID, qint64 JobNo) const
{
    return base::trapped(Module, "UpdateJobNoForAllService", false, [&] {
        gcnData->Execute(u"Update tblServiceUsed set JobNo = ? Where serviceid = ?"_s,
                         {JobNo, ServiceID});
        gcnData->Execute(u"Update tblWoServiceUsed set JobNo = ? Where serviceid = ?"_s,
                         {JobNo, ServiceID});
        return true;
    });
}

clsServices clsServicesManager::fromRow(const db::Row &row, ServiceStore store)
{
    clsServices service = record::load<clsServices>(row, Fields);
    service.ServiceID =
        row.integer(store == ServiceStore::Catalogue ? u"ServiceID" : u"ServiceUsedID");
    if (row.isNull(u"EInterval"))
        service.EInterval = 1;
    return service;
}
