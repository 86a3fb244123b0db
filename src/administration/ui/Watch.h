#pragma once

#include "platform/base/Error.h"
#include "platform/base/Progress.h"
#include "platform/input/ProgressBox.h"

#include <optional>

namespace administration {

/// Runs a long step under the window that tells how far it is, where the user may end it; nothing
/// comes back then. The step raises what its progress raises, having undone what it did.
template<class Step>
auto watched(const QString &text, QWidget *parent, Step &&step)
    -> std::optional<std::invoke_result_t<Step, const base::Progress &>>
{
    class Cancelled : public base::Error
    {
    public:
        Cancelled()
            : Error(0, QStringLiteral("Cancelled."))
        {}
    };
    input::ProgressBox box(text, parent);
    box.offerCancel();
    try {
        return step([&box](int done, int all) {
            box.tell(done, all);
            if (box.wasCancelled())
                throw Cancelled();
        });
    } catch (const Cancelled &) {
        return {};
    }
}

} // namespace administration
