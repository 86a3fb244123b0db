#include "core/CompanySession.h"
#include "core/Conversions.h"
#include "core/Identifiers.h"
#include "core/Labour.h"
#include "core/Meters.h"
#include "core/Tables.h"
#include "core/database/Changes.h"
#include "platform/db/DbError.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct SharedProcedures : test::CompanySession
{
    static void addSupplier(int id)
    {
        insert(u"tblSupplier"_s, {{u"SupplierID"_s, id}, {u"Name"_s, u"A"_s}});
    }
    static qint64 addCrew(int number, const QVariant &description)
    {
        return insert(u"tblCrew"_s, {{u"CrewNumber"_s, number}, {u"Description"_s, description}},
                      u"CrewID"_s);
    }
};

} // namespace

TEST_F(SharedProcedures, NewIdsFollowTheHighestOnTheirConnection)
{
    const auto next = [] { return GenerateID(u"tblSupplier"_s, u"SupplierID"_s); };
    EXPECT_EQ(next(), 1);
    addSupplier(7);
    addSupplier(9);
    EXPECT_EQ(next(), 10);
    gcnData->Execute(u"Delete from tblSupplier where SupplierID = 9"_s);
    EXPECT_EQ(next(), 8);
    // What stands in an open transaction on Data is not there yet for Lookup.
    BeginTrans();
    addSupplier(50);
    EXPECT_EQ(next(), 51);
    EXPECT_EQ(GenerateIDWithIndicator(u"tblSupplier"_s, u"SupplierID"_s), 8);
    RollbackTrans();
    EXPECT_EQ(GenerateID(u"tblSupplier"_s, u"Nothing"_s), 0);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"GenerateID"_s);
    EXPECT_EQ(GenerateIDWithIndicator(u"tblNothing"_s, u"SupplierID"_s), 0);
    EXPECT_EQ(errors.takeOne().ErrNumber, db::ErrorNumber::TableUnknown);
}

TEST_F(SharedProcedures, UniqueIdIsTheTimeAndAGuidHas32Digits)
{
    environment.setNow(base::wallClock(QDate(2024, 3, 9), QTime(17, 5, 8)));
    EXPECT_EQ(GenrateUniqueID(), 309170508);
    const QString guid = GetGUID();
    EXPECT_TRUE(QRegularExpression(u"^[0-9A-F]{32}$"_s).match(guid).hasMatch())
        << guid.toStdString();
    EXPECT_NE(GetGUID(), guid);
}

TEST_F(SharedProcedures, RowsAreCountedAndListedWithAndWithoutACondition)
{
    for (const int id : {1, 3, 2})
        addSupplier(id);
    EXPECT_EQ(GetRecordCount(u"tblSupplier"_s, u"   "_s), 3);
    EXPECT_EQ(GetRecordCount(u"tblSupplier"_s, u"SupplierID > 1"_s), 2);
    EXPECT_EQ(GetRecordCount(u"tblSupplier"_s, u"SupplierID >"_s), 0);
    EXPECT_EQ(errors.takeOne().ProcedureName, u"GetRecordCount"_s);
    EXPECT_EQ(GetTableInfo(u"tblSupplier"_s).RecordCount(), 3);
    const db::Recordset ordered =
        GetTableInfoWithIndicator(u"tblSupplier"_s, u"SupplierID desc"_s, u"SupplierID > 1"_s);
    EXPECT_EQ(ordered.RecordCount(), 2);
    EXPECT_EQ(ordered.row(0).integer(u"SupplierID"), 3);
}

