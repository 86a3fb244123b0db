#pragma once

#include "platform/base/Error.h"

#include <QString>
#include <functional>
#include <utility>

/// The one form of the rule that no error crosses a procedure.
///
///     bool clsX::SaveRecord(...)
///     {
///         return base::trapped("Class X", "SaveRecord", false, [&] {
///             TransactionScope transaction;     // rolls back when the body throws
///             ...
///             transaction.commit();
///             return true;
///         });
///     }
///
/// The body's error goes to the registered reporter under the module label and the procedure's
/// name, after the body's locals (so also a transaction scope) have been unwound; the caller gets
/// the fallback.
///
/// Inside a whole (a posting, a save of several rows) a trapped procedure is a step: it passes its
/// error on, and the procedure that holds the whole reports it, once, after it has undone all.
namespace base {

/// While one lives, trapped procedures are steps of one whole and pass their errors on. To be held
/// by a local inside the body of the procedure that reports for all of them.
class Whole
{
public:
    Whole();
    ~Whole();
    Whole(const Whole &) = delete;
    Whole &operator=(const Whole &) = delete;
};

/// While one lives, no whole is running: for an event loop inside a whole (a dialog that a step
/// asks with), whose procedures have nobody above them that could take an error.
class Interlude
{
public:
    Interlude();
    ~Interlude();
    Interlude(const Interlude &) = delete;
    Interlude &operator=(const Interlude &) = delete;

private:
    int m_suspended;
};

/// Receives every trapped error: module label, procedure, number, description.
using ErrorReporter = std::function<void(const QString &, const QString &, int, const QString &)>;

/// Sets who is told about trapped errors; returns the one set before. Without one, errors are
/// written to the log only.
ErrorReporter setErrorReporter(ErrorReporter reporter);

/// Hands one error to the reporter.
void reportError(const char *module, const char *procedure, int number, const QString &description);

namespace detail {
/// True inside a whole; the exception that is being handled is then known to come from here.
[[nodiscard]] bool passesOn(const char *module, const char *procedure);
} // namespace detail

/// To be called in a handler: reports the exception that is being handled, under the names of the
/// trapped procedure that it began in, or else under these.
void reportCurrentException(const char *module, const char *procedure);

/// Runs the body and returns its result, or the fallback when it throws.
template<class T, class Body>
T trapped(const char *module, const char *procedure, T fallback, Body &&body)
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        if (detail::passesOn(module, procedure))
            throw;
        reportCurrentException(module, procedure);
        return fallback;
    }
}

/// The same for a body without a result.
template<class Body>
void trapped(const char *module, const char *procedure, Body &&body)
{
    try {
        std::forward<Body>(body)();
    } catch (...) {
        if (detail::passesOn(module, procedure))
            throw;
        reportCurrentException(module, procedure);
    }
}

} // namespace base
