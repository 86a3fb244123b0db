#include "SampleSchema.h"
#include "Written.h"

#include "platform/base/Error.h"
#include "platform/sql/Translator.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using sql::ColumnKind;
using Source = sql::Slot::Source;

namespace {

sql::Plan planOf(const QString &statement, const sql::TranslateOptions &options = {})
{
    return sql::translate(statement, test::machineSchema(), options);
}

/// The condition of a select over Machine.
QString conditionOf(const QString &condition)
{
    const QString text = planOf(u"select Id from Machine where "_s + condition).text;
    const QString before = u"SELECT \"Id\" FROM \"Machine\" WHERE "_s;
    EXPECT_TRUE(text.startsWith(before)) << qPrintable(text);
    return text.sliced(before.size());
}

void expectStatements(const char *cases)
{
    test::expectWritten(cases, [](const QString &statement) { return planOf(statement).text; });
}

} // namespace

TEST(Translate, Selects)
{
    expectStatements(R"x(
SELECT name, mACHINE.[id], [year] FROM machine;
  SELECT "Name", "Id", "Year" FROM "Machine"
select Name AS [The name], Id Number, Hours as [Select] from Machine as M
  SELECT "Name" AS "The name", "Id" AS "Number", "Hours" AS "Select" FROM "Machine" "M"
select distinct top 5 Name from Machine order by name desc
  SELECT FIRST 5 DISTINCT "Name" FROM "Machine" ORDER BY 1 DESC
select distinct Name as [The name], Id from Machine order by Id, Machine.name desc
  SELECT DISTINCT "Name" AS "The name", "Id" FROM "Machine" ORDER BY 2, 1 DESC
select * from Machine
  SELECT * FROM "Machine"
select p.*, Due from Part p, Job
  SELECT "p".*, "Job"."Due" FROM "Part" "p", "Job"
select *, 1 as one from Part
  SELECT "Part"."Code", "Part"."Job", "Part"."Quantity", "Part"."Spare", 1 AS "one" FROM "Part"
select distinctrow Name from Machine order by Name asc
  SELECT DISTINCT "Name" FROM "Machine" ORDER BY 1
select max(Id), 'a' from Machine
  SELECT MAX("Id") AS "Expr1000", CAST('a' AS VARCHAR(1)) AS "Expr1001" FROM "Machine"
select 1 as one
  SELECT 1 AS "one" FROM RDB$DATABASE
select m.Name from ((Machine as m LEFT JOIN Job as j ON m.Id = j.Machine)) left outer join Part p on p.Job=j.JobNo
  SELECT "m"."Name" FROM ("Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine") LEFT JOIN "Part" "p" ON "p"."Job" = "j"."JobNo"
select q.[a b] from [select [Name] as [a b] from Machine]. AS q
  SELECT "a b" FROM (SELECT "Name" AS "a b" FROM "Machine") "q"
select x from [select x from [select Id as x from Machine]. as a]. as b
  SELECT "x" FROM (SELECT "x" FROM (SELECT "Id" AS "x" FROM "Machine") "a") "b"
select x from (select Id as x from Machine) order by x
  SELECT "x" FROM (SELECT "Id" AS "x" FROM "Machine") "~Q1" ORDER BY "~Q1"."x"
select * from (select Id, Id, Name as id from Machine) q
  SELECT * FROM (SELECT "Id", "Id" AS "~C2", "Name" AS "~C3" FROM "Machine") "q"
select Name from Machine where Hours = (select max(Quantity) from Part where Job = Machine.Id)
  SELECT "Name" FROM "Machine" WHERE "Hours" = (SELECT MAX("Quantity") AS "Expr1000" FROM "Part" WHERE "Job" = "Machine"."Id")
select Code as c, Job from Part union all select Code, JobNo from Job order by Job, c desc
  SELECT "Code" AS "c", "Job" FROM "Part" UNION ALL SELECT "Code", "JobNo" FROM "Job" ORDER BY 2, 1 DESC
(select Code from Part) union (select Code from Job)
  SELECT "Code" FROM "Part" UNION SELECT "Code" FROM "Job"
select cstr(Id) + Name as Id from Machine order by Id
  SELECT (CAST("Id" AS VARCHAR(20)) || "Name") AS "Id" FROM "Machine" ORDER BY "Machine"."Id"
select max(Hours) as Hours from Machine group by Name order by Hours
  SELECT MAX("Machine"."Hours") AS "Hours" FROM "Machine" GROUP BY "Machine"."Name" ORDER BY 1
select count(*) as n from Machine group by Hours*2 having Hours*2>5
  SELECT COUNT(*) AS "n" FROM "Machine" GROUP BY ("Hours" * 2) HAVING ("Hours" * 2) > 5
select count(*) as n from Machine group by Hours*2 having Hours*2>5 union select Id from Machine where Id=1
  SELECT COUNT(*) AS "n" FROM "Machine" GROUP BY ("Hours" * 2) HAVING ("Hours" * 2) > 5 UNION SELECT "Id" FROM "Machine" WHERE "Id" = CAST(? AS DOUBLE PRECISION)
select Hours*? as h from Machine group by Hours*?
  SELECT ("Hours" * CAST(? AS DOUBLE PRECISION)) AS "h" FROM "Machine" GROUP BY ("Hours" * CAST(? AS DOUBLE PRECISION))
select Bought - Now() as b from Machine group by Bought - Now()
  SELECT ("Bought" - CAST(? AS TIMESTAMP)) AS "b" FROM "Machine" GROUP BY 1
select Id as [Select fromage] from Machine
  SELECT "Id" AS "Select fromage" FROM "Machine"
select Name from Machine group by Name having count(*)>5
  SELECT "Name" FROM "Machine" GROUP BY "Name" HAVING COUNT(*) > CAST(? AS DOUBLE PRECISION)
select Switch(Name='a','x',Name='b','yy') as s, IIf(Sold,'',Name) as i from Machine
  SELECT CASE WHEN "Name" = 'a' THEN CAST('x' AS VARCHAR(1)) WHEN "Name" = 'b' THEN CAST('yy' AS VARCHAR(2)) END AS "s", IIF("Sold" <> 0, CAST('' AS VARCHAR(1)), "Name") AS "i" FROM "Machine"
)x");
}

