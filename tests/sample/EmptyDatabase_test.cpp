#include "support/CompanyDatabase.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

using namespace Qt::StringLiterals;

/// A table's columns in their order, each with a letter for its kind: I whole number, # counter,
/// R real, M money, T text, D date, d date that is today when an insert leaves it out, Y Yes/No,
/// B picture.
struct TableCase
{
    const char *name;
    const char *columns;
};

const TableCase tables[] = {
    {"tblEquipment",
     "EquipmentID:I EquipmentName:T EquipmentType:I EquipmentMake:I EquipmentModel:I "
     "Capacity:T EquipmentYear:T Bar_Code:T EquipmentSerialNo:T UnitNo:T InstalledDate:D "
     "AttachedTo:T SiteID:I LocationID:I CrewID:I Inactive:I LeaseOwnedLeased:I "
     "LeaseCompany:I LeaseStartDate:D LeaseEndDate:D LeasePeriod:I LeaseInterval:T "
     "LeasePayment:M WarrantyStartDate:D WarrantyEndDate:D WarrantyPeriod:I "
     "WarrantyInterval:T Notes:T UserDefined1:T UserDefined2:T UserDefined3:T UserDefined4:T "
     "UserDefined5:T UserDefined6:T UserDefined7:T UserDefined8:T UserDefined9:T "
     "UserDefined10:T EngineSize:T EngineMake:I EngineModel:I EngineSerialNo:T Cycle:T "
     "EngineFuelType:I VehicleOwnedLeased:I BeginingHub:I StateLicensed:T LicenseNo:T "
     "StickerNumber:T LicenseRenewalDate:D PermanentLicense:I InspectionDate:D "
     "VehicleFuelType:I Tyre:T Rear_Tires:T Weight:T Vin:T Body:I Chassis:I Trans:I "
     "VehicleEngineType:I VehicleEngineNo:T VehicleColor:T VehicleEngineModel:T SupplierID:I "
     "SupplierPartNo:T ManufactureID:I ManufacturePartNo:T Acquisitiondate:D "
     "AcquisitionCost:M AdditionalCost:M PurchaseNotes:T Totalcost:M SalvageValue:M "
     "LifeYears:I"},
    {"tblEquipmentCount", "EquipmentID:I ChangeDate:D CountType:T CountValue:I"},
    {"tblEquipmentPart", "EquipmentID:I PartID:T QuantityRequired:R Price:M SupplierID:I"},
    {"tblEquipmentImage", "EquipmentID:I ImageName:T ImageData:B"},
    {"tblEquipmentDocument", "EquipmentId:I DocumentName:T"},
    {"tblEquipmentDepreciation",
     "EquipmentID:I EndofYear:I AnnualDepreciation:R AccumualtedDepreciation:R BookValue:R"},
    {"tblEquipmentCrewHistory", "EquipmentID:I CrewNumber:T CrewDescription:T CrewDate:d"},
    {"tblEquipmentScan", "EquipmentID:I ScanTime:D ScanStatus:T"},
    {"tblPart", "PartID:T Description:T PartCategoryID:I Quantity:R Price:M SupplierID:I QtyMax:R "
                "QtyMin:R Inactive:Y Notes:T Bin:T Bar_Code:T TrackInventory:Y"},
    {"tblSupplier",
     "SupplierID:I Name:T Tax:T Terms:T CreditLimit:M Email:T WebSite:T Address:T Address2:T "
     "City:T State:I Zip:T Phone:T Fax:T Atten:T LicenseNo:T ContactName:T Notes:T"},
    {"tblEmployee",
     "EmployeeID:T FirstName:T Lastname:T InitialName:T Gender:T BirthDate:D Address:T "
     "City:T State:I Country:I Zip:T Phone:T CellPhone:T Email:T Pager:T SS:T LicenseNo:T "
     "Site:I Skills:T Crew:I EmpPosition:I LaborCost:M LaborRate:M Inactive:I "
     "IncludeWoList:I"},
    {"tblCrew", "CrewID:# CrewNumber:I Description:T"},
    {"tblSite", "SiteID:# SiteName:T Address:T City:T StateID:I Zip:T"},
    {"tblLocation", "LocationID:# LocationName:T Description:T Site:I"},
    {"tblCostCenter", "CostCenterID:# Description:T Budget:M"},
    {"tblIndicator", "ItemID:# ParentID:I ItemName:T Show:Y FSize:I"},
    {"tblSysOption", "SysOption:T itemValue:T"},
    {"tblUser",
     "UserName:T Password:T EmployeeID:T EqAdd:I EqMod:I EqDel:I SerAdd:I SerMod:I SerDel:I "
     "PaAdd:I PaMod:I PaDel:I EqList:I EqDetail:I EqCountSheet:I ExpOnEq:I EqUtilization:I "
     "EqCrewHistory:I EqScanHistory:I InspDatReading:I LicRenDateReading:I WOHistory:I "
     "SerList:I SerEqName:I SerHistory:I SerHistoryTime:I InvReport:I InvReorderReport:I "
     "InvOrUpSer:I InvPartUsage:I InvPartHistory:I"},
    {"tblGridSetting", "FormName:T Tablename:T FieldName:T Width:I FPosition:I SortType:I"},
    {"tblErrorList",
     "ErrNumber:I ErrDescription:T LineNumber:I UserMsg:T ModuleName:T ProcedureName:T "
     "ErrDateTime:T UserEmail:T"},
    {"tblTableFields", "Tablename:T RowID:I FieldDesc:T FieldName:T FieldType:T"},
    {"tblTempServicePart", "PartID:T Quantity:R Price:M"},
    {"tblServices",
     "ServiceID:I Name:T CrewID:I CostCenterID:I Period:T EInterval:I RenewalOn:T Sun:I "
     "Mon:I Tue:I Wed:I Thu:I Fri:I Sat:I FirstW:I SecondW:I ThirdW:I ForthW:I LastW:I DOM:I "
     "Dom1:I Dom2:I Dom3:I Dom4:I Dom5:I Jan:I Feb:I Mar:I Apr:I May:I Jun:I Jul:I Aug:I "
     "Sep:I Oct:I Nov:I Dece:I SeparateWo:I LaborEstimate:R CostEstimate:M Note:T JobNo:I "
     "NextScheduledDate:D"},
    {"tblServicesPart", "PartID:T ServiceID:I QuantityRequired:R Price:M SupplierID:I"},
    {"tblServiceUsed",
     "ServiceUsedID:# EquipmentID:I ServiceID:I Name:T CrewID:I CostCenterID:I Period:T "
     "EInterval:I RenewalOn:T Sun:I Mon:I Tue:I Wed:I Thu:I Fri:I Sat:I FirstW:I SecondW:I "
     "ThirdW:I ForthW:I LastW:I DOM:I Dom1:I Dom2:I Dom3:I Dom4:I Dom5:I Jan:I Feb:I Mar:I "
     "Apr:I May:I Jun:I Jul:I Aug:I Sep:I Oct:I Nov:I Dece:I SeparateWo:I LaborEstimate:R "
     "CostEstimate:M Note:T JobNo:I Inactive:I NextScheduledCount:I LastDateScheduled:D "
     "LastDatePerformed:D NextScheduledDate:D"},
    {"tblServiceUsedPart", "PartID:T ServiceUsedID:I QuantityRequired:R Price:M SupplierID:I"},
    {"tblWorkorder", "WorkorderNo:# EquipmentID:I Printed:I Complete:Y CompletedDate:D WoDate:d"},
    {"tblWoServiceUsed",
     "NServiceUsedID:# WorkorderNo:I ServiceUsedID:I ServiceID:I EquipmentID:I "
     "LastDateScheduled:D LastDatePerformed:D NextScheduledDate:D Name:T CrewID:I "
     "CostCenterID:I SeparateWo:I LaborEstimate:R CostEstimate:M Note:T Period:T JobNo:I "
     "Completed:Y Skip:Y StartTime:T EndTime:T Workhrs:T CountValue:I SupplierID:I"},
    {"tblWoPartUsed",
     "ServiceUsedID:I PartID:T QuantityRequired:R QuantityUsed:R Price:M Used:Y SupplierID:I"},
    {"tblWOServiceUsedHistory",
     "WorkorderNo:I ServiceUsedID:I EquipmentID:I ServiceID:I ServiceName:T CrewID:I "
     "CrewNumber:I LastDateScheduled:D LastDatePerformed:D NextScheduleddate:D "
     "CostCenterID:T SeparateWo:I LaborEstimate:R CostEstimate:M Note:T Period:T jobNo:I "
     "CountValue:I Skip:Y StartTime:T EndTime:T Workhrs:T SupplierID:I SupplierName:T "
     "StartDate:D CompleteDate:D"},
    {"tblWoPartHistory",
     "ServiceusedID:I partID:T Description:T PartCategoryID:T Price:M SupplierID:T "
     "SupplierName:T QuantityRequired:R QuantityUsed:R"},
};

