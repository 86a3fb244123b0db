#pragma once

#include "core/Permission.h"
#include "core/ui/Telling.h"
#include "platform/base/Prompts.h"

namespace administration {

/// Runs a step on a file that the user has named, and answers what it answers. What is wrong with
/// the file is told as the sentence that it is; a failure of the database is reported, and the
/// fallback answered.
template<class T, class Body>
T plainly(const char *module, const char *procedure, T fallback, Body &&body)
{
    try {
        const base::Whole whole;
        return std::forward<Body>(body)();
    } catch (const rights::Refused &error) {
        base::showInformation(error.description());
    } catch (const db::DbError &error) {
        tellError(error, module, procedure);
    } catch (const base::Error &error) {
        // The whole is over when the box opens, and nothing is locked any more.
        base::showMessage(error.description());
    } catch (...) {
        base::reportCurrentException(module, procedure);
    }
    return fallback;
}

} // namespace administration