TEST(Translate, Changes)
{
    expectStatements(R"x(
Insert into Part(Code,Job)values('a',5)
  INSERT INTO "Part" ("Code", "Job") VALUES (?, ?)
insert into Part values('a',1,2,true)
  INSERT INTO "Part" ("Code", "Job", "Quantity", "Spare") VALUES (?, ?, ?, -1)
insert into Machine(Name) values(Null)
  INSERT INTO "Machine" ("Name", "Added") VALUES (NULL, CAST(? AS TIMESTAMP))
insert into Machine(Added) values(Null)
  INSERT INTO "Machine" ("Added") VALUES (NULL)
insert into Machine(Name,Bought) select Code,'3/15/2024' from Part where Job=1
  INSERT INTO "Machine" ("Name", "Bought", "Added") SELECT "Code", TIMESTAMP '2024-03-15 00:00:00', CAST(? AS TIMESTAMP) FROM "Part" WHERE "Job" = CAST(? AS DOUBLE PRECISION)
Update Machine Set Hours=Hours+0.5,Bought=#3/15/2024#Where Id=5
  UPDATE "Machine" SET "Hours" = ("Hours" + CAST(? AS DOUBLE PRECISION)), "Bought" = ? WHERE "Id" = CAST(? AS DOUBLE PRECISION)
update Machine as m set m.Name = '' where m.Id = 1
  UPDATE "Machine" "m" SET "Name" = ? WHERE "Id" = CAST(? AS DOUBLE PRECISION)
Delete From Part
  DELETE FROM "Part"
delete * from part where Part.Code=""
  DELETE FROM "Part" WHERE "Code" = CAST(? AS VARCHAR(11))
delete Part.* from Part
  DELETE FROM "Part"
)x");
}

