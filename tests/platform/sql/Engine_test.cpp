#include "SampleSchema.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/db/Connection.h"
#include "platform/sql/Errors.h"

#include "platform/db/TestDatabase.h"
#include "support/Raised.h"
#include "support/TestEnvironment.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

/// What the statements mean once the engine has run them.
namespace {

using namespace Qt::StringLiterals;

class Engine : public testing::Test
{
protected:
    Engine()
        : data(database.connect())
    {
        for (const QString &table : test::machineTables())
            data.Execute(table);
        data.Execute(u"insert into Machine(Name,[Year],Hours,Cost,Bought,Sold) "
                     "values('Mower',2023,12.5,1234.5,#3/9/2024 2:05:07 PM#,True)"_s);
    }

    /// The value of an expression in the first machine's row, as text.
    QString value(const QString &expression, const QVariantList &parameters = {})
    {
        try {
            const auto rows = data.Open(
                u"select "_s + expression + u" as v from Machine where Id = 1"_s, parameters);
            return base::toText(rows.value(0, 0));
        } catch (const base::Error &error) {
            return u"error: "_s + error.description();
        }
    }
    /// How many machines meet the condition.
    int count(const QString &condition, const QVariantList &parameters = {})
    {
        try {
            return data.Open(u"select Id from Machine where "_s + condition, parameters)
                .RecordCount();
        } catch (const base::Error &error) {
            ADD_FAILURE() << qPrintable(condition) << ": " << error.what();
            return -1;
        }
    }
    test::TestEnvironment environment; // 15 March 2024, half past nine
    test::TestDatabase database;
    db::Connection data;
};

} // namespace

