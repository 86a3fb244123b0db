#include "platform/input/DateInput.h"

#include "platform/input/Leaving.h"
#include "platform/input/Shown.h"
#include "support/ScriptedPrompts.h"
#include "support/TestEnvironment.h"

#include <QCalendarWidget>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

using Icon = base::Prompts::Icon;

namespace {

class DateInputTest : public testing::Test
{
protected:
    void SetUp() override
    {
        date = window.form.dateField(u"datSold"_s, u"Sold"_s);
        other = window.form.textField(u"txtBuyer"_s, u"Buyer"_s);
        window.showNow();
        date->setFocus();
    }
    void leave() { QTest::keyClick(date, Qt::Key_Tab); }

    test::TestEnvironment environment;
    test::ShownForm window;
    input::DateInput *date = nullptr;
    QLineEdit *other = nullptr;
};

} // namespace

TEST_F(DateInputTest, CompletesWhatIsTyped)
{
    // What is typed, what is shown then, and once the box was left.
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"03092024", "03/09/2024", "03/09/2024"}, {"3/9/2024", "03/09/2024", "03/09/2024"},
        {"3-9-24", "03/09/24  ", "03/09/2024"},   {"03/09/24", "03/09/24  ", "03/09/2024"},
        {"12.31.99", "12/31/99  ", "12/31/1999"}, {"022924", "02/29/24  ", "02/29/2024"},
        {"02302024", "02/30/2024", "02/30/2024"}, {"0309", "03/09/    ", "03/09/    "},
        {"/x-", "  /  /    ", "  /  /    "},      {"3//9", "03/9 /    ", "03/9 /    "}};
    for (const auto &[keys, shown, left] : cases) {
        date->setFocus();
        date->setDate(QDate());
        test::type(date, keys);
        EXPECT_EQ(test::textOf(date), shown) << keys;
        leave();
        EXPECT_EQ(test::textOf(date), left) << keys;
    }
}

TEST_F(DateInputTest, TakesDatesOfTheProgramAndStoredForms)
{
    for (const auto &[stored, shown] : {std::pair(u"3/9/2024"_s, "03/09/2024"),
                                        {u"12-1-98"_s, "12/01/1998"},
                                        {QString(), "  /  /    "},
                                        {u"unknown"_s, "unknown"}}) {
        date->setText(stored);
        EXPECT_EQ(test::textOf(date), shown);
        EXPECT_EQ(input::isBlank(date), stored.isEmpty());
        EXPECT_EQ(date->isValidOrEmpty(), stored != u"unknown");
    }
    date->setText({});
    date->selectAll();
    test::paste(date, "7/4/2023");
    EXPECT_EQ(date->date(), QDate(2023, 7, 4));
}

TEST_F(DateInputTest, TellsTheUsersEditsFromTheProgramsChanges)
{
    QSignalSpy changes(date, &input::DateInput::dateChanged);
    QSignalSpy edits(date, &input::DateInput::edited);
    for (int again = 0; again < 2; ++again)
        date->setDate(QDate(2024, 3, 9));
    EXPECT_EQ(std::pair(changes.size(), edits.size()), std::pair(qsizetype(1), qsizetype(0)));
    QTest::keyClick(date, Qt::Key_Up);
    EXPECT_EQ(date->date(), QDate(2024, 3, 10));
    EXPECT_EQ(std::pair(changes.size(), edits.size()), std::pair(qsizetype(2), qsizetype(1)));
}

TEST_F(DateInputTest, ChoosesFromTheCalendarByKeyboard)
{
    date->setDate(QDate(2024, 3, 9));
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    auto *calendar = popup->findChild<QCalendarWidget *>();
    EXPECT_EQ(calendar->selectedDate(), QDate(2024, 3, 9));
    QWidget *view = calendar->findChild<QWidget *>(u"qt_calendar_calendarview"_s);
    QTest::keyClick(view, Qt::Key_Right);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(date->date(), QDate(2024, 3, 10));
    EXPECT_FALSE(QApplication::activePopupWidget());

    QTest::keyClick(date, Qt::Key_F4);
    popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_EQ(date->date(), QDate(2024, 3, 10));
}

TEST_F(DateInputTest, OpensNoCalendarWhenItCannotBeEdited)
{
    date->setReadOnly(true);
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    EXPECT_FALSE(QApplication::activePopupWidget());
    test::type(date, "1");
    EXPECT_TRUE(date->isEmpty());
}

TEST_F(DateInputTest, KeepsTheFocusOnATextThatIsNoDate)
{
    test::ScriptedPrompts prompts;
    date->checkOnLeave();
    test::type(date, "13012024");
    prompts.expect(u"Please enter valid date."_s, Icon::None);
    leave();
    EXPECT_TRUE(QTest::qWaitFor([this] { return date->hasFocus(); }));
    EXPECT_EQ(test::textOf(date), "13/01/2024");
    date->setDate(QDate());
    leave();
    QApplication::processEvents();
    EXPECT_TRUE(other->hasFocus());
}
