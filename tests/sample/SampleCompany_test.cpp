#include "company/SampleCompany.h"
#include "platform/db/Structure.h"
#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QRegularExpression>

namespace {

using namespace Qt::StringLiterals;

class SampleCompany : public testing::Test
{
protected:
    test::TestEnvironment m_environment;
    test::SampleCompany m_database;
    std::unique_ptr<db::Connection> m_connection = m_database.open();

    [[nodiscard]] qint64 number(const QString &query)
    {
        return m_connection->Open(query).row(0)[0].toLongLong();
    }
    /// How many rows a condition finds, in the form "tblX where ...".
    [[nodiscard]] qint64 count(const QString &from)
    {
        return number(u"Select count(*) from "_s + from);
    }
};

/// A digest of every row of every table.
QByteArray digest(const test::CompanyDatabase &database, db::Connection &connection)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const db::RowCounts tables = db::countRows(database.target());
    for (auto table = tables.begin(); table != tables.end(); ++table)
        for (const QString &line :
             test::linesOf(connection.Open(u"Select * from "_s + table.key())))
            hash.addData(line.toUtf8());
    return hash.result();
}

TEST(LoadSampleCompany, IsTheSameForOneDayAndSeed)
{
    const test::TestEnvironment environment;
    const auto made = [](QDate today, quint64 seed) {
        const test::CompanyDatabase database;
        const auto connection = database.open();
        company::loadSampleCompany(*connection, today, {}, seed);
        return digest(database, *connection);
    };
    const QDate today = test::SampleCompany::today();
    const QByteArray first = made(today, company::UsualSeed);
    EXPECT_EQ(made(today, company::UsualSeed), first);
    EXPECT_NE(made(today, company::UsualSeed + 1), first);
    EXPECT_NE(made(today.addDays(1), company::UsualSeed), first);
}

TEST_F(SampleCompany, ALargerFleetHasAsMuchDueWorkWhenItsOtherMachinesAreAhead)
{
    const test::CompanyDatabase database;
    const auto larger = database.open();
    company::sample::Plan plan;
    plan.machines = 240;
    plan.dueMachines = 80;
    company::loadSampleCompany(*larger, test::SampleCompany::today(), plan, company::UsualSeed);
    const auto due = [](db::Connection &connection) {
        return test::linesOf(connection.Open(
            u"Select ServiceUsedID, EquipmentID, Name, NextScheduledDate, NextScheduledCount "
            "from tblServiceUsed where Inactive = 0 and NextScheduledDate <= #03-15-2024# "
            "and NextScheduledDate >= #02-14-2024#"_s));
    };
    EXPECT_EQ(due(*larger), due(*m_connection));
    const auto rows = [](db::Connection &connection, const QString &table) {
        return connection.Open(u"Select count(*) from "_s + table).row(0)[0].toLongLong();
    };
    for (const QString &table : {u"tblServiceUsed"_s, u"tblWOServiceUsedHistory"_s})
        EXPECT_GT(rows(*larger, table), 5 * rows(*m_connection, table) / 2) << qPrintable(table);
}

TEST_F(SampleCompany, HoldsWhatASmallCompanyHas)
{
    const std::pair<const char *, int> least[] = {
        {"tblEquipment", 80},       {"tblSite", 6},           {"tblCrew", 8},
        {"tblCostCenter", 5},       {"tblEmployee", 25},      {"tblServices", 45},
        {"tblSupplier", 12},        {"tblPart", 270},         {"tblServiceUsed", 450},
        {"tblWorkorder", 10},       {"tblLocation", 12},      {"tblEquipmentCount", 2000},
        {"tblWoPartHistory", 2000}, {"tblEquipmentScan", 100}};
    for (const auto &[table, rows] : least)
        EXPECT_GE(count(QString::fromLatin1(table)), rows) << table;
    EXPECT_EQ(count(u"tblUser"_s), 2);
    EXPECT_GE(number(u"Select DateDiff('d', min(CompleteDate), max(CompleteDate)) "
                     "from tblWOServiceUsedHistory"_s),
              3 * 365 - 40);
    // Each kind of schedule is in the catalogue.
    for (const char *condition :
         {"Period = 'D'", "Period = 'W'", "Period = 'M'", "Period = 'Y'", "Period = 'C'",
          "Period = 'H'", "Period = 'K'", "Period = 'I'", "RenewalOn = 'W'", "RenewalOn = 'S'",
          "RenewalOn = 'D'", "SeparateWo = '1'", "DOM = 1", "Sun = 0 and Mon = 1 and DOM = 0",
          "SecondW = 1 and LastW = 0", "Nov = 1 and Jul = 0"})
        EXPECT_GT(count(u"tblServices where "_s + QString::fromLatin1(condition)), 0) << condition;

    const std::pair<const char *, int> more[] = {
        {"tblWOServiceUsedHistory where Skip = -1", 20},
        {"tblWorkorder where Printed = '1'", 0},
        {"tblWorkorder where Printed = '0'", 0},
        {"tblWorkorder where Complete = -1 and CompletedDate = #03-15-2024#", 0},
        {"tblWorkorder where WorkorderNo not in (Select WorkorderNo from tblWoServiceUsed)", 0},
        {"tblWoServiceUsed where Skip = -1 and Completed = 0 and [Note] <> ''", 0},
        {"tblPart where Quantity < QtyMin and Inactive = No and TrackInventory = No", 5},
        {"tblPart where TrackInventory = -1", 5},
        {"tblPart where Inactive = -1", 5},
        {"tblPart where Quantity >= QtyMin", 5},
        {"tblEquipment where InspectionDate between #03-15-2023# and #03-15-2024#", 0},
        {"tblEquipment where not InspectionDate between #03-15-2023# and #03-15-2024#", 0},
        {"tblEquipment where LicenseRenewalDate between #03-15-2023# and #03-15-2024#", 0},
        {"tblEquipment where not LicenseRenewalDate between #03-15-2023# and #03-15-2024#", 0}};
    for (const auto &[from, fewer] : more)
        EXPECT_GT(count(QString::fromLatin1(from)), fewer) << from;
}

