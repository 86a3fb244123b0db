#include "reporting/ReportQuery.h"

#include "core/CompanySession.h"
#include "platform/base/Environment.h"
#include "reporting/DesignFields.h"
#include "reporting/FirstRows.h"
#include "reporting/GuardedRunner.h"
#include "support/Raised.h"

using namespace Qt::StringLiterals;
using namespace reportquery;

namespace {

class ReportQuery : public test::CompanySession
{
protected:
    ReportQuery()
    {
        insert(u"tblSupplier"_s, u"SupplierID,Name"_s, {1, u"Acme"_s});
        insert(u"tblPart"_s, u"PartID,Description,SupplierID,Price,TrackInventory"_s,
               {u"F*1"_s, u"Filter o'Oil"_s, 1, 2.5, -1});
        insert(u"tblPart"_s, u"PartID,Description,SupplierID,Price"_s, {u"B2"_s, u"Belt"_s, 9, 10});
        insert(u"tblEquipment"_s, u"EquipmentID,EquipmentName,Acquisitiondate"_s,
               {1, u"Mower"_s, base::wallClock(QDate(2024, 3, 15))});
    }

    /// Columns of tables, which are joined in the order of the columns.
    static Query columnsOf(const QList<Place> &columns)
    {
        Query query;
        for (const Place &column : columns) {
            addSource(query, column.table);
            addColumn(query, column);
        }
        return query;
    }
    static Query partsBySupplier()
    {
        Query query = columnsOf({{u"tblPart"_s, u"PartID"_s}, {u"tblSupplier"_s, u"Name"_s}});
        query.sort = {{{u"tblPart"_s, u"PartID"_s}, true}};
        return query;
    }
    [[nodiscard]] QString rowsOf(const Query &query) const
    {
        EXPECT_EQ(problemOf(query, tables), QString());
        return found(textOf(query, tables)).replace(u'\n', u';');
    }

