#include "core/RegistryValues.h"

#include "platform/base/Trapped.h"
#include "platform/settings/Registry.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

} // namespace

QString GetVersionNo()
{
    return GetRegistryValue(u"VERSION"_s);
}

QString GetRegistryValue(const QString &Name)
{
    return trapped(Module, "GetRegistryValue", QString(),
                   [&] { return settings::registry().value(settings::ProductKey, Name); });
}

void SetRegistryValue(const QString &Name, const QString &Value)
{
    trapped(Module, "SetRegistryValue",
            [&] { settings::registry().setValue(settings::ProductKey, Name, Value); });
}

QString GetMakerRegistryValue(const QString &Name)
{
    return trapped(Module, "GetMakerRegistryValue", QString(),
                   [&] { return settings::registry().value(settings::MakerKey, Name); });
}