TEST(Translate, AConditionNeedsTheRightSideWhereNullPassesThroughIt)
{
    QStringList needing =
        u"-j.JobNo < 1|j.JobNo + 1 = 2|j.Code like 'a'|j.Due between m.Added and m.Bought|"
        "j.JobNo in (1, 2)|j.JobNo in (select Job from Part)|j.Due is not null|j.Done"_s.split(
            u'|');
    for (const QString &call :
         u"Abs(j.JobNo) CDbl(j.Code) CInt(j.Code) CStr(j.JobNo) CDate(j.Due) Day(j.Due) "
         "Fix(j.JobNo) Hour(j.Due) Int(j.JobNo) LCase(j.Code) Len(j.Code) Minute(j.Due) "
         "Month(j.Due) Trim(j.Code) UCase(j.Code) Year(j.Due)"_s.split(u' '))
        needing += call + u" = '5'"_s;
    const QStringList others =
        u"j.Code & 'x' = 'x'|Nz(j.JobNo) = 0|j.Due is null|m.Id = 1|j.JobNo not in "
        "(select Job from Part)|IIf(j.Done, 1, 2) = 2|not j.Done"_s.split(u'|');
    for (const QString &condition : needing + others)
        EXPECT_EQ(
            planOf(u"select m.Id from Machine m left join Job j on m.Id = j.Machine where "_s +
                   condition)
                .text.contains(u" LEFT JOIN "_s),
            others.contains(condition))
            << qPrintable(condition);
}

TEST(Translate, OuterJoinsBecomeInnerWhereTheRightSideHasToBe)
{
    expectStatements(R"x(
select m.Id from Machine m left join Job j on m.Id=j.Machine where j.Due < m.Bought and m.Name is null
  SELECT "m"."Id" FROM "Machine" "m" JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "j"."Due" < "m"."Bought" AND "m"."Name" IS NULL
select m.Id from Machine m left join Job j on m.Id=j.Machine where j.Due < m.Bought or m.Name is null
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "j"."Due" < "m"."Bought" OR "m"."Name" IS NULL
select m.Id from Machine m left join Job j on m.Id=j.Machine where j.Due is null and nz(j.JobNo,0)=0 and not j.Done
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "j"."Due" IS NULL AND COALESCE("j"."JobNo", 0) = CAST(? AS DOUBLE PRECISION) AND NOT ("j"."Done" <> 0)
select m.Id from Machine m left join Job j on m.Id=j.Machine where m.Name like 'a*'
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "m"."Name" LIKE CAST(? AS VARCHAR(1000)) ESCAPE '\'
select m.Id from (Machine m left join Job j on m.Id=j.Machine) left join Part p on p.Job=j.JobNo where p.Spare
  SELECT "m"."Id" FROM ("Machine" "m" JOIN "Job" "j" ON "m"."Id" = "j"."Machine") JOIN "Part" "p" ON "p"."Job" = "j"."JobNo" WHERE "p"."Spare" <> 0
select m.Id from Machine m left join (Job j inner join Part p on p.Job=j.JobNo) on m.Id=j.Machine where m.Sold
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN ("Job" "j" JOIN "Part" "p" ON "p"."Job" = "j"."JobNo") ON "m"."Id" = "j"."Machine" WHERE "m"."Sold" <> 0
select m.Id from Machine m left join (Job j inner join Part p on p.Job=j.JobNo) on m.Id=j.Machine where p.Spare and j.Done
  SELECT "m"."Id" FROM "Machine" "m" JOIN ("Job" "j" JOIN "Part" "p" ON "p"."Job" = "j"."JobNo") ON "m"."Id" = "j"."Machine" WHERE "p"."Spare" <> 0 AND "j"."Done" <> 0
select m.Id from Machine m left join Job j on m.Id=j.Machine where not (j.Due is null or j.Done)
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE NOT ("j"."Due" IS NULL OR "j"."Done" <> 0)
select m.Id from Machine m left join Job j on m.Id=j.Machine where j.Due between m.Added and m.Bought or j.JobNo in (1,2)
  SELECT "m"."Id" FROM "Machine" "m" LEFT JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "j"."Due" BETWEEN "m"."Added" AND "m"."Bought" OR "j"."JobNo" IN (CAST(? AS DOUBLE PRECISION), CAST(? AS DOUBLE PRECISION))
select m.Id from Machine m full outer join Job j on m.Id=j.Machine where j.Done and m.Sold=Off and m.Id!=2
  SELECT "m"."Id" FROM "Machine" "m" FULL JOIN "Job" "j" ON "m"."Id" = "j"."Machine" WHERE "j"."Done" <> 0 AND "m"."Sold" = 0 AND "m"."Id" <> CAST(? AS DOUBLE PRECISION)
select Id from Job right join Machine on Id=Machine where Sold
  SELECT "Machine"."Id" FROM "Job" RIGHT JOIN "Machine" ON "Machine"."Id" = "Job"."Machine" WHERE "Machine"."Sold" <> 0
select Id from Job right join Machine on Id=Machine where Due is not null
  SELECT "Machine"."Id" FROM "Job" JOIN "Machine" ON "Machine"."Id" = "Job"."Machine" WHERE "Job"."Due" IS NOT NULL
delete from Part where not Job in (select JobNo from Machine left join Job on Id=Machine where JobNo in (1))
  DELETE FROM "Part" WHERE NOT ("Job" IN (SELECT "Job"."JobNo" FROM "Machine" JOIN "Job" ON "Machine"."Id" = "Job"."Machine" WHERE "Job"."JobNo" IN (CAST(? AS DOUBLE PRECISION))))
)x");
}