TEST_F(SharedProcedures, FindsWhetherARecordIsUsed)
{
    gcnData->Execute(u"Insert into tblPart(PartID,SupplierID) values('O''Ring',12)"_s);
    const auto isUsed = [](const QString &field, const QString &value, const QString &type) {
        return IsRecordUsed(u"tblPart"_s, field, value, type);
    };
    EXPECT_TRUE(isUsed(u"PartID"_s, u"O'Ring"_s, u"S"_s));
    EXPECT_TRUE(isUsed(u"PartID"_s, u"o'ring"_s, u"s"_s));
    EXPECT_FALSE(isUsed(u"PartID"_s, u"Ring"_s, u"S"_s));
    EXPECT_TRUE(isUsed(u"SupplierID"_s, u"12"_s, u"N"_s));
    EXPECT_FALSE(isUsed(u"SupplierID"_s, u"13"_s, u"n"_s));
    EXPECT_FALSE(isUsed(u"SupplierID"_s, u"0 or 1=1"_s, u"N"_s));
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::TypeMismatch);
    EXPECT_FALSE(isUsed(u"PartID"_s, u"O'Ring"_s, u"X"_s));
    const ErrorReport report = errors.takeOne();
    EXPECT_EQ(report.ModuleName + u' ' + report.ProcedureName, u"General Function IsRecordUsed"_s);
}

TEST_F(SharedProcedures, FindsDuplicates)
{
    gcnData->Execute(u"Insert into tblPart(PartID,SupplierID) values('O''Ring',12)"_s);
    const auto isTaken = [](const QVariant &old, const QString &value) {
        return IsDuplicate(u"tblPart"_s, u"PartID"_s, old, value, false);
    };
    EXPECT_TRUE(isTaken({}, u"  o'ring "_s));
    EXPECT_FALSE(isTaken(u" o'RING"_s, u"O'Ring  "_s));
    EXPECT_TRUE(isTaken(u"Other"_s, u"O'Ring"_s));
    EXPECT_FALSE(isTaken({}, u"Seal"_s));
    EXPECT_TRUE(IsDuplicate(u"tblPart"_s, u"SupplierID"_s, 11, u"12"_s, true));
    EXPECT_FALSE(IsDuplicate(u"tblPart"_s, u"SupplierID"_s, 12, u"12"_s, true));
    EXPECT_FALSE(IsDuplicate(u"tblPart"_s, u"SupplierID"_s, 11, u"0 or 1=1"_s, true));
    EXPECT_EQ(errors.takeOne().ErrNumber, base::ErrorNumber::TypeMismatch);
    // Equal values are settled without a look at the table.
    EXPECT_FALSE(IsDuplicate(u"tblNothing"_s, u"x"_s, u"same"_s, u" SAME "_s, false));
}

TEST_F(SharedProcedures, FindsAServiceOnAnOpenOrder)
{
    const qint64 row = insert(u"tblWoServiceUsed"_s, {{u"ServiceUsedID"_s, 41}, {u"CrewID"_s, 6}},
                              u"NServiceUsedID"_s);
    EXPECT_TRUE(ServiceInWorkOrder(41));
    EXPECT_FALSE(ServiceInWorkOrder(42));
    // The key column goes by the exact name of the table.
    EXPECT_EQ(GetCrewIDByService(row, u"tblWoserviceUsed"_s), 6);
    EXPECT_EQ(GetCrewIDByService(41, u"tblWoServiceUsed"_s), 6);
    EXPECT_EQ(GetCrewIDByService(42, u"tblWoServiceUsed"_s), 0);
}

TEST_F(SharedProcedures, ACountryIsKnownInItsExactCase)
{
    EXPECT_TRUE(ChkCountryExist(u"Canada"_s));
    EXPECT_FALSE(ChkCountryExist(u"canada"_s));
    EXPECT_FALSE(ChkCountryExist(u"Owner"_s)); // of another list
    EXPECT_FALSE(ChkCountryExist(u"Cote d'Ivoire"_s));
    insert(u"tblIndicator"_s, {{u"ParentID"_s, 1}, {u"ItemName"_s, u"Cote d'Ivoire"_s}});
    EXPECT_TRUE(ChkCountryExist(u"Cote d'Ivoire"_s));
}

