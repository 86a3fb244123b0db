#include "platform/input/DateInput.h"

#include "platform/input/Leaving.h"
#include "platform/input/Shown.h"
#include "support/ScriptedPrompts.h"
#include "support/TestEnvironment.h"

#include <QCalendarWidget>
#include <QSignalSpy>

using Icon = base::Prompts::Icon;

namespace {

class DateInputTest : public testing::Test
{
protected:
    void SetUp() override
    {
        date = window.form.dateField(QStringLiteral("datSold"), QStringLiteral("Sold"));
        other = window.form.textField(QStringLiteral("txtBuyer"), QStringLiteral("Buyer"));
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

struct DateTyping
{
    const char *keys;
    const char *shown;
    const char *left;
};

TEST_F(DateInputTest, CompletesWhatIsTyped)
{
    const DateTyping cases[] = {
        {"03092024", "03/09/2024", "03/09/2024"}, {"3/9/2024", "03/09/2024", "03/09/2024"},
        {"3-9-24", "03/09/24  ", "03/09/2024"},   {"03/09/24", "03/09/24  ", "03/09/2024"},
        {"12.31.99", "12/31/99  ", "12/31/1999"}, {"022924", "02/29/24  ", "02/29/2024"},
        {"02302024", "02/30/2024", "02/30/2024"}, {"0309", "03/09/    ", "03/09/    "},
        {"/x-", "  /  /    ", "  /  /    "},      {"3//9", "03/9 /    ", "03/9 /    "}};
    for (const DateTyping &test : cases) {
        date->setFocus();
        date->setDate(QDate());
        test::type(date, test.keys);
        EXPECT_EQ(test::textOf(date), test.shown) << test.keys;
        leave();
        EXPECT_EQ(test::textOf(date), test.left) << test.keys;
    }
}

TEST_F(DateInputTest, TakesDatesOfTheProgramAndStoredForms)
{
    date->setText(QStringLiteral("3/9/2024"));
    EXPECT_EQ(test::textOf(date), "03/09/2024");
    date->setText(QStringLiteral("12-1-98"));
    EXPECT_EQ(date->date(), QDate(1998, 12, 1));
    date->setText(QString());
    EXPECT_TRUE(date->isEmpty());
    EXPECT_EQ(test::textOf(date), "  /  /    ");
    EXPECT_TRUE(input::isBlank(date));
    date->selectAll();
    test::paste(date, "7/4/2023");
    EXPECT_EQ(date->date(), QDate(2023, 7, 4));
    date->setText(QStringLiteral("unknown"));
    EXPECT_EQ(test::textOf(date), "unknown");
    EXPECT_FALSE(date->isValidOrEmpty());
}

TEST_F(DateInputTest, TellsTheUsersEditsFromTheProgramsChanges)
{
    QSignalSpy changes(date, &input::DateInput::dateChanged);
    QSignalSpy edits(date, &input::DateInput::edited);
    date->setDate(QDate(2024, 3, 9));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(edits.size(), 0);
    date->setDate(QDate(2024, 3, 9));
    EXPECT_EQ(changes.size(), 1);
    QTest::keyClick(date, Qt::Key_Up);
    EXPECT_EQ(date->date(), QDate(2024, 3, 10));
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(edits.size(), 1);
}

TEST_F(DateInputTest, ChoosesFromTheCalendarByKeyboard)
{
    date->setDate(QDate(2024, 3, 9));
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    auto *calendar = popup->findChild<QCalendarWidget *>();
    EXPECT_EQ(calendar->selectedDate(), QDate(2024, 3, 9));
    QWidget *view = calendar->findChild<QWidget *>(QStringLiteral("qt_calendar_calendarview"));
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
    prompts.expect(QStringLiteral("Please enter valid date."), Icon::None);
    leave();
    EXPECT_TRUE(QTest::qWaitFor([this] { return date->hasFocus(); }));
    EXPECT_EQ(test::textOf(date), "13/01/2024");
    date->setDate(QDate());
    leave();
    QApplication::processEvents();
    EXPECT_TRUE(other->hasFocus());
}