TEST(Translate, PrecedenceAsTheDialectHasIt)
{
    test::expectWritten(R"x(
Sold or Hours and Cost
  "Sold" <> 0 OR "Hours" <> 0 AND "Cost" <> 0
(Sold or Hours) and Cost
  ("Sold" <> 0 OR "Hours" <> 0) AND "Cost" <> 0
not Id = Hours and Sold
  NOT ("Id" = "Hours") AND "Sold" <> 0
not Id in (select JobNo from Job)
  NOT ("Id" IN (SELECT "JobNo" FROM "Job"))
not (Sold and not Cost)
  NOT ("Sold" <> 0 AND NOT ("Cost" <> 0))
Id + Hours * Id > Id - Hours - Id
  ("Id" + ("Hours" * "Id")) > ("Id" - "Hours" - "Id")
Id - (Hours - Id) = 0 - Id
  ("Id" - ("Hours" - "Id")) = (CAST(? AS BIGINT) - "Id")
Id * Hours / Id = -Id ^ Id
  ("Id" * "Hours" / "Id") = (- (POWER("Id", "Id")))
Id \ Id mod Id = Id / Id
  (MOD(CAST(((CAST("Id" AS BIGINT) / CAST("Id" AS BIGINT))) AS BIGINT), CAST("Id" AS BIGINT))) = (CAST("Id" AS DOUBLE PRECISION) / "Id")
Name + 'a' & Name = Name
  (COALESCE(("Name" || 'a'), '') || COALESCE("Name", '')) = "Name"
Id between Hours and Hours and Sold
  "Id" BETWEEN "Hours" AND "Hours" AND "Sold" <> 0
)x",
                        conditionOf);
}