    const QList<reporttables::Table> tables = reporttables::tables();
};

TEST_F(ReportQuery, EveryLinkOfTheHouseJoins)
{
    for (const reporttables::Link &link : reporttables::links()) {
        Query query;
        addSource(query, link.table);
        const QString as = addLinked(query, link.table, link);
        EXPECT_EQ(addLinked(query, link.table, link), as);
        addColumn(query, {link.table, link.column});
        addColumn(query, {as, link.shown});
        const QString text = textOf(query, tables);
        EXPECT_NO_THROW(static_cast<void>(gcnData->Open(text))) << qPrintable(text);
        EXPECT_EQ(read(text, tables), query) << qPrintable(text);
    }
}

TEST_F(ReportQuery, TablesAreJoinedByTheirKeyAndRowsWithoutPartnerStay)
{
    Query query = partsBySupplier();
    EXPECT_EQ(rowsOf(query), u"F*1|Acme;B2|"_s);
    query.sources[1].onlyMatching = true;
    query.sort.first().descending = false;
    EXPECT_EQ(rowsOf(query), u"F*1|Acme"_s);
    // What points to a table is joined to it too.
    query = columnsOf({{u"tblSupplier"_s, u"Name"_s}, {u"tblPart"_s, u"PartID"_s}});
    EXPECT_EQ(rowsOf(query), u"Acme|F*1"_s);
    // A table goes with all that speaks of it.
    query = partsBySupplier();
    addLinked(query, u"tblSupplier"_s, reporttables::linksOf(u"tblSupplier").first());
    query.conditions = {{{u"tblSupplier"_s, u"Name"_s}, Comparison::IsNotEmpty, {}}};
    removeSource(query, 1);
    EXPECT_EQ(query.sources.size(), 1);
    EXPECT_EQ(query.columns.size(), 1);
    EXPECT_TRUE(query.conditions.isEmpty());
    EXPECT_EQ(rowsOf(query), u"F*1;B2"_s);
}

TEST_F(ReportQuery, ConditionsCompareAsTheUserTypes)
{
    struct Row
    {
        const char *column;
        Comparison comparison;
        QString value;
        QString parts;
    };
    for (const Row &row : {Row{"Description", Comparison::Equal, u"filter O'OIL"_s, u"F*1"_s},
                           {"PartID", Comparison::Contains, u"*"_s, u"F*1"_s},
                           {"Description", Comparison::BeginsWith, u"be"_s, u"B2"_s},
                           {"Description", Comparison::Contains, u"l"_s, u"B2;F*1"_s},
                           {"Price", Comparison::Greater, u" 2.5"_s, u"B2"_s},
                           {"Price", Comparison::GreaterOrEqual, u"2.5"_s, u"B2;F*1"_s},
                           {"Price", Comparison::Less, u"10"_s, u"F*1"_s},
                           {"Price", Comparison::LessOrEqual, u"-1"_s, QString()},
                           {"Price", Comparison::NotEqual, u"10"_s, u"F*1"_s},
                           {"TrackInventory", Comparison::Equal, u"yes"_s, u"F*1"_s},
                           {"TrackInventory", Comparison::Equal, u"No"_s, u"B2"_s},
                           {"Notes", Comparison::IsEmpty, {}, u"B2;F*1"_s},
                           {"Notes", Comparison::IsNotEmpty, {}, QString()}}) {
        Query query = columnsOf({{u"tblPart"_s, u"PartID"_s}});
        query.conditions = {
            {{u"tblPart"_s, QString::fromLatin1(row.column)}, row.comparison, row.value}};
        query.sort = {{{u"tblPart"_s, u"PartID"_s}}};
        EXPECT_EQ(rowsOf(query), row.parts) << row.column << qPrintable(row.value);
        const auto back = read(textOf(query, tables), tables);
        ASSERT_TRUE(back) << qPrintable(textOf(query, tables));
        EXPECT_EQ(textOf(*back, tables), textOf(query, tables));
    }
    // Dates are read month first.
    Query query = columnsOf({{u"tblEquipment"_s, u"EquipmentName"_s}});
    query.conditions = {
        {{u"tblEquipment"_s, u"Acquisitiondate"_s}, Comparison::Equal, u"3/15/24"_s}};
    EXPECT_EQ(rowsOf(query), u"Mower"_s);
    EXPECT_EQ(read(textOf(query, tables), tables)->conditions.first().value, u"03/15/2024"_s);

    query = partsBySupplier();
    query.conditions = {
        {{u"tblPart"_s, u"Price"_s}, Comparison::Less, u"Most"_s, true},
        {{u"tblPart"_s, u"Description"_s}, Comparison::Contains, u"Two words"_s, true},
        {{u"tblPart"_s, u"PartID"_s}, Comparison::BeginsWith, u"Begin"_s, true}};
    EXPECT_EQ(problemOf(query, tables), QString());
    EXPECT_EQ(read(textOf(query, tables), tables), query) << qPrintable(textOf(query, tables));
}

TEST_F(ReportQuery, WhatCannotRunIsSaidInPlainWords)
{
    Query query;
    EXPECT_NE(problemOf(query, tables), QString());
    query = partsBySupplier();
    query.sources[1].column.clear();
    EXPECT_NE(problemOf(query, tables), QString());
    struct Row
    {
        const char *column;
        Comparison comparison;
        QString value;
    };
    for (const Row &row : {Row{"Price", Comparison::Equal, u"cheap"_s},
                           {"Price", Comparison::Contains, u"1"_s},
                           {"TrackInventory", Comparison::Equal, u"1; delete"_s},
                           {"Quantity", Comparison::Equal, u"1 or 1=1"_s},
                           {"Description", Comparison::Contains, u" "_s},
                           {"Description", Comparison::Equal, QString()}}) {
        query = partsBySupplier();
        query.conditions = {
            {{u"tblPart"_s, QString::fromLatin1(row.column)}, row.comparison, row.value}};
        EXPECT_NE(problemOf(query, tables), QString()) << row.column << qPrintable(row.value);
    }
}

TEST_F(ReportQuery, ATextIsShownByPickingOnlyWhenNothingOfItIsLost)
{
    for (
        const QString &text :
        {u"select PartID, Price p from tblPart where Price > -1 and PartID is not null order by Price desc"_s,
         u"select * from tblPart"_s,
         u"select distinct a.PartID, s.Name as Who from ((tblPart as a inner join tblSupplier as s on s.SupplierID = a.SupplierID) left join tblIndicator as c on a.PartCategoryID = c.ItemID)"_s}) {
        const auto query = read(text, tables);
        ASSERT_TRUE(query) << qPrintable(text);
        EXPECT_EQ(found(textOf(*query, tables)), found(text));
    }
    for (
        const QString &text :
        {u"select top 5 PartID from tblPart"_s,
         u"select PartID & 'x' from tblPart"_s,
         u"select PartID from tblPart where Price = 1 or Price = 2"_s,
         u"select PartID from tblPart where PartID not like 'a*'"_s,
         u"select PartID from tblPart where PartID like '*a?'"_s,
         u"select PartID from tblPart where PartID like '*a'"_s,
         u"select PartID from tblPart where PartID in ('a')"_s,
         u"select PartID from tblPart where PartID in (select PartID from tblServicesPart)"_s,
         u"select PartID from tblPart where Price between 1 and 2"_s,
         u"select count(*) from tblPart group by PartID"_s,
         u"select PartID from tblPart having count(*) > 1"_s,
         u"select PartID from tblPart union select Name from tblSupplier"_s,
         u"select PartID from tblPart, tblSupplier"_s,
         u"select UserName from tblUser"_s,
         u"select PartID from (select * from tblPart) as x"_s,
         u"delete from tblPart"_s,
         u"select SupplierID from tblPart inner join tblSupplier on tblPart.SupplierID = tblSupplier.SupplierID"_s,
         u"select PartID from tblPart right join tblSupplier on tblPart.SupplierID = tblSupplier.SupplierID"_s,
         u"select PartID from tblPart inner join tblSupplier on tblPart.SupplierID <> tblSupplier.SupplierID"_s,
         u"select PartID from tblPart where Price = 1 order by Price + 1"_s,
         u"select"_s,
         QString()})
        EXPECT_FALSE(read(text, tables)) << qPrintable(text);
}

TEST_F(ReportQuery, AFieldBringsItsTableIntoTheQuery)
{
    const QList<report::DesignField> fields = designfields::ofTables(tables);
    QSet<QString> names;
    const auto field = [&](const QString &table, const QString &caption) {
        const auto at = std::ranges::find_if(fields, [&](const report::DesignField &each) {
            return each.table == table && each.caption == caption;
        });
        return at == fields.end() ? report::DesignField() : *at;
    };
    for (const report::DesignField &each : fields)
        EXPECT_FALSE(
            std::exchange(names, names + QSet{each.name.toLower()}).contains(each.name.toLower()))
            << qPrintable(each.name);
    QString query;
    for (const report::DesignField &each :
         {field(u"Parts"_s, u"Part Number"_s), field(u"Suppliers"_s, u"Name"_s),
          field(u"Suppliers"_s, u"Name"_s)})
        EXPECT_EQ(designfields::addTo(query, each, tables), QString());
    EXPECT_EQ(found(query + u" order by tblPart.PartID"_s), u"B2|\nF*1|Acme"_s);
    report::Layout layout;
    layout.query = query;
    const auto shown = designfields::ofRows(ownreports::firstRows(layout), tables);
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown[0].caption, u"Part Number"_s);
    EXPECT_EQ(shown[1].caption, u"Name"_s);

