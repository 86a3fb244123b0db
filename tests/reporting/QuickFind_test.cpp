#include "reporting/QuickFind.h"

#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

namespace {

class QuickFind : public test::CompanySession
{
protected:
    static QString headings(const db::Recordset &rows)
    {
        QStringList names;
        for (int column = 0; column < rows.columnCount(); ++column)
            names.append(rows.columnName(column));
        return names.join(u'|');
    }
    static QString columnOf(const db::Recordset &rows, QStringView column)
    {
        QStringList texts;
        for (const db::Row row : rows)
            texts.append(row.text(column));
        return texts.join(u',');
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
        SCOPED_TRACE(qPrintable(expected.table));
        const quickfind::Table *table = quickfind::tableOf(expected.table);
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(quickfind::SetCaption(expected.table), expected.caption);
        for (const bool inactive : {false, true})
            EXPECT_EQ(
                headings(gcnData->Open(quickfind::listStatement(*table, expected.order, inactive))),
                expected.columns);
        EXPECT_FALSE(quickfind::QueryString(expected.table).contains(u" where "));

        const QStringList shown = expected.columns.split(u'|');
        const QList<quickfind::Field> fields = quickfind::fieldsOf(expected.table);
        EXPECT_FALSE(fields.isEmpty());
        for (const quickfind::Field &field : fields)
            EXPECT_TRUE(shown.contains(field.description)) << qPrintable(field.description);
        for (const QStringView column : table->automatic)
            EXPECT_TRUE(shown.contains(column));
        for (const quickfind::NumberColumn &number : table->numbers)
            EXPECT_TRUE(shown.contains(number.name));
    }
    EXPECT_EQ(quickfind::tableOf(u"tblUser"), nullptr);
    EXPECT_EQ(quickfind::QueryString(u"tblUser"), QString());
}

TEST_F(QuickFind, InactiveMachinesAndThoseLeftOutAreAbsentWhicheverWayTheBoxStands)
{
    const QString columns = u"EquipmentID,UnitNo,EquipmentName,Inactive"_s;
    insert(u"tblEquipment"_s, columns, {1, u"B-1"_s, u"Mower"_s, 0});
    insert(u"tblEquipment"_s, columns, {2, u"A-1"_s, u"Mower"_s, 1});
    insert(u"tblEquipment"_s, columns, {3, u"C-1"_s, u"Mower"_s, 0});
    const auto listed = [&](bool inactive, const QString &leftOut) {
        quickfind::List list(*quickfind::tableOf(u"TBLEQUIPMENT"), u"UnitNo"_s, inactive, leftOut);
        list.readAll();
        return columnOf(list.rows(), u"Unit No");
    };
    EXPECT_EQ(listed(false, {}), u"B-1,C-1"_s);
    EXPECT_EQ(listed(true, {}), u"A-1,B-1,C-1"_s);
    EXPECT_EQ(listed(false, u"1"_s), u"C-1"_s);
    EXPECT_EQ(listed(true, u" 2, 3 ,4711"_s), u"B-1"_s);
    EXPECT_EQ(listed(true, u"1,2,3"_s), QString());
    const quickfind::Table &suppliers = *quickfind::tableOf(u"tblSupplier");
    insert(u"tblSupplier"_s, u"SupplierID,Name"_s, {1, u"Parts Depot"_s});
    quickfind::List list(suppliers, u"Name"_s, false, u"1"_s);
    list.readAll();
    EXPECT_EQ(list.rows().RecordCount(), count(u"tblSupplier"_s));

    // A machine of no crew is assigned to nobody.
    const qint64 crew =
        insert(u"tblCrew"_s, u"CrewNumber,Description"_s, {7, u"Mowing"_s}, u"CrewID"_s);
    gcnData->Execute(u"Update tblEquipment set CrewID = ? where EquipmentID = 3"_s, {crew});
    EXPECT_EQ(columnOf(gcnData->Open(quickfind::listStatement(*quickfind::tableOf(u"tblEquipment"),
                                                              u"UnitNo"_s, false)),
                       u"Assigned to"),
              u",7   Mowing"_s);
}

TEST_F(QuickFind, PartsAreListedByActivityAndCategory)
{
    gcnData->Execute(u"Delete from tblPart"_s);
    const QString columns = u"PartID,PartCategoryID,Inactive"_s;
    insert(u"tblPart"_s, columns, {u"P-1"_s, 151, 0});
    insert(u"tblPart"_s, columns, {u"P-2"_s, 152, 0});
    insert(u"tblPart"_s, columns, {u"P-3"_s, 151, 1});
    const auto listed = [](bool inactive, qint64 category) {
        return columnOf(gcnData->Open(quickfind::partListStatement(inactive, category)), u"PartID");
    };
    EXPECT_EQ(listed(false, 0), u"P-1,P-2"_s);
    EXPECT_EQ(listed(false, 151), u"P-1"_s);
    EXPECT_EQ(listed(true, 151), u"P-1,P-3"_s);
    EXPECT_EQ(listed(true, 0), u"P-1,P-2,P-3"_s);
    for (const quickfind::Field &field : quickfind::partFields())
        EXPECT_NE(field.description, u"Inactive"_s);
}
