#include "platform/db/TestDatabase.h"

#include "platform/db/Maintenance.h"

#include <QFile>
#include <stdexcept>

namespace test {

using namespace Qt::StringLiterals;

QString emptyDatabase()
{
    static const QTemporaryDir folder;
    static const QString file = [] {
        db::Target target;
        target.file = folder.filePath(u"empty.mdb"_s);
        target.forcedWrites = false;
        db::createDatabase(target);
        return target.file;
    }();
    return file;
}

TestDatabase::TestDatabase()
    : TestDatabase(emptyDatabase())
{}

TestDatabase::TestDatabase(const QString &templateFile)
{
    m_target.file = m_folder.filePath(u"test.mdb"_s);
    m_target.forcedWrites = false;
    if (!QFile::copy(templateFile, m_target.file))
        throw std::runtime_error("the template of the test database can't be copied");
}

} // namespace test
