#pragma once

#include "core/ui/ScreenDriver.h"
#include "equipment/Workshop.h"
#include "scheduling/ui/PageFrame.h"

namespace test {

/// A page with its frame over a company of its own.
struct PageTest : Workshop
{
    ~PageTest() override { RollbackTrans(); }

    [[nodiscard]] ScreenDriver page() const { return ScreenDriver(*frame.page); }
    ScriptedPrompts prompts;
    PageFrame frame;
};

} // namespace test
