#include "platform/input/FormBuilder.h"

#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Shown.h"
#include "platform/input/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>

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
        form.textField(QStringLiteral("txtName"), QStringLiteral("&Name:"), 50);
        form.beginGroup(QStringLiteral("Address"), QStringLiteral("fraAddress"));
        form.comboField(QStringLiteral("cboState"), QStringLiteral("S&tate"));
        form.sideButton(QStringLiteral("cmdState"), QStringLiteral("Edit the states"));
        form.readOnlyField(QStringLiteral("lblSince"), QStringLiteral("&Since:"));
        form.endGroup();
        form.nextColumn();
        form.beginRow();
        form.dateField(QStringLiteral("datFrom"), QStringLiteral("&From"));
        form.dateField(QStringLiteral("datTo"), QStringLiteral("T&o"));
        form.endRow();
        form.checkBox(QStringLiteral("chkInactive"), QStringLiteral("&Inactive"));
        form.memoField(QStringLiteral("txtNotes"), QStringLiteral("Not&es"));
        form.endColumns();
        form.button(QStringLiteral("cmdSave"), QStringLiteral("Sa&ve"));
        form.navigation(QStringLiteral("cmdFirst"), QStringLiteral("cmdPrevious"),
                        QStringLiteral("cmdNext"), QStringLiteral("cmdLast"));
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
    auto *save = window.findChild<QPushButton *>(QStringLiteral("cmdSave"));
    QObject::connect(save, &QPushButton::clicked, &window, [&saved] { saved = true; });
    QTest::keyClick(control("txtName"), Qt::Key_Return);
    EXPECT_FALSE(saved);
}

TEST_F(FormBuilderTest, EveryControlCanBeNamedByAssistiveTools)
{
    EXPECT_EQ(control("txtName")->accessibleName().toStdString(), "Name");
    EXPECT_EQ(control("cmdState")->accessibleName().toStdString(), "Edit the states");
    EXPECT_EQ(control("datTo")->accessibleName().toStdString(), "To");
    EXPECT_EQ(control("cmdFirst")->accessibleName().toStdString(), "First record");
    EXPECT_EQ(control("cmdSave")->accessibleName().toStdString(), "Save");
    // A caption that leads nowhere shows no mark of a mnemonic.
    QStringList captions;
    for (const QLabel *label : window.findChildren<QLabel *>())
        captions += label->text();
    EXPECT_TRUE(captions.contains(QStringLiteral("Since:")));
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
