#include "company/SampleCompany.h"

#include "company/Orders.h"
#include "core/database/CreateDatabase.h"

#include <utility>

namespace company {
namespace {

using namespace Qt::StringLiterals;

void setOption(db::Connection &connection, const QString &key, const QString &value)
{
    connection.Execute(u"Update tblSysOption set itemValue = ? where SysOption = ?"_s,
                       {value, key});
}

void writeOptions(db::Connection &connection)
{
    setOption(connection, u"GEN_COMPANY_NAME"_s, u"Greenfield Grounds Care"_s);
    setOption(connection, u"GEN_COMPANY_ADDRESS1"_s, u"1480 Depot Road"_s);
    setOption(connection, u"GEN_COMPANY_ADDRESS2"_s, u"Cedar Falls, IA 50613"_s);
    setOption(connection, u"GEN_COMPANY_PHONE"_s, u"(319) 555-0100"_s);
    setOption(connection, u"GEN_COMPANY_EMAIL"_s, u"shop@greenfieldgrounds.example"_s);
    setOption(connection, u"GEN_COMPANY_WEBSITE"_s, u"www.greenfieldgrounds.example"_s);
    setOption(connection, u"UserDefinedField1"_s, u"Insurance Policy"_s);
    setOption(connection, u"UserDefinedField2"_s, u"Key Number"_s);
    setOption(connection, u"UserDefinedField4"_s, u"Title Number"_s);
}

/// A second user, who sees and enters most things and removes nothing.
void writeOfficeUser(db::Connection &connection)
{
    connection.Execute(u"Insert into tblUser (UserName, [Password], EmployeeID) "
                       "values ('Office', 'office', '1002')"_s);
    connection.Execute(
        u"Update tblUser set EqAdd = '1', EqMod = '1', EqDel = '0', SerAdd = '1', SerMod = '1', "
        "SerDel = '0', PaAdd = '1', PaMod = '1', PaDel = '0', EqList = '1', EqDetail = '1', "
        "EqCountSheet = '1', ExpOnEq = '0', EqUtilization = '1', EqCrewHistory = '1', "
        "EqScanHistory = '1', InspDatReading = '1', LicRenDateReading = '1', WOHistory = '1', "
        "SerList = '1', SerEqName = '1', SerHistory = '0', SerHistoryTime = '1', "
        "InvReport = '1', InvReorderReport = '1', InvOrUpSer = '1', InvPartUsage = '0', "
        "InvPartHistory = '0' where UserName = 'Office'"_s);
}

} // namespace

sample::Plan sample::planFor(SampleSize size)
{
    Plan plan;
    if (size == SampleSize::Small)
        return plan;
    plan.machines = 10000;
    plan.partSeries = 72;
    plan.historyPerService = 22;
    plan.readingEveryDays = 60;
    plan.openOrders = 2000;
    plan.scansPerMachine = 6;
    if (size == SampleSize::ExtraLarge) {
        plan.dueMachines = std::exchange(plan.machines, 100000);
        plan.restingReadingEveryDays = 150;
    }
    return plan;
}

void loadSampleCompany(db::Connection &connection, QDate today, const sample::Plan &plan,
                       quint64 seed)
{
    const sample::Content content;
    Batch batch(connection);
    writeOptions(connection);
    writeOfficeUser(connection);
    const sample::Masters masters(batch, content, plan, today, seed);
    const std::vector<sample::Machine> machines = sample::makeFleet(content, plan, today, seed);
    sample::writeFleet(batch, content, masters, machines, plan, today, seed);
    sample::Schedule schedule =
        sample::writeSchedule(batch, content, masters, machines, plan, today, seed);
    const sample::OrderNumbers numbers =
        sample::writeHistory(batch, content, masters, machines, schedule, today, seed);
    sample::writeOrders(batch, content, masters, machines, schedule, plan, numbers, today, seed);
    batch.commit();
}

void createSampleDatabase(const db::Target &target, QDate today, const sample::Plan &plan,
                          quint64 seed)
{
    createDatabase(target, [&](db::Connection &connection) {
        loadSampleCompany(connection, today, plan, seed);
    });
}

} // namespace company
