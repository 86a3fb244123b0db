// How long the front end of the SQL dialect takes: lifting, which every statement pays, and
// translating, which a statement pays the first time that its shape is seen. The goal for the
// latter is 50 microseconds for a statement of usual size.

#include "platform/sql/Translator.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Qt::StringLiterals;

sql::Table table(const QString &name, const QStringList &columns)
{
    sql::Table made;
    made.name = name;
    for (const QString &column : columns) {
        const bool text = column.contains(u"Name"_s) || column.contains(u"Description"_s) ||
                          column == u"PartID"_s || column == u"UnitNo"_s;
        const bool date = column.endsWith(u"Date"_s);
        made.columns.push_back({column,
                                text   ? sql::ColumnKind::Text
                                : date ? sql::ColumnKind::Date
                                       : sql::ColumnKind::Integer,
                                text ? 50 : 0, false, false});
    }
    // As wide as the widest table of the system.
    while (made.columns.size() < 40)
        made.columns.push_back(
            {u"Column%1"_s.arg(made.columns.size()), sql::ColumnKind::Integer, 0, false, false});
    return made;
}

const sql::Schema &schema()
{
    static const sql::Schema made = [] {
        sql::Schema schema;
        schema.add(table(u"tblServiceUsed"_s,
                         {u"ServiceUsedID"_s, u"EquipmentID"_s, u"ServiceID"_s, u"Name"_s,
                          u"CrewID"_s, u"NextScheduledDate"_s, u"Inactive"_s, u"JobNo"_s}));
        schema.add(table(u"tblWorkorder"_s, {u"WorkorderNo"_s, u"EquipmentID"_s, u"Printed"_s}));
        schema.add(table(u"tblWoServiceUsed"_s,
                         {u"NServiceUsedID"_s, u"WorkorderNo"_s, u"ServiceUsedID"_s, u"CrewID"_s,
                          u"NextScheduledDate"_s, u"Skip"_s, u"Completed"_s}));
        schema.add(table(u"tblWoPartUsed"_s, {u"ServiceUsedID"_s, u"PartID"_s, u"Price"_s}));
        schema.add(
            table(u"tblEquipment"_s, {u"EquipmentID"_s, u"EquipmentName"_s, u"UnitNo"_s,
                                      u"EquipmentType"_s, u"EquipmentMake"_s, u"EquipmentModel"_s,
                                      u"SiteID"_s, u"LocationID"_s, u"CrewID"_s}));
        schema.add(table(u"tblCrew"_s, {u"CrewID"_s, u"CrewNumber"_s, u"Description"_s}));
        schema.add(table(u"tblSite"_s, {u"SiteID"_s, u"SiteName"_s}));
        schema.add(table(u"tblLocation"_s, {u"LocationID"_s, u"LocationName"_s}));
        schema.add(table(u"tblIndicator"_s, {u"ItemID"_s, u"ParentID"_s, u"ItemName"_s}));
        schema.add(table(u"tblPart"_s, {u"PartID"_s, u"Description"_s, u"Price"_s}));
        return schema;
    }();
    return made;
}

const QString updateText =
    u"Update tblServiceUsed Set NextScheduledDate = #03-15-2024# Where ServiceUsedID = 12345"_s;

const QString selectText =
    u"Select ServiceUsedID, ServiceID, EquipmentID, NextScheduledDate, Name, tblCrew.CrewID, JobNo "
    "From tblServiceUsed Left Join tblCrew on tblServiceUsed.CrewId = tblCrew.crewID Where "
    "(NextScheduledDate >= #03-01-2024# and NextScheduledDate <= #03-31-2024#) And Serviceusedid "
    "not "
    "in (Select ServiceUsedId from tblWoServiceUsed) and inactive = 0"_s;

/// The statement behind the printed work orders: twelve tables.
const QString largestText =
    u"SELECT tblWorkorder.WorkorderNo, tblEquipment.UnitNo, IIf(ECrew.CrewID<>0,"
    "(cstr(ECrew.CrewNumber)+'   '+ECrew.Description),'') AS ECrewNumber, EquipmentName, "
    "EquipmentType.ItemName, EquipmentMake.ItemName, EquipmentModel.ItemName, tblSite.SiteName, "
    "tblLocation.LocationName, IIf(tblCrew.CrewID<>0,(cstr(tblCrew.CrewNumber)+'   '"
    "+tblCrew.Description),'') AS CrewNumber, tblWoPartUsed.PartID, tblPart.Description, "
    "tblWoPartUsed.Price, tblWoServiceUsed.NserviceUsedID FROM ((((((((((tblWorkorder LEFT JOIN "
    "tblWoServiceUsed ON tblWorkorder.WorkorderNo = tblWoServiceUsed.WorkorderNo) LEFT JOIN "
    "tblWoPartUsed ON tblWoServiceUsed.NServiceUsedID = tblWoPartUsed.ServiceUsedID) LEFT JOIN "
    "tblEquipment ON tblWorkorder.EquipmentID = tblEquipment.EquipmentID) LEFT JOIN tblSite ON "
    "tblEquipment.SiteID = tblSite.SiteID) LEFT JOIN tblLocation ON tblEquipment.LocationID = "
    "tblLocation.LocationID) LEFT JOIN tblIndicator AS EquipmentType ON tblEquipment.EquipmentType "
    "= "
    "EquipmentType.ItemID) LEFT JOIN tblIndicator AS EquipmentMake ON tblEquipment.EquipmentMake = "
    "EquipmentMake.ItemID) LEFT JOIN tblIndicator AS EquipmentModel ON tblEquipment.EquipmentModel "
    "= "
    "EquipmentModel.ItemID) LEFT JOIN tblCrew ON tblWoServiceUsed.CrewID = tblCrew.CrewID) LEFT "
    "JOIN "
    "tblCrew AS Ecrew ON tblEquipment.CrewID = Ecrew.CrewID) LEFT JOIN tblPart ON "
    "tblWoPartUsed.PartID = tblPart.PartID where tblWorkorder.workorderno in (1, 2, 3) and not "
    "(tblWoServiceUsed.Skip = -1 or tblWoServiceUsed.Completed = -1)"_s;

QString longList()
{
    QStringList numbers;
    for (int i = 0; i < 1000; ++i)
        numbers += QString::number(100'000 + i);
    return u"Delete from tblWorkorder where WorkorderNo in ("_s + numbers.join(u", ") + u')';
}

void lift(benchmark::State &state, const QString &statement)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(sql::lift(statement));
    state.SetBytesProcessed(state.iterations() * statement.size());
}

void translate(benchmark::State &state, const QString &statement)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(sql::translate(statement, schema()));
    state.SetBytesProcessed(state.iterations() * statement.size());
}

} // namespace

BENCHMARK_CAPTURE(lift, update, updateText);
BENCHMARK_CAPTURE(lift, select, selectText);
BENCHMARK_CAPTURE(lift, largest, largestText);
BENCHMARK_CAPTURE(lift, list_of_1000, longList());
BENCHMARK_CAPTURE(translate, update, updateText);
BENCHMARK_CAPTURE(translate, select, selectText);
BENCHMARK_CAPTURE(translate, largest, largestText);
BENCHMARK_CAPTURE(translate, list_of_1000, longList());

BENCHMARK_MAIN();
