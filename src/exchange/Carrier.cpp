#include "exchange/Carrier.h"

#include "core/RegistryValues.h"
#include "core/Told.h"
#include "platform/system/Process.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace exchange {

bool runCarrier(const QString &program)
{
    const QString folder = GetMakerRegistryValue(u"Path"_s);
    if (folder.isEmpty()) {
        told::message(u"QV2go Sync Application is not Installed"_s);
        return false;
    }
    // The path may hold blanks.
    sys::runAndWait(u'"' + systemPath(folder + program) + u'"');
    return true;
}

QString systemPath(QString stored)
{
    if (QDir::separator() == u'/')
        stored.replace(u'\\', u'/');
    return stored;
}

} // namespace exchange
