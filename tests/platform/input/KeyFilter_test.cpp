#include "platform/input/KeyFilter.h"

#include "platform/input/IdCombo.h"
#include "platform/input/Shown.h"

#include <set>

using namespace Qt::StringLiterals;

using input::KeyEvent;
using input::TypeCheck;

namespace {

using Codes = std::set<int>;

Codes operator+(Codes left, const Codes &right)
{
    left.insert(right.begin(), right.end());
    return left;
}

Codes range(int first, int last)
{
    Codes codes;
    for (int code = first; code <= last; ++code)
        codes.insert(code);
    return codes;
}

const Codes locksAndFunctions = range(112, 123) + Codes{27, 44, 45, 46, 92, 93, 144, 145};
const Codes decimals = range(48, 57) + Codes{8, 13, 46};
const Codes stringKeys =
    range(65, 90) + Codes{8, 9, 12, 13} + range(16, 20) + range(32, 40) + locksAndFunctions;
const Codes intKeys = range(48, 57) + range(96, 105) + Codes{8, 12, 13} + range(16, 20) +
                      range(33, 40) + locksAndFunctions;

} // namespace

TEST(TypeCheck, PassesExactlyTheseCodes)
{
    using Case = std::tuple<const char *, const char *, TypeCheck, KeyEvent, Codes>;
    const Case cases[] = {
        Case{"String", "KeyPress", TypeCheck::String, KeyEvent::KeyPress,
             range(65, 90) + range(97, 122) + Codes{32, 8, 13}},
        Case{"int", "KEYPRESS", TypeCheck::Int, KeyEvent::KeyPress, range(48, 57) + Codes{8, 13}},
        Case{"2", "2", TypeCheck::Double, KeyEvent::KeyPress, decimals},
        Case{"STRING", "keyup", TypeCheck::String, KeyEvent::KeyUp, stringKeys},
        Case{"0", "1", TypeCheck::String, KeyEvent::KeyDown, stringKeys},
        Case{"INT", "KeyUp", TypeCheck::Int, KeyEvent::KeyUp, intKeys},
        Case{"1", "KEYDOWN", TypeCheck::Int, KeyEvent::KeyDown, intKeys},
        Case{"double", "0", TypeCheck::Double, KeyEvent::KeyUp, decimals},
        Case{"DOUBLE", "KeyDown", TypeCheck::Double, KeyEvent::KeyDown, decimals},
        Case{"DATE", "KEYPRESS", TypeCheck(7), KeyEvent::KeyPress, {}}};
    for (const auto &[type, event, typeNumber, eventNumber, accepted] : cases) {
        Codes byNumber;
        Codes byWord;
        for (int code = -1; code <= 300; ++code) {
            if (input::Type_Check(code, typeNumber, eventNumber))
                byNumber.insert(code);
            if (input::Type_Check(code, QString::fromLatin1(type), QString::fromLatin1(event)))
                byWord.insert(code);
        }
        EXPECT_EQ(byNumber, accepted) << type << ' ' << event;
        EXPECT_EQ(byWord, accepted) << type << ' ' << event;
    }
}

TEST(ChangeCase, TakesThirtyTwoFromSmallLettersOnly)
{
    EXPECT_EQ(input::ChangeCase('a'), 'A');
    EXPECT_EQ(input::ChangeCase('z'), 'Z');
    for (const int code : {96, 123, int('M'), int('7'), 13, 228})
        EXPECT_EQ(input::ChangeCase(code), code);
}

TEST(RestrictTo, DropsOtherKeysAndCleansWhatIsPasted)
{
    test::ShownForm window;
    QLineEdit *edit = window.form.textField(u"txtZip"_s, u"Zip"_s);
    input::restrictTo(edit, TypeCheck::Int, u"-"_s);
    window.showNow();
    test::type(edit, "12a3-.4");
    EXPECT_EQ(test::textOf(edit), "123-4");
    QTest::keyClick(edit, Qt::Key_Home);
    test::paste(edit, "x9 8y");
    EXPECT_EQ(test::textOf(edit), "98123-4");
    EXPECT_EQ(edit->cursorPosition(), 2);
    QTest::keyClick(edit, Qt::Key_Backspace);
    EXPECT_EQ(test::textOf(edit), "9123-4");
    // What is stored stays as it is.
    edit->setText(u"12-ab"_s);
    QTest::keyClick(edit, Qt::Key_End);
    test::type(edit, "7x");
    EXPECT_EQ(test::textOf(edit), "12-ab7");
    test::paste(edit, "q8");
    EXPECT_EQ(test::textOf(edit), "12-ab78");
}

TEST(RestrictTo, TakesOnePointInADecimalNumber)
{
    test::ShownForm window;
    QLineEdit *edit = window.form.textField(u"txtHours"_s, u"Hours"_s);
    input::restrictTo(edit, TypeCheck::Double);
    window.showNow();
    test::type(edit, "1.2.5");
    EXPECT_EQ(test::textOf(edit), "1.25");
    edit->selectAll();
    test::type(edit, ".5");
    EXPECT_EQ(test::textOf(edit), ".5");
    edit->selectAll();
    test::paste(edit, "3.1.4 h");
    EXPECT_EQ(test::textOf(edit), "3.14");
}

TEST(KeepOnOneLine, PastedLineBreaksBecomeBlanksOrGo)
{
    test::ShownForm window;
    QLineEdit *edit = window.form.textField(u"txtName"_s, u"Name"_s);
    window.showNow();
    test::paste(edit, "Anna\r\nMaria\n");
    EXPECT_EQ(test::textOf(edit), "Anna Maria");
    test::type(edit, "!");
    EXPECT_EQ(test::textOf(edit), "Anna Maria!");
}

TEST(UpperCaseAsTyped, WorksWithARestrictionInEitherOrder)
{
    for (const bool capitalsFirst : {true, false}) {
        test::ShownForm window;
        QLineEdit *edit = window.form.textField(u"txtUnitNo"_s, u"Unit No"_s, 6);
        if (capitalsFirst)
            input::upperCaseAsTyped(edit);
        input::restrictTo(edit, TypeCheck::String, TypeCheck::Int);
        if (!capitalsFirst)
            input::upperCaseAsTyped(edit);
        window.showNow();
        test::type(edit, "m-1b");
        EXPECT_EQ(test::textOf(edit), "M1B");
        edit->undo();
        test::type(edit, "m1b");
        test::paste(edit, "c#2");
        EXPECT_EQ(test::textOf(edit), "M1BC2");
    }
}

TEST(KeepAltFromTyping, OnlyLettersWithoutAltAreTyped)
{
    test::ShownForm window;
    auto *name = window.form.textField(u"txtName"_s, u"&Name"_s);
    auto *list = window.form.comboField(u"cboState"_s, u"&State"_s);
    list->addItems({u"Ohio"_s, u"Reno"_s});
    window.showNow();
    input::keepAltFromTyping(*qApp);
    name->setFocus();
    QTest::keyClick(name, Qt::Key_R, Qt::AltModifier);
    QTest::keyClick(name, 'r');
    EXPECT_EQ(test::textOf(name), "r");
    QTest::keyClick(list, Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(list->currentIndex(), 0);
    QTest::keyClick(name, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(list->hasFocus());
}
