#include "support/Desktop.h"

#include <QDesktopServices>

namespace test {

using namespace Qt::StringLiterals;

namespace {
const QStringList Schemes{u"mailto"_s, u"file"_s, u"http"_s};
}

Desktop::Desktop()
{
    for (const QString &scheme : Schemes)
        QDesktopServices::setUrlHandler(scheme, this, "open");
}

Desktop::~Desktop()
{
    for (const QString &scheme : Schemes)
        leave(scheme);
}

void Desktop::leave(const QString &scheme)
{
    QDesktopServices::unsetUrlHandler(scheme);
}

} // namespace test
