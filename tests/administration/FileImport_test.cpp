#include "administration/FileImport.h"

#include "administration/Workbooks.h"
#include "core/CompanySession.h"
#include "core/InTheWay.h"
#include "core/Permission.h"

using namespace Qt::StringLiterals;
using namespace administration;
using test::raisedBy;

namespace {

class FileImport : public test::CompanySession
{
protected:
    FileImport() { gRights.EqAdd = gRights.PaAdd = gRights.EqCountSheet = true; }
    ~FileImport() override { gRights = {}; }

    [[nodiscard]] QString file(const QByteArray &text) const
    {
        const QString path = environment.folder() + u"/rows.csv"_s;
        test::writeFile(path, text);
        return path;
    }
    /// The problems of a dry run, a line each.
    [[nodiscard]] QString problems(ImportKind kind, const QByteArray &text) const
    {
        return linesOf(checkFile(kind, file(text)));
    }
    static QString linesOf(const ImportFindings &findings)
    {
        QStringList lines;
        for (const ImportProblem &problem : findings.problems)
            lines.append(problem.text());
        EXPECT_EQ(findings.problemCount, lines.size());
        return lines.join(u'\n');
    }
    /// A dry run and an import that is allowed what it wanted.
    ImportFindings import(ImportKind kind, const QByteArray &text) const
    {
        const QString path = file(text);
        return importFile(kind, path, checkFile(kind, path).newEntries);
    }
    static QString machines()
    {
        return found(u"Select UnitNo, EquipmentName from tblEquipment order by UnitNo"_s);
    }
};

constexpr auto machineQuery =
    u"Select e.UnitNo, e.EquipmentName, t.ItemName, m.ItemName, o.ItemName, s.SiteName, "
    "l.LocationName, c.CrewNumber, p.Name, e.Totalcost, e.Acquisitiondate, e.Inactive, "
    "e.LeaseOwnedLeased, e.LifeYears from ((((((tblEquipment e left join tblIndicator t on "
    "e.EquipmentType = t.ItemID) left join tblIndicator m on e.EquipmentMake = m.ItemID) left join "
    "tblIndicator o on e.EquipmentModel = o.ItemID) left join tblSite s on e.SiteID = s.SiteID) "
    "left join tblLocation l on e.LocationID = l.LocationID) left join tblCrew c on e.CrewID = "
    "c.CrewID) left join tblSupplier p on e.SupplierID = p.SupplierID order by e.UnitNo";

} // namespace

TEST_F(FileImport, MachinesComeWithTheEntriesOfTheirLists)
{
    const ImportFindings findings = import(
        ImportKind::Machines,
        "\xEF\xBB\xBFunit #;NAME;Type;Make;Model;Site;Location;Crew;Supplier;Total Cost;Purchase "
        "Date;Inactive;Ownership;Life;Colour of the seat\r\n"
        "zt1;Mower;zero-turn mower;TORO;New One;North;Shed;7;Smith;1.234,5678;03/15/2024;yes;"
        "leased;10;red\r\n"
        "ZT2;\"Mower; \"\"old\"\"\";Sledge;Toro;New "
        "One;North;Shed;7;smith;;2024-03-16;;;;\r\n\r\n");
    ASSERT_TRUE(findings.isWritten);
    EXPECT_EQ(findings.summary(),
              u"2 rows were imported. 8 entries were added to the lists. No such column is known, "
              "and it is left out: Colour of the seat."_s);
    EXPECT_EQ(
        found(QString::fromUtf16(machineQuery)),
        u"ZT1|Mower|Zero-Turn Mower|Toro|New One|North|Shed|7|Smith|1234.5678|3/15/2024|1|2|10\n"
        "ZT2|Mower; \"old\"|Sledge|Toro|New One|North|Shed|7|Smith|0|3/16/2024|0|0|0"_s);
    EXPECT_EQ(findings.newEntries[0], (NewEntry{u"Model"_s, u"New One"_s, u"TORO"_s}));
    EXPECT_EQ(count(u"tblEquipmentCrewHistory"_s, u"CrewNumber = '7'"_s), 2);
    EXPECT_EQ(count(u"tblSite"_s), 1);
    EXPECT_EQ(value(u"Select Show from tblIndicator where ItemName = 'Sledge'"_s).toInt(), -1);
    EXPECT_LT(value(u"Select max(EquipmentID) from tblEquipment"_s).toInt(), 101'000'000)
        << "no number that the clock gives";
    // Nothing is new the second time.
    EXPECT_TRUE(import(ImportKind::Machines, "Unit,Name,Type,Make,Model\nZT3,x,Sledge,Toro,New "
                                             "One\n")
                    .newEntries.empty());
    EXPECT_EQ(value(u"Select max(EquipmentID) from tblEquipment"_s).toInt(), 3);
}

