#include "platform/db/Connection.h"

#include "platform/base/Environment.h"

#include "platform/db/Errors.h"
#include "platform/db/TestDatabase.h"

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
        {u"Whole"_s, 2147483647, 2147483647LL},
        {u"Whole"_s, -2147483647 - 1, -2147483648LL},
        {u"Whole"_s, u"15"_s, 15LL},
        {u"Whole"_s, u" -3 "_s, -3LL},
        {u"Whole"_s, 2.5, 2LL},
        {u"Whole"_s, true, -1LL},
        {u"Small"_s, 32767, 32767LL},
        {u"Amount"_s, 0.1, 0.1},
        {u"Amount"_s, 1e300, 1e300},
        {u"Amount"_s, 7, 7.0},
        {u"Amount"_s, u"2.5"_s, 2.5},
        {u"Money"_s, 0.07, 0.07},
        {u"Money"_s, 99999999999.99, 99999999999.99},
        {u"Money"_s, -1234.5678, -1234.5678},
        {u"Money"_s, u"12.34"_s, 12.34},
        {u"Name"_s, u"O'Brien \"the\" %_\\ [x] ; --"_s, u"O'Brien \"the\" %_\\ [x] ; --"_s},
        {u"Name"_s, u"Größe 日本 🚜"_s, u"Größe 日本 🚜"_s},
        {u"Name"_s, u""_s, u""_s},
        {u"Name"_s, u"trailing  "_s, u"trailing  "_s},
        {u"Name"_s, 5, u"5"_s},
        {u"Name"_s, u"123456789012345678901234567890"_s, u"123456789012345678901234567890"_s},
        {u"Moment"_s, moment, moment},
        {u"Moment"_s, QDate(1901, 1, 2), base::wallClock(QDate(1901, 1, 2))},
        {u"Moment"_s, u"02-29-2024"_s, base::wallClock(QDate(2024, 2, 29))},
        {u"Moment"_s, QDateTime(), QVariant()},
        {u"Flag"_s, true, -1LL},
        {u"Flag"_s, 1, -1LL},
        {u"Flag"_s, u"1"_s, -1LL},
        {u"Flag"_s, 0, 0LL},
        {u"Flag"_s, u"False"_s, 0LL},
        {u"Picture"_s, QByteArray("a\0b\xff", 4), QByteArray("a\0b\xff", 4)},
        {u"Picture"_s, QByteArray(), QByteArray()},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(through(c.column, c.in), c.out)
            << c.column.toStdString() << ' ' << c.in.toString().toStdString();
    }
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
    EXPECT_EQ(throughLiteral(u"Whole"_s, u"'12'"_s), QVariant(12LL));
    EXPECT_EQ(throughLiteral(u"Whole"_s, u"-12"_s), QVariant(-12LL));
    EXPECT_EQ(throughLiteral(u"Money"_s, u"'0.07'"_s), QVariant(0.07));
    EXPECT_EQ(throughLiteral(u"Money"_s, u"-0.07"_s), QVariant(-0.07));
    EXPECT_EQ(throughLiteral(u"Name"_s, u"'it''s'"_s), QVariant(u"it's"_s));
    EXPECT_EQ(throughLiteral(u"Name"_s, u"\"\""_s), QVariant(u""_s));
    EXPECT_EQ(throughLiteral(u"Moment"_s, u"#03-09-2024#"_s),
              QVariant(base::wallClock(QDate(2024, 3, 9))));
    EXPECT_EQ(throughLiteral(u"Moment"_s, u"'03/09/2024 2:05 PM'"_s),
              QVariant(base::wallClock(QDate(2024, 3, 9), QTime(14, 5))));
    EXPECT_EQ(throughLiteral(u"Flag"_s, u"'1'"_s), QVariant(-1LL));
    EXPECT_EQ(throughLiteral(u"Flag"_s, u"True"_s), QVariant(-1LL));
    EXPECT_EQ(throughLiteral(u"Flag"_s, u"No"_s), QVariant(0LL));
}

TEST_F(Types, MoneyStaysExactOverTheWholeRange)
{
    // Twelve digits and two decimals is what a business could ever enter.
    for (const qint64 cents : {1LL, 7LL, 10LL, 99LL, 123456789LL, 99999999999999LL}) {
        const double amount = static_cast<double>(cents) / 100;
        EXPECT_EQ(through(u"Money"_s, amount).toDouble(), amount);
        EXPECT_EQ(through(u"Money"_s, -amount).toDouble(), -amount);
    }
    for (int i = 0; i < 10; ++i)
        data.Execute(u"Insert into tblAll(Whole, Money) values(77, 0.1)"_s);
    EXPECT_EQ(data.Open(u"Select sum(Money) as s from tblAll where Whole = 77"_s).row(0).real(u"s"),
              1.0);
}

TEST_F(Types, WhatDoesNotFitRaisesItsNumber)
{
    const auto error = [this](const QString &column, const QVariant &value) {
        return test::raisedBy([&] { (void)through(column, value); }).number();
    };
    EXPECT_EQ(error(u"Name"_s, QString(31, u'x')), ErrorNumber::TextTooLong);
    EXPECT_EQ(error(u"Name"_s, QString(31, u'ü')), ErrorNumber::TextTooLong);
    EXPECT_EQ(error(u"Whole"_s, 2147483648LL), ErrorNumber::Overflow);
    EXPECT_EQ(error(u"Small"_s, 32768), ErrorNumber::Overflow);
    EXPECT_EQ(error(u"Money"_s, 1e18), ErrorNumber::Overflow);
    EXPECT_EQ(error(u"Whole"_s, u"abc"_s), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error(u"Whole"_s, u""_s), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error(u"Moment"_s, u"31-31-2024"_s), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error(u"Picture"_s, 5), ErrorNumber::TypeMismatch);
    // Thirty characters fit, however many bytes they need.
    EXPECT_EQ(through(u"Name"_s, QString(30, u'ü')), QVariant(QString(30, u'ü')));
}

TEST_F(Types, LongTextsAndPicturesComeBackWhole)
{
    QString text;
    while (text.size() < 3990)
        text += u"Zeile 'ü' "_s;
    EXPECT_EQ(through(u"Note"_s, text), QVariant(text));
    EXPECT_EQ(throughLiteral(u"Note"_s, u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\''),
              QVariant(text));
    QByteArray picture(1'000'003, Qt::Uninitialized);
    for (qsizetype i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<char>(i * 31 >> 3);
    EXPECT_EQ(through(u"Picture"_s, picture), QVariant(picture));
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
