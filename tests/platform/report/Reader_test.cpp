#include "platform/base/Environment.h"
#include "platform/db/TestDatabase.h"
#include "platform/db/WritingView.h"
#include "platform/report/layout/LayoutFile.h"
#include "platform/report/query/QueryText.h"
#include "platform/report/query/ReportReader.h"
#include "platform/report/viewer/ParameterDialog.h"
#include "support/Raised.h"
#include "support/ScriptedPrompts.h"

#include "ReportRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

namespace report {
namespace {

using namespace Qt::StringLiterals;

TEST(QueryText, TakesNamesOffParametersOnly)
{
    struct Case
    {
        QString text, statement;
        QStringList names;
    };
    const Case cases[] = {{u"Select a from t where b = ?From and c <= ?[To day]"_s,
                           u"Select a from t where b = ? and c <= ?"_s,
                           {u"From"_s, u"To day"_s}},
                          {u"Select '?x', [?y] from t where d = #1-2-2024# and e = ?"_s,
                           u"Select '?x', [?y] from t where d = #1-2-2024# and e = ?"_s,
                           {QString()}},
                          {u"Select ? and b"_s, u"Select ? and b"_s, {QString()}},
                          {u"Select ?a, ?A"_s, u"Select ?, ?"_s, {u"a"_s, u"A"_s}}};
    for (const Case &one : cases)
        EXPECT_EQ(withoutNames(one.text), (QueryText{one.statement, one.names}))
            << one.text.toStdString();
}

class Reader : public testing::Test
{
protected:
    Reader()
    {
        db::Connection data = m_database.connect();
        data.Execute(u"Create table tblPart (PartID text(20) not null primary key, Bin text(20), "
                     "Price currency, Bought datetime)"_s);
        data.Execute(
            u"Create table tblUse (UseID counter primary key, PartID text(20), n integer)"_s);
        for (const auto &[id, bin, price] : {std::tuple{u"Belt"_s, u"A1"_s, 12.5},
                                             {u"Oil"_s, u"B2"_s, 7.25},
                                             {u"O'Ring"_s, u"A1"_s, 1.0}})
            data.Execute(u"Insert into tblPart(PartID, Bin, Price, Bought) Values(?, ?, ?, ?)"_s,
                         {id, bin, price, base::wallClock(QDate(2024, 3, id == u"Oil" ? 5 : 1))});
        data.Execute(u"Insert into tblUse(PartID, n) Values('Oil', 3)"_s);
    }
    static Layout layout(const QByteArray &content)
    {
        return layoutOf("<report version=\"2\" title=\"Parts\">" + content + "</report>");
    }
    int count(const QString &table)
    {
        return m_database.connect().Open(u"Select * from "_s + table).RecordCount();
    }