TEST_F(Engine, ExpressionsHaveTheDialectsValues)
{
    using Row = std::pair<QString, QString>;
    const Row cases[] = {
        // Texts and numbers.
        Row{u"Name + ' x'"_s, u"Mower x"_s}, Row{u"Name + [Note]"_s, u""_s},
        Row{u"Name & [Note] & '!'"_s, u"Mower!"_s},
        Row{u"[Year] & '/' & Hours & '/' & Cost"_s, u"2023/12.5/1234.5"_s},
        Row{u"cstr([Year]) + '   ' + Name"_s, u"2023   Mower"_s},
        Row{u"cstr(Hours * 8)"_s, u"100"_s}, Row{u"cstr(0.1 + 0.2)"_s, u"0.3"_s},
        Row{u"cstr(-0.5)"_s, u"-0.5"_s}, Row{u"cstr(Hours - Hours)"_s, u"0"_s},
        Row{u"cstr(Cost)"_s, u"1234.5"_s}, Row{u"cstr(Bought)"_s, u"3/9/2024 2:05:07 PM"_s},
        Row{u"cstr(Added)"_s, u"3/15/2024"_s}, Row{u"cstr(Sold)"_s, u"-1"_s},
        Row{u"[Year]/2"_s, u"1011.5"_s}, Row{u"7/2"_s, u"3.5"_s}, Row{u"[Year]\\2"_s, u"1011"_s},
        Row{u"[Year] mod 4"_s, u"3"_s}, Row{u"2^10"_s, u"1024"_s}, Row{u"-2^2"_s, u"-4"_s},
        Row{u"2+3*4-1"_s, u"13"_s}, Row{u"10-2-3"_s, u"5"_s}, Row{u"5--3"_s, u"8"_s},
        Row{u"'5' + 3"_s, u"8"_s}, Row{u"'5' + 0.5"_s, u"5.5"_s}, Row{u"'1' + '2'"_s, u"12"_s},
        Row{u"Name + Null"_s, u""_s}, Row{u"Cost / 16"_s, u"77.15625"_s},
        Row{u"Cost * Cost"_s, u"1523990.25"_s}, Row{u"Sum(Hours)/Count(*)"_s, u"12.5"_s},
        Row{u"'5' + Count(*)"_s, u"6"_s}, Row{u"Avg([Year])"_s, u"2023"_s},
        Row{u"First(Name)"_s, u"Mower"_s}, Row{u"Hours > 10 and Sold"_s, u"-1"_s},
        Row{u"[Note] = 'x'"_s, u""_s}, Row{u"not Sold"_s, u"0"_s},
        // Functions.
        Row{u"IIf(Hours > 10, 'more than ten', 'less')"_s, u"more than ten"_s},
        Row{u"IIf(Hours > 20, 'more', 'no')"_s, u"no"_s},
        Row{u"IIf([Note] = 'x', 'yes', 'no')"_s, u"no"_s},
        Row{u"IIf(Hours = 12.5, 0, 1 / (Hours - 12.5))"_s, u"0"_s},
        Row{u"IIf(Sold, Hours, 'none')"_s, u"12.5"_s},
        Row{u"Switch(Hours < 1, 'a', Hours < 20, 'bcd')"_s, u"bcd"_s},
        Row{u"Switch(Hours < 1, 'a', Hours < 2, 'b')"_s, u""_s},
        Row{u"Nz([Note], 'none')"_s, u"none"_s}, Row{u"Nz([Note]) & 'x'"_s, u"x"_s},
        Row{u"Nz(IIf(Sold, Null, Hours)) + 1"_s, u"1"_s}, Row{u"IsNull([Note])"_s, u"-1"_s},
        Row{u"Nz(Hours,'none') + 'x'"_s, u"12.5x"_s}, Row{u"Len(Name)"_s, u"5"_s},
        Row{u"Left(Name,2) & Right(Name,2)"_s, u"Moer"_s},
        Row{u"Mid(Name,2,3) & Mid(Name,5) & Mid(Name,9)"_s, u"ower"_s},
        Row{u"InStr(Name,'W')"_s, u"3"_s}, Row{u"InStr(4,Name,'w')"_s, u"0"_s},
        Row{u"UCase(Name) & LCase(Name)"_s, u"MOWERmower"_s},
        Row{u"'[' & Trim('  a ') & LTrim(' b ') & RTrim(' c ') & ']'"_s, u"[ab  c]"_s},
        Row{u"Val('12.5 kg')"_s, u"12.5"_s}, Row{u"Val('none')"_s, u"0"_s},
        Row{u"Val('-7')"_s, u"-7"_s},
        Row{u"CInt(2.5) & ' ' & CInt(3.5) & ' ' & CLng('7')"_s, u"2 4 7"_s},
        Row{u"CInt(Hours) & ' ' & CInt(Hours + 1) & ' ' & CInt(-Hours)"_s, u"12 14 -12"_s},
        Row{u"CDbl('2.5') * 2"_s, u"5"_s},
        Row{u"CSng('2.5') & CByte(7.5) & CBool(2)"_s, u"2.58-1"_s},
        Row{u"CVDate('3/15/2024') & DateValue('3/9/2024')"_s, u"3/15/20243/9/2024"_s},
        Row{u"Last(Name) & '[' & Space(3) & ']' & Sqr(16)"_s, u"Mower[   ]4"_s},
        Row{u"Int(-2.5) & Fix(-2.5) & Sgn(-3) & Abs(-3.5)"_s, u"-3-2-13.5"_s},
        Row{u"Round(Hours) & ' ' & Round(12.345, 1)"_s, u"12 12.3"_s},
        Row{u"Replace(Name, 'ow', 'ai') & Chr(65)"_s, u"MaierA"_s},
        // Dates.
        Row{u"CDate('3/15/2024')"_s, u"3/15/2024"_s}, Row{u"CDate(45366)"_s, u"3/15/2024"_s},
        Row{u"#3/15/2024# - #3/9/2024#"_s, u"6"_s},
        Row{u"#3/15/2024# + 1.5"_s, u"3/16/2024 12:00:00 PM"_s},
        Row{u"Int(Bought)"_s, u"3/9/2024"_s}, Row{u"Fix(Bought)"_s, u"3/9/2024"_s},
        Row{u"Now()"_s, u"3/15/2024 9:30:00 AM"_s}, Row{u"Date() - 5"_s, u"3/10/2024"_s},
        Row{u"Hour(Time()) & ':' & Minute(Time())"_s, u"9:30"_s},
        Row{u"Year(Bought) & '-' & Month(Bought) & '-' & Day(Bought)"_s, u"2024-3-9"_s},
        Row{u"Hour(Bought) & ':' & Minute(Bought) & ':' & Second(Bought)"_s, u"14:5:7"_s},
        Row{u"Weekday(Bought)"_s, u"7"_s}, // a Saturday
        Row{u"Hour('8:05') * 60 + Minute('8:05')"_s, u"485"_s},
        Row{u"DatePart('q', Bought) & DatePart('yyyy', Bought)"_s, u"12024"_s},
        Row{u"DateDiff('d', Bought, Added)"_s, u"6"_s},
        Row{u"DateDiff('d', Added, Bought)"_s, u"-6"_s},
        Row{u"DateDiff('ww', #3/9/2024#, #3/10/2024#)"_s, u"1"_s}, // a Sunday begins
        Row{u"DateDiff('ww', #3/10/2024#, #3/16/2024#)"_s, u"0"_s},
        Row{u"DateDiff('w', #3/9/2024#, #3/15/2024#)"_s, u"0"_s},
        Row{u"DateDiff('m', #1/31/2024#, #2/1/2024#)"_s, u"1"_s},
        Row{u"DateDiff('q', #3/31/2024#, #4/1/2024#)"_s, u"1"_s},
        Row{u"DateDiff('yyyy', #12/31/2023#, #1/1/2024#)"_s, u"1"_s},
        Row{u"DateDiff('n', #3/9/2024 14:00#, Bought)"_s, u"5"_s},
        Row{u"DateAdd('m', 1, #1/31/2024#)"_s, u"2/29/2024"_s},
        Row{u"DateAdd('ww', -1, #3/15/2024#)"_s, u"3/8/2024"_s},
        Row{u"DateAdd('q', 1, #3/15/2024#)"_s, u"6/15/2024"_s},
        Row{u"DateSerial(2024, 2, 30)"_s, u"3/1/2024"_s},
        Row{u"DateSerial(2024, 13, 1)"_s, u"1/1/2025"_s},
        Row{u"Format(Bought, 'mm-dd-yyyy')"_s, u"03-09-2024"_s},
        Row{u"Format(Bought, 'm/d/yy hh:mm')"_s, u"3/9/24 14:05"_s},
        Row{u"Format(Hours, '0.00') & Format(0.5, '0.00') & Format(2.5, '0')"_s, u"12.500.503"_s},
        Row{u"Format(Bought, 'ddd d mmmm yyyy')"_s, u"Sat 9 March 2024"_s},
        Row{u"Format(Bought, 'dddd, mmm dd')"_s, u"Saturday, Mar 09"_s},
        Row{u"Format(Bought, 'h:nn AM/PM')"_s, u"2:05 PM"_s},
        Row{u"Format(Bought, 'hh:mm:ss a/p')"_s, u"02:05:07 p"_s},
        Row{u"Format(Bought, 'q y w ww')"_s, u"1 69 7 10"_s},
        Row{u"Format(Bought, '\"Day\" d')"_s, u"Day 9"_s},
        Row{u"Format(Bought, 'Medium Date') & Format(Bought, 'short time')"_s, u"09-Mar-2414:05"_s},
        Row{u"Format(Bought, 'General Date') & '|' & Format(Bought, 'Long Date')"_s,
            u"3/9/2024 2:05:07 PM|Saturday, March 09, 2024"_s},
        Row{u"Format(Bought, 'Short Date') & '|' & Format(Bought, 'Long Time')"_s,
            u"3/9/2024|2:05:07 PM"_s},
        Row{u"Format(Bought, 'Medium Time') & '|' & Format(.285, 'Percent')"_s,
            u"02:05 PM|28.50%"_s},
        Row{u"Format(Cost, 'Fixed') & '|' & Format(Cost, 'Standard') & Format(7, '\\x0\\0')"_s,
            u"1234.50|1,234.50x70"_s},
        Row{u"Format(Bought, 'c')"_s, u"3/9/2024 2:05:07 PM"_s},
        Row{u"Format(Bought, 'nn:ss')"_s, u"05:07"_s},
        // Numbers in every picture, a half away from zero.
        Row{u"Format(Cost, '#,##0.00')"_s, u"1,234.50"_s},
        Row{u"Format(-Cost * 1000000, '#,##0')"_s, u"-1,234,500,000"_s},
        Row{u"Format(12, '#,##0') & Format(0, '#,##0') & '|' & Format(0, '#,###')"_s, u"120|"_s},
        Row{u"Format(1000000, '#,##0.0')"_s, u"1,000,000.0"_s},
        Row{u"Format(26.025, '0.00') & ' ' & Format(1.005, '0.00')"_s, u"26.03 1.01"_s},
        Row{u"Format(-0.001, '0.00') & Format(-0.001, '$0.00')"_s, u"0.00$0.00"_s},
        Row{u"Format(1.5, '0.##') & ' ' & Format(5, '0.0#') & ' ' & Format(.5, '#.00')"_s,
            u"1.5 5.0 .50"_s},
        Row{u"Format(7, '000') & Format(1234, '000') & Format(.5, '.00')"_s, u"0071234.50"_s},
        Row{u"Format(0.285, '0%') & Format(0.125, '0.0%')"_s, u"29%12.5%"_s},
        Row{u"Format(-3, '$0.00') & Format(3, '0.0 \"kg\"')"_s, u"-$3.003.0 kg"_s},
        Row{u"Format(-1234.5, 'Currency') & Format(1234.5, 'currency')"_s,
            u"($1,234.50)$1,234.50"_s},
        Row{u"Format(0, '0.0;-0.0;\"none\"') & Format(-2, '0;(0)')"_s, u"none(2)"_s},
        Row{u"Format(Sold, 'Yes/No') & Format(0, 'on/off')"_s, u"YesOff"_s},
        Row{u"Format([Year], '0.0') & Format('2.5', '0.00')"_s, u"2023.02.50"_s},
        Row{u"Format(Sum(Hours), '#,##0.00')"_s, u"12.50"_s},
        // As many digits as a number has.
        Row{u"cstr(Hours * 744000000.04)"_s, u"9300000000.5"_s},
        Row{u"cstr(1 / (Hours - 9.5))"_s, u"0.333333333333333"_s},
        Row{u"cstr(Hours * 8e12) & '|' & cstr(Hours * 8e13)"_s, u"100000000000000|1E+15"_s},
        Row{u"cstr(Hours * 8e18) & '|' & cstr(Hours / 1e12)"_s, u"1E+20|1.25E-11"_s},
        Row{u"'' & Hours * 1e-6 & '|' & -Hours / 3"_s, u"0.0000125|-4.16666666666667"_s},
        Row{u"cstr(1e20) & '|' & cstr(0.00001)"_s, u"1E+20|0.00001"_s},
        Row{u"Format(0, 'Yes/No') & '|' & Format(Hours, 'True/False')"_s, u"No|True"_s}};
    for (const auto &[expression, expected] : cases)
        EXPECT_EQ(value(expression), expected) << qPrintable(expression);
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(value(u"Format(DateSerial(2024, %1, %1), 'mmmm mmm dddd ddd')"_s.arg(month)),
                  QLocale::c().toString(QDate(2024, month, month), u"MMMM MMM dddd ddd"_s));
}