char letterOf(const sql::Column &column)
{
    switch (column.kind) {
    case sql::ColumnKind::Integer:
        return column.autoNumber ? '#' : 'I';
    case sql::ColumnKind::Real:
        return 'R';
    case sql::ColumnKind::Money:
        return 'M';
    case sql::ColumnKind::Text:
        return 'T';
    case sql::ColumnKind::Date:
        return column.defaultsToToday ? 'd' : 'D';
    case sql::ColumnKind::YesNo:
        return 'Y';
    case sql::ColumnKind::Binary:
        return 'B';
    default:
        return '?';
    }
}

class EmptyDatabase : public testing::Test
{
protected:
    test::TestEnvironment m_environment;
    test::CompanyDatabase m_database;
    std::unique_ptr<db::Connection> m_connection = m_database.open();

    [[nodiscard]] qint64 number(const QString &query)
    {
        return m_connection->Open(query).row(0)[0].toLongLong();
    }
};

TEST_F(EmptyDatabase, HasEveryTableWithItsColumnsInOrder)
{
    for (const TableCase &expected : tables) {
        SCOPED_TRACE(expected.name);
        const sql::Table *table = m_connection->schema().find(QString::fromLatin1(expected.name));
        ASSERT_NE(table, nullptr);
        QStringList columns;
        for (const sql::Column &column : table->columns)
            columns << column.name + u':' + QLatin1Char(letterOf(column));
        EXPECT_EQ(columns.join(u' ').toStdString(), expected.columns);
    }
    EXPECT_EQ(m_connection->schema().find(u"tblWotemp"), nullptr) << "made by the import";
}

