#include "workorders/ui/frmServiceTime.h"

#include "core/CompanySession.h"
#include "core/ui/Modal.h"
#include "platform/input/TimeInput.h"

#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace {

struct ServiceTimes : test::CompanySession
{
    ServiceTimes()
    {
        gcnData->Execute(
            u"insert into tblCrew(CrewID,CrewNumber,Description) values(5,12,'Crew')"_s);
        gcnData->Execute(u"insert into tblEmployee(EmployeeID,Crew,LaborCost,Inactive,"
                         "IncludeWoList) values('1',5,20,'0','1')"_s);
        gcnData->Execute(
            u"insert into tblWoServiceUsed(WorkorderNo,Name,CrewID) values(1,'a',5)"_s);
        gcnData->Execute(
            u"insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,CrewID) values(1,77,5)"_s);
    }
    void show(const ScreenCalls::ServiceTimes &times)
    {
        screen = std::make_unique<frmServiceTime>(times);
        test::bringUp(*screen);
        start().setFocus();
    }
    template<class Control>
    Control &named(const QString &name)
    {
        return *screen->findChild<Control *>(name);
    }
    input::TimeInput &start() { return named<input::TimeInput>(u"timeStart"_s); }
    input::TimeInput &end() { return named<input::TimeInput>(u"timeEnd"_s); }
    QTimeEdit &hours() { return named<QTimeEdit>(u"datWorkhrs"_s); }
    static void type(input::TimeInput &box, const QString &text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    test::ScriptedPrompts prompts;
    std::unique_ptr<frmServiceTime> screen;
};

} // namespace

TEST_F(ServiceTimes, HoursFollowFromTheTimes)
{
    show({.id = 1, .start = u"08:05"_s, .end = u"13:30"_s, .workHours = u"1:20"_s});
    EXPECT_EQ(start().text(), u"08:05A");
    EXPECT_EQ(end().text(), u"01:30P");
    EXPECT_EQ(hours().time(), QTime(1, 20));
    type(end(), u"12:00P"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    EXPECT_EQ(hours().time(), QTime(3, 55));
    // An end before the start becomes the start.
    type(start(), u"01:15P"_s);
    QTest::keyClick(&start(), Qt::Key_Tab);
    EXPECT_EQ(end().text(), u"01:15P");
    EXPECT_EQ(hours().time(), QTime(0, 0));
    // The end, which now has the focus, is typed over.
    QTest::keyClicks(&end(), u"2:30p"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    EXPECT_EQ(hours().time(), QTime(1, 15));
}

TEST_F(ServiceTimes, WorkOverMidnightCountsItsHours)
{
    show({.id = 1});
    type(start(), u"10:00P"_s);
    QTest::keyClick(&start(), Qt::Key_Tab);
    EXPECT_EQ(hours().time(), QTime(0, 0)) << "no end has been given";
    type(end(), u"02:00A"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    EXPECT_EQ(end().text(), u"02:00A");
    EXPECT_EQ(hours().time(), QTime(4, 0));
    type(end(), u"12:00A"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    EXPECT_EQ(hours().time(), QTime(2, 0));
}

TEST_F(ServiceTimes, WithoutAStartTheEndAndTheHoursStay)
{
    show({.id = 1, .workHours = u"02:30"_s});
    type(end(), u"05:00P"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    EXPECT_EQ(end().text(), u"05:00P");
    EXPECT_EQ(hours().time(), QTime(2, 30));
}

TEST_F(ServiceTimes, AnHourAboveTwelveIsReplaced)
{
    show({.id = 1, .start = u"08:05"_s, .end = u"13:30"_s});
    prompts.say(u"Invalid Time"_s);
    type(start(), u"13:00A"_s);
    QTest::keyClick(&start(), Qt::Key_Tab);
    EXPECT_EQ(start().text(), u"08:00A");
    prompts.say(u"Invalid Time"_s);
    type(end(), u"20:00"_s);
    QTest::keyClick(&end(), Qt::Key_Tab);
    // Midnight lies before the start.
    EXPECT_EQ(end().text(), u"08:00A");
}

TEST_F(ServiceTimes, AreStoredWithWhatTheCrewCosts)
{
    int asked = 0;
    show({.id = 77,
          .start = u"08:00"_s,
          .end = u"09:00"_s,
          .table = u"tblWOServiceUsedHistory"_s,
          .beforeWrite = [&] { ++asked; }});
    EXPECT_EQ(asked, 0);
    // Enter in a box completes it first.
    type(end(), u"09:30A"_s);
    QTest::keyClick(&end(), Qt::Key_Return);
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(found(u"Select StartTime, EndTime, Workhrs, CostEstimate from "
                    "tblWOServiceUsedHistory"_s),
              u"08:00|09:30|01:30|30");
    EXPECT_EQ(found(u"Select StartTime from tblWoServiceUsed"_s), QString());
}

TEST_F(ServiceTimes, HoursMayBeTypedAndCancelStoresNothing)
{
    const qint64 id = found(u"Select NServiceUsedID from tblWoServiceUsed"_s).toLongLong();
    show({.id = id});
    hours().setTime(QTime(0, 45));
    QTest::mouseClick(&named<QPushButton>(u"cmdCancel"_s), Qt::LeftButton);
    EXPECT_EQ(found(u"Select Workhrs from tblWoServiceUsed"_s), QString());
    show({.id = id});
    hours().setTime(QTime(0, 45));
    QTest::mouseClick(&named<QPushButton>(u"cmdUpdate"_s), Qt::LeftButton);
    EXPECT_EQ(found(u"Select StartTime, Workhrs, CostEstimate from tblWoServiceUsed"_s),
              u"00:00|00:45|15");
}
