#pragma once

#include "platform/db/DbError.h"

#include <gtest/gtest.h>

namespace test {

/// The database error that an action raises; fails the test when it raises none.
template<class Action>
db::DbError raisedBy(Action &&action)
{
    try {
        action();
    } catch (const db::DbError &error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return {0, {}};
}

} // namespace test