TEST_F(FileImport, ASpreadsheetIsTakenByItsContent)
{
    const test::Workbooks books;
    QString path = file({});
    const auto take = [&](const QByteArray &rows) {
        const QString made =
            books.withRows("<row><c t='str'><v>Unit No</v></c><c t='str'><v>Name</v></c>"
                           "<c t='str'><v>Life</v></c></row>" +
                           rows);
        QFile::remove(path);
        EXPECT_TRUE(QFile::rename(made, path));
        return importFile(ImportKind::Machines, path, {});
    };
    const QByteArray good = "<row r='4'><c t='str'><v>T1</v></c><c t='str'><v>Mower</v></c>"
                            "<c><v>9</v></c></row>";
    EXPECT_EQ(linesOf(take(good + "<row r='7'><c t='str'><v>T2</v></c><c t='e'><v>#REF!</v></c>"
                                  "<c t='str'><v>nine</v></c></row>")),
              u"Row 7, Equipment Name: The cell shows the error #REF!."_s);
    EXPECT_EQ(machines(), QString());
    EXPECT_TRUE(take(good).isWritten);
    EXPECT_EQ(found(u"Select UnitNo, EquipmentName, LifeYears from tblEquipment"_s),
              u"T1|Mower|9"_s);
    path = file("\xD0\xCF\x11\xE0\xA1\xB1");
    EXPECT_TRUE(raisedBy([&] { static_cast<void>(checkFile(ImportKind::Machines, path)); })
                    .description()
                    .startsWith(u"The file is an old spreadsheet (.xls), or needs a password."));
}

TEST_F(FileImport, EachProblemIsToldWithItsPlaceAndNothingIsWritten)
{
    insert(u"tblEquipment"_s,
           {{u"EquipmentID"_s, 9}, {u"UnitNo"_s, u"T9"_s}, {u"EquipmentSerialNo"_s, u"S9"_s}});
    const QByteArray rows = "Unit No,Equipment Name,Serial No,Total "
                            "Cost,Installed,Make,Location,Crew,Life,Inactive,Type\n"
                            "T1,a,,,,,,,,,\n"
                            "t1,b,,,,,,,,,\n"
                            "t9,c,s9,,,,,,,,\n"
                            ",d,,,,,,,,,\n"
                            "T-5,,,,,,,,,,\n"
                            "T6,e,,12.34567,,,,,,,\n"
                            "T7,f,,-1,02/30/2024,,,,,perhaps,\n"
                            "T8,g,,1.2.3,01/01/1066,,,,1000,,\n"
                            "T10,h,,,,Toro,Shed,seven,,,\n"
                            "T11,i,,,,,,,,,,too much\n"
                            "T12,\"j\"x,,,,,,,,,\n" +
                            ("T13,k,,,,,,,,," + QByteArray(61, 't') + '\n');
    EXPECT_EQ(problems(ImportKind::Machines, rows), uR"(Row 3, Unit No: "T1" stands in row 2 too.
Row 4, Unit No: "T9" exists already.
Row 4, Serial No: "s9" exists already.
Row 5, Unit No: It should not be blank.
Row 6, Unit No: "T-5" may hold letters, digits and blanks only.
Row 6, Equipment Name: It should not be blank.
Row 7, Total Cost: "12.34567" has more than four decimals.
Row 8, Total Cost: "-1" is below zero.
Row 8, Installed Date: "02/30/2024" is not a date such as 03/15/2024 or 2024-03-15.
Row 8, Inactive: "perhaps" is not Yes or No.
Row 9, Total Cost: "1.2.3" is not a number.
Row 9, Installed Date: The year of "01/01/1066" is not one of 1900 to 2199.
Row 9, Life Years: "1000" is more than 999.
Row 10, Make: It needs a value in the column Type.
Row 10, Location: It needs a value in the column Site.
Row 10, Crew: "seven" is not the number of a crew.
Row 11: There are 12 fields in this row, and 11 headings.
Row 12, Equipment Name: There is text behind the closing quotation mark. A quotation mark within a text is written twice.
Row 13, Type: The text has 61 characters, and 60 fit.)"_s);
    const ImportFindings findings = importFile(ImportKind::Machines, file(rows), {});
    EXPECT_FALSE(findings.isWritten);
    EXPECT_EQ(findings.summary(), u"19 problems were found in 12 rows. Nothing was imported."_s);
    EXPECT_EQ(machines(), u"T9|"_s);
}

