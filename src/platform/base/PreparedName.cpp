#include "platform/base/PreparedName.h"

#include "platform/base/Environment.h"

namespace base {

QString preparedName(const QString &file, const QString &mark)
{
    QString computer = environment().computerName;
    computer.replace(u'/', u'_').replace(u'\\', u'_');
    return file + u'.' + computer + mark;
}

} // namespace base
