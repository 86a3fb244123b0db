#include "platform/db/Connection.h"
#include "platform/db/ReadOnlyConnection.h"

#include "platform/db/TestDatabase.h"
#include "support/Raised.h"
#include "support/TestEnvironment.h"
#include "support/TestFiles.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using test::raisedBy;
namespace ErrorNumber = db::ErrorNumber;

/// A database with parts and machines.
class Connection : public testing::Test
{
protected:
    Connection()
        : data(database.connect())
    {
        data.Execute(u"Create table tblPart (PartID text(20) not null primary key, "
                     "Description text(50), Quantity integer, Price currency, Inactive yesno)"_s);
        data.Execute(u"Create table tblSite (SiteID counter primary key, SiteName text(40))"_s);
    }

    void addPart(const QString &id, int quantity, double price)
    {
        data.Execute(
            u"Insert into tblPart(PartID, Description, Quantity, Price) Values(?, ?, ?, ?)"_s,
            {id, u"Part "_s + id, quantity, price});
    }
    qint64 count(const QString &table)
    {
        return data.Open(u"Select count(*) as n from "_s + table).row(0).integer(u"n");
    }

    test::TestDatabase database;
    db::Connection data;
};

TEST_F(Connection, RefusesAMissingFileAndWhatIsNoDatabase)
{
    db::Target target = database.target();
    target.file = database.folder() + u"/none.mdb"_s;
    const base::Error missing = raisedBy([&] { db::Connection{target}; });
    EXPECT_EQ(missing.number(), ErrorNumber::FileMissing);
    EXPECT_TRUE(missing.description().contains(target.file)) << missing.what();
    EXPECT_FALSE(QFile::exists(target.file));

    for (const QByteArray &content :
         {QByteArray(), QByteArray("[settings]\n"), QByteArray(50000, 'x')}) {
        test::writeFile(target.file, content);
        EXPECT_EQ(raisedBy([&] { db::Connection{target}; }).number(), ErrorNumber::NotADatabase)
            << content.size();
    }

    target.host = u"127.0.0.1/1"_s;
    EXPECT_EQ(raisedBy([&] { db::Connection{target}; }).number(), ErrorNumber::ServerUnreachable);
}

TEST_F(Connection, ErrorsCarryTheStatementAndTheSystemsNumbers)
{
    addPart(u"A-1"_s, 5, 1);
    const std::tuple<QString, int, QString> cases[] = {
        {u"Select * from tblNone"_s, ErrorNumber::TableUnknown, u"tblNone"_s},
        {u"Select PartID from tblPart where Prise = 3"_s, ErrorNumber::ValueMissing, u"Prise"_s},
        {u"Select from from tblPart"_s, ErrorNumber::Syntax, {}},
        {u"Insert into tblPart(PartID) values('A-1')"_s, ErrorNumber::DuplicateKey, {}},
        {u"Insert into tblPart(Description) values('x')"_s, ErrorNumber::NullNotAllowed,
         u"PartID"_s},
        {u"Update tblPart set PartID = Null"_s, ErrorNumber::NullNotAllowed, u"PartID"_s},
        {u"Update tblPart set Quantity = 'five'"_s, ErrorNumber::TypeMismatch, u"five"_s},
        {u"Update tblPart set Quantity = 3000000000"_s, ErrorNumber::Overflow, {}},
        {u"Select Price * 1E300 * 1E300 as n from tblPart"_s, ErrorNumber::Overflow, {}},
        {u"Select Price / 0 as n from tblPart"_s, ErrorNumber::DivisionByZero, {}},
        {u"Insert into tblPart(PartID) values('123456789012345678901')"_s, ErrorNumber::TextTooLong,
         u"It holds 20 characters; the text has 21."_s},
        {u"Create table TBLPART (a integer)"_s, ErrorNumber::TableExists, u"Table"_s},
        {u"Select PartID from tblPart where PartID = ?"_s, ErrorNumber::ValueMissing, {}},
    };
    for (const auto &[statement, number, mentions] : cases) {
        SCOPED_TRACE(qPrintable(statement));
        const auto error = raisedBy<db::DbError>([&, &text = statement] { (void)data.Open(text); });
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_EQ(error.statement(), statement);
        EXPECT_FALSE(error.description().isEmpty());
        EXPECT_TRUE(error.description().contains(mentions)) << error.what();
    }
    EXPECT_EQ(count(u"tblPart"_s), 1);
}

TEST_F(Connection, OneThatOnlyReadsRefusesTheRest)
{
    addPart(u"A"_s, 1, 1);
    db::ReadOnlyConnection reading(database.target());
    EXPECT_EQ(reading.Open(u"Select PartID from tblPart where Quantity = ?"_s, {1}).RecordCount(),
              1);
    for (const auto &[statement, number] :
         {std::pair(u"Delete from tblPart"_s, ErrorNumber::ReadOnly),
          {u"Create table tblNew (a integer)"_s, ErrorNumber::ReadOnly},
          {u"Select from"_s, ErrorNumber::Syntax}}) {
        const auto error =
            raisedBy<db::DbError>([&, &statement = statement] { (void)reading.Open(statement); });
        EXPECT_EQ(error.number(), number) << qPrintable(statement);
        EXPECT_EQ(error.statement(), statement);
    }
    // What is being changed is not read, what stands is.
    data.BeginTrans();
    addPart(u"B"_s, 1, 1);
    EXPECT_EQ(db::openReadOnly(data, u"Select * from tblPart"_s).RecordCount(), 1);
    data.CommitTrans();
    EXPECT_EQ(db::openReadOnly(data, u"Select * from tblPart"_s).RecordCount(), 2);
}

