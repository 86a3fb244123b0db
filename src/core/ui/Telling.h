#pragma once

#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"

/// Runs a change that the user asked for as one whole, and answers what it answers. Where another
/// workstation was in the way, its sentence is told and the fallback answered; any other error is
/// reported as by base::trapped, under the procedure that it began in.
template<class T, class Body>
T telling(const char *module, const char *procedure, T fallback, Body &&body)
{
    QString sentence;
    try {
        const base::Whole whole;
        return std::forward<Body>(body)();
    } catch (const base::Error &error) {
        if (error.number() == db::ErrorNumber::LockConflict)
            sentence = error.description();
        else
            base::reportCurrentException(module, procedure);
    } catch (...) {
        base::reportCurrentException(module, procedure);
    }
    // The error is over when the box opens, and nothing is locked any more.
    if (!sentence.isEmpty())
        base::showMessage(sentence);
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