TEST_F(Engine, RandomAmountsAreWrittenAsWholeNumbersSay)
{
    std::mt19937_64 random(20240315);
    // A number of up to four decimals, worked out in ten-thousandths.
    for (int i = 0; i < 300; ++i) {
        const auto limit = static_cast<qint64>(std::pow(10, 1 + i % 14));
        const qint64 units =
            static_cast<qint64>(random() % static_cast<quint64>(2 * limit)) - limit;
        const qint64 size = std::abs(units);
        const QString sign = units < 0 ? u"-"_s : QString();
        const qint64 cents = (size + 50) / 100;
        const QString hundredth = u"%1.%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
        const QString exact = u"%1.%2"_s.arg(size / 10'000).arg(size % 10'000, 4, 10, QChar(u'0'));
        QString shortest = exact;
        while (shortest.endsWith(u'0'))
            shortest.chop(1);
        if (shortest.endsWith(u'.'))
            shortest.chop(1);
        QString grouped = hundredth;
        for (qsizetype at = grouped.size() - 6; at > 0; at -= 3)
            grouped.insert(at, u',');
        const QString before = cents == 0 ? QString() : sign;
        data.Execute(u"update Machine set Hours = ?, Cost = ?"_s,
                     {static_cast<double>(units) / 10'000, static_cast<double>(units) / 10'000});
        for (const QString &column : {u"Hours"_s, u"Cost"_s}) {
            const QString all = u"cstr(%1) & '|' & Format(%1, '0.00') & '|' & Format(%1, "
                                "'#,##0.00') & '|' & Format(%1, '0.0000')"_s.arg(column);
            ASSERT_EQ(value(all), (units == 0 ? u"0"_s : sign + shortest) + u'|' + before +
                                      hundredth + u'|' + before + grouped + u'|' + sign + exact)
                << column.toStdString() << ' ' << units;
        }
    }
}

