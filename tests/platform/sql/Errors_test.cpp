#include "SampleSchema.h"

#include "platform/sql/Errors.h"
#include "platform/sql/Translator.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace Number = sql::ErrorNumber;

namespace {

struct Case
{
    const char *name;
    QString statement;
    int number;
    QString mentions; ///< what the user is told about
};

void PrintTo(const Case &c, std::ostream *out)
{
    *out << c.name;
}

class Refused : public testing::TestWithParam<Case>
{};

} // namespace

TEST_P(Refused, WithItsNumberAndAWordOnTheCause)
{
    try {
        const sql::Plan plan = sql::translate(GetParam().statement, test::machineSchema());
        ADD_FAILURE() << "translated to " << qPrintable(plan.text);
    } catch (const base::Error &error) {
        EXPECT_EQ(error.number(), GetParam().number) << error.what();
        EXPECT_TRUE(error.description().contains(GetParam().mentions)) << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Statements, Refused,
    testing::Values(
        Case{"UnknownTable", u"select * from Tractor"_s, Number::TableUnknown, u"Tractor"_s},
        Case{"UnknownTableInSubquery", u"delete from Job where Code in (select a from Nowhere)"_s,
             Number::TableUnknown, u"Nowhere"_s},
        Case{"UnknownTargetTable", u"insert into Tractor(a) values(1)"_s, Number::TableUnknown,
             u"Tractor"_s},
        Case{"UnknownColumn", u"select Color from Machine"_s, Number::ValueMissing, u"Color"_s},
        Case{"UnknownColumnInWhere", u"select * from Machine where Colour = 5"_s,
             Number::ValueMissing, u"Colour"_s},
        Case{"UnknownColumnOfTable", u"select Machine.Code from Machine"_s, Number::ValueMissing,
             u"Machine.Code"_s},
        Case{"UnknownQualifier", u"select x.Name from Machine"_s, Number::ValueMissing,
             u"x.Name"_s},
        Case{"UnquotedText", u"select * from Machine where Name = abc"_s, Number::ValueMissing,
             u"abc"_s},
        Case{"UnknownInsertColumn", u"insert into Part(Codex) values(1)"_s, Number::ValueMissing,
             u"Codex"_s},
        Case{"UnknownUpdateColumn", u"update Part set Codex = 1"_s, Number::ValueMissing,
             u"Codex"_s},
        Case{"UnknownOrderColumn", u"select Name from Machine order by Colour"_s,
             Number::ValueMissing, u"Colour"_s},
        Case{"NeighbourOfDerivedTable",
             u"select * from Machine, (select * from Job where Machine = Machine.Id) q"_s,
             Number::ValueMissing, u"Machine.Id"_s},
        Case{"AmbiguousColumn", u"select Code from Job, Part"_s, Number::Syntax,
             u"more than one table"_s},
        Case{"TwoTablesOfOneName", u"select 1 from Job, Part as job"_s, Number::Syntax, u"job"_s},
        Case{"Empty", u""_s, Number::Syntax, u"expected SELECT"_s},
        Case{"NoStatement", u"Machine"_s, Number::Syntax, u"expected SELECT"_s},
        Case{"StrayComma", u"Update Machine set Name = 'a', Where Id = 1"_s, Number::Syntax,
             u"Id = 1"_s},
        Case{"MissingValue", u"select * from Machine where Id = "_s, Number::Syntax,
             u"a value is missing"_s},
        Case{"MissingParenthesis", u"select * from Machine where Id in (1,2"_s, Number::Syntax,
             u"\")\""_s},
        Case{"ExtraParenthesis", u"select * from Machine where Id = 1)"_s, Number::Syntax,
             u"should have ended"_s},
        Case{"SecondStatement", u"delete from Part; delete from Job"_s, Number::Syntax,
             u"should have ended"_s},
        Case{"EmptyDate", u"update Job set Due = ## where JobNo = 1"_s, Number::Syntax, u"date"_s},
        Case{"WrongDate", u"update Job set Due = #2/30/2024# where JobNo = 1"_s, Number::Syntax,
             u"date"_s},
        Case{"UnknownFunction", u"select Foo(Name) from Machine"_s, Number::Syntax, u"Foo"_s},
        Case{"WrongArguments", u"select Left(Name) from Machine"_s, Number::Syntax, u"Left"_s},
        Case{"OddSwitch", u"select Switch(Id=1,'a',Id=2) from Machine"_s, Number::Syntax,
             u"Switch"_s},
        Case{"UnknownInterval", u"select DateDiff('x',Bought,Added) from Machine"_s, Number::Syntax,
             u"interval"_s},
        Case{"ValuesDoNotFitColumns", u"insert into Part(Code,Job) values('a')"_s, Number::Syntax,
             u"1 values for 2 columns"_s},
        Case{"QueryDoesNotFitColumns", u"insert into Part(Code) select Code, Job from Part"_s,
             Number::Syntax, u"2 values for 1 columns"_s},
        Case{"UnionOfDifferentWidth", u"select Code from Part union select Code, Job from Part"_s,
             Number::Syntax, u"UNION"_s},
        Case{"UnionSortedByTable",
             u"select Code from Part union select Code from Job order by Id"_s, Number::Syntax,
             u"UNION"_s},
        Case{"OrdinalOutOfRange", u"select Code from Part order by 2"_s, Number::Syntax,
             u"number to sort by"_s},
        Case{"WideSubquery", u"select * from Part where Code in (select * from Job)"_s,
             Number::Syntax, u"one column"_s},
        Case{"Percent", u"select top 5 percent * from Part"_s, Number::Syntax, u"PERCENT"_s},
        Case{"OpenList", u"select * from Machine where Name like 'a[bc'"_s, Number::Syntax,
             u"\"[\""_s},
        Case{"NumberPlusText", u"select Hours + 'abc' from Machine"_s, Number::TypeMismatch,
             u"abc"_s},
        Case{"DateTimesNumber", u"select Bought * 2 from Machine"_s, Number::TypeMismatch,
             u"date"_s},
        Case{"DateAgainstText", u"select * from Machine where Bought = Name"_s,
             Number::TypeMismatch, u"date"_s}),
    [](const auto &row) { return row.param.name; });

TEST(Errors, ALiteralOfTheWrongKindIsAMismatchWhenItStandsInTheText)
{
    sql::TranslateOptions inlined;
    inlined.inlineLiterals = true;
    for (const auto statement :
         {u"select * from Machine where Id = ''", u"select * from Machine where Hours > 'abc'",
          u"select * from Machine where Bought = 'soon'", u"update Machine set Id = 'x'"}) {
        try {
            static_cast<void>(sql::translate(statement, test::machineSchema(), inlined));
            ADD_FAILURE() << qPrintable(QStringView(statement).toString());
        } catch (const base::Error &error) {
            EXPECT_EQ(error.number(), Number::TypeMismatch) << error.what();
        }
    }
}

TEST(Errors, TheDescriptionShowsThePlace)
{
    try {
        static_cast<void>(sql::translate(u"select Name from Machine where Id == 5", {}));
        FAIL();
    } catch (const base::Error &error) {
        EXPECT_EQ(error.description(),
                  u"Syntax error in the statement, at \"= 5\" (character 36): a value is missing "
                  "before this."_s);
    }
}

TEST(Errors, DeepNestingIsRefusedWhateverItIsMadeOf)
{
    const int levels = 100'000;
    const std::vector<QString> nested = {
        u"select "_s + QString(levels, u'(') + u'1' + QString(levels, u')') + u" from Machine"_s,
        u"select * from Machine where "_s + u"not "_s.repeated(levels) + u"Sold"_s,
        u"select "_s + u"abs("_s.repeated(levels) + u'1' + QString(levels, u')'),
        u"select * from "_s + QString(levels, u'(') + u"Machine"_s + QString(levels, u')'),
        u"select * from "_s + u"(select * from "_s.repeated(levels) + u"Machine"_s +
            QString(levels, u')'),
        u"select * from "_s + u"[select * from "_s.repeated(levels) + u"Machine"_s +
            u"]. "_s.repeated(levels),
        u"select * from Machine where Id in "_s +
            u"(select Id from Machine where Id in "_s.repeated(levels),
        u"select Id from Machine where Id"_s + u" = 1"_s.repeated(levels),
    };
    for (const QString &statement : nested) {
        try {
            static_cast<void>(sql::translate(statement, test::machineSchema()));
            ADD_FAILURE() << qPrintable(statement.left(40));
        } catch (const base::Error &error) {
            EXPECT_EQ(error.number(), Number::Syntax);
        }
    }
}

TEST(Errors, LongChainsAreNoNesting)
{
    const int length = 20'000;
    const QString conditions = u" or Id = 5"_s.repeated(length);
    const QString sum = u" + 1"_s.repeated(length);
    const QString signs = u"- "_s.repeated(length);
    const QString statement =
        u"select Id"_s + sum + u" from Machine where Id = "_s + signs + u'3' + conditions;
    const sql::Plan plan = sql::translate(statement, test::machineSchema());
    EXPECT_EQ(plan.slots.size(), length + 1);
}
