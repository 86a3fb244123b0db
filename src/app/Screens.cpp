#include "app/Screens.h"

#include "core/ui/frmSendEmail.h"
#include "platform/help/Help.h"

namespace app {

void joinScreens()
{
    installErrorReport();
    help::installHelpKey();
}

} // namespace app
