#pragma once

#include "app/Screens.h"
#include "core/CompanySession.h"
#include "core/OpeningTable.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/ScreenDriver.h"
#include "shell/ui/MainBoard.h"
#include "shell/ui/frmMainScreen.h"

namespace test {

/// The whole program's screens, joined for a user without any right.
struct WholeProgram : CompanySession
{
    WholeProgram()
    {
        gRights = {};
        app::joinScreens();
    }
    ~WholeProgram() override
    {
        openings() = {};
        screenCalls() = {};
        shell::mainBoard() = {};
        gsLoginUser.clear();
        gRights = {};
    }
};

} // namespace test