TEST_F(Connection, AFailureLeavesTheConnectionUsable)
{
    EXPECT_THROW(data.Execute(u"Insert into tblPart(PartID) values(Null)"_s), db::DbError);
    data.BeginTrans();
    addPart(u"A"_s, 1, 1);
    EXPECT_THROW(addPart(u"A"_s, 1, 1), db::DbError);
    EXPECT_TRUE(data.InTransaction());
    addPart(u"B"_s, 1, 1);
    data.CommitTrans();
    EXPECT_EQ(count(u"tblPart"_s), 2);
}

TEST_F(Connection, InsertGivesTheNewKeyBack)
{
    const auto insert = [&](const QString &name) {
        return data.Insert(u"Insert into tblSite(SiteName) Values(?)"_s, {name}, u"siteid"_s);
    };
    EXPECT_EQ(insert(u"North"_s), 1);
    EXPECT_EQ(data.Insert(u"Insert into tblSite(SiteName) Values('South')"_s, {}, u"SiteID"_s), 2);
    data.BeginTrans();
    EXPECT_EQ(insert(u"East"_s), 3);
    data.RollbackTrans();
    const qint64 next = insert(u"West"_s);
    EXPECT_GT(next, 3);
    EXPECT_EQ(data.Open(u"Select max(SiteID) as m from tblSite"_s).row(0).integer(u"m"), next);
    // Opened, an insert gives an empty recordset.
    const db::Recordset rs = data.Open(u"Insert into tblSite(SiteName) values('North')"_s);
    EXPECT_TRUE(rs.IsEOF() && rs.IsBOF() && rs.columnCount() == 0);
    EXPECT_EQ(count(u"tblSite"_s), 4);
}

TEST_F(Connection, RowsOfALongListComeAPartAtATime)
{
    for (const QString &id : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
        addPart(id, 1, 2.5);
    const QString statement = u"Select PartID, Price from tblPart where Description like 'part*' "
                              "and PartID <> 'B' and Now() > #01-01-2000# order by PartID"_s;
    db::Gradual list = data.OpenGradually(statement);
    EXPECT_EQ(list.rows().RecordCount(), 0);
    EXPECT_TRUE(list.fetch(2));
    const db::Recordset first = list.rows();
    EXPECT_EQ(data.Open(statement).RecordCount(), 3) << "the same statement meanwhile";
    EXPECT_FALSE(list.fetch(2));
    EXPECT_TRUE(list.isComplete());
    EXPECT_EQ(first.RecordCount(), 2) << "what was given stays";
    EXPECT_EQ(list.rows().RecordCount(), 3);
    EXPECT_EQ(list.rows().value(2, 0), u"D"_s);
    EXPECT_EQ(list.rows().value(2, 1), 2.5);
    EXPECT_FALSE(list.fetch(1));

    data.BeginTrans();
    addPart(u"E"_s, 1, 1);
    db::Gradual ended = data.OpenGradually(statement);
    EXPECT_TRUE(ended.fetch(1));
    data.RollbackTrans();
    EXPECT_NE(raisedBy([&] { (void)ended.fetch(1); }).number(), 0);
    EXPECT_EQ(raisedBy([&] { (void)data.OpenGradually(u"Select x from tblNone"_s); }).number(),
              ErrorNumber::TableUnknown);
    EXPECT_EQ(data.Open(statement).RecordCount(), 3);
}

TEST_F(Connection, ColumnsKeepTheNamesAndKindsOfTheStatement)
{
    const QString caption =
        u"A caption that is longer than any name in the engine's own catalogue"_s;
    const db::Recordset rs = data.Open(
        u"Select PartID, Price as [Unit Price], Inactive as [%1] from tblPart"_s.arg(caption));
    using Column = std::pair<QString, sql::ColumnKind>;
    const Column columns[] = {{u"PartID"_s, sql::ColumnKind::Text},
                              {u"Unit Price"_s, sql::ColumnKind::Money},
                              {caption, sql::ColumnKind::YesNo}};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Column(rs.columnName(i), rs.columnKind(i)), columns[i]) << i;
}

TEST_F(Connection, TheSchemaShowsTablesAsTheyAre)
{
    const sql::Table *part = data.schema().find(u"TBLPART");
    ASSERT_TRUE(part && part->columns.size() == 5);
    EXPECT_EQ(part->name, u"tblPart"_s);
    EXPECT_EQ(part->columns[0].name, u"PartID"_s);
    EXPECT_EQ(part->find(u"description")->length, 50);
    EXPECT_EQ(part->find(u"Price")->kind, sql::ColumnKind::Money);
    EXPECT_EQ(part->find(u"Inactive")->kind, sql::ColumnKind::YesNo);
    EXPECT_TRUE(data.schema().find(u"tblSite")->find(u"SiteID")->autoNumber);
    EXPECT_FALSE(part->find(u"Quantity")->autoNumber);
    EXPECT_EQ(data.schema().find(u"RDB$RELATIONS"), nullptr);
    data.Execute(u"Alter table tblSite add column Zip text(10)"_s);
    EXPECT_NE(data.schema().find(u"tblSite")->find(u"Zip"), nullptr);
}

} // namespace
