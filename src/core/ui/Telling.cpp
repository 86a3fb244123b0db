#include "core/ui/Telling.h"

#include "platform/db/DbError.h"

void tellError(const base::Error &error, const char *module, const char *procedure)
{
    if (error.number() == db::ErrorNumber::LockConflict)
        base::showMessage(error.description());
    else
        base::reportCurrentException(module, procedure);
}
