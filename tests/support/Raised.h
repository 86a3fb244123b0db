#pragma once

#include "platform/base/Error.h"

#include <gtest/gtest.h>

namespace test {

/// The error that an action raises; fails the test, and has the number 0, when it raises none.
template<class Error = base::Error, class Action>
Error raisedBy(Action &&action)
{
    try {
        action();
    } catch (const Error &error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return {0, {}};
}

} // namespace test
