#pragma once

#include "core/Session.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"

namespace test {

/// What screens of other folders have joined, and what the user may do: nothing when a test begins,
/// and nothing is left of it behind the test. Stands ahead of the screen, which goes first then.
class Joints
{
public:
    Joints() { clear(); }
    ~Joints() { clear(); }
    Joints(const Joints &) = delete;
    Joints &operator=(const Joints &) = delete;

private:
    static void clear()
    {
        openings() = {};
        screenCalls() = {};
        gRights = {};
    }
};

} // namespace test
