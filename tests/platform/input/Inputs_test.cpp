#include "platform/input/CurrencyInput.h"
#include "platform/input/DateStamp.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/QuickLink.h"
#include "platform/input/Shown.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "support/TestEnvironment.h"

#include <QAccessible>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QStyle>

TEST(CurrencyInput, TakesAmountsAndShowsTwoDecimals)
{
    test::ShownForm window;
    auto *cost = window.form.currencyField(QStringLiteral("curCost"), QStringLiteral("Cost"));
    window.form.textField(QStringLiteral("txtNext"), QStringLiteral("Next"));
    window.showNow();
    test::type(cost, "-12.5.x7");
    EXPECT_EQ(test::textOf(cost), "12.57");
    cost->selectAll();
    test::paste(cost, "$1,234.5");
    EXPECT_DOUBLE_EQ(cost->value(), 1234.5);
    QTest::keyClick(cost, Qt::Key_Tab);
    EXPECT_EQ(test::textOf(cost), "1234.50");
    cost->selectAll();
    test::type(cost, "1234567890123.456");
    EXPECT_EQ(test::textOf(cost), "123456789012.45") << "no more than the database can hold";
    cost->setValue(0.005);
    EXPECT_EQ(cost->text().size(), 4);
    cost->setFocus();
    cost->clear();
    QTest::keyClick(cost, Qt::Key_Tab);
    EXPECT_EQ(test::textOf(cost), "");
    EXPECT_DOUBLE_EQ(cost->value(), 0);
    cost->setNegativeAllowed(true);
    cost->setBlankAllowed(false);
    cost->setFocus();
    test::type(cost, "-3-");
    EXPECT_EQ(test::textOf(cost), "-3");
    EXPECT_DOUBLE_EQ(cost->value(), -3);
    cost->clear();
    QTest::keyClick(cost, Qt::Key_Tab);
    EXPECT_EQ(test::textOf(cost), "0.00");
}

TEST(SpinInput, StaysBetweenOneAnd99999)
{
    test::ShownForm window;
    auto *spin = window.form.spinField(QStringLiteral("RRSpin1"), QStringLiteral("Every"));
    window.form.textField(QStringLiteral("txtNext"), QStringLiteral("Next"));
    window.showNow();
    QSignalSpy edits(spin, &input::SpinInput::edited);
    const auto typed = [spin](const char *keys) {
        spin->setFocus();
        spin->selectAll();
        QTest::keyClick(spin, Qt::Key_Delete);
        test::type(spin, keys);
        QTest::keyClick(spin, Qt::Key_Tab);
        return spin->text().toStdString();
    };
    EXPECT_EQ(typed("12x5"), "125");
    EXPECT_EQ(typed(""), "1");
    EXPECT_EQ(typed("0"), "1");
    EXPECT_EQ(typed("1234567"), "12345");
    EXPECT_EQ(typed("99999"), "99999");
    EXPECT_GT(edits.size(), 0);
    QTest::keyClick(spin, Qt::Key_Up);
    EXPECT_EQ(spin->value(), 99999);
    QTest::keyClick(spin, Qt::Key_Minus);
    QTest::keyClick(spin, Qt::Key_Down);
    EXPECT_EQ(spin->value(), 99997);
    QTest::keyClick(spin, Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(spin->value(), 99998);
    spin->setValue(1);
    QTest::keyClick(spin, Qt::Key_Minus);
    EXPECT_EQ(spin->value(), 1);
    theme::install(*qApp);
    EXPECT_EQ(spin->style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate, nullptr, spin), 50);
}

TEST(IdCombo, FindsItemsByIdTextAndTyping)
{
    test::ShownForm window;
    auto *combo = window.form.comboField(QStringLiteral("cboState"), QStringLiteral("State"));
    combo->add(QStringLiteral("  "), 0);
    combo->add(QStringLiteral("Maine"), 11);
    combo->add(QStringLiteral("Maryland"), 12);
    combo->add(QStringLiteral("Maine"), 13);
    window.showNow();
    EXPECT_EQ(combo->id(), 0);
    EXPECT_TRUE(combo->select(12));
    EXPECT_EQ(combo->currentText().toStdString(), "Maryland");
    EXPECT_FALSE(combo->select(99));
    EXPECT_EQ(combo->id(), 12);
    EXPECT_TRUE(combo->selectText(QStringLiteral("MAINE")));
    EXPECT_EQ(combo->id(), 11);
    EXPECT_EQ(combo->collection().value(QStringLiteral("Maine")).toStdString(), "11");
    QSignalSpy choices(combo, &QComboBox::activated);
    test::type(combo, "mar");
    EXPECT_EQ(combo->id(), 12);
    EXPECT_GT(choices.size(), 0);
    combo->clear();
    EXPECT_EQ(combo->count(), 0);
    EXPECT_TRUE(combo->collection().isEmpty());
    EXPECT_EQ(combo->id(), 0);
}

TEST(IdCombo, OneLetterAgainAndAgainGoesThroughAllThatBeginWithIt)
{
    test::ShownForm window;
    auto *combo = window.form.comboField(QStringLiteral("cboPeriod"), QStringLiteral("Period"));
    combo->add({QStringLiteral("  "), QStringLiteral("Miles"), QStringLiteral("Days"),
                QStringLiteral("Months")});
    window.showNow();
    QSignalSpy choices(combo, &QComboBox::activated);
    QString chosen;
    for (int i = 0; i < 3; ++i) {
        test::type(combo, "m");
        chosen += combo->currentText() + u' ';
    }
    EXPECT_EQ(chosen.toStdString(), "Miles Months Miles ");
    EXPECT_EQ(choices.size(), 3);
}