TEST_F(FileImport, HeadingsAreLookedAtFirst)
{
    EXPECT_EQ(
        problems(ImportKind::Parts, "Part Number,Part No,Description,Price,price\n1,2,3,4,5\n"),
        u"Row 1, Part Number: \"Part Number\" and \"Part No\" mean the same column.\n"
        "Row 1, Price: \"Price\" and \"price\" mean the same column."_s);
    EXPECT_EQ(problems(ImportKind::Employees, "Name,Name\nx,y\n"),
              u"Row 1, Employee Number: This column is missing in the first row.\n"
              "Row 1, First Name: This column is missing in the first row."_s);
    EXPECT_EQ(checkFile(ImportKind::Parts, file("Part,Part,Name\n")).problemCount, 1);
    for (const char *text : {"", "\n\n", "\xEF\xBB\xBF", ",,\na,b,c\n"})
        EXPECT_EQ(problems(ImportKind::Parts, text),
                  u"Row 1: The file is empty, or its first row is: that row holds the headings."_s);
    EXPECT_EQ(raisedBy([] { (void)checkFile(ImportKind::Parts, u"/nowhere.csv"_s); }).number(),
              base::ErrorNumber::FileNotFound);
}

TEST_F(FileImport, NumbersAreReadAsTheFileWritesThem)
{
    const auto price = [this](const QByteArray &text, const char *sign) {
        const QString path =
            file(QByteArray("Part,Name,Price\na,b,").replace(',', sign) + text + '\n');
        if (!importFile(ImportKind::Parts, path, {}).isWritten)
            return u"no"_s;
        const QString stored = value(u"Select Price from tblPart"_s).toString();
        gcnData->Execute(u"Delete from tblPart"_s);
        return stored;
    };
    EXPECT_EQ(price("\"$1,234.50\"", ","), u"1234.5"_s);
    EXPECT_EQ(price("\"1,234,567\"", ","), u"1234567"_s);
    EXPECT_EQ(price("0.0625", ","), u"0.0625"_s);
    EXPECT_EQ(price(".5", ","), u"0.5"_s);
    EXPECT_EQ(price("\"12,5\"", ","), u"no"_s);
    EXPECT_EQ(price("12,5", ";"), u"12.5"_s);
    EXPECT_EQ(price("1.234,5", ";"), u"1234.5"_s);
    EXPECT_EQ(price("1,234.5", ";"), u"1234.5"_s);
    EXPECT_EQ(price("1.234", ";"), u"no"_s) << "a thousand, or one and a quarter";
    EXPECT_EQ(price("1.25", ";"), u"1.25"_s);
    EXPECT_EQ(price("1e3", ","), u"no"_s);
    EXPECT_EQ(price("900000000001", ","), u"no"_s);
}

