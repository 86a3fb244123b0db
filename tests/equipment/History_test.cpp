#include "equipment/History.h"

#include "equipment/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

struct History : test::Workshop
{
    History()
    {
        addMachine(1, u"M1"_s);
        addHistory(1, 11, {2024, 1, 10});
        addHistory(1, 12, {2024, 2, 20}, u"Blades"_s);
        addHistory(2, 21, {2024, 1, 10});
        addPartHistory(11, u"F-1"_s, 2, 3.25);
        addPartHistory(11, u"O-1"_s, 1.5, 4);
        addPartHistory(21, u"F-1"_s, 1, 99);
    }
};

} // namespace

TEST_F(History, PeriodsIncludeBothEndsAndMayBeOpen)
{
    const QDate first(2024, 1, 10);
    const QDate last(2024, 2, 20);
    const std::pair<history::Period, int> rows[] = {
        {{first, last}, 2}, {{first, first}, 1}, {{first.addDays(1), last.addDays(-1)}, 0},
        {{{}, first}, 1},   {{last, {}}, 1},     {{}, 2},
    };
    for (const auto &[period, services] : rows)
        EXPECT_EQ(history::services(1, period).RecordCount(), services)
            << qPrintable(period.from.toString());
}

TEST_F(History, PartsCostQuantityTimesPrice)
{
    EXPECT_EQ(history::SetAllPastCost(1, {}), (QHash<qint64, double>{{11, 12.5}}));
    EXPECT_TRUE(history::SetAllPastCost(1, {{2024, 2, 1}, {}}).isEmpty());
    EXPECT_EQ(history::SetPastCost(11), 12.5);
    EXPECT_EQ(history::SetPastCost(12), 0);
    addPartHistory(12, u"X"_s, 3, 0.3352);
    EXPECT_EQ(history::SetPastCost(12), 1.01);
}

TEST_F(History, AnotherCrewCostsTheBudgetedHours)
{
    addCrew(5, 12, 21.5);
    EXPECT_EQ(history::changeCrew(11, 5, 2), 43);
    const QString row = u"Select CrewID, CrewNumber, CostEstimate from tblWOServiceUsedHistory "
                        "where ServiceUsedID = 11"_s;
    EXPECT_EQ(found(row), u"5|12|43");
    EXPECT_EQ(history::changeCrew(11, 6, 2), 0);
    EXPECT_EQ(found(row), u"6||0") << "a crew without employees costs nothing";
}

TEST_F(History, DeletesAServiceWithItsPartsOnly)
{
    EXPECT_TRUE(history::DeleteServiceHistoryRecord(11));
    EXPECT_EQ(count(u"tblWOServiceUsedHistory"_s), 2);
    EXPECT_EQ(count(u"tblWoPartHistory"_s), 1);
}

TEST_F(History, AFailedCorrectionIsReportedAndAnswersFalse)
{
    EXPECT_FALSE(history::UpdateEquipmentServiceHistory(11, u"Countvalue"_s, u"many"_s));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"UpdateEquipmentServiceHistory");
    run(u"drop table tblWoPartHistory"_s);
    EXPECT_FALSE(history::DeleteServiceHistoryRecord(11));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"DeleteServiceHistoryRecord");
    EXPECT_EQ(history::services(1, {}).RecordCount(), 2);
}

TEST(TimeOfHistory, ReadsWhatUsersType)
{
    using Case = std::pair<QString, std::optional<QTime>>;
    const QTime none;
    for (const auto &[text, time] :
         {Case{u"13:05"_s, QTime(13, 5)}, Case{u"1:5 pm"_s, QTime(13, 5)},
          Case{u"01:05P"_s, QTime(13, 5)}, Case{u"12:00 AM"_s, QTime(0, 0)},
          Case{u"12:30a"_s, QTime(0, 30)}, Case{u"12:30 PM"_s, QTime(12, 30)}, Case{u" "_s, none},
          Case{u"00:00"_s, none}, Case{u"0:00"_s, none}, Case{u"13:05 PM"_s, std::nullopt},
          Case{u"24:00"_s, std::nullopt}, Case{u"8:60"_s, std::nullopt},
          Case{u"noon"_s, std::nullopt}, Case{u"8"_s, std::nullopt}})
        EXPECT_EQ(history::timeOf(text), time) << qPrintable(text);
}

TEST(TimeOfHistory, CorrectionsKeepStartBeforeEnd)
{
    const QString late = u"Start Time should be less than End Time"_s;
    const QString early = u"End Time should be greater than Start Time"_s;
    const QString noStart = u"Start Time Shouln't be Blank"_s;
    const QString tooShort = u"Work Hrs should be greater than 10 Minutes."_s;
    const struct
    {
        history::TimeCorrection made;
        QString refusal;
        QString stored;
        std::optional<QString> hours;
    } cases[] = {
        {history::correctStart(u"8:15 AM"_s, u"10:00"_s), {}, u"08:15"_s, u"1:45"_s},
        {history::correctStart(u"10:00"_s, u"10:00"_s), late, {}, {}},
        {history::correctStart(u"10:01"_s, u"10:00"_s), late, {}, {}},
        {history::correctStart(u"10:01"_s, {}), {}, u"10:01"_s, {}},
        {history::correctStart(u"10:01"_s, u"00:00"_s), {}, u"10:01"_s, {}},
        {history::correctStart({}, u"10:00"_s), {}, {}, {}},
        {history::correctEnd(u"22:05"_s, u"10:00"_s), {}, u"22:05"_s, u"12:05"_s},
        {history::correctEnd(u"10:00"_s, {}), noStart, {}, {}},
        {history::correctEnd(u"10:00"_s, u"00:00"_s), noStart, {}, {}},
        {history::correctEnd(u"10:00"_s, u"10:00"_s), early, {}, {}},
        {history::correctEnd({}, u"10:00"_s), {}, {}, {}},
        {history::correctEnd(u"25:00"_s, u"10:00"_s), u"Invalid Time"_s, {}, {}},
        {history::correctWorkHrs(u"0:11"_s), {}, u"0:11"_s, {}},
        {history::correctWorkHrs(u"00:10"_s), tooShort, {}, {}},
        {history::correctWorkHrs({}), tooShort, {}, {}},
        {history::correctWorkHrs(u"7:30"_s), {}, u"7:30"_s, {}},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(cases[i].made.refusal, cases[i].refusal) << i;
        EXPECT_EQ(cases[i].made.stored, cases[i].stored) << i;
        EXPECT_EQ(cases[i].made.WorkHrs, cases[i].hours) << i;
    }
}
