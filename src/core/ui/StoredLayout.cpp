#include "core/ui/StoredLayout.h"

#include "platform/db/DbError.h"

void storeUnlessLocked(const std::function<void()> &store)
{
    try {
        store();
    } catch (const db::DbError &error) {
        if (error.number() != db::ErrorNumber::LockConflict)
            throw;
    }
}