TEST_F(FileImport, PartsAndEmployeesAreStoredByTheirManagers)
{
    ASSERT_TRUE(import(ImportKind::Parts,
                       "Part No\tName\tCategory\tQty\tPrice\tDo Not Track\tNotes\n"
                       "b-1\tBelt\tBelts of all kinds\t2.5\t3.25\tyes\t\"one\r\ntwo\"\n")
                    .isWritten);
    EXPECT_EQ(found(u"Select p.PartID, p.Description, i.ItemName, i.ParentID, p.Quantity, p.Price, "
                    "p.TrackInventory, p.Inactive, p.Notes from tblPart p left join tblIndicator i "
                    "on p.PartCategoryID = i.ItemID"_s),
              u"B-1|Belt|Belts of all kinds|10|2.5|3.25|-1|0|one\r\ntwo"_s);
    ASSERT_TRUE(import(ImportKind::Employees,
                       "Number,First Name,Surname,Country,State,Phone,Gender,Birth Date,Labor "
                       "Rate,Position\n"
                       "e1,Ann,Lee,United States,ca,555.123.4567,female,5/6/80,20.5,Chief\n"
                       "E2,Bo,,,,+49 30 1234,,,,\n")
                    .isWritten);
    EXPECT_EQ(
        found(u"Select e.EmployeeID, e.Lastname, s.ItemName, e.Phone, e.Gender, e.BirthDate, "
              "e.LaborRate, p.ItemName from (tblEmployee e left join tblIndicator s on "
              "e.State = s.ItemID) left join tblIndicator p on e.EmpPosition = p.ItemID order "
              "by e.EmployeeID"_s),
        u"E1|Lee|CA|(555) 123-4567|2|5/6/1980|20.5|Chief\nE2|||+49 30 1234|0||0|"_s);
    EXPECT_EQ(problems(ImportKind::Parts, "Part,Name\nB-1,x\n"),
              u"Row 2, Part Number: \"B-1\" exists already."_s);
}

TEST_F(FileImport, ReadingsKeepTheRulesOfThoseThatAreTyped)
{
    insert(u"tblEquipment"_s, u"EquipmentID, UnitNo"_s, {1, u"T1"_s});
    insert(u"tblEquipment"_s, u"EquipmentID, UnitNo"_s, {2, u"T2"_s});
    insert(u"tblEquipmentCount"_s, u"EquipmentID, ChangeDate, CountType, CountValue"_s,
           {1, QDate(2024, 3, 1), u"Hours"_s, 100});
    insert(u"tblWoServiceUsed"_s, u"EquipmentID, Period"_s, {2, u"I"_s});
    QVariantMap service = anyDay();
    service.insert({{u"EquipmentID"_s, 1}, {u"Period"_s, u"H"_s}, {u"NextScheduledCount"_s, 150}});
    insert(u"tblServiceUsed"_s, service);
    EXPECT_EQ(problems(ImportKind::Readings, "Unit,Date,Type,Value\n"
                                             "T1,02/28/2024,hours,120\n"
                                             "T1,03/02/2024,Hours,99\n"
                                             "T1,03/16/2024,Hours,120\n"
                                             "T2,03/02/2024,Miles,1\n"
                                             "T3,03/02/2024,Hours,1\n"
                                             "T1,03/02/2024,Days,1\n"
                                             "T1,03/02/2024,Hours,1.5\n"
                                             "T1,03/03/2024,Hours,110\n"
                                             "T1,03/03/2024,Hours,109\n"),
              u"Row 2, Date: There is a later reading of this meter. Older readings come first, in "
              "the file too.\n"
              "Row 3, Reading: The reading before it is higher: 100.\n"
              "Row 4, Date: The date lies in the future.\n"
              "Row 5, Meter: Service is in-proccess for this equipment counts cann't be added till "
              "the service over.\n"
              "Row 6, Unit No: There is no machine \"T3\".\n"
              "Row 7, Meter: \"Days\" is not one of Counts, Hours, Kilometers, Miles.\n"
              "Row 8, Reading: \"1.5\" is not a whole number.\n"
              "Row 10, Reading: The reading before it is higher: 110."_s);
    ASSERT_TRUE(import(ImportKind::Readings, "Unit,Date,Type,Value\n"
                                             "t1,03/02/2024,Hours,100\n"
                                             "T1,03/15/2024,hours,150\n"
                                             "T2,03/02/2024,Hours,\"1,000\"\n")
                    .isWritten);
    EXPECT_EQ(found(u"Select EquipmentID, CountType, CountValue from tblEquipmentCount order by "
                    "EquipmentID, CountValue, ChangeDate"_s),
              u"1|Hours|100\n1|Hours|100\n1|Hours|150\n2|Hours|1000"_s);
    EXPECT_EQ(found(u"Select NextScheduledDate from tblServiceUsed"_s), u"3/15/2024"_s);
}

