#include "core/ui/Launch.h"

#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/system/Open.h"
#include "platform/system/Process.h"

namespace {

constexpr char Module[] = "General Function";

} // namespace

void launchIt(const QString &Path)
{
    base::trapped(Module, "launchIt", [&] { sys::openWithDefault(Path); });
}

void RunAndWait(const QString &CommandLine)
{
    base::trapped(Module, "RunAndWait", [&] { sys::runAndWait(CommandLine); });
}

QString BrowseForFolder(const QString &Title)
{
    return base::trapped(Module, "BrowseForFolder", QString(),
                         [&] { return base::prompts().chooseFolder(Title); });
}