TEST_F(SharedProcedures, TableInfoNamesWhatIsWrong)
{
    for (const auto &[table, order, description, number] :
         {std::tuple{u"tblNothing"_s, QString(), u"Invalid Table Name"_s,
                     db::ErrorNumber::TableUnknown},
          std::tuple{u"tblSupplier"_s, u"Nothing"_s, u"Invalid Column Name"_s,
                     db::ErrorNumber::ValueMissing},
          std::tuple{u"tblSupplier"_s, u"Name ,, Name"_s, u"Invalid Column Name"_s,
                     db::ErrorNumber::Syntax}}) {
        EXPECT_EQ(GetTableInfo(table, order).columnCount(), 0);
        EXPECT_EQ(GetTableInfoWithIndicator(table, order).columnCount(), 0);
        const std::vector<ErrorReport> reports = errors.take();
        ASSERT_EQ(reports.size(), 2u);
        EXPECT_EQ(reports[1].ProcedureName, reports[0].ProcedureName + u"WithIndicator"_s);
        EXPECT_EQ(reports[0].ErrDescription, description);
        EXPECT_EQ(reports[0].ErrNumber, number);
    }
}

TEST_F(SharedProcedures, AListHoldsItsMembersShownOrAll)
{
    const qint64 list = 9000;
    for (const auto &[name, show] :
         {std::pair(u"Zeta"_s, 1), std::pair(u"Alpha"_s, 1), std::pair(u"Hidden"_s, 0)})
        insert(u"tblIndicator"_s, u"ParentID, ItemName, Show"_s, {list, name, show});
    const auto names = [](bool all, bool sorted) {
        QStringList result;
        for (const db::Row row : GetIndicatorInfo(list, all, sorted))
            result << row.text(u"ItemName");
        return result.join(u' ');
    };
    EXPECT_EQ(names(false, true), u"Alpha Zeta");
    EXPECT_EQ(names(false, false), u"Zeta Alpha");
    EXPECT_EQ(names(true, true), u"Alpha Hidden Zeta");
}

TEST_F(SharedProcedures, ACrewIsListedByNumberAndDescription)
{
    addCrew(12, u"North"_s);
    addCrew(3, u"South"_s);
    addCrew(20, {});
    QSet<QString> texts;
    for (const db::Row row : GetCrewInfo())
        texts << row.text(u"CrewNumber");
    // None at all without a description.
    EXPECT_EQ(texts, (QSet<QString>{{}, u"12   North"_s, u"3   South"_s}));
}

TEST_F(SharedProcedures, OptionsAreSharedOrOfTheWorkstation)
{
    BeginTrans();
    SetOption(u"Rate"_s, 5, false);
    SetOption(u"RATE"_s, u"it's"_s, false);
    SetOption(u"Rate"_s, u"mine"_s, true);
    RollbackTrans(); // whatever becomes of the work on Data
    EXPECT_EQ(GetOption(u"rate"_s, false), u"it's"_s);
    EXPECT_EQ(GetOption(u"Rate"_s, true), u"mine"_s);
    EXPECT_EQ(GetOption(u"None"_s, false), QString());
    EXPECT_EQ(count(u"tblSysOption"_s, u"SysOption = '%1RATE'"_s.arg(GetRegistryValue(u"GUID"_s))),
              1);
    SetOption(u"It's"_s, u"kept"_s, false);
    EXPECT_EQ(GetRecordCount(u"tblSysOption"_s, u"SysOption = 'It''s'"_s), 1);
    // Another workstation is the first to store it.
    const auto other = database.open();
    gcnLookup->setObserver([&](const db::Sent &sent) {
        if (sent.statement.startsWith(u"Insert into tblSysOption"))
            other->Execute(u"Insert into tblSysOption(SysOption) values('New')"_s);
    });
    SetOption(u"New"_s, u"mine"_s, false);
    gcnLookup->setObserver({});
    EXPECT_EQ(GetOption(u"New"_s, false), u"mine"_s);
    // The read takes the key as it stands.
    EXPECT_EQ(GetOption(u"It's"_s, false), QString());
    EXPECT_EQ(errors.takeOne().ProcedureName, u"GetOption"_s);
}