TEST_F(FileImport, OnlyEntriesThatWereAgreedToAreMade)
{
    const QString path = file("Unit,Name,Site\nT1,a,North\nT2,b,South\n");
    const std::vector<NewEntry> wanted = checkFile(ImportKind::Machines, path).newEntries;
    EXPECT_EQ(wanted,
              (std::vector<NewEntry>{{u"Site"_s, u"North"_s, {}}, {u"Site"_s, u"South"_s, {}}}));
    const ImportFindings refused = importFile(ImportKind::Machines, path, {wanted[0]});
    EXPECT_FALSE(refused.isWritten);
    EXPECT_EQ(refused.newEntries, wanted);
    EXPECT_EQ(refused.summary(), u"2 rows were read without a problem. Nothing was imported yet. 2 "
                                 "entries have to be added to the lists."_s);
    EXPECT_EQ(count(u"tblSite"_s) + count(u"tblEquipment"_s), 0);
}

TEST_F(FileImport, WithoutTheRightNothingBegins)
{
    const QString path = file("Unit,Name\nT1,a\n");
    gRights = {};
    for (const ImportKind kind : {ImportKind::Machines, ImportKind::Parts, ImportKind::Readings}) {
        EXPECT_EQ(raisedBy([&] { (void)checkFile(kind, path); }).number(), rights::Refused::Number);
        EXPECT_EQ(raisedBy([&] { (void)importFile(kind, path, {}); }).number(),
                  rights::Refused::Number);
    }
}

TEST_F(FileImport, AnotherWorkstationThatWasFirstIsToldAndNothingIsWritten)
{
    const QByteArray rows = "Unit,Name,Site\nT1,a,North\nT2,b,North\n";
    const QString path = file(rows);
    const auto agreed = checkFile(ImportKind::Machines, path).newEntries;
    const auto other = database.open();
    // Between the dry run and the import.
    other->Execute(u"Insert into tblEquipment (EquipmentID, UnitNo) values (5, 't2')"_s);
    const ImportFindings findings = importFile(ImportKind::Machines, path, agreed);
    EXPECT_FALSE(findings.isWritten);
    EXPECT_EQ(findings.problems.at(0).text(), u"Row 3, Unit No: \"T2\" exists already."_s);
    EXPECT_EQ(count(u"tblSite"_s), 0);
    other->Execute(u"Delete from tblEquipment"_s);
    // In the midst of the import.
    gcnData->setObserver([&](const db::Sent &sent) {
        if (sent.statement.startsWith(u"Insert into tblEquipment(") &&
            count(u"tblEquipment"_s) == 1)
            other->Execute(u"Insert into tblEquipment (EquipmentID, UnitNo) values (5, 't2')"_s);
    });
    const base::Error error =
        raisedBy([&] { (void)importFile(ImportKind::Machines, path, agreed); });
    gcnData->setObserver({});
    EXPECT_EQ(error.description(),
              u"Unit No \"T2\" has been added on another workstation meanwhile. "
              "Nothing was imported."_s);
    EXPECT_EQ(machines(), u"t2|"_s);
    EXPECT_EQ(count(u"tblSite"_s), 0);
    // Two imports at once.
    other->BeginTrans();
    other->Execute(
        u"Update tblSysOption set SysOption = SysOption where SysOption = 'DBVERSION'"_s);
    EXPECT_TRUE(raisedBy([&] { (void)importFile(ImportKind::Machines, path, agreed); })
                    .description()
                    .startsWith(u"Another workstation is importing at this moment."_s));
    EXPECT_FALSE(gbInTransaction);
    other->RollbackTrans();
    // A key that is held.
    other->BeginTrans();
    other->Execute(u"Insert into tblPart (PartID) values ('B')"_s);
    EXPECT_EQ(raisedBy([&] {
                  (void)importFile(ImportKind::Parts, file("Part,Name\nA,a\nB,b\n"), {});
              }).description(),
              u"A record with the number \"B\" has been added on another workstation meanwhile. "
              "Nothing was imported."_s);
    EXPECT_EQ(count(u"tblPart"_s), 0);
}

