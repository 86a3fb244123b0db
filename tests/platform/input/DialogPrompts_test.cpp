#include "platform/input/DialogPrompts.h"

#include "platform/input/DateInput.h"
#include "platform/input/Shown.h"

#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Answer = base::Prompts::Answer;
using Buttons = base::Prompts::Buttons;
using Icon = base::Prompts::Icon;

namespace {

/// Runs the script once a dialog is open; closes what the script leaves open.
class WhileModal
{
public:
    explicit WhileModal(std::function<void(QWidget *)> script)
    {
        m_timer.setInterval(5);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, script = std::move(script)] {
            QWidget *modal = QApplication::activeModalWidget();
            if (!modal)
                return;
            m_timer.stop();
            script(modal);
            QTimer::singleShot(2000, modal, [modal] {
                ADD_FAILURE() << "the dialog stayed open";
                modal->close();
            });
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

Answer answered(Buttons buttons, Qt::Key key)
{
    const WhileModal script([key](QWidget *box) { QTest::keyClick(box, key); });
    return input::DialogPrompts().show({u"Delete?"_s, Icon::Question, buttons, {}});
}

} // namespace

TEST(DialogPrompts, EnterAndEscapeGiveTheMostHarmlessAnswer)
{
    for (const auto &[buttons, harmless] : {std::pair(Buttons::Ok, Answer::Ok),
                                            {Buttons::OkCancel, Answer::Cancel},
                                            {Buttons::YesNo, Answer::No},
                                            {Buttons::YesNoCancel, Answer::Cancel}}) {
        EXPECT_EQ(answered(buttons, Qt::Key_Return), harmless);
        EXPECT_EQ(answered(buttons, Qt::Key_Escape), harmless);
    }
    EXPECT_EQ(answered(Buttons::YesNo, Qt::Key_Y), Answer::Yes);
    EXPECT_EQ(answered(Buttons::YesNoCancel, Qt::Key_N), Answer::No);
}

TEST(DialogPrompts, ShowsTheTextAsItStands)
{
    const QString text = u"A <b>bold</b> & \"quoted\" name"_s;
    const WhileModal script([&](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        ASSERT_TRUE(box);
        EXPECT_EQ(box->windowTitle(), u"Quorvantis"_s);
        EXPECT_EQ(box->text(), text);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        box->button(QMessageBox::Ok)->click();
    });
    input::DialogPrompts().show({text, Icon::Critical, Buttons::Ok, {}});
}

TEST(DialogPrompts, FiltersAreShownWithoutTheirPatterns)
{
    QStringList shown;
    const WhileModal script([&shown](QWidget *chooser) {
        const auto *types = chooser->findChild<QComboBox *>(u"fileTypeCombo"_s);
        ASSERT_TRUE(types);
        for (int index = 0; index < types->count(); ++index)
            shown += types->itemText(index);
        chooser->close();
    });
    const QStringList filters{u"JPEG(*.JPG,*.JPE) (*.JPG *.JPE)"_s,
                              u"All Pictures Files (*.bmp *.JPG)"_s};
    EXPECT_TRUE(input::DialogPrompts().chooseFile({}, filters).isEmpty());
    EXPECT_EQ(shown.join(u'|').toStdString(), "JPEG(*.JPG,*.JPE)|All Pictures Files");
}

TEST(DialogPrompts, InputGivesTheTextOrNothing)
{
    input::DialogPrompts prompts;
    const auto ask = [&](const char *keys, Qt::Key end) {
        const WhileModal script([=](QWidget *widget) {
            auto *dialog = qobject_cast<QInputDialog *>(widget);
            ASSERT_TRUE(dialog);
            EXPECT_EQ(dialog->textValue().toStdString(), "Rain");
            auto *line = dialog->findChild<QLineEdit *>();
            QTest::keyClicks(line, QString::fromLatin1(keys));
            QTest::keyClick(line, end);
        });
        return prompts.input(u"Reason"_s, {}, u"Rain"_s);
    };
    EXPECT_EQ(ask("Snow", Qt::Key_Return), u"Snow"_s);
    EXPECT_EQ(ask("", Qt::Key_Return), u"Rain"_s);
    EXPECT_EQ(ask("Snow", Qt::Key_Escape), std::nullopt);
}

TEST(DialogPrompts, AMessageOnLeavingAFieldSwallowsTheClickThatLeft)
{
    input::DialogPrompts prompts;
    const base::ScopedPrompts scope(prompts);
    test::ShownForm window;
    auto *date = window.form.dateField(u"datSold"_s, u"Sold"_s);
    auto *save = window.form.button(u"cmdSave"_s, u"&Save"_s);
    date->checkOnLeave();
    window.showNow();
    QSignalSpy clicks(save, &QPushButton::clicked);
    date->setFocus();
    QTest::keyClicks(date, u"13/45"_s);

    const WhileModal script([](QWidget *box) { QTest::keyClick(box, Qt::Key_Return); });
    QTest::mousePress(save, Qt::LeftButton);
    // The offscreen platform leaves it to the program which window comes after a box.
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([date] { return date->hasFocus(); }));
    QTest::mouseRelease(save, Qt::LeftButton);
    EXPECT_FALSE(save->isDown());
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_EQ(test::textOf(date), "13/45/    ");
}
