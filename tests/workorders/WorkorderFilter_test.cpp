#include "workorders/WorkorderFilter.h"

#include "platform/base/Error.h"
#include "workorders/Recording.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString Window =
    u"(NextScheduledDate >= #02-14-2024# and NextScheduledDate <= #03-15-2024#)"_s;

WorkorderFilter filter(const QString &crews, const QString &assigned = {})
{
    return {QDate(2024, 2, 14), QDate(2024, 3, 15), crews, assigned};
}

} // namespace

TEST(BuildFilterExpression, ReadsListsOfCrewNumbers)
{
    const struct
    {
        QString typed;
        QString terms; ///< with # in place of the column; empty for no crew part
    } rows[] = {
        {u""_s, u""_s},
        {u"   "_s, u""_s},
        {u"1"_s, u"(# = 1)"_s},
        {u" 1 , 2 "_s, u"(# = 1) Or (# = 2)"_s},
        {u"1,3-5"_s, u"(# = 1) Or (# >= 3 And # <= 5)"_s},
        {u"5-"_s, u""_s},
        {u"5-,2"_s, u"(# = 2)"_s},
        {u"1,,3"_s, u"(# = 1)"_s},
        {u",3"_s, u""_s},
        {u"1-3-5"_s, u"(# >= 1 And # <= 3)"_s},
        {u"1-3-5,7"_s, u"(# >= 1 And # <= 3)"_s},
        {u"1--5,7"_s, u""_s},
        {u"-5"_s, u"(# >=  And # <= 5)"_s},
    };
    for (const auto &row : rows) {
        QString terms = row.terms;
        terms.replace(u'#', u"tblCrew.CrewNumber"_s);
        const QString expected = terms.isEmpty() ? Window : u"(%1) And "_s.arg(terms) + Window;
        EXPECT_EQ(BuildFilterExpression(filter(row.typed)), expected) << qPrintable(row.typed);
    }
}

TEST(BuildFilterExpression, OfAListThatCantBeTheUserIsToldInPlainWords)
{
    for (const QString &list : {u"-5"_s, u"1,-5-7"_s}) {
        try {
            (void)filterCondition(filter(list));
            ADD_FAILURE() << qPrintable(list);
        } catch (const base::Error &error) {
            EXPECT_TRUE(error.description().contains(u"up to 5 has no first crew"_s))
                << qPrintable(error.description());
        }
        EXPECT_THROW((void)filterCondition(filter({}, list), {}, true), base::Error);
        EXPECT_EQ(filterCondition(filter({}, list)), Window) << "the machines' crews don't count";
    }
    EXPECT_NO_THROW((void)dueCondition(filter(u"-"_s))) << "nothing is left of it";
}

TEST(BuildFilterExpression, PutsTheMachinesCrewsInFrontWhenAsked)
{
    const WorkorderFilter both = filter(u"1"_s, u"2,4-6"_s);
    EXPECT_EQ(BuildFilterExpression(both, u"tblcrew.crewnumber"_s, true),
              u"((Ecrew.CrewNumber = 2) Or (Ecrew.CrewNumber >= 4 And Ecrew.CrewNumber <= 6)) And "
              "((tblcrew.crewnumber = 1)) And "_s +
                  Window);
    EXPECT_EQ(BuildFilterExpression(both), u"((tblCrew.CrewNumber = 1)) And "_s + Window);
    EXPECT_EQ(BuildFilterExpression(filter({}, u"2"_s), {}, true),
              u"((Ecrew.CrewNumber = 2)) And "_s + Window);
}

TEST(Lateness, YellowIsAskedForOnlyWithoutRed)
{
    const QDate today(2024, 3, 15);
    const struct
    {
        int daysLate;
        int yellow;
        int red;
        Lateness expected;
    } rows[] = {
        {14, 7, 14, Lateness::Red},    {13, 7, 14, Lateness::OnTime}, {7, 7, 0, Lateness::Yellow},
        {6, 7, 0, Lateness::OnTime},   {99, 0, 0, Lateness::OnTime},  {20, 0, 14, Lateness::Red},
        {-3, 7, 14, Lateness::OnTime}, {20, 14, 7, Lateness::Red},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(lateness(today.addDays(-row.daysLate), today, row.yellow, row.red), row.expected)
            << row.daysLate << ' ' << row.yellow << ' ' << row.red;
    }
    EXPECT_EQ(lateness(QDate(), today, 1, 1), Lateness::OnTime);
}
