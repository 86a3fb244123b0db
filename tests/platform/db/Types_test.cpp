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
    /// The first row of a query.
    QVariantList firstRow(const QString &statement)
    {
        const db::Recordset rows = data.Open(statement);
        QVariantList values;
        for (int column = 0; column < rows.columnCount(); ++column)
            values.append(rows.value(0, column));
        return values;
    }

    test::TestDatabase database;
    db::Connection data;
};

TEST_F(Types, ValuesComeBackAsTheyWere)
{
    const QDateTime moment = base::wallClock(QDate(2024, 2, 29), QTime(23, 59, 58));
    using Case = std::tuple<QString, QVariant, QVariant>;
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
    for (const auto &[column, in, out] : cases)
        EXPECT_EQ(through(column, in), out) << qPrintable(column + u' ' + in.toString());
}

TEST_F(Types, ColumnsThatOnlyOtherProgramsMakeAreReadToo)
{
    db::engine::Attachment other(database.target());
    other.executeAlone(u"create table \"tblOther\" (\"Day\" date, \"Clock\" time, \"Half\" float, "
                       "\"Sure\" boolean, \"Raw\" char(2) character set octets)"_s);
    other.executeAlone(u"insert into \"tblOther\" values (date '2023-01-01', time '23:59:58', 0.5, "
                       "true, x'00ff')"_s);
    data.Execute(u"Update tblOther set [Day] = ?"_s,
                 {base::wallClock(QDate(2024, 2, 29), QTime(12, 0))});
    EXPECT_EQ(firstRow(u"Select * from tblOther"_s),
              (QVariantList{base::wallClock(QDate(2024, 2, 29)),
                            base::wallClock(QDate(1899, 12, 30), QTime(23, 59, 58)), 0.5, -1LL,
                            QByteArray("\0\xff", 2)}));
}

TEST_F(Types, NullIsNullInEveryColumnButYesNo)
{
    for (const auto &column : {u"Whole"_s, u"Small"_s, u"Amount"_s, u"Money"_s, u"Name"_s,
                               u"Note"_s, u"Moment"_s, u"Picture"_s})
        EXPECT_FALSE(through(column, QVariant()).isValid()) << column.toStdString();
    EXPECT_EQ(through(u"Flag"_s, QVariant()), QVariant(0LL));
}

TEST_F(Types, LiteralsAreStoredLikeParameters)
{
    data.Execute(u"Insert into tblAll(Whole, Small, Money, Name, Note, Moment, Flag) "
                 "values('12', -12, -0.07, 77, \"\", '03/09/2024 2:05 PM', '1')"_s);
    EXPECT_EQ(firstRow(u"Select Whole, Small, Money, Name, Note, Moment, Flag from tblAll"_s),
              (QVariantList{12LL, -12LL, -0.07, u"77"_s, u""_s,
                            base::wallClock({2024, 3, 9}, {14, 5}), -1LL}));
}

TEST_F(Types, WhatDoesNotFitRaisesItsNumber)
{
    const std::tuple<QString, QVariant, int> cases[] = {
        {u"Name"_s, QString(31, u'x'), ErrorNumber::TextTooLong},
        {u"Name"_s, QString(31, u'ü'), ErrorNumber::TextTooLong},
        {u"Whole"_s, 2147483648LL, ErrorNumber::Overflow},
        {u"Small"_s, 32768, ErrorNumber::Overflow},
        {u"Money"_s, 1e18, ErrorNumber::Overflow},
        {u"Whole"_s, u"abc"_s, ErrorNumber::TypeMismatch},
        {u"Whole"_s, u""_s, ErrorNumber::TypeMismatch},
        {u"Moment"_s, u"31-31-2024"_s, ErrorNumber::TypeMismatch},
        {u"Picture"_s, 5, ErrorNumber::TypeMismatch}};
    for (const auto &[column, value, number] : cases) {
        const auto store = [&, &to = column, &what = value] { (void)through(to, what); };
        EXPECT_EQ(test::raisedBy(store).number(), number)
            << qPrintable(column + u' ' + value.toString());
    }
    // Thirty characters fit, however many bytes they need.
    EXPECT_EQ(through(u"Name"_s, QString(30, u'ü')), QVariant(QString(30, u'ü')));
}

TEST_F(Types, LongTextsAndPicturesComeBackWhole)
{
    QString text;
    while (text.size() < 100'000)
        text += u"Zeile 'ü' "_s;
    EXPECT_EQ(through(u"Note"_s, text), QVariant(text));
    data.Execute(u"Update tblAll set Note = '"_s + QString(text).replace(u"'"_s, u"''"_s) + u'\'');
    EXPECT_EQ(firstRow(u"Select Note from tblAll"_s), QVariantList{text});
    QByteArray picture(1'000'003, Qt::Uninitialized);
    for (qsizetype i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<char>(i * 31 >> 3);
    EXPECT_EQ(through(u"Picture"_s, picture), QVariant(picture));
}

TEST_F(Types, AColumnBecomesAMemoAndBack)
{
    data.Execute(u"Insert into tblAll(Name, Note) values('kept', 'too long')"_s);
    EXPECT_EQ(test::raisedBy([&] {
                  data.Execute(u"Alter table tblAll alter column Note text(3)"_s);
              }).number(),
              ErrorNumber::TextTooLong);
    EXPECT_EQ(firstRow(u"Select * from tblAll"_s).size(), 10);
    data.Execute(u"Alter table tblAll alter column Note text(8)"_s);
    data.Execute(u"Alter table tblAll alter column Name memo"_s);
    const QString text(9000, u'x');
    data.Execute(u"Update tblAll set Name = Name + ?"_s, {text});
    EXPECT_EQ(firstRow(u"Select * from tblAll"_s).mid(5, 2),
              (QVariantList{u"kept"_s + text, u"too long"_s}));
}

TEST_F(Types, ManyTextsAndNullsKeepTheirPlaces)
{
    const auto name = [](int i) { return i % 3 == 0 ? QVariant() : QString(i % 30, u'n'); };
    data.BeginTrans();
    for (int i = 0; i < 300; ++i)
        data.Execute(u"Insert into tblAll(Whole, Name) values(?, ?)"_s, {i, name(i)});
    data.CommitTrans();
    const db::Recordset rs = data.Open(u"Select Name from tblAll order by Whole"_s);
    ASSERT_EQ(rs.RecordCount(), 300);
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(rs.value(i, 0), name(i)) << i;
}

} // namespace