TEST_F(EmptyDatabase, FlagsAndYesNoColumnsStartAtZero)
{
    m_connection->Execute(u"Insert into tblServiceUsed (EquipmentID, Name) values (1, 'Oil')"_s);
    m_connection->Execute(u"Insert into tblEquipment (EquipmentID) values (1)"_s);
    m_connection->Execute(u"Insert into tblPart (PartID) values ('A')"_s);
    const db::Recordset service = m_connection->Open(u"Select * from tblServiceUsed"_s);
    for (const QString &column :
         {u"Sun"_s, u"Sat"_s, u"FirstW"_s, u"LastW"_s, u"DOM"_s, u"Dom1"_s, u"Dom5"_s, u"Jan"_s,
          u"Dece"_s, u"SeparateWo"_s, u"Inactive"_s, u"EInterval"_s})
        EXPECT_EQ(service[column], QVariant(0)) << column.toStdString();
    EXPECT_EQ(number(u"Select count(*) from tblEquipment where Inactive = '0'"_s), 1);
    EXPECT_EQ(number(u"Select count(*) from tblPart where Inactive = No and TrackInventory = 0"_s),
              1);
}

TEST_F(EmptyDatabase, DatesThatAnInsertLeavesOutAreToday)
{
    m_connection->Execute(u"Insert into tblWorkOrder (EquipmentId, Printed) values ('1', '0')"_s);
    m_connection->Execute(
        u"Insert into tblEquipmentCrewHistory (EquipmentID, CrewNumber) values (1, '3')"_s);
    EXPECT_EQ(m_connection->Open(u"Select WoDate from tblWorkorder"_s).row(0).date(u"WoDate"),
              base::wallClock(QDate(2024, 3, 15)));
    EXPECT_EQ(m_connection->Open(u"Select CrewDate from tblEquipmentCrewHistory"_s)
                  .row(0)
                  .date(u"CrewDate"),
              base::wallClock(QDate(2024, 3, 15)));
}

TEST_F(EmptyDatabase, KeysRefuseASecondRow)
{
    const char *const inserts[] = {
        "Insert into tblEquipment (EquipmentID) values (7)",
        "Insert into tblServices (ServiceID) values (7)",
        "Insert into tblPart (PartID) values ('a-1')",
        "Insert into tblEmployee (EmployeeID) values ('E1')",
        "Insert into tblSupplier (SupplierID) values (7)",
        "Insert into tblSysOption (SysOption) values ('KEY')",
        "Insert into tblUser (UserName) values ('Bob')",
        "Insert into tblServicesPart (ServiceID, PartID) values (7, 'a-1')",
        "Insert into tblEquipmentImage (EquipmentID, ImageName) values (7, 'front')",
        "Insert into tblEquipmentDocument (EquipmentId, DocumentName) values (7, 'manual.pdf')",
    };
    for (const char *insert : inserts) {
        SCOPED_TRACE(insert);
        m_connection->Execute(QString::fromLatin1(insert));
        try {
            m_connection->Execute(QString::fromLatin1(insert));
            ADD_FAILURE() << "a second row was taken";
        } catch (const db::DbError &error) {
            EXPECT_EQ(error.number(), db::ErrorNumber::DuplicateKey);
        }
    }
    // Two readings may be equal in every column, and two machines may lack a serial number.
    for (int i = 0; i < 2; ++i)
        m_connection->Execute(
            u"Insert into tblEquipmentCount values (1, #3/1/2024#, 'Hours', 5)"_s);
    EXPECT_EQ(number(u"Select count(*) from tblEquipmentCount"_s), 2);
}

