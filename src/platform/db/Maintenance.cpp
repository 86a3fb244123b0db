#include "platform/db/Maintenance.h"

#include "platform/db/Attachment.h"
#include "platform/db/EngineErrors.h"
#include "platform/sql/EngineTypes.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

namespace db {

using namespace Qt::StringLiterals;

void createDatabase(const Target &target)
{
    if (target.host.isEmpty() && QFileInfo::exists(target.file))
        throw engine::fileError(EEXIST, target.file);
    engine::Attachment attachment(target, engine::Attachment::Disposition::Create);
    // Before any column is made: texts and literals are then compared without regard to case.
    attachment.executeAlone(u"ALTER CHARACTER SET UTF8 SET DEFAULT COLLATION UNICODE_CI"_s);
    for (const QString &statement : sql::EngineTypes::preparationStatements())
        attachment.executeAlone(statement);
    attachment.detach();
}

} // namespace db
