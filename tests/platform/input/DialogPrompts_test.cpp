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
    input::DialogPrompts prompts;
    return prompts.show({QStringLiteral("Delete?"), Icon::Question, buttons, {}});
}

} // namespace

TEST(DialogPrompts, EnterAndEscapeGiveTheMostHarmlessAnswer)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        EXPECT_EQ(answered(Buttons::Ok, key), Answer::Ok);
        EXPECT_EQ(answered(Buttons::OkCancel, key), Answer::Cancel);
        EXPECT_EQ(answered(Buttons::YesNo, key), Answer::No);
        EXPECT_EQ(answered(Buttons::YesNoCancel, key), Answer::Cancel);
    }

    EXPECT_EQ(answered(Buttons::YesNo, Qt::Key_Y), Answer::Yes);
    EXPECT_EQ(answered(Buttons::YesNoCancel, Qt::Key_N), Answer::No);
}

TEST(DialogPrompts, ShowsTheTextAsItStands)
{
    const WhileModal script([](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        ASSERT_TRUE(box);
        EXPECT_EQ(box->windowTitle().toStdString(), "Quorvantis");
        EXPECT_EQ(box->text().toStdString(), "A <b>bold</b> & \"quoted\" name");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        box->button(QMessageBox::Ok)->click();
    });
    input::DialogPrompts prompts;
    prompts.show(
        {QStringLiteral("A <b>bold</b> & \"quoted\" name"), Icon::Critical, Buttons::Ok, {}});
}

TEST(DialogPrompts, FiltersAreShownWithoutTheirPatterns)
{
    QStringList shown;
    const WhileModal script([&shown](QWidget *chooser) {
        const auto *types = chooser->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        ASSERT_TRUE(types);
        for (int index = 0; index < types->count(); ++index)
            shown += types->itemText(index);
        chooser->close();
    });
    input::DialogPrompts prompts;
    EXPECT_TRUE(prompts
                    .chooseFile({}, {QStringLiteral("JPEG(*.JPG,*.JPE) (*.JPG *.JPE)"),
                                     QStringLiteral("All Pictures Files (*.bmp *.JPG)")})
                    .isEmpty());
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
        return prompts.input(QStringLiteral("Reason"), {}, QStringLiteral("Rain"));
    };
    EXPECT_EQ(ask("Snow", Qt::Key_Return), QStringLiteral("Snow"));
    EXPECT_EQ(ask("", Qt::Key_Return), QStringLiteral("Rain"));
    EXPECT_EQ(ask("Snow", Qt::Key_Escape), std::nullopt);
}

TEST(DialogPrompts, AMessageOnLeavingAFieldSwallowsTheClickThatLeft)
{
    input::DialogPrompts prompts;
    const base::ScopedPrompts scope(prompts);
    test::ShownForm window;
    auto *date = window.form.dateField(QStringLiteral("datSold"), QStringLiteral("Sold"));
    auto *save = window.form.button(QStringLiteral("cmdSave"), QStringLiteral("&Save"));
    date->checkOnLeave();
    window.showNow();
    QSignalSpy clicks(save, &QPushButton::clicked);
    date->setFocus();
    QTest::keyClicks(date, QStringLiteral("13/45"));

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
