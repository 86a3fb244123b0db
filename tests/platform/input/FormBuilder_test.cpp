#include "platform/input/FormBuilder.h"

#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Shown.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

TEST(PlainCaption, DropsMarksThatAreNotText)
{
    const std::pair<const char *, const char *> cases[] = {{"&User Name:", "User Name"},
                                                           {"Help && Support", "Help & Support"},
                                                           {"Web Site", "Web Site"},
                                                           {" E&xit : ", "Exit"},
                                                           {"A&", "A"},
                                                           {"", ""}};
    for (const auto &[caption, plain] : cases)
        EXPECT_EQ(input::plainCaption(QString::fromLatin1(caption)).toStdString(), plain);
}

namespace {

class FormBuilderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        input::FormBuilder &form = window.form;
        form.beginColumns();
        form.textField(u"txtName"_s, u"&Name:"_s, 50);
        form.beginGroup(u"Address"_s, u"fraAddress"_s);
        form.comboField(u"cboState"_s, u"S&tate"_s);
        form.sideButton(u"cmdState"_s, u"Edit the states"_s);
        form.readOnlyField(u"lblSince"_s, u"&Since:"_s);
        form.endGroup();
        form.nextColumn();
        form.beginRow();
        form.dateField(u"datFrom"_s, u"&From"_s);
        form.dateField(u"datTo"_s, u"T&o"_s);
        form.endRow();
        form.checkBox(u"chkInactive"_s, u"&Inactive"_s);
        form.memoField(u"txtNotes"_s, u"Not&es"_s);
        form.endColumns();
        form.button(u"cmdSave"_s, u"Sa&ve"_s);
        form.navigation(u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s);
        window.showNow();
    }
    QWidget *control(const char *name)
    {
        return window.findChild<QWidget *>(QString::fromLatin1(name));
    }

    test::ShownForm window;
};

} // namespace

TEST_F(FormBuilderTest, TabAndMnemonicsReachTheFields)
{
    std::vector<std::string> visited;
    control("txtName")->setFocus();
    for (int i = 0; i < 12; ++i) {
        visited.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(visited, testing::ElementsAre("txtName", "cboState", "cmdState", "datFrom", "datTo",
                                              "chkInactive", "txtNotes", "cmdFirst", "cmdPrevious",
                                              "cmdNext", "cmdLast", "cmdSave"));

    QTest::keyClick(&window, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), control("cboState"));
    QTest::keyClick(&window, Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), control("txtNotes"));

    bool saved = false;
    auto *save = window.findChild<QPushButton *>(u"cmdSave"_s);
    QObject::connect(save, &QPushButton::clicked, &window, [&saved] { saved = true; });
    QTest::keyClick(control("txtName"), Qt::Key_Return);
    EXPECT_FALSE(saved);
}

TEST_F(FormBuilderTest, EveryControlCanBeNamedByAssistiveTools)
{
    for (const auto &[name, spoken] : {std::pair("txtName", u"Name"_s),
                                       {"cmdState", u"Edit the states"_s},
                                       {"datTo", u"To"_s},
                                       {"cmdFirst", u"First record"_s},
                                       {"cmdSave", u"Save"_s}})
        EXPECT_EQ(control(name)->accessibleName(), spoken);
    // A caption that leads nowhere shows no mark of a mnemonic.
    QStringList captions;
    for (const QLabel *label : window.findChildren<QLabel *>())
        captions += label->text();
    EXPECT_TRUE(captions.contains(u"Since:"_s));
}

TEST_F(FormBuilderTest, HeightThatIsLeftGoesToTheNotes)
{
    const auto height = [this](const char *name) { return control(name)->height(); };
    const int notes = height("txtNotes");
    const int group = height("fraAddress");
    window.resize(window.width(), window.height() + 200);
    QApplication::processEvents();
    EXPECT_GE(height("txtNotes"), notes + 190);
    EXPECT_EQ(height("fraAddress"), group);
}
