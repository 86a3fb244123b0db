#pragma once

#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"

/// Tells the user the error that is being handled: that another workstation was in the way as the
/// sentence that it comes with, any other by a report under the procedure.
void tellError(const base::Error &error, const char *module, const char *procedure);

/// Runs a change that the user asked for as one whole, and answers what it answers. Where another
/// workstation was in the way, its sentence is told and the fallback answered; any other error is
/// reported as by base::trapped, under the procedure that it began in.
template<class T, class Body>
T telling(const char *module, const char *procedure, T fallback, Body &&body)
{
    try {
        const base::Whole whole;
        return std::forward<Body>(body)();
    } catch (const base::Error &error) {
        // The whole is over when the box opens, and nothing is locked any more.
        tellError(error, module, procedure);
    } catch (...) {
        base::reportCurrentException(module, procedure);
    }
    return fallback;
}

/// The same for a body without a result.
template<class Body>
void telling(const char *module, const char *procedure, Body &&body)
{
    telling(module, procedure, false, [&] {
        body();
        return true;
    });
}
