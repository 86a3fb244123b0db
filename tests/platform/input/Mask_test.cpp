#include "platform/input/Mask.h"

#include "platform/input/PhoneInput.h"
#include "platform/input/Shown.h"
#include "platform/input/TimeInput.h"

using namespace Qt::StringLiterals;

using input::Mask;

namespace {

const QString phonePattern = u"(###) ###-####"_s;

std::string typedAll(const Mask &mask, const char *keys)
{
    Mask::Edit edit{mask.empty(), 0};
    for (const char *key = keys; *key; ++key) {
        if (const auto next = mask.typed(edit.text, edit.caret, QChar(*key)))
            edit = *next;
    }
    return edit.text.toStdString() + "|" + std::to_string(edit.caret);
}

} // namespace

TEST(Mask, PutsTypedCharactersIntoTheNextPlace)
{
    const Mask phone(phonePattern);
    EXPECT_EQ(phone.empty().toStdString(), "(   )    -    ");
    EXPECT_EQ(typedAll(phone, "555"), "(555)    -    |6");
    EXPECT_EQ(typedAll(phone, "(555) 123-4567"), "(555) 123-4567|14");
    EXPECT_EQ(typedAll(phone, "5a5x512"), "(555) 12 -    |8");
    EXPECT_EQ(typedAll(phone, "55512345678"), "(555) 123-4567|14");
    EXPECT_EQ(typedAll(Mask(u"##:##M"_s), "0830p"), "08:30P|6");
    EXPECT_EQ(phone.typed(u"(555) 123-4567"_s, 1, u' ')->text, u"( 55) 123-4567"_s);
}

/// A text and what becomes of it; null where it is refused.
using Becomes = std::pair<const char *, const char *>;

template<class Action>
void expectBecomes(std::initializer_list<Becomes> cases, const Action &action)
{
    for (const auto &[text, expected] : cases)
        EXPECT_EQ(action(QString::fromLatin1(text)),
                  expected ? std::optional(QString::fromLatin1(expected)) : std::nullopt)
            << text;
}

TEST(Mask, BringsValuesInUnlessACharacterWouldGetLost)
{
    expectBecomes({{"(555) 123-4567", "(555) 123-4567"},
                   {"5551234567", "(555) 123-4567"},
                   {"555-123-4567", "(555) 123-4567"},
                   {"555", "(555)    -    "},
                   {"", "(   )    -    "},
                   {"  ", "(   )    -    "},
                   {"55512345678", nullptr},
                   {"(555) 123-456x", nullptr},
                   {"ext. 12", nullptr}},
                  [](const QString &text) { return Mask(phonePattern).fitted(text); });
}

TEST(PhoneInput, ErasesPlacesAndKeepsItsFixedCharacters)
{
    test::ShownForm window;
    auto *phone = window.form.phoneField(u"txtPhone"_s, u"Phone"_s);
    window.showNow();
    EXPECT_TRUE(phone->isEmptyMask());
    test::type(phone, "5551234567");
    EXPECT_EQ(test::textOf(phone), "(555) 123-4567");
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(phone, Qt::Key_Backspace);
    EXPECT_EQ(test::textOf(phone), "(555) 12 -    ");
    EXPECT_FALSE(phone->isValidOrEmpty());
    test::type(phone, "9");
    EXPECT_EQ(test::textOf(phone), "(555) 129-    ");
    phone->setSelection(1, 3);
    QTest::keyClick(phone, Qt::Key_Delete);
    EXPECT_EQ(test::textOf(phone), "(   ) 129-    ");
    phone->selectAll();
    test::paste(phone, "207.555.0100");
    EXPECT_EQ(test::textOf(phone), "(207) 555-0100");
    phone->undo();
    EXPECT_EQ(test::textOf(phone), "(   ) 129-    ");
    phone->selectAll();
    QTest::keyClick(phone, Qt::Key_Delete);
    EXPECT_TRUE(phone->isEmptyMask());
    EXPECT_TRUE(phone->isValidOrEmpty());
}

TEST(PhoneInput, LooksAtThePlacesOfTheFirstNineDigitsOnly)
{
    const std::pair<const char *, bool> cases[] = {
        {"(555) 123-4567", true},  {"(555) 123-456 ", true},  {"(555) 123-456x", true},
        {"(555) 123-45 7", false}, {"(55 ) 123-4567", false}, {"(555) 12a-4567", false},
        {"555x1y123z4567", false}, {"(555)X123X4567", true},  {"(   )    -    ", false},
        {"(555) 123-45", false}};
    for (const auto &[text, inPlace] : cases) {
        input::PhoneInput phone;
        phone.setText(QString::fromLatin1(text));
        EXPECT_EQ(phone.digitsInPlace(), inPlace) << text;
    }
}

TEST(PhoneInput, SurvivesAStoredTextThatIsNoNumber)
{
    test::ShownForm window;
    auto *phone = window.form.phoneField(u"txtFax"_s, u"Fax"_s);
    window.showNow();
    phone->setText(u"ask Bob"_s);
    EXPECT_EQ(test::textOf(phone), "ask Bob");
    QTest::keyClick(phone, Qt::Key_End);
    test::type(phone, "!");
    EXPECT_EQ(test::textOf(phone), "ask Bob!");
    phone->selectAll();
    QTest::keyClick(phone, Qt::Key_Delete);
    EXPECT_TRUE(phone->isEmptyMask());
    test::type(phone, "2");
    EXPECT_EQ(test::textOf(phone), "(2  )    -    ");
}

TEST(TimeInput, CompletesHalfTypedTimes)
{
    expectBecomes({{"08:30P", "08:30P"},
                   {"8 :30P", "08:30P"},
                   {" 8: 5 ", "08:05A"},
                   {"  :   ", "00:00A"},
                   {"12:  P", "12:00P"},
                   {"13:00P", nullptr},
                   {"99:  A", nullptr}},
                  input::completedTime);
}

TEST(TimeInput, ReadsAndShowsTheTwelveHourClock)
{
    const std::pair<const char *, QTime> cases[] = {
        {"08:30A", QTime(8, 30)},  {"12:00A", QTime(0, 0)},   {"12:05P", QTime(12, 5)},
        {"01:15P", QTime(13, 15)}, {"11:59P", QTime(23, 59)}, {"00:00A", QTime(0, 0)},
        {"07:75A", QTime()},       {"  :   ", QTime()}};
    for (const auto &[text, time] : cases) {
        input::TimeInput box;
        box.setText(QString::fromLatin1(text));
        EXPECT_EQ(box.time(), time) << text;
        box.setTime(time);
        EXPECT_EQ(box.time(), time) << text;
    }
    input::TimeInput box;
    box.setText(u"13:00P"_s);
    EXPECT_FALSE(box.normalise(u"08:00A"_s));
    EXPECT_EQ(test::textOf(&box), "08:00A");
}
