#include "platform/base/Trapped.h"

#include <QDebug>

namespace base {
namespace {

/// How many wholes are running. There is one thread that traps.
int runningWholes = 0;

/// The innermost procedure that an error on its way up a whole was trapped in.
struct Origin
{
    std::exception_ptr exception;
    const char *module = nullptr;
    const char *procedure = nullptr;
};
Origin origin;

ErrorReporter &currentReporter()
{
    static ErrorReporter reporter;
    return reporter;
}

} // namespace

Whole::Whole()
{
    ++runningWholes;
}

Whole::~Whole()
{
    --runningWholes;
}

Interlude::Interlude()
    : m_suspended(std::exchange(runningWholes, 0))
{}

Interlude::~Interlude()
{
    runningWholes = m_suspended;
}

bool detail::passesOn(const char *module, const char *procedure)
{
    if (runningWholes == 0)
        return false;
    if (std::current_exception() != origin.exception)
        origin = {std::current_exception(), module, procedure};
    return true;
}

ErrorReporter setErrorReporter(ErrorReporter reporter)
{
    return std::exchange(currentReporter(), std::move(reporter));
}

void reportError(const char *module, const char *procedure, int number, const QString &description)
{
    // A copy, since a reporter may run an event loop in which it is replaced.
    if (const ErrorReporter reporter = currentReporter())
        reporter(QString::fromLatin1(module), QString::fromLatin1(procedure), number, description);
    else
        qWarning("%s/%s: %d %s", module, procedure, number, qUtf8Printable(description));
}

void reportCurrentException(const char *module, const char *procedure)
{
    if (const Origin first = std::exchange(origin, {});
        first.exception && first.exception == std::current_exception()) {
        module = first.module;
        procedure = first.procedure;
    }
    try {
        throw;
    } catch (const Error &error) {
        reportError(module, procedure, error.number(), error.description());
    } catch (const std::bad_alloc &) {
        reportError(module, procedure, 7, QStringLiteral("Out of memory"));
    } catch (const std::exception &error) {
        reportError(module, procedure, ErrorNumber::InvalidCall, QString::fromUtf8(error.what()));
    }
}

} // namespace base
