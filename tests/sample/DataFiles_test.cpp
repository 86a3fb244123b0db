#include "company/Calendar.h"
#include "core/database/Csv.h"
#include "core/database/ListFile.h"
#include "core/database/Script.h"
#include "support/Raised.h"

namespace {

using namespace Qt::StringLiterals;

TEST(Csv, FieldsMayHoldAnythingAndAreFoundByHeading)
{
    const auto rows = company::parseCsv(u"a,\"b,c\",\r\n\n\"say \"\"no\"\"\",\"two\nlines\",d");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], (QStringList{u"a"_s, u"b,c"_s, u""_s}));
    EXPECT_EQ(rows[1], (QStringList{u"say \"no\""_s, u"two\nlines"_s, u"d"_s}));
    for (const QStringList &row : rows)
        EXPECT_EQ(company::parseCsv(company::csvLine(row)).at(0), row);

    const company::CsvTable table(u"Name,Price\nBelt,2.5\nNut\n");
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.text(0, u"Name"_s), u"Belt"_s);
    EXPECT_EQ(table.number(0, u"Price"_s), 2.5);
    EXPECT_EQ(table.number(1, u"Price"_s), 0);
    EXPECT_THROW((void)table.text(0, u"Size"_s), base::Error);
    EXPECT_THROW(company::CsvTable(u"Name\na,b\n"), base::Error);
}

TEST(Script, StatementsEndAtSemicolonsOutsideQuotesAndComments)
{
    EXPECT_EQ(
        company::splitStatements(u"-- first; not this\ninsert into t values ('a;b--c', \"d;\"); ;\n"
                                 "update t set [x;y] = #1/2/2024# -- why; so\n where n = 1-1;\n\n"),
        (QStringList{u"insert into t values ('a;b--c', \"d;\")"_s,
                     u"update t set [x;y] = #1/2/2024# \n where n = 1-1"_s}));
    EXPECT_TRUE(company::splitStatements(u" -- nothing\n ; ").isEmpty());
}

TEST(ListFile, NumbersMembersInTheOrderOfTheOutline)
{
    const auto items = company::parseLists(u"# lists\n"
                                           "4 Type\n"
                                           "  Mower\n"
                                           "    Toro: Z 1; Z 2\n"
                                           "    Scag\n"
                                           "  Truck\n"
                                           "\n"
                                           "5 Fuel: Gas; Mix 50:1\n",
                                           101);
    const std::vector<company::ListItem> expected = {
        {4, 0, u"Type"_s},    {101, 4, u"Mower"_s},   {102, 101, u"Toro"_s}, {103, 102, u"Z 1"_s},
        {104, 102, u"Z 2"_s}, {105, 101, u"Scag"_s},  {106, 4, u"Truck"_s},  {5, 0, u"Fuel"_s},
        {107, 5, u"Gas"_s},   {108, 5, u"Mix 50:1"_s}};
    EXPECT_EQ(items, expected);

    for (const QString &text :
         {u"4 Type\n      Deep\n"_s, u"4 Type\n   Odd\n"_s, u"4 Type\nNoNumber Here\n"_s}) {
        const base::Error error = test::raisedBy([&] { (void)company::parseLists(text, 101); });
        EXPECT_TRUE(error.description().startsWith(u"Line 2"_s)) << error.what();
    }
}

TEST(Pattern, FindsTheNextAndTheLastDay)
{
    using company::sample::Pattern;
    // 15 March 2024 is a Friday.
    const std::tuple<const char *, QDate, QDate> cases[] = {
        {"", {2024, 3, 15}, {2024, 3, 15}},
        {"days:Mon Wed", {2024, 3, 15}, {2024, 3, 18}},
        {"months:Nov", {2024, 3, 15}, {2024, 11, 1}},
        {"dom:1 15", {2024, 3, 16}, {2024, 4, 1}},
        {"dom:31", {2024, 4, 2}, {2024, 5, 31}},
        // Days 1 to 3 and 7 make the first week.
        {"weeks:First days:Mon", {2024, 3, 15}, {2024, 4, 1}},
    };
    for (const auto &[pattern, from, first] : cases)
        EXPECT_EQ(Pattern(QString::fromLatin1(pattern)).firstFrom(from), first) << pattern;
    EXPECT_EQ(Pattern(u"days:Mon Wed"_s).lastBefore({2024, 3, 15}), QDate(2024, 3, 13));
    EXPECT_EQ(Pattern(u"dom:1 15"_s).lastBefore({2024, 3, 15}), QDate(2024, 3, 1));
    EXPECT_THROW(Pattern(u"days:Mo"_s), base::Error);
}

TEST(Meter, NeverFallsAndIsReachedOnTheFirstSuchDay)
{
    const QDate begin(2021, 11, 20);
    const company::sample::Meter meter(begin, 500, 2.1);
    EXPECT_EQ(meter.at(begin), 500);
    for (QDate day = begin; day < begin.addDays(800); day = day.addDays(1))
        ASSERT_LE(meter.at(day), meter.at(day.addDays(1)));
    // Two full years at 2.1 a day.
    EXPECT_NEAR(meter.at(begin.addDays(730)), 500 + 1533, 3);
    for (const int value : {501, 777, 1500}) {
        const QDate day = meter.reached(value);
        EXPECT_GE(meter.at(day), value);
        EXPECT_LT(meter.at(day.addDays(-1)), value);
    }
}

} // namespace
