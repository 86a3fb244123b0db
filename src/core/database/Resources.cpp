#include "core/database/Resources.h"

#include "platform/base/Error.h"

#include <QFile>

// Outside any namespace, as the macro demands. A static library's resources are only linked in
// when they are asked for by name.
static void initialiseResources()
{
    Q_INIT_RESOURCE(company_data);
}

namespace company {

QString resourceText(const QString &name)
{
    initialiseResources();
    QFile file(QStringLiteral(":/company/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw base::Error(base::ErrorNumber::FileNotFound,
                          QStringLiteral("The program lacks its file \"%1\".").arg(name));
    return QString::fromUtf8(file.readAll());
}

} // namespace company