TEST_F(Engine, AFormatThatIsNoneIsRefused)
{
    for (const QString &call :
         {u"Hours, '0.0E+00'"_s, u"Hours, 'Scientific'"_s, u"Hours, '@@'"_s, u"Hours, '0.0 kg'"_s,
          u"Hours, '#,##0,'"_s, u"Hours, '0.0.0'"_s, u"Hours, '0.000000000'"_s, u"Hours, ';0'"_s,
          u"Hours, 'mm/dd'"_s, u"Bought, '0.00'"_s, u"Bought, 'mm xx'"_s, u"Bought, 'dddddddd'"_s,
          u"Name, '>'"_s, u"Hours, '0 0'"_s, u"Hours, '0%%'"_s}) {
        const auto open = [&] { (void)data.Open(u"select Format(%1) from Machine"_s.arg(call)); };
        EXPECT_EQ(test::raisedBy(open).number(), sql::ErrorNumber::Syntax) << qPrintable(call);
    }
}

TEST_F(Engine, WhatAColumnCanNotHoldIsAnOverflow)
{
    const auto overflows = [&](const QString &change, const QVariantList &values = {}) {
        const auto run = [&] { data.Execute(change, values); };
        EXPECT_EQ(test::raisedBy(run).number(), base::ErrorNumber::Overflow) << qPrintable(change);
    };
    for (const QString &amount :
         {u"922337203685477.5807"_s, u"922337203685478"_s, u"-922337203685478"_s, u"1e20"_s,
          u"'922337203685477.5807'"_s, u"Hours * 1e15"_s, u"9e14 + 9e14"_s,
          u"CCur(922337203685477.5807)"_s, u"CCur(Hours * 73786976294838.22)"_s,
          u"Hours * 73786976294838.22"_s, u"922337203685477.5807 * 1"_s}) {
        overflows(u"update Machine set Cost = "_s + amount);
        overflows(u"insert into Machine(Name, Cost) select Name, %1 from Machine"_s.arg(amount));
    }
    overflows(u"update Machine set Cost = ?"_s, {922337203685477.5807});
    overflows(u"insert into Machine(Cost) values(922337203685477.5807)"_s);
    overflows(u"update Machine set Cost = 900000000000000 where Id = 1 and Cost * 1e15 > "
              "CCur(Cost * 1e13)"_s);
    EXPECT_EQ(value(u"Cost"_s), u"1234.5"_s);
    for (const QString &date : {u"DateAdd('d', 5, #12/30/9999#)"_s, u"#12/30/9999# + 5"_s,
                                u"DateSerial(9999, 13, 1)"_s, u"DateAdd('yyyy', 8000, Bought)"_s})
        overflows(u"update Machine set Bought = "_s + date);
    EXPECT_EQ(value(u"CDate(2958465)"_s), u"12/31/9999"_s);
    data.Execute(u"update Machine set Cost = Hours * 73786976294838"_s);
    EXPECT_EQ(value(u"Cost"_s), u"922337203685475"_s);
}

