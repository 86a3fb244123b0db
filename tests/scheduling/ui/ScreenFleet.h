#pragma once

#include "core/ui/Screen.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/ScreenDriver.h"
#include "scheduling/Fleet.h"

namespace test {

/// The company with a user who may do everything, and hands for its screens.
struct ScreenFleet : Fleet
{
    ScreenFleet()
    {
        gRights.SerAdd = gRights.SerMod = gRights.SerDel = true;
        machine(1);
    }

    static void open(QWidget &screen) { bringUp(screen); }
    static void click(const QWidget &screen, const QString &button)
    {
        auto &control = named<QAbstractButton>(screen, button);
        ASSERT_TRUE(control.isVisible() && control.isEnabled()) << qPrintable(button);
        QTest::mouseClick(&control, Qt::LeftButton);
    }
    /// Presses Save by its key, which takes the moment in which the button shows itself pressed.
    static void saveByKey(const Screen &screen)
    {
        QTest::keyClick(screen.focusWidget(), Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return screen.mode() == Mode::Browse; }, 2000));
    }
    /// Replaces the text of a box by typing.
    static void type(const QWidget &screen, const QString &box, const QString &text)
    {
        auto &line = named<QLineEdit>(screen, box);
        line.setFocus();
        line.selectAll();
        if (text.isEmpty())
            QTest::keyClick(&line, Qt::Key_Delete);
        else
            QTest::keyClicks(&line, text);
    }
    static QString text(const QWidget &screen, const QString &box)
    {
        return named<QLineEdit>(screen, box).text();
    }
    static bool enabled(const QWidget &screen, const QString &control)
    {
        return named<QWidget>(screen, control).isEnabled();
    }
    static QString focused(const QWidget &screen)
    {
        const QWidget *widget = screen.focusWidget();
        return widget ? widget->objectName() : QString();
    }

    void inform(const QString &message) { prompts.inform(message); }
    void say(const QString &message) { prompts.say(message); }
    void ask(const QString &question, bool yes)
    {
        prompts.expect(question, base::Prompts::Icon::Question, base::Prompts::Buttons::YesNo,
                       yes ? base::Prompts::Answer::Yes : base::Prompts::Answer::No);
    }

    static void putOnOrder(qint64 service, const QString &period = QStringLiteral("D"))
    {
        insert(QStringLiteral("tblWoServiceUsed"), {{QStringLiteral("ServiceUsedID"), service},
                                                    {QStringLiteral("EquipmentID"), 1},
                                                    {QStringLiteral("Period"), period}});
    }
};

} // namespace test
