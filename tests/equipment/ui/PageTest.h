#pragma once

#include "core/ui/ScreenDriver.h"
#include "equipment/Workshop.h"
#include "scheduling/ui/PageFrame.h"

namespace test {

/// A page with its frame over a company of its own.
struct PageTest : Workshop
{
    ~PageTest() override { RollbackTrans(); }

    template<class Control>
    Control &control(const QString &name)
    {
        return named<Control>(*frame.page, name);
    }
    void click(const QString &name) { QTest::mouseClick(&control<QWidget>(name), Qt::LeftButton); }
    ScriptedPrompts prompts;
    PageFrame frame;
};

} // namespace test
