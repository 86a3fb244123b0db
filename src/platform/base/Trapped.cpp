#include "platform/base/Trapped.h"

#include <QDebug>

namespace base {
namespace {
ErrorReporter &currentReporter()
{
    static ErrorReporter reporter;
    return reporter;
}
} // namespace

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

void detail::reportCurrentException(const char *module, const char *procedure)
{
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
