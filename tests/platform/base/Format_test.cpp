#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "support/TestEnvironment.h"

#include <gtest/gtest.h>

namespace {

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return base::wallClock(QDate(year, month, day), QTime(hour, minute, second));
}

TEST(ParseMonthFirst, ReadsEveryFormThatTheDialectWritesAndNoOther)
{
    const std::pair<const char *, QDateTime> rows[] = {
        {"03-09-2024", at(2024, 3, 9)},
        {"3/9/24", at(2024, 3, 9)},
        {"3-9-29", at(2029, 3, 9)},
        {"3-9-30", at(1930, 3, 9)},
        {"12/31/1999 11:59:58 PM", at(1999, 12, 31, 23, 59, 58)},
        {"1/2/2024 12:05 AM", at(2024, 1, 2, 0, 5)},
        {"1/2/2024 12:05 PM", at(2024, 1, 2, 12, 5)},
        {" 02-29-2024 14:30 ", at(2024, 2, 29, 14, 30)},
    };
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(base::parseMonthFirst(QString::fromLatin1(text)), expected) << text;

    for (const char *text :
         {"", "13-01-2024", "02-29-2023", "2024-03-09", "3-9", "3-9/2024", "3-9-024", "3-9-2024x",
          "003-9-2024", "3-009-2024", "3-9-02024", "3-9-2024 25:00", "3-9-2024 8:60",
          "3-9-2024 8:59:60", "3-9-2024 008:00", "0-9-2024", "3-9-2024 13:00 PM",
          "3-9-2024 0:30 AM", "March 9"})
        EXPECT_FALSE(base::parseMonthFirst(QString::fromLatin1(text))) << text;
}

TEST(DateLiteral, KeepsTheTimeOnlyWhenThereIsOneAndWritesNullForTheZeroDate)
{
    EXPECT_EQ(base::dateLiteral(at(2024, 3, 9)), "#03-09-2024#");
    EXPECT_EQ(base::dateLiteral(at(2024, 3, 9, 8, 5)), "#03-09-2024 08:05:00#");
    EXPECT_EQ(base::dateLiteral({}), "NULL");
    EXPECT_EQ(base::monthFirst(QDateTime()), "");
}

TEST(ToText, GivesNumbersDatesAndFlagsAsStringConversionDoes)
{
    const std::pair<QVariant, const char *> rows[] = {
        {{}, ""},
        {12.0, "12"},
        {0.1 + 0.2, "0.3"},
        {-1.25, "-1.25"},
        {true, "True"},
        {at(2024, 3, 9), "3/9/2024"},
        {1.0 / 3, "0.333333333333333"},
        {9'300'000'000.5, "9300000000.5"},
        {12'345'678'901'234.56, "12345678901234.6"},
        {1e-5, "0.00001"},
        {1e20, "1E+20"},
        {at(2024, 3, 9, 15, 4, 5), "3/9/2024 3:04:05 PM"}};
    for (const auto &[value, text] : rows)
        EXPECT_EQ(base::toText(value), text);
}

TEST(RoundedToEven, TakesTiesToTheEvenNeighbour)
{
    for (const auto &[value, rounded] :
         {std::pair(1000.5, 1000), {1001.5, 1002}, {-2.5, -2}, {2.51, 3}})
        EXPECT_EQ(base::roundedToEven(value), rounded);
}

TEST(Money, ShowsTwoDecimalsAndTheSignInFront)
{
    EXPECT_EQ(base::money(1234.5), "$1234.50");
    EXPECT_EQ(base::money(-0.125), "-$0.13");
}

TEST(ApplicationPath, TurnsStoredPathsIntoThoseOfThisSystem)
{
    const test::TestEnvironment surroundings;
    EXPECT_EQ(base::applicationPath("\\Data\\Quorvantis.mdb"),
              surroundings.folder() + "/app/Data/Quorvantis.mdb");
    EXPECT_EQ(base::applicationPath("\\Data\\Backup\\"),
              surroundings.folder() + "/app/Data/Backup/");
    EXPECT_EQ(base::appDataPath("\\temp.mdb"),
              surroundings.folder() + "/appdata/Quorvantis/temp.mdb");
    EXPECT_EQ(base::appDataPath(), surroundings.folder() + "/appdata/Quorvantis");
}

} // namespace