TEST_F(EmptyDatabase, ListsHaveTheirFixedNumbers)
{
    const QList<int> lists = {1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    QList<int> found;
    for (const db::Row row : m_connection->Open(
             u"Select ItemID from tblIndicator where ItemID < 100 order by ItemID"_s))
        found << static_cast<int>(row.integer(u"ItemID"));
    EXPECT_EQ(found, lists);
    // The names that the editor of the lists compares.
    const auto name = [&](int list) {
        return m_connection->Open(u"Select ItemName from tblIndicator where ItemID = ?"_s, {list})
            .row(0)
            .text(u"ItemName");
    };
    EXPECT_EQ(name(7), u"Make Type"_s);
    EXPECT_EQ(name(9), u"Model Type"_s);
    EXPECT_EQ(name(11), u"State"_s);
    // The editor's fallback for a parent list without entries must find nothing.
    EXPECT_EQ(number(u"Select count(*) from tblIndicator where ParentID = -1"_s), 0);
    // Every list but those whose members hang under another list's has members, all are offered.
    for (const int list : {1, 3, 4, 5, 6, 8, 10, 12, 13, 14, 15, 16, 17})
        EXPECT_GT(
            number(
                u"Select count(*) from tblIndicator where Show = -1 and ParentID = %1"_s.arg(list)),
            4)
            << list;
    EXPECT_EQ(number(u"Select count(*) from tblIndicator where ParentID in "
                     "(Select ItemID from tblIndicator where ParentID = 1 and "
                     "ItemName = 'United States')"_s),
              51);
    EXPECT_EQ(number(u"Select count(*) from tblIndicator a left join tblIndicator b "
                     "on a.ParentID = b.ItemID where a.ParentID <> 0 and b.ItemID is null"_s),
              0);
}

TEST_F(EmptyDatabase, ANewListItemGetsTheNextNumber)
{
    const qint64 last = number(u"Select max(ItemID) from tblIndicator"_s);
    EXPECT_EQ(m_connection->Insert(
                  u"Insert into tblIndicator(ParentId,ItemName,Show,FSize) values(5,'Hay',1,0)"_s,
                  {}, u"ItemID"_s),
              last + 1);
}

TEST_F(EmptyDatabase, SearchFieldsAreTypedAndTheirColumnsExist)
{
    for (const char *searched :
         {"tblEquipment", "tblPart", "tblEmployee", "tblLocation", "tblSupplier"}) {
        SCOPED_TRACE(searched);
        const QString table = QString::fromLatin1(searched);
        const db::Recordset fields = m_connection->Open(
            u"Select Distinct * from tblTableFields where Tablename = '%1'"_s.arg(table));
        EXPECT_GT(fields.RecordCount(), 2);
        for (const db::Row field : fields) {
            EXPECT_TRUE((QStringList{u"INT"_s, u"VARCHAR"_s, u"DECIMAL"_s, u"CHAR"_s, u"DATETIME"_s,
                                     u"BIT"_s})
                            .contains(field.text(u"FieldType")));
            EXPECT_NE(m_connection->schema().find(table)->find(field.text(u"FieldName")), nullptr)
                << field.text(u"FieldName").toStdString();
        }
    }
    EXPECT_EQ(number(u"Select count(*) from (Select RowID from tblTableFields group by RowID "
                     "having count(*) > 1)"_s),
              0);
}

TEST_F(EmptyDatabase, BeginsWithOptionsAndTheBuiltInUser)
{
    const auto option = [&](const char *key) {
        return m_connection
            ->Open(u"Select itemValue from tblSysOption where SysOption = ?"_s,
                   {QString::fromLatin1(key)})
            .row(0)
            .text(u"itemValue");
    };
    EXPECT_EQ(option("COUNT_READING_DELAY"), u"7"_s);
    EXPECT_EQ(option("SECURITYONOFF"), u"0"_s);
    EXPECT_EQ(option("userdefinedfield10"), u"User Field10"_s);
    EXPECT_EQ(number(u"Select count(*) from tblUser where UserName = 'admin' and EqAdd = '1' and "
                     "PaDel = '1' and InvPartHistory = '1'"_s),
              1);
    EXPECT_EQ(number(u"Select count(*) from tblUser"_s), 1);
    EXPECT_EQ(number(u"Select count(*) from tblEquipment"_s), 0);
}

} // namespace
