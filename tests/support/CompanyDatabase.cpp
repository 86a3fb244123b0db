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

QStringList linesOf(const db::Recordset &rows)
{
    const auto textOf = [](const QVariant &value) {
        return value.typeId() == QMetaType::QByteArray
                   ? QString::fromLatin1(value.toByteArray().toHex())
                   : value.toString();
    };
    QStringList lines;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        QStringList values;
        for (int column = 0; column < rows.columnCount(); ++column)
            values << rows.columnName(column) + u'=' +
                          (rows.isNull(row, column) ? QStringLiteral("Null")
                                                    : textOf(rows.value(row, column)));
        values.sort();
        lines << values.join(u' ');
    }
    lines.sort();
    return lines;
}

} // namespace test
