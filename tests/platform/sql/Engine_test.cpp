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
    using Row = std::pair<const char *, const char *>;
    const Row cases[] = {
        // Texts and numbers.
        Row{"Name + ' x'", "Mower x"}, Row{"Name + [Note]", ""},
        Row{"Name & [Note] & '!'", "Mower!"},
        Row{"[Year] & '/' & Hours & '/' & Cost", "2023/12.5/1234.5"},
        Row{"cstr([Year]) + '   ' + Name", "2023   Mower"}, Row{"cstr(Hours * 8)", "100"},
        Row{"cstr(0.1 + 0.2)", "0.3"}, Row{"cstr(-0.5)", "-0.5"}, Row{"cstr(Hours - Hours)", "0"},
        Row{"cstr(Cost)", "1234.5"}, Row{"cstr(Bought)", "3/9/2024 2:05:07 PM"},
        Row{"cstr(Added)", "3/15/2024"}, Row{"cstr(Sold)", "-1"}, Row{"[Year]/2", "1011.5"},
        Row{"7/2", "3.5"}, Row{"[Year]\\2", "1011"}, Row{"[Year] mod 4", "3"}, Row{"2^10", "1024"},
        Row{"-2^2", "-4"}, Row{"2+3*4-1", "13"}, Row{"10-2-3", "5"}, Row{"5--3", "8"},
        Row{"'5' + 3", "8"}, Row{"'5' + 0.5", "5.5"}, Row{"'1' + '2'", "12"},
        Row{"Name + Null", ""}, Row{"Cost / 16", "77.15625"}, Row{"Cost * Cost", "1523990.25"},
        Row{"Sum(Hours)/Count(*)", "12.5"}, Row{"'5' + Count(*)", "6"}, Row{"Avg([Year])", "2023"},
        Row{"First(Name)", "Mower"}, Row{"Hours > 10 and Sold", "-1"}, Row{"[Note] = 'x'", ""},
        Row{"not Sold", "0"},
        // Functions.
        Row{"IIf(Hours > 10, 'more than ten', 'less')", "more than ten"},
        Row{"IIf(Hours > 20, 'more', 'no')", "no"}, Row{"IIf([Note] = 'x', 'yes', 'no')", "no"},
        Row{"IIf(Hours = 12.5, 0, 1 / (Hours - 12.5))", "0"},
        Row{"IIf(Sold, Hours, 'none')", "12.5"},
        Row{"Switch(Hours < 1, 'a', Hours < 20, 'bcd')", "bcd"},
        Row{"Switch(Hours < 1, 'a', Hours < 2, 'b')", ""}, Row{"Nz([Note], 'none')", "none"},
        Row{"Nz([Note]) & 'x'", "x"}, Row{"Nz(IIf(Sold, Null, Hours)) + 1", "1"},
        Row{"IsNull([Note])", "-1"}, Row{"Nz(Hours,'none') + 'x'", "12.5x"}, Row{"Len(Name)", "5"},
        Row{"Left(Name,2) & Right(Name,2)", "Moer"},
        Row{"Mid(Name,2,3) & Mid(Name,5) & Mid(Name,9)", "ower"}, Row{"InStr(Name,'W')", "3"},
        Row{"InStr(4,Name,'w')", "0"}, Row{"UCase(Name) & LCase(Name)", "MOWERmower"},
        Row{"'[' & Trim('  a ') & LTrim(' b ') & RTrim(' c ') & ']'", "[ab  c]"},
        Row{"Val('12.5 kg')", "12.5"}, Row{"Val('none')", "0"}, Row{"Val('-7')", "-7"},
        Row{"CInt(2.5) & ' ' & CInt(3.5) & ' ' & CLng('7')", "2 4 7"},
        Row{"CInt(Hours) & ' ' & CInt(Hours + 1) & ' ' & CInt(-Hours)", "12 14 -12"},
        Row{"CDbl('2.5') * 2", "5"}, Row{"CSng('2.5') & CByte(7.5) & CBool(2)", "2.58-1"},
        Row{"CVDate('3/15/2024') & DateValue('3/9/2024')", "3/15/20243/9/2024"},
        Row{"Last(Name) & '[' & Space(3) & ']' & Sqr(16)", "Mower[   ]4"},
        Row{"Int(-2.5) & Fix(-2.5) & Sgn(-3) & Abs(-3.5)", "-3-2-13.5"},
        Row{"Round(Hours) & ' ' & Round(12.345, 1)", "12 12.3"},
        Row{"Replace(Name, 'ow', 'ai') & Chr(65)", "MaierA"},
        // Dates.
        Row{"CDate('3/15/2024')", "3/15/2024"}, Row{"CDate(45366)", "3/15/2024"},
        Row{"#3/15/2024# - #3/9/2024#", "6"}, Row{"#3/15/2024# + 1.5", "3/16/2024 12:00:00 PM"},
        Row{"Int(Bought)", "3/9/2024"}, Row{"Fix(Bought)", "3/9/2024"},
        Row{"Now()", "3/15/2024 9:30:00 AM"}, Row{"Date() - 5", "3/10/2024"},
        Row{"Hour(Time()) & ':' & Minute(Time())", "9:30"},
        Row{"Year(Bought) & '-' & Month(Bought) & '-' & Day(Bought)", "2024-3-9"},
        Row{"Hour(Bought) & ':' & Minute(Bought) & ':' & Second(Bought)", "14:5:7"},
        Row{"Weekday(Bought)", "7"}, // a Saturday
        Row{"Hour('8:05') * 60 + Minute('8:05')", "485"},
        Row{"DatePart('q', Bought) & DatePart('yyyy', Bought)", "12024"},
        Row{"DateDiff('d', Bought, Added)", "6"}, Row{"DateDiff('d', Added, Bought)", "-6"},
        Row{"DateDiff('ww', #3/9/2024#, #3/10/2024#)", "1"}, // a Sunday begins
        Row{"DateDiff('ww', #3/10/2024#, #3/16/2024#)", "0"},
        Row{"DateDiff('w', #3/9/2024#, #3/15/2024#)", "0"},
        Row{"DateDiff('m', #1/31/2024#, #2/1/2024#)", "1"},
        Row{"DateDiff('q', #3/31/2024#, #4/1/2024#)", "1"},
        Row{"DateDiff('yyyy', #12/31/2023#, #1/1/2024#)", "1"},
        Row{"DateDiff('n', #3/9/2024 14:00#, Bought)", "5"},
        Row{"DateAdd('m', 1, #1/31/2024#)", "2/29/2024"},
        Row{"DateAdd('ww', -1, #3/15/2024#)", "3/8/2024"},
        Row{"DateAdd('q', 1, #3/15/2024#)", "6/15/2024"},
        Row{"DateSerial(2024, 2, 30)", "3/1/2024"}, Row{"DateSerial(2024, 13, 1)", "1/1/2025"},
        Row{"Format(Bought, 'mm-dd-yyyy')", "03-09-2024"},
        Row{"Format(Bought, 'm/d/yy hh:mm')", "3/9/24 14:05"},
        Row{"Format(Hours, '0.00') & Format(0.5, '0.00') & Format(2.5, '0')", "12.500.503"},
        Row{"Format(Bought, 'ddd d mmmm yyyy')", "Sat 9 March 2024"},
        Row{"Format(Bought, 'dddd, mmm dd')", "Saturday, Mar 09"},
        Row{"Format(Bought, 'h:nn AM/PM')", "2:05 PM"},
        Row{"Format(Bought, 'hh:mm:ss a/p')", "02:05:07 p"},
        Row{"Format(Bought, 'q y w ww')", "1 69 7 10"}, Row{"Format(Bought, '\"Day\" d')", "Day 9"},
        Row{"Format(Bought, 'Medium Date') & Format(Bought, 'short time')", "09-Mar-2414:05"},
        Row{"Format(Bought, 'General Date') & '|' & Format(Bought, 'Long Date')",
            "3/9/2024 2:05:07 PM|Saturday, March 09, 2024"},
        Row{"Format(Bought, 'Short Date') & '|' & Format(Bought, 'Long Time')",
            "3/9/2024|2:05:07 PM"},
        Row{"Format(Bought, 'Medium Time') & '|' & Format(.285, 'Percent')", "02:05 PM|28.50%"},
        Row{"Format(Cost, 'Fixed') & '|' & Format(Cost, 'Standard') & Format(7, '\\x0\\0')",
            "1234.50|1,234.50x70"},
        Row{"Format(Bought, 'c')", "3/9/2024 2:05:07 PM"}, Row{"Format(Bought, 'nn:ss')", "05:07"},
        // Numbers in every picture, a half away from zero.
        Row{"Format(Cost, '#,##0.00')", "1,234.50"},
        Row{"Format(-Cost * 1000000, '#,##0')", "-1,234,500,000"},
        Row{"Format(12, '#,##0') & Format(0, '#,##0') & '|' & Format(0, '#,###')", "120|"},
        Row{"Format(1000000, '#,##0.0')", "1,000,000.0"},
        Row{"Format(26.025, '0.00') & ' ' & Format(1.005, '0.00')", "26.03 1.01"},
        Row{"Format(-0.001, '0.00') & Format(-0.001, '$0.00')", "0.00$0.00"},
        Row{"Format(1.5, '0.##') & ' ' & Format(5, '0.0#') & ' ' & Format(.5, '#.00')",
            "1.5 5.0 .50"},
        Row{"Format(7, '000') & Format(1234, '000') & Format(.5, '.00')", "0071234.50"},
        Row{"Format(0.285, '0%') & Format(0.125, '0.0%')", "29%12.5%"},
        Row{"Format(-3, '$0.00') & Format(3, '0.0 \"kg\"')", "-$3.003.0 kg"},
        Row{"Format(-1234.5, 'Currency') & Format(1234.5, 'currency')", "($1,234.50)$1,234.50"},
        Row{"Format(0, '0.0;-0.0;\"none\"') & Format(-2, '0;(0)')", "none(2)"},
        Row{"Format(Sold, 'Yes/No') & Format(0, 'on/off')", "YesOff"},
        Row{"Format([Year], '0.0') & Format('2.5', '0.00')", "2023.02.50"},
        Row{"Format(Sum(Hours), '#,##0.00')", "12.50"},
        // As many digits as a number has.
        Row{"cstr(Hours * 744000000.04)", "9300000000.5"},
        Row{"cstr(1 / (Hours - 9.5))", "0.333333333333333"},
        Row{"cstr(Hours * 8e12) & '|' & cstr(Hours * 8e13)", "100000000000000|1E+15"},
        Row{"cstr(Hours * 8e18) & '|' & cstr(Hours / 1e12)", "1E+20|1.25E-11"},
        Row{"'' & Hours * 1e-6 & '|' & -Hours / 3", "0.0000125|-4.16666666666667"},
        Row{"cstr(1e20) & '|' & cstr(0.00001)", "1E+20|0.00001"},
        Row{"Format(0, 'Yes/No') & '|' & Format(Hours, 'True/False')", "No|True"}};
    for (const auto &[expression, expected] : cases)
        EXPECT_EQ(value(QString::fromLatin1(expression)).toStdString(), expected) << expression;
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
