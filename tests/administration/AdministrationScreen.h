#pragma once

#include "administration/AdministrationSession.h"
#include "core/ui/ScreenDriver.h"

namespace test {

/// A screen of the administration at work.
class AdministrationScreen : public AdministrationSession
{
protected:
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
};

} // namespace test
