#pragma once

#include "platform/base/Error.h"

#include <QString>
#include <functional>

namespace base {

/// What a long step on a thread of its own is given: whom to tell how far it is, in the user's
/// words, and whether the user has had enough of it. Both are called on the thread of the step.
struct Steps
{
    std::function<void(const QString &)> tell;
    std::function<bool()> cancelled;

    /// Tells the user what is done now, where somebody listens.
    void say(const QString &text) const
    {
        if (tell)
            tell(text);
    }
    /// True once the user has had enough; asked at each place where a step can end well.
    [[nodiscard]] bool areCancelled() const { return cancelled && cancelled(); }
};

/// The user ended a step; nothing is wrong, and nothing is to be reported.
class Cancelled : public Error
{
public:
    Cancelled()
        : Error(ErrorNumber::InvalidCall, QStringLiteral("Cancelled."))
    {}
};

} // namespace base
