#include "platform/db/Connection.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"

#include "platform/db/Attachment.h"
#include "platform/db/TestDatabase.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

#include <limits>

/// Each kind of column: what goes in comes out.
namespace {

using namespace Qt::StringLiterals;
namespace ErrorNumber = db::ErrorNumber;

class Types : public testing::Test
{
protected:
    Types()
        : data(database.connect())
    {
        data.Execute(u"Create table tblAll (ID counter primary key, Whole integer, Small smallint, "
                     "Amount double, Money currency, Name text(30), Note memo, Moment datetime, "
                     "Flag yesno, Picture longbinary)"_s);
    }

    /// Stores a value, reads it back.
    QVariant through(const QString &column, const QVariant &value)
    {
        const qint64 id =
            data.Insert(u"Insert into tblAll("_s + column + u") values(?)"_s, {value}, u"ID"_s);
        return data.Open(u"Select "_s + column + u" from tblAll where ID = ?"_s, {id}).value(0, 0);
    }
    /// Stores a value written into the statement, reads it back.
    QVariant throughLiteral(const QString &column, const QString &literal)
    {
        const qint64 id = data.Insert(
            u"Insert into tblAll("_s + column + u") values("_s + literal + u")"_s, {}, u"ID"_s);
        return data.Open(u"Select "_s + column + u" from tblAll where ID = ?"_s, {id}).value(0, 0);
    }

