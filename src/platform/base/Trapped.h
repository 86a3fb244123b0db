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
namespace base {

/// Receives every trapped error: module label, procedure, number, description.
using ErrorReporter =
    std::function<void(const QString &, const QString &, int, const QString &)>;

/// Sets who is told about trapped errors; returns the one set before. Without one, errors are
/// written to the log only.
ErrorReporter setErrorReporter(ErrorReporter reporter);

/// Hands one error to the reporter.
void reportError(const char *module, const char *procedure, int number,
                 const QString &description);

namespace detail {
/// Reports the exception that is being handled.
void reportCurrentException(const char *module, const char *procedure);
} // namespace detail

/// Runs the body and returns its result, or the fallback when it throws.
template<class T, class Body>
T trapped(const char *module, const char *procedure, T fallback, Body &&body)
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        detail::reportCurrentException(module, procedure);
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
        detail::reportCurrentException(module, procedure);
    }
}

} // namespace base