    using enum report::FieldType;
    for (const auto &[table, caption, type] : {std::tuple(u"Parts"_s, u"Price"_s, Number),
                                               {u"Parts"_s, u"Inactive"_s, YesNo},
                                               {u"Parts"_s, u"Description"_s, Text},
                                               {u"Equipment"_s, u"Acquisitiondate"_s, Date}})
        EXPECT_EQ(field(table, caption).type, type) << qPrintable(caption);

    query = u"select PartID from tblPart"_s;
    const QString before = query;
    EXPECT_NE(designfields::addTo(query, field(u"Scans of machines"_s, u"Scan Time"_s), tables),
              QString());
    report::DesignField missing = fields.first();
    for (QString *const part : {&missing.name, &missing.table}) {
        *part = u"Wheels"_s;
        EXPECT_NE(designfields::addTo(query, missing, tables), QString());
    }
    EXPECT_EQ(query, before);
    query = u"select PartID & 'x' as y from tblPart"_s;
    EXPECT_NE(designfields::addTo(query, fields.first(), tables), QString());
}

TEST_F(ReportQuery, OnlyTheFirstRowsAreReadForDesigning)
{
    report::Layout layout;
    layout.parameters = {{.name = u"Most"_s,
                          .type = report::ParameterType::Number,
                          .prompt = {},
                          .usual = u"5"_s,
                          .list = {}}};
    struct Row
    {
        QString query;
        int rows;
    };
    for (const Row &row :
         {Row{u"select PartID from tblPart"_s, 1},
          {u"select distinct Inactive from tblPart order by Inactive"_s, 1},
          {u"select all PartID from tblPart"_s, 1},
          {u"select top 2 PartID from tblPart"_s, 2},
          {u"select PartID from tblPart union select Name from tblSupplier"_s, 3},
          {u"select PartID from tblPart where Price > ?Most"_s, 1},
          {u"select PartID from tblPart where Price > ?Most and Price < 3"_s, 0}}) {
        layout.query = row.query;
        EXPECT_EQ(ownreports::firstRows(layout, 1).RecordCount(), row.rows)
            << qPrintable(row.query);
    }
    layout.query = u"select PartID from tblPart where Price > ?Least"_s;
    EXPECT_TRUE(test::raisedBy([&] { static_cast<void>(ownreports::firstRows(layout)); })
                    .description()
                    .contains(u"Least"));
}