TEST_F(FileImport, AFailureOrACancelInTheMidstLeavesTheCompanyAsItWas)
{
    QByteArray rows = "Unit,Name,Site\n";
    for (int row = 0; row < 2000; ++row)
        rows += 'T' + QByteArray::number(row) + ",a,North\n";
    const QString path = file(rows);
    const auto agreed = checkFile(ImportKind::Machines, path).newEntries;
    int told = 0;
    const base::Error cancelled = raisedBy([&] {
        (void)importFile(ImportKind::Machines, path, agreed, [&](int done, int all) {
            EXPECT_LE(done, all);
            if (++told == 3)
                throw base::Error(1, u"cancelled"_s);
        });
    });
    EXPECT_EQ(cancelled.description(), u"cancelled"_s);
    int inserts = 0;
    gcnData->setObserver([&](const db::Sent &sent) {
        if (sent.statement.startsWith(u"Insert into tblEquipment(") && ++inserts == 1500)
            throw db::DbError(db::ErrorNumber::DiskFull, u"The disk is full."_s);
    });
    const base::Error full =
        raisedBy([&] { (void)importFile(ImportKind::Machines, path, agreed); });
    gcnData->setObserver({});
    EXPECT_EQ(full.number(), db::ErrorNumber::DiskFull);
    EXPECT_EQ(full.description(), u"Row 1501: The disk is full. Nothing was imported."_s);
    EXPECT_EQ(count(u"tblSite"_s) + count(u"tblEquipment"_s), 0);
    EXPECT_FALSE(gbInTransaction);
}

TEST_F(FileImport, OfManyProblemsTheFirstAreKeptAndAllAreCounted)
{
    const ImportFindings findings =
        checkFile(ImportKind::Parts, file("Part,Name\n" + QByteArray("x,\n").repeated(1500)));
    EXPECT_EQ(findings.problemCount, 1500);
    ASSERT_EQ(findings.problems.size(), 1000u);
    EXPECT_EQ(findings.problems.back().row, 1001);
}

TEST(ImportColumns, AnEmptySheetIsAFileOfItsKind)
{
    for (const QString &name : importKindNames()) {
        const auto kind = importKindOf(name.toUpper());
        ASSERT_TRUE(kind) << name.toStdString();
        const ImportTable &table = importTable(*kind);
        QSet<int> places;
        const QString headings = QString::fromUtf8(emptySheet(*kind).mid(3)).trimmed();
        for (const QString &heading : headings.split(u','))
            places.insert(placeOfHeading(table, heading));
        EXPECT_EQ(places.size(), static_cast<qsizetype>(table.columns.size()))
            << name.toStdString();
        EXPECT_FALSE(places.contains(-1)) << name.toStdString();
    }
    EXPECT_FALSE(importKindOf(u"orders"));
}