TEST_F(Engine, ParametersMayStandAnywhere)
{
    EXPECT_EQ(value(u"?"_s, {u"abc"_s}), u"abc"_s);
    EXPECT_EQ(value(u"Format(?, '#,##0.00')"_s, {1234.565}), u"1,234.57"_s);
    EXPECT_EQ(value(u"Format(?, '0.00')"_s, {QVariant()}), u""_s);
    EXPECT_EQ(value(u"Name + ?"_s, {u"-x"_s}), u"Mower-x"_s);
    EXPECT_EQ(value(u"Hours + ?"_s, {u"2.5"_s}), u"15"_s);
    EXPECT_EQ(value(u"IIf(Sold, ?, 'no')"_s, {u"a longer text"_s}), u"a longer text"_s);
    EXPECT_EQ(value(u"DateAdd('d', ?, ?)"_s, {2, QDate(2024, 3, 15)}), u"3/17/2024"_s);
    EXPECT_EQ(count(u"Id = ? and Name = ? and Bought < ? and Sold = ? and Cost > ?"_s,
                    {u"1"_s, u"mower"_s, u"3/15/2024"_s, true, 1000}),
              1);
    EXPECT_EQ(count(u"Name like ?"_s, {u"m*r"_s}), 1);
    EXPECT_EQ(count(u"Name like ?"_s, {u"[l-n]*"_s}), 1);
    EXPECT_EQ(count(u"Name like ?"_s, {u"mower#"_s}), 0);
    EXPECT_EQ(count(u"? is null"_s, {QVariant()}), 1);
    EXPECT_EQ(count(u"Bought between ? and ?"_s, {QDate(2024, 3, 9), QDate(2024, 3, 10)}), 1);
}

