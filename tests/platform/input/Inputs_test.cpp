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

using namespace Qt::StringLiterals;

TEST(CurrencyInput, TakesAmountsAndShowsTwoDecimals)
{
    test::ShownForm window;
    auto *cost = window.form.currencyField(u"curCost"_s, u"Cost"_s);
    window.form.textField(u"txtNext"_s, u"Next"_s);
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
    auto *spin = window.form.spinField(u"RRSpin1"_s, u"Every"_s);
    window.form.textField(u"txtNext"_s, u"Next"_s);
    window.showNow();
    QSignalSpy edits(spin, &input::SpinInput::edited);
    for (const auto &[keys, left] : {std::pair("12x5", "125"),
                                     {"", "1"},
                                     {"0", "1"},
                                     {"1234567", "12345"},
                                     {"99999", "99999"}}) {
        spin->setFocus();
        spin->selectAll();
        QTest::keyClick(spin, Qt::Key_Delete);
        test::type(spin, keys);
        QTest::keyClick(spin, Qt::Key_Tab);
        EXPECT_EQ(spin->text().toStdString(), left) << keys;
    }
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
    auto *combo = window.form.comboField(u"cboState"_s, u"State"_s);
    for (const auto &[text, id] :
         {std::pair(u"  "_s, 0), {u"Maine"_s, 11}, {u"Maryland"_s, 12}, {u"Maine"_s, 13}})
        combo->add(text, id);
    window.showNow();
    EXPECT_EQ(combo->id(), 0);
    EXPECT_TRUE(combo->select(12));
    EXPECT_EQ(combo->currentText(), u"Maryland"_s);
    EXPECT_FALSE(combo->select(99));
    EXPECT_EQ(combo->id(), 12);
    EXPECT_TRUE(combo->display(11) && combo->isItemChosen());
    EXPECT_FALSE(combo->display(99));
    EXPECT_EQ(combo->id(), 99) << "an item that is gone";
    EXPECT_FALSE(combo->isItemChosen());
    EXPECT_TRUE(combo->selectText(u"MAINE"_s));
    EXPECT_EQ(combo->id(), 11);
    EXPECT_EQ(combo->collection().value(u"Maine"_s), u"11"_s);
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
    auto *combo = window.form.comboField(u"cboPeriod"_s, u"Period"_s);
    combo->add({u"  "_s, u"Miles"_s, u"Days"_s, u"Months"_s});
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
    auto *link = window.form.linkField(u"lnkWeb"_s, {}, u"Web site"_s);
    window.showNow();
    QSignalSpy clicks(link, &input::LinkLabel::clicked);
    QTest::mouseClick(link, Qt::LeftButton);
    QTest::keyClick(link, Qt::Key_Return);
    QTest::keyClick(link, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 3);
    QTest::mouseClick(link, Qt::RightButton);
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
    auto *link = new input::QuickLink(u"Help && Support"_s, theme::icon(u"help"_s), &window);
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
    for (const auto &[time, stamp] : {std::pair(QTime(9, 5), u"3/5/2024 9:5 AM"_s),
                                      {QTime(0, 30), u"3/5/2024 12:30 AM"_s},
                                      {QTime(12, 0), u"3/5/2024 12:0 PM"_s},
                                      {QTime(23, 59), u"3/5/2024 11:59 PM"_s}})
        EXPECT_EQ(input::dateStamp(base::wallClock({2024, 3, 5}, time)), stamp);
}

TEST(DateStamp, GoesInAtTheCaretAheadOfAShortcutOfTheWindow)
{
    const test::TestEnvironment environment(base::wallClock(QDate(2024, 3, 15), QTime(14, 7)));
    test::ShownForm window;
    auto *notes = window.form.memoField(u"txtNotes"_s, u"Notes"_s);
    auto *name = window.form.textField(u"txtName"_s, u"Name"_s);
    input::installDateStamp(notes);
    const QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_D), &window);
    QSignalSpy shortcuts(&shortcut, &QShortcut::activated);
    window.showNow();
    notes->setPlainText(u"ab"_s);
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
    auto *field = window.form.textField(u"txtCount"_s, u"Count"_s);
    auto *save = window.form.button(u"cmdSave"_s, u"&Save"_s);
    auto *cancel = window.form.button(u"cmdCancel"_s, u"&Cancel"_s);
    int asked = 0;
    bool mayLeave = false;
    input::validateOnLeave(field, [&] { return ++asked, mayLeave; });
    input::setCausesValidation(cancel, false);
    window.showNow();
    field->setText(u"12"_s);
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
    input::IdCombo combo;
    combo.add(u"  "_s, 0);
    QPlainTextEdit memo(u"\n \n"_s);
    EXPECT_TRUE(input::isBlank(&edit) && input::isBlank(&combo) && input::isBlank(&memo));
    edit.setText(u"  "_s);
    EXPECT_TRUE(input::isBlank(&edit));
    edit.setText(u" x"_s);
    EXPECT_FALSE(input::isBlank(&edit));
    memo.setPlainText(u"\n."_s);
    EXPECT_FALSE(input::isBlank(&memo));
}