TEST_F(SharedProcedures, OptionsNeedAWorkstationsGuid)
{
    SetOption(u"Key"_s, u"1"_s, false);
    SetRegistryValue(u"GUID"_s, QString());
    EXPECT_EQ(GetOption(u"Key"_s, false), QString());
    EXPECT_EQ(GetOption(u"Key"_s, true), QString());

    const QString tooShort(29, u'A');
    SetRegistryValue(u"GUID"_s, tooShort);
    EXPECT_EQ(GetOption(u"Key"_s, false), u"1"_s);
    SetOption(u"Key"_s, u"2"_s, true);
    const QString made = GetRegistryValue(u"guid"_s);
    EXPECT_EQ(made.size(), 32);
    EXPECT_EQ(GetRecordCount(u"tblSysOption"_s, u"SysOption = '%1Key'"_s.arg(made)), 1);

    const QString longEnough(30, u'B');
    SetRegistryValue(u"GUID"_s, longEnough);
    SetOption(u"Key"_s, u"3"_s, true);
    EXPECT_EQ(GetRegistryValue(u"GUID"_s), longEnough);
}

TEST_F(SharedProcedures, TheNewestReadingCountsAndTheHigherOfOneDay)
{
    const std::tuple<int, QString, int, int> readings[] = {
        {1, u"Hours"_s, 1, 500}, {1, u"Hours"_s, 5, 120}, {1, u"Hours"_s, 5, 130},
        {1, u"Miles"_s, 9, 999}, {1, u"Days"_s, 9, 4},    {2, u"Hours"_s, 9, 7}};
    for (const auto &[machine, type, day, value] : readings)
        insert(u"tblEquipmentCount"_s, u"EquipmentID, CountType, ChangeDate, CountValue"_s,
               {machine, type, base::wallClock({2024, 3, day}), value});
    EXPECT_EQ(GetEquipmentCount(1, u"Hours"_s), 130);
    EXPECT_EQ(GetEquipmentCount(1, u"Counts"_s), 0);
    EXPECT_EQ(GetEquipmentCount(3, u"Hours"_s), 0);
    for (const auto &[code, expected] :
         {std::pair(u"H"_s, 130), std::pair(u"I"_s, 999), std::pair(u"D"_s, 4),
          std::pair(u"Hours"_s, 130), std::pair(u"h"_s, 0)})
        EXPECT_EQ(GetEquipmentCountByCode(1, code), expected) << code.toStdString();
}

TEST_F(SharedProcedures, LabourCostIsTheMeanOfThoseWhoCount)
{
    const qint64 crew = addCrew(1, u"North"_s);
    const qint64 other = addCrew(2, u"South"_s);
    const auto employee = [](const QString &id, qint64 of, const QString &cost, int inactive = 0,
                             int counted = 1) {
        insert(u"tblEmployee"_s, u"EmployeeID, Crew, LaborCost, Inactive, IncludeWoList"_s,
               {id, of, cost, inactive, counted});
    };
    employee(u"1"_s, crew, u"10"_s);
    employee(u"2"_s, crew, u"10.01"_s);
    employee(u"3"_s, crew, u"12"_s);
    employee(u"4"_s, crew, u"900"_s, 1);
    employee(u"5"_s, crew, u"900"_s, 0, 0);
    EXPECT_DOUBLE_EQ(SetLaborCost(crew), 10.67); // 32.01 / 3
    EXPECT_DOUBLE_EQ(SetLaborCost(other), 0);
    employee(u"6"_s, other, u"23.34"_s);
    employee(u"7"_s, other, u"23.35"_s);
    EXPECT_DOUBLE_EQ(SetLaborCost(other), 23.35); // the half of a cent goes up
    const auto service = [](const QString &table, qint64 of, double hours) {
        insert(table, {{u"CrewID"_s, of}, {u"LaborEstimate"_s, hours}, {u"CostEstimate"_s, 1}});
    };
    service(u"tblServiceUsed"_s, crew, 2);
    service(u"tblServiceUsed"_s, other, 2);
    service(u"tblWoServiceUsed"_s, crew, 0.5);
    EXPECT_TRUE(ChangeServiceLabourEstimate(crew));
    EXPECT_EQ(found(u"Select CostEstimate from tblServiceUsed order by CrewID"_s), u"21.34\n1");
    EXPECT_EQ(found(u"Select CostEstimate from tblWoServiceUsed"_s), u"5.34");
}