TEST(Translate, TypesDecideWhatPlusAndLiteralsMean)
{
    test::expectWritten(R"x(
Name = 5
  "Name" = CAST(? AS VARCHAR(21))
5 = Name
  CAST(? AS VARCHAR(21)) = "Name"
[Year] = '5'
  "Year" = CAST(? AS DOUBLE PRECISION)
Cost > 2.5
  "Cost" > CAST(? AS NUMERIC(18,4))
Sold = '1'
  "Sold" = CAST(? AS SMALLINT)
Sold = No
  "Sold" = 0
Id = True
  "Id" = -1
Bought = '3/15/2024'
  "Bought" = CAST(? AS TIMESTAMP)
Name + Name = 'x'
  ("Name" || "Name") = CAST(? AS VARCHAR(4000))
Id + Hours = 1
  ("Id" + "Hours") = CAST(? AS DOUBLE PRECISION)
Name + ? = ?
  ("Name" || CAST(? AS VARCHAR(1000))) = CAST(? AS VARCHAR(4000))
Bought < Now()-5
  "Bought" < (CAST(? AS TIMESTAMP) - CAST(? AS BIGINT))
Bought - Added > 2
  ("Bought" - "Added") > CAST(? AS DOUBLE PRECISION)
Name * 2 > 5
  (CAST("Name" AS DOUBLE PRECISION) * CAST(? AS BIGINT)) > CAST(? AS DOUBLE PRECISION)
Id = Name
  CAST("Id" AS VARCHAR(20)) = "Name"
Id & '' = ?
  (COALESCE(CAST("Id" AS VARCHAR(20)), '') || '') = CAST(? AS VARCHAR(4000))
? = ?
  CAST(? AS VARCHAR(4000)) = CAST(? AS VARCHAR(4000))
1 = 1
  CAST(? AS DOUBLE PRECISION) = CAST(? AS DOUBLE PRECISION)
'1' = 1
  CAST(? AS DOUBLE PRECISION) = CAST(? AS DOUBLE PRECISION)
True
  1 = 1
)x",
                        conditionOf);
}

TEST(Slots, TellWhereTheValuesComeFromAndWhatTheyAreFor)
{
    const sql::Plan plan = planOf(
        u"update Machine set Name = 5, Sold = '1', Cost = -2, Bought = ? where Id = '3' and Added < Now()"_s);
    using Told = std::tuple<Source, int, ColumnKind, bool>;
    std::vector<Told> found;
    for (const sql::Slot &slot : plan.slots)
        found.emplace_back(slot.source, slot.index, slot.kind, slot.negate);
    EXPECT_EQ(found, (std::vector<Told>{{Source::Literal, 0, ColumnKind::Text, false},
                                        {Source::Literal, 1, ColumnKind::YesNo, false},
                                        {Source::Literal, 2, ColumnKind::Money, true},
                                        {Source::Caller, 0, ColumnKind::Date, false},
                                        {Source::Literal, 3, ColumnKind::Real, false},
                                        {Source::Now, 0, ColumnKind::Date, false}}));
    EXPECT_TRUE(plan.fixedLiterals.empty());
    EXPECT_EQ(plan.kind, sql::StatementKind::Update);
}

TEST(Slots, ComparedTextsAreCutBehindTheColumnsLength)
{
    const sql::Plan plan = planOf(u"select Id from Machine where Name = 'x' and Name like 'y*'"_s);
    ASSERT_EQ(plan.slots.size(), 2U);
    EXPECT_EQ(plan.slots[0].length, 21);
    EXPECT_EQ(plan.slots[1].length, 0);
    EXPECT_TRUE(plan.slots[1].likePattern);
}

