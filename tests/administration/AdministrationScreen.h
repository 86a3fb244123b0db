#pragma once

#include "administration/AdministrationSession.h"
#include "core/ui/ScreenDriver.h"

#include <QLabel>

namespace test {

/// A screen of the administration at work.
class AdministrationScreen : public AdministrationSession
{
protected:
    using Icon = base::Prompts::Icon;
    using Buttons = base::Prompts::Buttons;
    using Answer = base::Prompts::Answer;

    /// Works a screen, and leaves it by Exit unless it has closed.
    static void work(const std::function<void()> &show,
                     const std::function<void(ScreenDriver)> &act)
    {
        inScreen(show, [&](const ScreenDriver &screen) {
            act(screen);
            if (screen.isOpen())
                screen.press("cmdExit");
        });
    }
    void say(const QString &text) { prompts.expect(text, Icon::None); }
    void ask(const QString &question, Answer answer)
    {
        prompts.expect(question, Icon::Question, Buttons::YesNo, answer);
    }
    static QString shown(const ScreenDriver &screen, const char *label)
    {
        return screen.control<QLabel>(label).text();
    }
};

} // namespace test
