#include "app/Program.h"

#include "administration/SecondPlace.h"
#include "administration/ui/Entries.h"
#include "app/Screens.h"
#include "core/Session.h"
#include "core/StartUp.h"
#include "core/UpdateDatabase.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/DialogPrompts.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Theme.h"
#include "platform/system/SingleInstance.h"
#include "shell/FirstStart.h"
#include "shell/RightsTable.h"
#include "shell/Updates.h"
#include "shell/ui/FirstStartEntries.h"
#include "shell/ui/frmLogin.h"
#include "shell/ui/frmMainScreen.h"

#include <QApplication>
#include <QTimer>
#include <csignal>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace app {
namespace {

/// The database engine answers these signals by taking its connections down and letting the process
/// live on without them. A process that is told to end has to end.
void letSignalsEndTheProcess()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

/// The copy for the second place, which the day's last program makes when it ends.
void copyForTheDay()
{
    std::optional<administration::EndingCopy> copy;
    // Asked while the connections are open; the copy itself needs them closed.
    base::trapped("MainForm", "MDIForm_Unload", [&] { copy = administration::endingCopy(); });
    if (!copy)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    administration::copyAtEnd(*copy);
    QApplication::restoreOverrideCursor();
}

/// At a new company the first steps are offered once the main window is there.
void offerFirstStart(QObject &mainScreen)
{
    bool isFirst = false;
    base::trapped("MainForm", "MDIForm_Load", [&] { isFirst = shell::isFirstStart(); });
    if (isFirst)
        // Behind the first picture of the window, which the dialog stands above.
        QTimer::singleShot(0, &mainScreen, ShowFirstStart);
}

} // namespace

int runProgram(QApplication &application, const std::function<void(QWidget &)> &shown)
{
    QApplication::setApplicationName(u"Quorvantis"_s);
    // The process ends with its main form, not with whichever window was the last.
    QApplication::setQuitOnLastWindowClosed(false);
    theme::install(application);
    input::keepAltFromTyping(application);

    input::DialogPrompts dialogs;
    const base::ScopedPrompts prompts(dialogs);
    // Held until the process ends, and for the folder: two installations may run side by side.
    const sys::SingleInstance instance(base::environment().applicationFolder);
    // Ahead of the main window, which is grey for what has not joined.
    joinScreens();

    const auto end = [] { QCoreApplication::exit(); };
    std::unique_ptr<frmMainScreen> mainScreen;
    StartUpSteps steps;
    steps.PrevInstance = [&] { return !instance.isFirst(); };
    steps.CheckForUpdate = updates::CheckForUpdate;
    steps.frmRestore = offerRestore;
    steps.UpdateDatabase = [](bool showFailure) { return UpdateDatabase(showFailure); };
    // By now the engine has been loaded, and has taken the signals; again ahead of the main window,
    // since no login may be asked for.
    steps.frmLogin = [] {
        letSignalsEndTheProcess();
        bool loggedIn = false;
        frmLogin::ShowLoginForm(loggedIn);
        return loggedIn;
    };
    steps.SetUserRole = SetUserRole;
    steps.frmMainScreen = [&] {
        letSignalsEndTheProcess();
        mainScreen = std::make_unique<frmMainScreen>(end);
        mainScreen->show();
        offerFirstStart(*mainScreen);
        // For who measures or tests the start.
        if (shown)
            shown(*mainScreen);
    };
    steps.End = end;
    int result = 0;
    steps.Failed = [&result] { result = 1; };

    // A start that was refused has said why, and there is no event loop to end.
    if (Main(steps)) {
        result = QApplication::exec();
        copyForTheDay();
    }
    // In this order: the window may still ask the database for its layout.
    mainScreen.reset();
    gcnLookup.reset();
    gcnData.reset();
    return result;
}

} // namespace app
