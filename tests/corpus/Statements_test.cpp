#include "corpus/Statements.h"
#include "platform/base/Environment.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace corpus {
namespace {

TEST(ParseCases, ChecksBelongToTheStatementBehindThem)
{
    QStringList problems;
    const auto cases = parseCases(u"file"_s, uR"(-- A remark.

-- name: two steps, one case
-- changes: 1
update t set a = 'x'
where b = 1;
-- rows >= 2
-- row 2: x | null
-- error: 0x80040E14
select a from t;

-- name: alone
select b from t;
)"_s,
                                  problems);
    ASSERT_EQ(problems, QStringList());
    ASSERT_EQ(cases.size(), 2u);
    EXPECT_EQ(cases[0].testName(), u"file_TwoStepsOneCase"_s);
    ASSERT_EQ(cases[0].steps.size(), 2u);
    const Step &first = cases[0].steps[0];
    EXPECT_EQ(first.statement, u"update t set a = 'x' where b = 1"_s);
    EXPECT_EQ(first.changes, 1);
    EXPECT_EQ(first.line, 5);
    const Step &second = cases[0].steps[1];
    EXPECT_FALSE(second.changes);
    EXPECT_EQ(second.rows, 2);
    EXPECT_TRUE(second.orMore);
    EXPECT_EQ(second.error, static_cast<int>(0x80040E14));
    ASSERT_EQ(second.rowChecks.size(), 1u);
    EXPECT_EQ(second.rowChecks[0].row, 2);
    EXPECT_EQ(second.rowChecks[0].cells, (QStringList{u"x"_s, u"null"_s}));
}

TEST(ParseCases, WhatIsNoCheckIsToldWithItsLine)
{
    struct
    {
        QString text;
        QString problem;
    } const rows[] = {
        {u"-- name: a\n-- row: 1\nselect 1;\n"_s, u"f.sql, line 2: not a check: row: 1"_s},
        {u"-- name: a\n-- rows: x\nselect 1;\n"_s, u"f.sql, line 2: not a number: x"_s},
        {u"select 1;\n"_s, u"f.sql, line 1: a statement outside a case"_s},
        {u"-- name: a\nselect 1\n\n"_s, u"f.sql, line 3: a statement without its semicolon"_s},
        {u"-- name: a\nselect 1;\n\n-- name: A\nselect 2;\n\n"_s,
         u"f.sql, line 6: a second case of the name A"_s},
    };
    for (const auto &row : rows) {
        QStringList problems;
        static_cast<void>(parseCases(u"f"_s, row.text, problems));
        ASSERT_FALSE(problems.isEmpty()) << row.text.toStdString();
        EXPECT_EQ(problems.first(), row.problem);
    }
}

TEST(Difference, TellsWhatAValueIs)
{
    const QVariant date = base::wallClock({2024, 3, 15}, {9, 30});
    struct Row
    {
        QString cell;
        QVariant value;
        QString difference;
    };
    const Row values[] = {
        // Nothing, and numbers.
        Row{u"null"_s, {}, {}}, Row{u"null"_s, 0, u"0"_s}, Row{u"0"_s, {}, u"null"_s},
        Row{u"''"_s, {}, u"null"_s}, Row{u"''"_s, u""_s, {}}, Row{u"7"_s, qint64(7), {}},
        Row{u"7"_s, 7.0, {}}, Row{u"7"_s, 7.1, u"7.1"_s}, Row{u"7"_s, u"7"_s, {}},
        Row{u"'7'"_s, u"7"_s, {}}, Row{u"'7'"_s, qint64(7), u"7"_s},
        Row{u"0.333333333333333"_s, 1.0 / 3, {}}, Row{u"0"_s, 1e-9, u"1e-09"_s},
        // Texts and dates.
        Row{u"it's"_s, u"it's"_s, {}}, Row{u"'it''s '"_s, u"it's "_s, {}},
        Row{u"it's"_s, u"it's "_s, u"'it's '"_s}, Row{u"#03-15-2024 09:30#"_s, date, {}},
        Row{u"#03-15-2024#"_s, date, u"#03-15-2024 09:30:00#"_s}, Row{u"abc"_s, qint64(0), u"0"_s}};
    for (const Row &row : values)
        EXPECT_EQ(difference(row.cell, row.value), row.difference) << row.cell.toStdString();
}

} // namespace
} // namespace corpus
