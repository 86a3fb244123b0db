#include "workorders/ui/frmServiceTime.h"

#include "core/ui/ScreenDriver.h"
#include "platform/input/TimeInput.h"
#include "workorders/Workshop.h"

#include <QTimeEdit>

using namespace Qt::StringLiterals;

namespace {

struct ServiceTimes : test::Workshop
{
    void show(const ScreenCalls::ServiceTimes &times)
    {
        screen = std::make_unique<frmServiceTime>(times);
        test::bringUp(*screen);
        driver().control("timeStart").setFocus();
    }
    [[nodiscard]] test::ScreenDriver driver() const { return test::ScreenDriver(*screen); }
    [[nodiscard]] QTimeEdit &hours() const { return driver().control<QTimeEdit>("datWorkhrs"); }
    [[nodiscard]] QString shown() const
    {
        return driver().text("timeStart") + u'-' + driver().text("timeEnd") + u' ' +
               hours().time().toString(u"H:mm");
    }
    /// Types a time and leaves its box.
    void enter(const char *box, const QString &text, Qt::Key leaving = Qt::Key_Tab) const
    {
        driver().type(box, text);
        QTest::keyClick(&driver().control(box), leaving);
    }

    test::ScriptedPrompts prompts;
    std::unique_ptr<frmServiceTime> screen;
};

} // namespace

TEST_F(ServiceTimes, HoursFollowFromTheTimes)
{
    show({.id = 1, .start = u"08:05"_s, .end = u"13:30"_s, .workHours = u"1:20"_s});
    EXPECT_EQ(shown(), u"08:05A-01:30P 1:20"_s);
    enter("timeEnd", u"12:00P"_s);
    EXPECT_EQ(shown(), u"08:05A-12:00P 3:55"_s);
    enter("timeStart", u"01:15P"_s);
    EXPECT_EQ(shown(), u"01:15P-01:15P 0:00"_s) << "an end before the start becomes the start";
    QTest::keyClicks(&driver().control("timeEnd"), u"2:30p"_s);
    QTest::keyClick(&driver().control("timeEnd"), Qt::Key_Tab);
    EXPECT_EQ(shown(), u"01:15P-02:30P 1:15"_s) << "the end had the focus and was typed over";

    show({.id = 1});
    enter("timeStart", u"10:00P"_s);
    EXPECT_EQ(shown(), u"10:00P-10:00P 0:00"_s) << "no end has been given";
    enter("timeEnd", u"12:00A"_s);
    EXPECT_EQ(shown(), u"10:00P-12:00A 2:00"_s) << "midnight was";

    show({.id = 1, .workHours = u"02:30"_s});
    enter("timeEnd", u"05:00P"_s);
    EXPECT_EQ(shown(), u"12:00A-05:00P 2:30"_s) << "without a start the hours stay";
}

TEST_F(ServiceTimes, AnHourAboveTwelveIsReplaced)
{
    show({.id = 1, .start = u"08:05"_s, .end = u"13:30"_s});
    prompts.say(u"Invalid Time"_s);
    enter("timeStart", u"13:00A"_s);
    EXPECT_EQ(driver().text("timeStart"), u"08:00A"_s);
    prompts.say(u"Invalid Time"_s);
    enter("timeEnd", u"20:00"_s);
    EXPECT_EQ(driver().text("timeEnd"), u"08:00A"_s) << "midnight lies before the start";
}

TEST_F(ServiceTimes, AreStoredInHistoryWithWhatTheCrewCosts)
{
    insert(u"tblWOServiceUsedHistory"_s, {{u"ServiceUsedID"_s, 77},
                                          {u"CrewID"_s, crew1},
                                          {u"StartTime"_s, u"8:00"_s},
                                          {u"EndTime"_s, u"09:00"_s}});
    int asked = 0;
    show({.id = 77,
          .start = u"08:00"_s,
          .end = u"09:00"_s,
          .table = u"tblWOServiceUsedHistory"_s,
          .beforeWrite = [&] { ++asked; }});
    EXPECT_EQ(asked, 0);
    // Enter in a box completes it first.
    enter("timeEnd", u"09:30A"_s, Qt::Key_Return);
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(found(u"Select StartTime, EndTime, Workhrs, CostEstimate from "
                    "tblWOServiceUsedHistory"_s),
              u"08:00|09:30|01:30|30");
}

TEST_F(ServiceTimes, OfAnotherWorkstationAreAskedAbout)
{
    const qint64 id = orderService(order());
    show({.id = id});
    hours().setTime(QTime(0, 45));
    gcnData->Execute(
        u"Update tblWoServiceUsed set StartTime = '10:00', EndTime = '12:00', WorkHrs = '2:00'"_s);
    const QString question =
        u"Another workstation has changed these times meanwhile: yours \"00:00 to 00:00, 0:45 "
        "hours\", theirs \"10:00 to 12:00, 2:00 hours\". Do you want to store yours?"_s;
    prompts.no(question);
    driver().press("cmdUpdate");
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(shown(), u"10:00A-12:00P 2:00");
    // As they are shown now they may be changed.
    enter("timeEnd", u"11:00A"_s);
    driver().press("cmdUpdate");
    const QString stored = u"Select StartTime, EndTime, Workhrs from tblWoServiceUsed"_s;
    EXPECT_EQ(found(stored), u"10:00|11:00|01:00");

    show({.id = id});
    hours().setTime(QTime(0, 45));
    prompts.yes(QString(question).replace(u"12:00, 2:00"_s, u"11:00, 1:00"_s));
    driver().press("cmdUpdate");
    EXPECT_EQ(found(stored), u"00:00|00:00|00:45");
}

TEST_F(ServiceTimes, HoursMayBeTypedForAnOpenOrderAndCancelStoresNothing)
{
    const qint64 id = orderService(order());
    for (const auto &[button, stored] :
         {std::pair("cmdCancel", u"|||0"_s), std::pair("cmdUpdate", u"00:00|00:00|00:45|15"_s)}) {
        show({.id = id});
        hours().setTime(QTime(0, 45));
        driver().press(button);
        EXPECT_EQ(found(u"Select StartTime, EndTime, Workhrs, CostEstimate from "
                        "tblWoServiceUsed"_s),
                  stored);
    }
}