TEST_F(Engine, ValuesThatNoColumnCouldHoldAreCompared)
{
    const QString longText(5000, u'x');
    const std::vector<std::pair<QString, int>> cases = {
        {u"Name = '%1'"_s.arg(longText), 0},
        {u"Name <> '%1'"_s.arg(longText), 1},
        {u"Name < 'Mowerzzzzzzzzzzzzzzzzzzzzzzzzzzzz'"_s, 1},
        {u"Id = 99999999999 or Id = '99999999999'"_s, 0},
        {u"Id < 99999999999"_s, 1},
        {u"[Year] = 2023.5"_s, 0},
        {u"[Year] < '2023.5'"_s, 1},
        {u"Sold = 100000"_s, 0}};
    for (const auto &[condition, rows] : cases)
        EXPECT_EQ(count(condition), rows) << qPrintable(condition.left(80));
    EXPECT_EQ(count(u"Name = ? or Name like ?"_s, {longText, u'*' + longText + u'*'}), 0);
    EXPECT_EQ(count(u"Name <> ? and Id < ?"_s, {longText, 5'000'000'000LL}), 1);
    QStringList texts;
    QStringList numbers;
    for (int i = 1; i <= 2500; ++i) {
        texts += u"'name %1'"_s.arg(i);
        numbers += QString::number(i);
    }
    EXPECT_EQ(count(u"Id in (%1)"_s.arg(numbers.join(u','))), 1);
    EXPECT_EQ(count(u"Id not in (%1)"_s.arg(numbers.join(u','))), 0);
    EXPECT_EQ(count(u"Name in (%1, 'MOWER')"_s.arg(texts.join(u','))), 1);
}

TEST_F(Engine, AMismatchIsRaisedWhenTheStatementRuns)
{
    for (const QString &condition :
         {u"Id = ''"_s, u"Hours > 'abc'"_s, u"Bought = 'soon'"_s, u"Sold = 'maybe'"_s,
          u"Val(Name) + Name > 0"_s, u"Minute(Name) = 5"_s, u"Hour('25:00') = 1"_s}) {
        const auto open = [&] { (void)data.Open(u"select * from Machine where "_s + condition); };
        EXPECT_EQ(test::raisedBy(open).number(), sql::ErrorNumber::TypeMismatch)
            << qPrintable(condition);
    }
}