TEST(LinkLabel, IsClickedByMouseEnterAndSpace)
{
    test::ShownForm window;
    auto *link = window.form.linkField(QStringLiteral("lnkWeb"), {}, QStringLiteral("Web site"));
    window.showNow();
    QSignalSpy clicks(link, &input::LinkLabel::clicked);
    QTest::mouseClick(link, Qt::LeftButton);
    QTest::mouseClick(link, Qt::RightButton);
    QTest::keyClick(link, Qt::Key_Return);
    QTest::keyClick(link, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 3);
    QTest::mousePress(link, Qt::LeftButton);
    QTest::mouseRelease(link, Qt::LeftButton, {}, QPoint(-20, -20));
    link->setEnabled(false);
    QTest::mouseClick(link, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 3);
    link->setEnabled(true);
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(link);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->role(), QAccessible::Link);
    EXPECT_EQ(told->text(QAccessible::Name).toStdString(), "Web site");
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.size(), 4);
}

TEST(QuickLink, IsOneControlForPictureAndLabel)
{
    test::ShownForm window;
    auto *link = new input::QuickLink(QStringLiteral("Help && Support"),
                                      theme::icon(QStringLiteral("help")), &window);
    window.form.widget(link);
    window.showNow();
    QSignalSpy clicks(link, &QAbstractButton::clicked);
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(12, link->height() / 2));
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(60, link->height() / 2));
    QTest::keyClick(link, Qt::Key_Return);
    QTest::keyClick(link, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 4);
}

TEST(DateStamp, HasNoLeadingZerosAndTwelveHours)
{
    const auto stamp = [](QTime time) {
        return input::dateStamp(base::wallClock(QDate(2024, 3, 5), time)).toStdString();
    };
    EXPECT_EQ(stamp(QTime(9, 5)), "3/5/2024 9:5 AM");
    EXPECT_EQ(stamp(QTime(0, 30)), "3/5/2024 12:30 AM");
    EXPECT_EQ(stamp(QTime(12, 0)), "3/5/2024 12:0 PM");
    EXPECT_EQ(stamp(QTime(23, 59)), "3/5/2024 11:59 PM");
}

TEST(DateStamp, GoesInAtTheCaretAheadOfAShortcutOfTheWindow)
{
    const test::TestEnvironment environment(base::wallClock(QDate(2024, 3, 15), QTime(14, 7)));
    test::ShownForm window;
    auto *notes = window.form.memoField(QStringLiteral("txtNotes"), QStringLiteral("Notes"));
    auto *name = window.form.textField(QStringLiteral("txtName"), QStringLiteral("Name"));
    input::installDateStamp(notes);
    const QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_D), &window);
    QSignalSpy shortcuts(&shortcut, &QShortcut::activated);
    window.showNow();
    notes->setPlainText(QStringLiteral("ab"));
    QTest::keyClick(notes, Qt::Key_Right);
    QTest::keyClick(notes, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(notes->toPlainText().toStdString(), "a3/15/2024 2:7 PMb");
    test::type(notes, ":");
    EXPECT_EQ(notes->toPlainText().toStdString(), "a3/15/2024 2:7 PM:b");
    EXPECT_EQ(shortcuts.size(), 0);
    QTest::keyClick(name, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(shortcuts.size(), 1);
    notes->setReadOnly(true);
    QTest::keyClick(notes, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(notes->toPlainText().toStdString(), "a3/15/2024 2:7 PM:b");
}

TEST(ValidateOnLeave, HoldsTheFocusAndSwallowsTheClickUntilTheRuleAgrees)
{
    test::ShownForm window;
    auto *field = window.form.textField(QStringLiteral("txtCount"), QStringLiteral("Count"));
    auto *save = window.form.button(QStringLiteral("cmdSave"), QStringLiteral("&Save"));
    auto *cancel = window.form.button(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"));
    int asked = 0;
    bool mayLeave = false;
    input::validateOnLeave(field, [&] { return ++asked, mayLeave; });
    input::setCausesValidation(cancel, false);
    window.showNow();
    field->setText(QStringLiteral("12"));
    QSignalSpy saves(save, &QPushButton::clicked);
    field->setFocus();

    QTest::mousePress(save, Qt::LeftButton);
    QApplication::processEvents();
    QTest::mouseRelease(save, Qt::LeftButton);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(saves.size(), 0);
    // What was refused is ready to be typed over.
    EXPECT_EQ(field->selectedText().toStdString(), "12");

    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(cancel->hasFocus());

    field->setFocus();
    mayLeave = true;
    QTest::mouseClick(save, Qt::LeftButton);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(saves.size(), 1);
}

TEST(IsBlank, TrimsTheValueOfEachKindOfControl)
{
    QLineEdit edit;
    EXPECT_TRUE(input::isBlank(&edit));
    edit.setText(QStringLiteral("  "));
    EXPECT_TRUE(input::isBlank(&edit));
    edit.setText(QStringLiteral(" x"));
    EXPECT_FALSE(input::isBlank(&edit));
    input::IdCombo combo;
    combo.add(QStringLiteral("  "), 0);
    EXPECT_TRUE(input::isBlank(&combo));
    QPlainTextEdit memo(QStringLiteral("\n \n"));
    EXPECT_TRUE(input::isBlank(&memo));
    memo.setPlainText(QStringLiteral("\n."));
    EXPECT_FALSE(input::isBlank(&memo));
}
