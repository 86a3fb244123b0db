#include "platform/sql/Errors.h"
#include "platform/sql/Lexer.h"
#include "platform/sql/Translator.h"

#include "platform/base/Environment.h"
#include "support/Raised.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QVariantList literalsOf(const QString &statement)
{
    QVariantList values;
    for (const sql::Literal &literal : sql::lift(statement).literals)
        values += literal.value;
    return values;
}

} // namespace

TEST(Lift, LiteralsComeOutInTheOrderOfTheText)
{
    const QVariantList values = literalsOf(
        u"Update t set a='it''s', b=\"say \"\"x\"\"\", c=-5, d=2.50, e=#3-15-24# Where f=''"_s);
    const QVariantList expected = {
        u"it's"_s, u"say \"x\""_s, qint64(5), 2.5, base::wallClock(QDate(2024, 3, 15)), u""_s};
    EXPECT_EQ(values, expected);
}

TEST(Lift, StatementsThatDifferInValuesAloneShareAKey)
{
    const std::tuple<QString, QString, bool> cases[] = {
        {u"a = 5 and b = 'x'"_s, u"a = 123456 and b = 'yy ''z'"_s, true},
        {u"d = #1/2/2024#"_s, u"d = #12-31-1999 10:05:00 PM#"_s, true},
        {u"b = 5"_s, u"b = '5'"_s, false},
        {u"b = 5"_s, u"b = 5.5"_s, false},
        {u"b = 5"_s, u"c = 5"_s, false},
        {u"b in (1,2)"_s, u"b in (1)"_s, false}};
    for (const auto &[one, other, same] : cases)
        EXPECT_EQ(sql::lift(one).key == sql::lift(other).key, same) << qPrintable(one);
}

TEST(Lift, NamesAreNoLiteralsAndParametersAreCounted)
{
    EXPECT_TRUE(literalsOf(u"select [a 'b' 5 #x#], t1.c2, `d 'e'` from t1"_s).isEmpty());
    // Those of a derived table in brackets are.
    EXPECT_EQ(
        literalsOf(u"select x from [select [a 'b'] as x from t where c = 'd' and e=1]. as q"_s),
        (QVariantList{u"d"_s, qint64(1)}));
    EXPECT_EQ(literalsOf(u"select [Select one], a as [Select] from t where b=[Select 2 of]"_s),
              QVariantList());

    EXPECT_EQ(sql::lift(u"select '?', [a?] from t where b = ? and c in (?, ?)"_s).callerParameters,
              3);
}

TEST(Lift, NumbersOfAllForms)
{
    EXPECT_EQ(
        literalsOf(u"1 .5 5. 1.5e3 1E-2 007 999999999999999999"_s),
        (QVariantList{qint64(1), 0.5, 5.0, 1500.0, 0.01, qint64(7), qint64(999999999999999999)}));
    EXPECT_EQ(literalsOf(u"9999999999999999999"_s), (QVariantList{1e19}));
    // A point between names parts them, and an exponent needs a digit.
    EXPECT_EQ(literalsOf(u"t.a .5 t.5 [t].5"_s), (QVariantList{0.5, qint64(5), qint64(5)}));
    EXPECT_EQ(literalsOf(u"1e+2 3e 4e- 5ex"_s),
              (QVariantList{100.0, qint64(3), qint64(4), qint64(5)}));
    EXPECT_EQ(sql::tokensOf(u"az ZA _z A$9 é < <= <> > >= != =").size(), 13U);
}

TEST(Lift, TextThatCannotBeCutRaisesASyntaxError)
{
    for (const auto statement :
         {u"select 'open", u"select \"open", u"select [open", u"where d = #3/15/2024", u"a = ##",
          u"d = #13/45/2024#", u"select a$% from t", u"select []", u"a ] b", u"select \x01"}) {
        EXPECT_EQ(test::raisedBy([&] { (void)sql::lift(statement); }).number(),
                  sql::ErrorNumber::Syntax)
            << qPrintable(QStringView(statement).toString());
    }
}

TEST(Lift, ASpaceOrNoneBetweenTokensMakesNoDifference)
{
    const auto kinds = [](const QString &statement) {
        QStringList parts;
        for (const sql::Token &token : sql::tokensOf(statement))
            parts += token.text.toString();
        return parts;
    };
    EXPECT_EQ(kinds(u"a=#1/2/2024#Where[b]From c"_s), kinds(u"a = #1/2/2024# Where [b] From c"_s));
}