    test::TestDatabase m_database;
    DatabaseRunner m_runner{m_database.target()};
};

TEST_F(Reader, ReadsQueryAndFurtherRowsWithTheAnswersBound)
{
    const Layout parts = layout(
        R"(<parameter name="Bin"/><parameter name="Most" type="number"/>
           <query>Select PartID, Price from tblPart where Bin = ?bin and Price &lt; ?Most order by PartID</query>
           <rows name="uses" key="PartID" of="PartID">Select PartID, n from tblUse</rows>)");
    const ReportRows read = readRows(parts, {{u"bin"_s, u"A1"_s}, {u"most"_s, 10}}, m_runner);
    ASSERT_EQ(read.rows->rowCount(), 1);
    EXPECT_EQ(read.rows->value(0, 0), u"O'Ring"_s);
    EXPECT_EQ(read.sets[u"uses"_s]->rowCount(), 1);
    // What a user types stays a value.
    EXPECT_EQ(readRows(parts, {{u"bin"_s, u"x' or 'a'='a"_s}, {u"most"_s, 10}}, m_runner)
                  .rows->rowCount(),
              0);
    const auto refusal = [&](const Layout &asked) {
        return test::raisedBy([&] {
                   (void)readRows(asked, {{u"bin"_s, u"A1"_s}}, m_runner);
               })
            .description();
    };
    EXPECT_TRUE(refusal(parts).contains(u"needs a value for \"Most\""));
    EXPECT_TRUE(refusal(layout("<query>Select ?Nobody from tblPart</query>"))
                    .contains(u"\"Nobody\", which is none of its parameters"));
    EXPECT_TRUE(refusal(layout({})).contains(u"no query"));
}

TEST_F(Reader, WhatMayBeLeftEmptyIsNull)
{
    const Layout parts = layout(R"(<parameter name="Bin" optional="yes"/><parameter name="n"/>
        <query>Select PartID from tblPart where Bin = ?Bin or Price = ?N or PartID = ?bin</query>)");
    const ReportRows read = readRows(parts, {{u"n"_s, 7.25}}, m_runner);
    ASSERT_EQ(read.rows->rowCount(), 1);
    EXPECT_EQ(read.rows->value(0, 0), u"Oil"_s);
}

TEST_F(Reader, RefusesWhatDoesNotOnlyRead)
{
    for (const QByteArray statement :
         {"Delete from tblPart", "Update tblPart set Price = 0",
          "Insert into tblPart(PartID) Values('x')", "Drop table tblUse",
          "Create table tblNew (a integer)", "Alter table tblUse add column b integer"}) {
        const Layout bad = layout("<query>" + statement + "</query>");
        const auto error = test::raisedBy<db::DbError>([&] { (void)readRows(bad, {}, m_runner); });
        EXPECT_EQ(error.number(), db::ErrorNumber::ReadOnly) << statement.toStdString();
        EXPECT_EQ(error.statement().toUtf8(), statement);
        const Layout further = layout("<query>Select 1 from tblPart</query>"
                                      "<rows name=\"a\" key=\"a\" of=\"a\">" +
                                      statement + "</rows>");
        EXPECT_THROW((void)readRows(further, {}, m_runner), db::DbError);
        const Parameter list{u"p"_s, {}, {}, {}, QString::fromUtf8(statement), false};
        EXPECT_THROW((void)choicesOf(list, m_runner), db::DbError);
    }
    for (const char *statement :
         {"Select PartID from tblPart; Delete from tblPart", "Select * into tblNew from tblPart",
          "Execute block as begin end", "tblPart"})
        EXPECT_EQ(test::raisedBy<db::DbError>([&] {
                      db::demandQuery(QString::fromLatin1(statement));
                  }).number(),
                  db::ErrorNumber::Syntax)
            << statement;
    // And what reads by its text runs where the engine lets nothing be written.
    test::addWritingView(m_database.target(), u"tblTrap"_s, u"delete from \"tblPart\""_s);
    EXPECT_EQ(test::raisedBy<db::DbError>([&] {
                  (void)DatabaseRunner(m_database.target()).run(u"Select n from tblTrap"_s, {});
              }).number(),
              db::ErrorNumber::ReadOnly);
    EXPECT_EQ(count(u"tblPart"_s), 3);
    EXPECT_EQ(count(u"tblUse"_s), 1);
}

TEST_F(Reader, AnswersAreTyped)
{
    using Case = std::tuple<ParameterType, QString, std::optional<QVariant>>;
    const Case cases[] = {{ParameterType::Text, u" a "_s, u"a"_s},
                          {ParameterType::Text, u"  "_s, QVariant()},
                          {ParameterType::Number, u"12.5"_s, 12.5},
                          {ParameterType::Number, u"twelve"_s, std::nullopt},
                          {ParameterType::Date, u"3/5/2024"_s, base::wallClock(QDate(2024, 3, 5))},
                          {ParameterType::Date, u"13/5/2024"_s, std::nullopt},
                          {ParameterType::YesNo, u"YES"_s, true},
                          {ParameterType::YesNo, u"no"_s, false},
                          {ParameterType::YesNo, u"maybe"_s, std::nullopt}};
    for (const auto &[type, text, answer] : cases)
        EXPECT_EQ(answerOf({u"p"_s, type, {}, {}, {}, false}, text), answer) << text.toStdString();
    const QDateTime now = base::wallClock(QDate(2024, 3, 15), QTime(8, 0));
    QStringList problems;
    const auto usual = [&](const QString &expression) {
        return usualAnswer({u"p"_s, {}, {}, expression, {}, false}, now, problems);
    };
    EXPECT_EQ(usual(u"Today - 14"_s), base::wallClock(QDate(2024, 3, 1)));
    EXPECT_EQ(problems, QStringList());
    EXPECT_EQ(std::pair(usual(u"Price + 1"_s), usual(u"1 +"_s)), std::pair(QVariant(), QVariant()));
    EXPECT_EQ(problems.size(), 2);
}

TEST_F(Reader, AsksForItsParameters)
{
    const Layout parts = layout(
        R"(<parameter name="Bin" prompt="Which bin" list="Select Bin from tblPart order by Bin"/>
           <parameter name="From" type="date" default="Today - 14"/>
           <parameter name="Most" type="number" default="100"/>
           <parameter name="Name" optional="yes"/>
           <parameter name="All" type="yesNo" default="true"/>
           <query>Select 1 from tblPart</query>)");
    const QDateTime now = base::wallClock(QDate(2024, 3, 15), QTime(8, 0));
    test::ScriptedPrompts prompts;
    const auto work = [&](const std::function<void(ParameterDialog &)> &steps) {
        QTimer::singleShot(0, qApp, [=] {
            steps(*qobject_cast<ParameterDialog *>(QApplication::activeModalWidget()));
        });
        return askParameters(parts, m_runner, now, nullptr);
    };
    EXPECT_FALSE(work([](ParameterDialog &dialog) { dialog.reject(); }));
    const auto answers = work([&](ParameterDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Parts");
        auto *bin = dialog.findChild<QComboBox *>(u"Bin"_s);
        EXPECT_EQ(bin->count(), 2) << "each value once";
        prompts.say(u"Please enter a text for \"Which bin\"."_s);
        dialog.accept();
        bin->setEditText(u"b2"_s);
        auto *most = dialog.findChild<QLineEdit *>(u"Most"_s);
        most->setText(u"many"_s);
        prompts.say(u"Please enter a number for \"Most\"."_s);
        dialog.accept();
        most->setText(u"7.5"_s);
        dialog.findChild<QCheckBox *>(u"All"_s)->setChecked(false);
        dialog.accept();
    });
    ASSERT_TRUE(answers);
    EXPECT_EQ(*answers, (Answers{{u"bin"_s, u"B2"_s},
                                 {u"from"_s, base::wallClock(QDate(2024, 3, 1))},
                                 {u"most"_s, 7.5},
                                 {u"name"_s, QVariant()},
                                 {u"all"_s, false}}));
    EXPECT_EQ(askParameters(layout("<query>Select 1 from tblPart</query>"), m_runner, now, nullptr),
              Answers());
}

} // namespace
} // namespace report