TEST_F(ReportQuery, NoReportShowsTheUsersOrChangesAnything)
{
    ownreports::GuardedRunner runner(gcnData->target());
    report::Layout layout;
    for (const QString &query :
         {u"select [Password] from tblUser"_s, u"select * from [TBLUSER]"_s,
          u"select PartID from tblPart where exists (select * from `tblUser`)"_s,
          u"delete from tblPart"_s, u"update tblPart set Price = 0"_s, u"drop table tblPart"_s}) {
        EXPECT_NE(test::raisedBy([&] { static_cast<void>(runner.run(query, {})); }).number(), 0);
        layout.query = query;
        EXPECT_NE(
            test::raisedBy([&] { static_cast<void>(ownreports::firstRows(layout)); }).number(), 0);
    }
    EXPECT_EQ(count(u"tblPart"_s), 2);
    EXPECT_EQ(runner.run(u"select 'tblUser' as x from tblPart"_s, {})->rowCount(), 2);
}

TEST(InWords, PartsANameWhereAWordBegins)
{
    for (const auto &[name, words] :
         {std::pair(u"QuantityRequired"_s, u"Quantity Required"_s),
          std::pair(u"PartID"_s, u"Part ID"_s), std::pair(u"UnitNo"_s, u"Unit No"_s),
          std::pair(u"Bar_Code"_s, u"Bar Code"_s), std::pair(u"PartIDNo"_s, u"Part ID No"_s),
          std::pair(u"Qty on Hand"_s, u"Qty on Hand"_s), std::pair(u"SS"_s, u"SS"_s),
          std::pair(u"BeginingHub"_s, u"Beginning Hub"_s),
          std::pair(u"EInterval"_s, u"Interval"_s)})
        EXPECT_EQ(reporttables::inWords(name), words);
}

} // namespace
