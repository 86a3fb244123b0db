#include "SampleSchema.h"

#include "platform/sql/Errors.h"
#include "platform/sql/Translator.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test::raisedBy;
namespace Number = sql::ErrorNumber;

namespace {

/// A statement, and a word on the cause that the user is told.
using Refused = std::pair<const char *, const char *>;

void expectRefused(const std::vector<Refused> &cases, int number,
                   const sql::TranslateOptions &options = {})
{
    for (const auto &[statement, mentions] : cases) {
        SCOPED_TRACE(statement);
        const QString text = QString::fromLatin1(statement);
        const base::Error error =
            raisedBy([&] { (void)sql::translate(text, test::machineSchema(), options); });
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_TRUE(error.description().contains(QLatin1StringView(mentions))) << error.what();
    }
}

} // namespace

TEST(Errors, UnknownTables)
{
    expectRefused({{"select * from Tractor", "Tractor"},
                   {"delete from Job where Code in (select a from Nowhere)", "Nowhere"},
                   {"insert into Tractor(a) values(1)", "Tractor"}},
                  Number::TableUnknown);
}

TEST(Errors, UnknownColumns)
{
    expectRefused(
        {{"select Color from Machine", "Color"},
         {"select * from Machine where Colour = 5", "Colour"},
         {"select Machine.Code from Machine", "Machine.Code"},
         {"select x.Name from Machine", "x.Name"},
         {"select * from Machine where Name = abc", "abc"},
         {"insert into Part(Codex) values(1)", "Codex"},
         {"update Part set Codex = 1", "Codex"},
         {"select Name from Machine order by Colour", "Colour"},
         {"select * from Machine, (select * from Job where Machine = Machine.Id) q", "Machine.Id"}},
        Number::ValueMissing);
}

TEST(Errors, WhatCanNotBeRead)
{
    expectRefused({{"select Code from Job, Part", "more than one table"},
                   {"select 1 from Job, Part as job", "job"},
                   {"", "expected SELECT"},
                   {"Machine", "expected SELECT"},
                   {"Update Machine set Name = 'a', Where Id = 1", "Id = 1"},
                   {"select * from Machine where Id = ", "a value is missing"},
                   {"select * from Machine where Id in (1,2", "\")\""},
                   {"select * from Machine where Id in ()", ""},
                   {"select * from Machine where Id = 1)", "should have ended"},
                   {"delete from Part; delete from Job", "should have ended"},
                   {"update Job set Due = ## where JobNo = 1", "date"},
                   {"update Job set Due = #2/30/2024# where JobNo = 1", "date"},
                   {"select Foo(Name) from Machine", "Foo"},
                   {"select Left(Name) from Machine", "Left"},
                   {"select Switch(Id=1,'a',Id=2) from Machine", "Switch"},
                   {"select DateDiff('x',Bought,Added) from Machine", "interval"},
                   {"insert into Part(Code,Job) values('a')", "1 values for 2 columns"},
                   {"insert into Part(Code) select Code, Job from Part", "2 values for 1 columns"},
                   {"select Code from Part union select Code, Job from Part", "UNION"},
                   {"select Code from Part union select Code from Job order by Id", "UNION"},
                   {"select Code from Part order by 2", "number to sort by"},
                   {"select * from Part where Code in (select * from Job)", "one column"},
                   {"select top 5 percent * from Part", "PERCENT"},
                   {"select * from Machine where Name like 'a[bc'", "\"[\""}},
                  Number::Syntax);
}

TEST(Errors, FunctionsTakeTheirNumberOfArguments)
{
    QStringList calls =
        u"Left(1)|Left(1,2,3)|Right(1)|Right(1,2,3)|Mid(1)|Mid(1,2,3,4)|InStr(1)|"
        "InStr(1,2,3,4)|Replace(1,2)|Replace(1,2,3,4)|Nz()|Nz(1,2,3)|Round()|Round(1,2,3)|"
        "IIf(1,2)|IIf(1,2,3,4)|Switch(1)|Format(1)|Format(1,2,3)|DateAdd('d',1)|"
        "DateAdd('d',1,2,3)|DateDiff('d',1)|DateDiff('d',1,2,3)|DatePart('d')|"
        "DatePart('d',1,2)|DateSerial(1,2)|DateSerial(1,2,3,4)|Now(1)|Date(1)|Time(1)"_s.split(
            u'|');
    for (const QString &name :
         u"Abs Avg CBool CByte CCur CDate CDbl Chr CInt CLng Count CSng CStr CVDate "
         "DateValue Day First Fix Hour Int IsNull Last LCase Len LTrim Max Min Minute "
         "Month RTrim Second Sgn Space Sqr Sum Trim UCase Val Weekday Year"_s.split(u' '))
        calls += {name + u"()"_s, name + u"(1,2)"_s};
    for (const QString &call : calls) {
        const base::Error error = raisedBy([&] {
            (void)sql::translate(u"select %1 from Machine"_s.arg(call), test::machineSchema());
        });
        EXPECT_EQ(error.number(), Number::Syntax) << qPrintable(call) << error.what();
        EXPECT_TRUE(error.description().contains(call.section(u'(', 0, 0), Qt::CaseInsensitive))
            << error.what();
    }
}

TEST(Errors, KindsThatDoNotGoTogether)
{
    expectRefused({{"select Hours + 'abc' from Machine", "abc"},
                   {"select 'abc' + Hours from Machine", "abc"},
                   {"select * from Machine where Hours - 'abc' > 5", "abc"},
                   {"select Bought * 2 from Machine", "date"},
                   {"select * from Machine where Bought = Name", "compared"},
                   {"select * from Machine where Bought = Hours", "compared"}},
                  Number::TypeMismatch);
    // A literal of the wrong kind is one when it stands in the text.
    sql::TranslateOptions inlined;
    inlined.inlineLiterals = true;
    expectRefused({{"select * from Machine where Id = ''", ""},
                   {"select * from Machine where Hours > 'abc'", ""},
                   {"select * from Machine where Bought = 'soon'", ""},
                   {"update Machine set Id = 'x'", ""}},
                  Number::TypeMismatch, inlined);
    expectRefused({{"update Machine set Cost = 1e15", ""}}, base::ErrorNumber::Overflow, inlined);
}

TEST(Errors, TheDescriptionShowsThePlace)
{
    const base::Error error =
        raisedBy([] { (void)sql::translate(u"select Name from Machine where Id == 5", {}); });
    EXPECT_EQ(error.description(), u"Syntax error in the statement, at \"= 5\" (character 36): a "
                                   "value is missing before this."_s);
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
        EXPECT_EQ(
            raisedBy([&] { (void)sql::translate(statement, test::machineSchema()); }).number(),
            Number::Syntax)
            << qPrintable(statement.left(40));
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