    test::TestDatabase database;
    db::Connection data;
};

TEST_F(Types, ValuesComeBackAsTheyWere)
{
    const QDateTime moment = base::wallClock(QDate(2024, 2, 29), QTime(23, 59, 58));
    struct Case
    {
        QString column;
        QVariant in;
        QVariant out;
    };
    const Case cases[] = {
        // Numbers.
        Case{u"Whole"_s, 2147483647, 2147483647LL},
        Case{u"Whole"_s, -2147483647 - 1, -2147483648LL}, Case{u"Whole"_s, 2.5, 2LL},
        Case{u"Small"_s, 32767, 32767LL}, Case{u"Amount"_s, 0.1, 0.1},
        Case{u"Amount"_s, 1e300, 1e300}, Case{u"Money"_s, 0.07, 0.07},
        Case{u"Money"_s, 99999999999.99, 99999999999.99}, Case{u"Money"_s, -1234.5678, -1234.5678},
        // Texts, dates, bytes.
        Case{u"Name"_s, u"O'Brien \"the\" %_\\ [x] ; --"_s, u"O'Brien \"the\" %_\\ [x] ; --"_s},
        Case{u"Name"_s, u"Größe 日本 🚜"_s, u"Größe 日本 🚜"_s}, Case{u"Name"_s, u""_s, u""_s},
        Case{u"Name"_s, u"trailing  "_s, u"trailing  "_s},
        Case{u"Name"_s, u"123456789012345678901234567890"_s, u"123456789012345678901234567890"_s},
        Case{u"Moment"_s, moment, moment},
        Case{u"Moment"_s, QDate(1901, 1, 2), base::wallClock(QDate(1901, 1, 2))},
        Case{u"Moment"_s, QDateTime(), QVariant()}, Case{u"Flag"_s, true, -1LL},
        Case{u"Flag"_s, 1, -1LL}, Case{u"Flag"_s, 0, 0LL},
        Case{u"Picture"_s, QByteArray("a\0b\xff", 4), QByteArray("a\0b\xff", 4)},
        Case{u"Picture"_s, QByteArray(), QByteArray()}};
    for (const Case &c : cases) {
        EXPECT_EQ(through(c.column, c.in), c.out)
            << c.column.toStdString() << ' ' << c.in.toString().toStdString();
    }
}

TEST_F(Types, ColumnsThatOnlyOtherProgramsMakeAreReadToo)
{
    db::engine::Attachment other(database.target());
    other.executeAlone(u"create table \"tblOther\" (\"Day\" date, \"Clock\" time, \"Half\" float, "
                       "\"Sure\" boolean, \"Raw\" char(2) character set octets)"_s);
    other.executeAlone(u"insert into \"tblOther\" values (date '2023-01-01', time '23:59:58', 0.5, "
                       "true, x'00ff')"_s);
    db::Connection fresh = database.connect();
    fresh.Execute(u"Update tblOther set [Day] = ?"_s,
                  {base::wallClock(QDate(2024, 2, 29), QTime(12, 0))});
    const db::Recordset rows = fresh.Open(u"Select * from tblOther"_s);
    const QVariantList expected = {base::wallClock(QDate(2024, 2, 29)),
                                   base::wallClock(QDate(1899, 12, 30), QTime(23, 59, 58)), 0.5,
                                   -1LL, QByteArray("\0\xff", 2)};
    for (int i = 0; i < expected.size(); ++i)
        EXPECT_EQ(rows.value(0, i), expected[i]) << i;
}

TEST_F(Types, NullIsNullInEveryColumnButYesNo)
{
    for (const auto &column : {u"Whole"_s, u"Small"_s, u"Amount"_s, u"Money"_s, u"Name"_s,
                               u"Note"_s, u"Moment"_s, u"Picture"_s}) {
        EXPECT_FALSE(through(column, QVariant()).isValid()) << column.toStdString();
        EXPECT_FALSE(throughLiteral(column, u"Null"_s).isValid()) << column.toStdString();
    }
    EXPECT_EQ(through(u"Flag"_s, QVariant()), QVariant(0LL));
}

TEST_F(Types, LiteralsAreStoredLikeParameters)
{
    struct Case
    {
        QString column, literal;
        QVariant stored;
    };
    const QDate day(2024, 3, 9);
    const Case cases[] = {
        {u"Whole"_s, u"'12'"_s, 12LL},
        {u"Whole"_s, u"-12"_s, -12LL},
        {u"Money"_s, u"'0.07'"_s, 0.07},
        {u"Money"_s, u"-0.07"_s, -0.07},
        {u"Name"_s, u"'it''s'"_s, u"it's"_s},
        {u"Name"_s, u"\"\""_s, u""_s},
        {u"Name"_s, u"77"_s, u"77"_s},
        {u"Moment"_s, u"#03-09-2024#"_s, base::wallClock(day)},
        {u"Moment"_s, u"'03/09/2024 2:05 PM'"_s, base::wallClock(day, QTime(14, 5))},
        {u"Flag"_s, u"'1'"_s, -1LL},
        {u"Flag"_s, u"True"_s, -1LL},
        {u"Flag"_s, u"No"_s, 0LL}};
    for (const Case &c : cases)
        EXPECT_EQ(throughLiteral(c.column, c.literal), c.stored) << c.literal.toStdString();
}

TEST_F(Types, WhatDoesNotFitRaisesItsNumber)
{
    struct Case
    {
        QString column;
        QVariant value;
        int number;
    };
    const Case cases[] = {{u"Name"_s, QString(31, u'x'), ErrorNumber::TextTooLong},
                          {u"Name"_s, QString(31, u'ü'), ErrorNumber::TextTooLong},
                          {u"Whole"_s, 2147483648LL, ErrorNumber::Overflow},
                          {u"Small"_s, 32768, ErrorNumber::Overflow},
                          {u"Money"_s, 1e18, ErrorNumber::Overflow},
                          {u"Whole"_s, u"abc"_s, ErrorNumber::TypeMismatch},
                          {u"Whole"_s, u""_s, ErrorNumber::TypeMismatch},
                          {u"Moment"_s, u"31-31-2024"_s, ErrorNumber::TypeMismatch},
                          {u"Picture"_s, 5, ErrorNumber::TypeMismatch}};
    for (const Case &c : cases)
        EXPECT_EQ(test::raisedBy([&] { (void)through(c.column, c.value); }).number(), c.number)
            << c.column.toStdString() << ' ' << c.value.toString().toStdString();
    // Thirty characters fit, however many bytes they need.
    EXPECT_EQ(through(u"Name"_s, QString(30, u'ü')), QVariant(QString(30, u'ü')));
}

TEST_F(Types, LongTextsAndPicturesComeBackWhole)
{
    QString text;
    while (text.size() < 100'000)
        text += u"Zeile 'ü' "_s;
    EXPECT_EQ(through(u"Note"_s, text), QVariant(text));
    EXPECT_EQ(throughLiteral(u"Note"_s, u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\''),
              QVariant(text));
    QByteArray picture(1'000'003, Qt::Uninitialized);
    for (qsizetype i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<char>(i * 31 >> 3);
    EXPECT_EQ(through(u"Picture"_s, picture), QVariant(picture));
}

TEST_F(Types, MemosAreTextsInEveryPlaceOfAStatement)
{
    int whole = 0;
    for (const QString &note : {u"pear"_s, u"Apple"_s, u"PEAR"_s, u"100% #1 [x]"_s, u""_s})
        data.Execute(u"Insert into tblAll(Whole, Name, Note) values(?, ?, ?)"_s,
                     {++whole, note.left(2), note});
    data.Execute(u"Insert into tblAll(Whole) values(9)"_s);
    // Each statement, and the first column of its rows.
    const std::pair<QString, QString> cases[] = {
        {u"Select Whole from tblAll where Note = 'Pear' order by Whole"_s, u"1 3"_s},
        {u"Select Whole from tblAll where Note = ''"_s, u"5"_s},
        {u"Select Whole from tblAll where Note is null"_s, u"9"_s},
        {u"Select Whole from tblAll where Note like '*#1 [[]x]'"_s, u""_s},
        {u"Select Whole from tblAll where Note like '*[#]1 [[]x]'"_s, u"4"_s},
        {u"Select Whole from tblAll where Note like 'ap*' or Note in ('x', 'pear') order by Whole"_s,
         u"1 2 3"_s},
        {u"Select Whole from tblAll where Note > 'b' and Note <= 'pear' order by Whole"_s,
         u"1 3"_s},
        {u"Select Note from tblAll where Whole < 4 and Whole <> 3 order by Note "
         "desc"_s,
         u"pear Apple"_s},
        {u"Select Note as N, Whole from tblAll where Whole < 3 order by 1"_s, u"Apple pear"_s},
        {u"Select distinct Note from tblAll where Whole < 4 order by Note"_s, u"Apple PEAR"_s},
        {u"Select Note, Count(*) from tblAll where Whole < 4 group by Note having Count(*) > 1"_s,
         u"PEAR"_s},
        {u"Select First(Note) from tblAll where Whole < 4"_s, u"Apple"_s},
        {u"Select Note from tblAll where Whole = 1 union select Note from tblAll where Whole = 3"_s,
         u"pear"_s},
        {u"Select Name from tblAll where Whole = 2 union all select Note from tblAll where Whole = 2"_s,
         u"Ap Apple"_s},
        {u"Select N from (Select distinct Note as N from tblAll) where N = 'apple'"_s, u"Apple"_s},
        {u"Select Left(Note, 2) + '-' + UCase(Mid(Note, 3)) from tblAll where Whole = 1"_s,
         u"pe-AR"_s},
        {u"Select IIf(InStr(Note, 'pp') > 0, Note, Name) from tblAll where Whole = 2"_s,
         u"Apple"_s},
        {u"Select Len(Note) from tblAll where Whole = 1"_s, u"4"_s},
    };
    for (const auto &[statement, expected] : cases) {
        QStringList values;
        for (const db::Row row : data.Open(statement))
            values += base::toText(row[0]);
        EXPECT_EQ(values.join(u' '), expected) << statement.toStdString();
    }
    data.Execute(u"Insert into tblAll(Whole, Note) Select 20, Note from tblAll where Whole = 2"_s);
    EXPECT_EQ(data.Execute(u"Update tblAll set Name = Note where Whole = 20"_s), 1);
    EXPECT_EQ(data.Open(u"Select Name from tblAll where Whole = 20"_s).value(0, 0), u"Apple"_s);
}

TEST_F(Types, AColumnBecomesAMemoAndBack)
{
    data.Execute(u"Insert into tblAll(Name, Note) values('kept', 'too long')"_s);
    EXPECT_EQ(test::raisedBy([&] {
                  data.Execute(u"Alter table tblAll alter column Note text(3)"_s);
              }).number(),
              ErrorNumber::TextTooLong);
    EXPECT_EQ(data.Open(u"Select * from tblAll"_s).columnCount(), 10);
    data.Execute(u"Alter table tblAll alter column Note text(8)"_s);
    data.Execute(u"Alter table tblAll alter column Name memo"_s);
    const QString text(9000, u'x');
    data.Execute(u"Update tblAll set Name = Name + ?"_s, {text});
    const db::Recordset rows = data.Open(u"Select * from tblAll"_s);
    EXPECT_EQ(rows.value(0, 5), u"kept"_s + text);
    EXPECT_EQ(rows.value(0, 6), u"too long"_s);
}

TEST_F(Types, ManyTextsAndNullsKeepTheirPlaces)
{
    data.BeginTrans();
    for (int i = 0; i < 300; ++i) {
        data.Execute(u"Insert into tblAll(Whole, Name) values(?, ?)"_s,
                     {i, i % 3 == 0 ? QVariant() : QVariant(QString(i % 30, u'n'))});
    }
    data.CommitTrans();
    const db::Recordset rs = data.Open(u"Select Whole, Name from tblAll order by Whole"_s);
    ASSERT_EQ(rs.RecordCount(), 300);
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(rs.isNull(i, 1), i % 3 == 0) << i;
        ASSERT_EQ(rs.row(i).text(u"Name"), i % 3 == 0 ? QString() : QString(i % 30, u'n')) << i;
    }
}

} // namespace
