#include "support/CompanyDatabase.h"

#include "platform/base/Error.h"

#include <QFile>

namespace test {

CompanyDatabase::CompanyDatabase()
    : CompanyDatabase(QStringLiteral(QUORVANTIS_TEMPLATE_DATABASE))
{}

CompanyDatabase::CompanyDatabase(const QString &original)
{
    if (!QFile::copy(original, file()))
        throw base::Error(base::ErrorNumber::PathAccess,
                          QStringLiteral("The template %1 can't be copied.").arg(original));
}

QString CompanyDatabase::file() const
{
    return m_folder.filePath(QStringLiteral("company.fdb"));
}

db::Target CompanyDatabase::target() const
{
    db::Target target;
    target.file = file();
    target.forcedWrites = false;
    return target;
}

std::unique_ptr<db::Connection> CompanyDatabase::open() const
{
    return std::make_unique<db::Connection>(target());
}

SampleCompany::SampleCompany()
    : CompanyDatabase(QStringLiteral(QUORVANTIS_SAMPLE_DATABASE))
{}

} // namespace test