TEST(FixedLiterals, AreThoseThatStandInTheText)
{
    const auto fixed = [](const QString &statement) { return planOf(statement).fixedLiterals; };
    EXPECT_EQ(fixed(u"select top 3 'a', Id from Machine where Id = 5 order by 2"_s),
              (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(fixed(u"select Id from Machine where Name like 'a#' and Name like 'b'"_s),
              std::vector<int>{0});
    EXPECT_EQ(fixed(u"select Id from Machine where Left(Name, 2) = 'x' and Hours * 3 > 5"_s),
              std::vector<int>{0});
    EXPECT_EQ(fixed(u"create table T (a nvarchar(15), b nvarchar(3))"_s), (std::vector<int>{0, 1}));
}

TEST(Options, InlineLiteralsWriteEveryValueOut)
{
    sql::TranslateOptions options;
    options.inlineLiterals = true;
    const sql::Plan plan = planOf(
        u"select Id from Machine where Name='it''s' and Id='5' and Hours>-2.5 and Bought<#3/15/2024 1:05 PM# and Cost=? and Cost<1e15 and Name<'abcdefghijklmnopqrstuvwxyz' and Name like 'a_*'"_s,
        options);
    EXPECT_EQ(
        plan.text,
        uR"(SELECT "Id" FROM "Machine" WHERE "Name" = 'it''s' AND "Id" = 5e0 AND "Hours" > -2.5e0 AND "Bought" < TIMESTAMP '2024-03-15 13:05:00' AND "Cost" = CAST(? AS NUMERIC(18,4)) AND "Cost" < 1000000000000000e0 AND "Name" < 'abcdefghijklmnopqrstu' AND "Name" LIKE 'a\_%' ESCAPE '\')"_s);
    EXPECT_EQ(plan.slots.size(), 1U);
    EXPECT_EQ(plan.fixedLiterals.size(), 7U);
}

TEST(Options, InlineParametersWriteTheCallersPatternOut)
{
    sql::TranslateOptions options;
    options.inlineParameters = {u"a#[!b-d]+"_s};
    EXPECT_EQ(
        planOf(u"select Id from Machine where Name not like ?"_s, options).text,
        uR"(SELECT "Id" FROM "Machine" WHERE "Name" NOT SIMILAR TO 'a[0-9][^b-d]\+' ESCAPE '\')"_s);
}

TEST(Options, ReturningNamesTheKeyInItsStoredSpelling)
{
    sql::TranslateOptions options;
    options.returning = u"ID"_s;
    EXPECT_EQ(planOf(u"insert into Machine(Name, Added) values(?, ?)"_s, options).text,
              uR"(INSERT INTO "Machine" ("Name", "Added") VALUES (?, ?) RETURNING "Id")"_s);
}

TEST(LongNames, AreGivenBesideTheText)
{
    const QString name = u"A name that is longer than the engine takes"_s;
    const sql::Plan plan = planOf(u"select Id, Name as ["_s + name + u"] from Machine"_s);
    EXPECT_EQ(plan.text, uR"(SELECT "Id", "Name" AS "~C2" FROM "Machine")"_s);
    const std::vector<std::pair<int, QString>> expected = {{1, name}};
    EXPECT_EQ(plan.longNames, expected);
    // Inside the statement the name works like any other.
    EXPECT_EQ(planOf(u"select [%1] from (select Name as [%1] from Machine) q"_s.arg(name)).text,
              uR"(SELECT "~C1" FROM (SELECT "Name" AS "~C1" FROM "Machine") "q")"_s);
}

TEST(LongLists, AreSplit)
{
    const QString list = u"1"_s + u",1"_s.repeated(2499);
    const std::pair<qsizetype, qsizetype> parts(3, 2);
    const QString in = conditionOf(u"Id in ("_s + list + u") and Sold"_s);
    EXPECT_TRUE(in.startsWith(u"(\"Id\" IN ("_s) && in.endsWith(u")) AND \"Sold\" <> 0"_s));
    EXPECT_EQ(std::pair(in.count(u"\"Id\" IN ("_s), in.count(u" OR "_s)), parts);
    const QString notIn = conditionOf(u"Id not in ("_s + list + u")"_s);
    EXPECT_EQ(std::pair(notIn.count(u"\"Id\" NOT IN ("_s), notIn.count(u" AND "_s)), parts);
}

TEST(ShippedStatements, AllGoThrough)
{
    const sql::Schema schema = test::schemaOf(test::shippedSchema());
    const QStringList statements = test::shippedStatements();
    ASSERT_GT(statements.size(), 100);
    for (const QString &statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        const sql::Plan plan = sql::translate(statement, schema);
        EXPECT_EQ(static_cast<std::size_t>(plan.text.count(u'?')), plan.slots.size());
        // Every literal is either bound or stands in the text.
        const auto bound = std::ranges::count(plan.slots, Source::Literal, &sql::Slot::source);
        EXPECT_EQ(plan.fixedLiterals.size() + static_cast<std::size_t>(bound),
                  sql::lift(statement).literals.size());
    }
}