TEST_F(SampleCompany, SomethingIsAlwaysLateDueAndToCome)
{
    const QString waiting =
        u"tblServiceUsed left join tblEquipment on tblServiceUsed.EquipmentID = "
        "tblEquipment.EquipmentID where tblServiceUsed.Inactive = 0 and "
        "tblEquipment.Inactive = '0' and ServiceUsedID not in "
        "(Select ServiceUsedID from tblWoServiceUsed) and NextScheduledDate "_s;
    // Also on the days after the one that it was made for.
    for (const int later : {0, 1, 7}) {
        SCOPED_TRACE(later);
        const auto day = [&](int offset) {
            return test::SampleCompany::today().addDays(later + offset).toString(u"#MM-dd-yyyy#"_s);
        };
        EXPECT_GT(count(waiting + u"= "_s + day(0)), 0);
        EXPECT_GT(count(waiting + u"< %1 and NextScheduledDate >= %2"_s.arg(day(0), day(-13))), 0);
        EXPECT_GT(count(waiting + u"< %1 and NextScheduledDate >= %2"_s.arg(day(-13), day(-30))),
                  0);
        EXPECT_GT(count(waiting + u"< "_s + day(-30)), 0);
        EXPECT_GT(count(waiting + u"> "_s + day(0)), 100);
        EXPECT_GT(count(waiting + u"<= %1 and Period in ('C','H','K','I')"_s.arg(day(0))), 0);
    }
}

TEST_F(SampleCompany, CountServicesFollowTheReadings)
{
    // The first reading that reached the target gives the date; without one there is none.
    for (const auto &[code, word] :
         {std::pair(u"C"_s, u"Counts"_s), std::pair(u"H"_s, u"Hours"_s),
          std::pair(u"K"_s, u"Kilometers"_s), std::pair(u"I"_s, u"Miles"_s)}) {
        const QString services = u"tblServiceUsed s where s.Period = '%1' and "_s.arg(code);
        const QString reached =
            u"from tblEquipmentCount c where c.EquipmentID = s.EquipmentID and "
            "c.CountType = '%1' and c.CountValue >= s.NextScheduledCount)"_s.arg(word);
        EXPECT_EQ(
            count(services + u"s.NextScheduledDate <> (Select min(c.ChangeDate) "_s + reached), 0);
        EXPECT_EQ(
            count(services + u"s.NextScheduledDate is null and exists (Select * "_s + reached), 0);
    }
    const QString all = u"tblServiceUsed where Period in ('C','H','K','I')"_s;
    const qint64 due = count(all + u" and NextScheduledDate is not null"_s);
    EXPECT_GT(due, 5);
    EXPECT_LT(due, count(all) / 3);
    EXPECT_EQ(count(u"tblEquipmentCount a inner join tblEquipmentCount b on a.EquipmentID = "
                    "b.EquipmentID and a.CountType = b.CountType where a.ChangeDate < b.ChangeDate "
                    "and a.CountValue > b.CountValue"_s),
              0);
}

