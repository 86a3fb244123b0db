#include "reporting/QuickFind.h"

#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

namespace {

class QuickFind : public test::CompanySession
{
protected:
    static QStringList headings(const db::Recordset &rows)
    {
        QStringList names;
        for (int column = 0; column < rows.columnCount(); ++column)
            names.append(rows.columnName(column));
        return names;
    }
    static QString keys(const QString &statement, const QString &key)
    {
        QStringList found;
        for (const db::Row row : gcnData->Open(statement))
            found.append(row.text(key));
        return found.join(u',');
    }
    static void addMachine(int id, const QString &unit, bool inactive)
    {
        gcnData->Execute(
            u"Insert into tblEquipment(EquipmentID,UnitNo,EquipmentName,Inactive) values(?,?,?,?)"_s,
            {id, unit, u"Name of "_s + unit, inactive ? 1 : 0});
    }
};

} // namespace

TEST_F(QuickFind, EachTableHasItsCaptionItsColumnsAndFieldsThatTheListShows)
{
    const struct
    {
        QString table, caption, order, columns;
    } tables[] = {
        {u"tblEquipment"_s, u"Quick Find-Equipment"_s, u"UnitNo"_s,
         u"EquipmentID|Unit No|Name|Type|Make|Model|Serial No|Site|Location|Assigned to|Inactive|"
         "License"_s},
        {u"tblPart"_s, u"Quick Find-Part"_s, u"PartID"_s,
         u"PartID|Part Number|Description|Part Category|Qty on Hand|Price|Supplier|Inactive"_s},
        {u"tblEmployee"_s, u"Quick Find-Employee"_s, u"EmployeeID"_s,
         u"EmployeeID|Employee Number|Last Name|First Name|Initial Name|Address|City|State|Zip|"
         "Country|Email|Phone|CellPhone|Pager|License No|Site|Skills|Crew|Employee Position|Labor "
         "Cost|Labor Rate|Inactive"_s},
        {u"tblLocation"_s, u"Quick Find-Location"_s, u"LocationName"_s,
         u"LocationID|LocationName|Description|Site"_s},
        {u"tblSupplier"_s, u"Quick Find-Supplier"_s, u"Name"_s,
         u"SupplierID|Name|Phone|Fax|Address|Tax|Terms|Credit Limit|Email|WebSite|Address2|City|"
         "State|Zip|Atten|License No|Contact Name"_s},
    };
    for (const auto &expected : tables) {
        const std::string name = expected.table.toStdString();
        const quickfind::Table *table = quickfind::tableOf(expected.table);
        ASSERT_NE(table, nullptr) << name;
        EXPECT_EQ(quickfind::SetCaption(expected.table), expected.caption);
        const QStringList shown =
            headings(gcnData->Open(quickfind::listStatement(*table, expected.order, false)));
        EXPECT_EQ(shown.join(u'|').toStdString(), expected.columns.toStdString());
        EXPECT_EQ(headings(gcnData->Open(quickfind::listStatement(*table, expected.order, true))),
                  shown);
        EXPECT_EQ(quickfind::QueryString(expected.table).contains(u" where "), false) << name;

        const QList<quickfind::Field> fields = quickfind::fieldsOf(expected.table);
        EXPECT_FALSE(fields.isEmpty()) << name;
        for (const quickfind::Field &field : fields)
            EXPECT_TRUE(shown.contains(field.description))
                << name << ": " << field.description.toStdString();
        for (const QStringView column : table->automatic)
            EXPECT_TRUE(shown.contains(column)) << name;
        for (const quickfind::NumberColumn &number : table->numbers)
            EXPECT_TRUE(shown.contains(number.name)) << name;
    }
    EXPECT_EQ(quickfind::tableOf(u"tblUser"), nullptr);
    EXPECT_EQ(quickfind::QueryString(u"tblUser"), QString());
}

TEST_F(QuickFind, InactiveMachinesAndThoseLeftOutAreAbsentWhicheverWayTheBoxStands)
{
    addMachine(1, u"B-1"_s, false);
    addMachine(2, u"A-1"_s, true);
    addMachine(3, u"C-1"_s, false);
    const quickfind::Table &table = *quickfind::tableOf(u"TBLEQUIPMENT");
    const auto listed = [&](bool inactive, const QString &leftOut) {
        QStringList found;
        quickfind::List list(table, u"UnitNo"_s, inactive, leftOut);
        list.readAll();
        for (const db::Row row : list.rows())
            found.append(row.text(u"EquipmentID") + u' ' + row.text(u"Unit No"));
        return found.join(u", "_s);
    };
    EXPECT_EQ(listed(false, {}), u"1 B-1, 3 C-1"_s);
    EXPECT_EQ(listed(true, {}), u"2 A-1, 1 B-1, 3 C-1"_s);
    EXPECT_EQ(listed(false, u"1"_s), u"3 C-1"_s);
    EXPECT_EQ(listed(true, u" 2, 3 ,4711"_s), u"1 B-1"_s);
    EXPECT_EQ(listed(true, u"1,2,3"_s), QString());
    const quickfind::Table &suppliers = *quickfind::tableOf(u"tblSupplier");
    gcnData->Execute(u"Insert into tblSupplier(SupplierID,Name) values(1,'Parts Depot')"_s);
    quickfind::List list(suppliers, u"Name"_s, false, u"1"_s);
    list.readAll();
    EXPECT_EQ(list.rows().RecordCount(),
              gcnData->Open(u"Select * from tblSupplier"_s).RecordCount());

    // A machine of no crew is assigned to nobody.
    const qint64 crew = gcnData->Insert(
        u"Insert into tblCrew(CrewNumber,Description) values(7,'Mowing')"_s, {}, u"CrewID"_s);
    gcnData->Execute(u"Update tblEquipment set CrewID = ? where EquipmentID = 3"_s, {crew});
    const db::Recordset rows = gcnData->Open(
        quickfind::listStatement(*quickfind::tableOf(u"tblEquipment"), u"UnitNo"_s, false));
    EXPECT_EQ(rows.row(0).text(u"Assigned to"), QString());
    EXPECT_EQ(rows.row(1).text(u"Assigned to"), u"7   Mowing"_s);
}

TEST_F(QuickFind, PartsAreListedByActivityAndCategory)
{
    gcnData->Execute(u"Delete from tblPart"_s);
    for (const auto &[number, category, inactive] :
         {std::tuple(u"P-1"_s, 151, u"0"_s), std::tuple(u"P-2"_s, 152, u"0"_s),
          std::tuple(u"P-3"_s, 151, u"1"_s)})
        gcnData->Execute(u"Insert into tblPart(PartID,PartCategoryID,Inactive) values(?,?,?)"_s,
                         {number, category, inactive});
    const auto listed = [](bool inactive, qint64 category) {
        return keys(quickfind::partListStatement(inactive, category), u"PartID"_s);
    };
    EXPECT_EQ(listed(false, 0), u"P-1,P-2"_s);
    EXPECT_EQ(listed(false, 151), u"P-1"_s);
    EXPECT_EQ(listed(true, 151), u"P-1,P-3"_s);
    EXPECT_EQ(listed(true, 0), u"P-1,P-2,P-3"_s);
    for (const quickfind::Field &field : quickfind::partFields())
        EXPECT_NE(field.description, u"Inactive"_s);
}