TEST_F(SharedProcedures, WithoutADatabaseProceduresReportAndGiveTheirDefault)
{
    closeConnections();
    EXPECT_EQ(GenerateID(u"tblSupplier"_s, u"SupplierID"_s), 0);
    EXPECT_EQ(errors.takeOne().ErrDescription, u"The database is not open."_s);
    // The report form asks for its own place before there is a database.
    EXPECT_EQ(GetOption(u"DBVERSION"_s, false), QString());
    SetOption(u"DBVERSION"_s, u"1"_s, false);
    openConnections();
    EXPECT_EQ(GetOption(u"DBVERSION"_s, false), QString::number(company::schemaVersion()));
}

TEST_F(SharedProcedures, RegistryValuesAreTrimmedAndSeparateByKey)
{
    settings::registry().setValue(settings::MakerKey, u"HANDHELD"_s, u"C:\\Sync\\"_s);
    EXPECT_EQ(GetMakerRegistryValue(u"handheld"_s), u"C:\\Sync\\"_s);
    EXPECT_EQ(GetRegistryValue(u"HANDHELD"_s), QString());
    SetRegistryValue(u"VERSION"_s, u" 2.3.1 "_s);
    EXPECT_EQ(GetVersionNo(), u"2.3.1"_s);
}

TEST(Conversions, ACheckedArrayBeginsAtOneAndMinutesHaveTwoDigits)
{
    EXPECT_TRUE(CheckArray(std::array{0, 0, 1}));
    EXPECT_FALSE(CheckArray(std::array{1, 2, -1}));
    EXPECT_FALSE(CheckArray({}));
    EXPECT_EQ(ChangeMinuteInHour(65), u"1:05"_s);
    EXPECT_EQ(ChangeMinuteInHour(1505), u"25:05"_s);
}

TEST(ValidateEmail, NamesTheFirstRuleThatFails)
{
    const std::pair<const char *, const char *> cases[] = {
        // Refused.
        {"", "Too short"},
        {"a@b.com", "Too short"},
        {"  a@b.com   ", "Too short"},
        {"nobody.example.com", "Missing the @"},
        {"a@b@example.com", "Too many @"},
        {"a@@example", "Too many @"},
        {"nobody@example", "Missing the period"},
        {"@example.com", "Invalid format"},
        {"example.com@", "Invalid format"},
        {".nobody@example.com", "Invalid format"},
        {"nobody@com.", "Invalid format"},
        {"no body@example.com", "Invalid character"},
        {"nob+dy@example.com", "Invalid character"},
        {"nob\xc3\xb6"
         "dy@example.com",
         "Invalid character"},
        {"nobody@example.c", "Suffix too short"},
        {"nobody@example.info", "Suffix too long"},
        {"nobody@a.examples", "Suffix too long"},
        // Taken.
        {"nobody@example.com", ""},
        {"NoBody_9-x@Example.Co.Uk", ""},
        {"  nobody@example.us  ", ""},
        {"no.body@exampl.e1", ""}};
    for (const auto &[address, expected] : cases) {
        QString message;
        EXPECT_EQ(ValidateEmail(QString::fromUtf8(address), message), *expected == 0) << address;
        EXPECT_EQ(message.toStdString(), expected) << address;
    }
}
