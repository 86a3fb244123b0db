#include "core/ui/Launch.h"

#include "platform/base/Trapped.h"
#include "platform/system/Open.h"

void launchIt(const QString &Path)
{
    base::trapped("General Function", "launchIt", [&] { sys::openWithDefault(Path); });
}