TEST_F(SampleCompany, HoldsNothingThatContradictsItself)
{
    for (const char *from :
         {// No flag is Null.
          "tblEquipment where Inactive is null or CrewID is null",
          "tblServiceUsed where Inactive is null or SeparateWo is null or Mon is null",
          "tblWorkorder where Printed is null or Complete is null",
          "tblWoServiceUsed where Skip is null or Completed is null",
          // Part history belongs to service history, and skipped work used no parts.
          "tblWoPartHistory where ServiceusedID not in "
          "(Select ServiceUsedID from tblWOServiceUsedHistory)",
          "tblWoPartHistory where partID not in (Select PartID from tblPart)",
          "(Select ServiceUsedID from tblWOServiceUsedHistory group by ServiceUsedID "
          "having count(*) > 1)",
          "tblWoPartHistory where QuantityUsed < 0 or QuantityUsed > 100 or Price <= 0 or "
          "SupplierID is null",
          "tblWoPartHistory p inner join tblWOServiceUsedHistory s on "
          "p.ServiceusedID = s.ServiceUsedID where s.Skip = -1 and p.QuantityUsed <> 0",
          // What is complete has its date, and can be posted: its meters were read.
          "tblWorkorder where (Complete = -1) and CompletedDate is null",
          "tblWorkorder where (Complete = 0) and CompletedDate is not null",
          "tblWoServiceUsed where Skip = -1 and Completed = -1",
          "tblWoServiceUsed where Completed = -1 and Period in ('C','H','K','I') and "
          "CountValue is null",
          "tblWoPartUsed where ServiceUsedID not in (Select NServiceUsedID from tblWoServiceUsed)",
          "tblWoServiceUsed a inner join tblServiceUsed b on a.ServiceUsedID = b.ServiceUsedID "
          "where a.EquipmentID <> b.EquipmentID or b.NextScheduledDate is null or "
          "b.NextScheduledDate > #03-15-2024#",
          // One order holds one crew's work of one machine, and what goes alone is alone.
          "(Select WorkorderNo from tblWoServiceUsed where SeparateWo = '1' group by WorkorderNo "
          "having count(*) > 1)",
          "(Select WorkorderNo from tblWoServiceUsed group by WorkorderNo "
          "having min(CrewID) <> max(CrewID) or min(EquipmentID) <> max(EquipmentID))",
          // Machines stand in one place and were bought before today.
          "(Select UnitNo from tblEquipment group by UnitNo having count(*) > 1)",
          "tblEquipment where UnitNo like '*[!A-Z0-9 ]*'",
          "tblEquipment e inner join tblLocation l on e.LocationID = l.LocationID "
          "where l.Site <> e.SiteID",
          "tblEquipment where Totalcost <= SalvageValue or LifeYears < 1 or "
          "Acquisitiondate > #03-15-2024#"})
        EXPECT_EQ(count(QString::fromLatin1(from)), 0) << from;
    // A model stands under its make and that under the machine's type.
    EXPECT_EQ(count(u"(tblEquipment e inner join tblIndicator m on e.EquipmentModel = m.ItemID) "
                    "inner join tblIndicator k on e.EquipmentMake = k.ItemID where "
                    "m.ParentID = e.EquipmentMake and k.ParentID = e.EquipmentType"_s),
              count(u"tblEquipment"_s));
    // New orders and their services are numbered behind all posted ones.
    EXPECT_GT(number(u"Select min(WorkorderNo) from tblWorkorder"_s),
              number(u"Select max(WorkorderNo) from tblWOServiceUsedHistory"_s));
    EXPECT_GT(number(u"Select min(NServiceUsedID) from tblWoServiceUsed"_s),
              number(u"Select max(ServiceUsedID) from tblWOServiceUsedHistory"_s));
}

TEST_F(SampleCompany, LaborIsHoursTimesTheCrewsRate)
{
    QHash<qint64, double> rates;
    for (const db::Row row :
         m_connection->Open(u"Select Crew, Sum(LaborCost) / Count(EmployeeID) as Rate "
                            "from tblEmployee where Inactive = '0' and IncludeWoList = '1' "
                            "group by Crew"_s))
        rates.insert(row.integer(u"Crew"), std::round(row.real(u"Rate") * 100) / 100);
    const db::Recordset history = m_connection->Open(
        u"Select CrewID, Workhrs, StartTime, EndTime, CostEstimate from tblWOServiceUsedHistory "
        "where Skip = 0"_s);
    const QRegularExpression hours(u"^\\d+:\\d\\d$"_s);
    ASSERT_GT(history.RecordCount(), 1000);
    for (const db::Row row : history) {
        const QString worked = row.text(u"Workhrs");
        ASSERT_TRUE(hours.match(worked).hasMatch()) << worked.toStdString();
        const int minutes =
            worked.section(u':', 0, 0).toInt() * 60 + worked.section(u':', 1).toInt();
        ASSERT_NEAR(row.real(u"CostEstimate"), minutes / 60.0 * rates[row.integer(u"CrewID")],
                    0.006);
        const QTime start = QTime::fromString(row.text(u"StartTime"), u"HH:mm"_s);
        const QTime end = QTime::fromString(row.text(u"EndTime"), u"HH:mm"_s);
        ASSERT_EQ(start.secsTo(end), minutes * 60);
    }
}

TEST_F(SampleCompany, TheNextNewOrderGetsAFreeNumber)
{
    for (const auto &[table, key] : {std::pair(u"tblWorkorder"_s, u"WorkorderNo"_s),
                                     std::pair(u"tblServiceUsed"_s, u"ServiceUsedID"_s)}) {
        const qint64 last = number(u"Select max(%1) from %2"_s.arg(key, table));
        const QString statement = u"Insert into %1(EquipmentID) values(1)"_s.arg(table);
        EXPECT_EQ(m_connection->Insert(statement, {}, key), last + 1);
    }
}

} // namespace
