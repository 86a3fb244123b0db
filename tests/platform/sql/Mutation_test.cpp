#include "SampleSchema.h"

#include "platform/base/Error.h"
#include "platform/sql/Translator.h"
#include "support/Mutated.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Mutations, EveryTextIsTranslatedOrRefusedByTheDialect)
{
    QStringList tables = test::shippedSchema();
    const sql::Schema schema = test::schemaOf(tables);
    QStringList statements = test::shippedStatements();
    statements += tables;
    const QStringList pieces = {
        u"("_s,        u")"_s,       u"["_s,     u"]"_s,          u"]. AS x"_s,
        u"'"_s,        u"\""_s,      u"#"_s,     u"#1/2/2024#"_s, u" select "_s,
        u" from "_s,   u" not "_s,   u" in ("_s, u" - "_s,        u" + '5'"_s,
        u" & "_s,      u" union "_s, u"."_s,     u"?"_s,          u" like '[#*'"_s,
        u"[select "_s, u"IIf("_s,    u"cstr("_s, u"1e999"_s,      u" order by 1"_s};
    QRandomGenerator random(20240315);
    int translated = 0;
    int refused = 0;
    // The same texts at each run; a longer one goes further.
    for (int i = test::mutations(20'000); i > 0; --i) {
        const QString &base = statements[static_cast<qsizetype>(
            random.bounded(static_cast<quint32>(statements.size())))];
        const QString statement = test::mutated(base, pieces, random);
        try {
            const sql::Plan plan = sql::translate(statement, schema);
            ++translated;
            ASSERT_NO_THROW(static_cast<void>(sql::lift(statement))) << qPrintable(statement);
            ASSERT_TRUE(plan.kind == sql::StatementKind::Ddl || !plan.text.isEmpty());
        } catch (const base::Error &error) {
            ++refused;
            ASSERT_NE(error.number(), 0);
            ASSERT_FALSE(error.description().isEmpty());
        }
    }
    // Both roads were taken often enough to say something.
    EXPECT_GT(translated, 50);
    EXPECT_GT(refused, 50);
}

TEST(Mutations, AVeryLongStatementIsReadWithinTheTimeOfATest)
{
    const auto read = [](const QString &statement) {
        try {
            static_cast<void>(sql::lift(statement));
            static_cast<void>(sql::translate(statement, test::machineSchema()));
        } catch (const base::Error &error) {
            EXPECT_NE(error.number(), 0);
        }
    };
    // Anything quadratic would take minutes here, which the time limit of every test ends.
    const int count = 100'000;
    for (const QString &repeated : {u"[select "_s, u"["_s, u"'a"_s, u"(select "_s, u" or Id = 1"_s,
                                    u", 1"_s, u"not "_s, u"- "_s, u" & Name"_s, u" + 1 & 'x'"_s}) {
        read(u"select Id from Machine where Id in (1) "_s + repeated.repeated(count));
        read(u"select 1 "_s + repeated.repeated(count) + u" from Machine"_s);
    }
}
