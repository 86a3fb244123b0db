#include "core/RecordFields.h"

#include <QStringList>

namespace record {
namespace {

/// Brackets keep columns such as Note and Password apart from words of the dialect.
QString bracketed(QStringView name)
{
    return u'[' + name.toString() + u']';
}

} // namespace

QString insertStatement(QStringView table, std::span<const QStringView> columns)
{
    QStringList names;
    for (const QStringView column : columns)
        names.append(bracketed(column));
    const QStringList places(names.size(), QStringLiteral("?"));
    return QStringLiteral("Insert into %1(%2) values(%3)")
        .arg(table.toString(), names.join(u','), places.join(u','));
}

QString updateStatement(QStringView table, std::span<const QStringView> columns, QStringView key)
{
    QStringList settings;
    for (const QStringView column : columns)
        settings.append(bracketed(column) + QStringLiteral(" = ?"));
    return QStringLiteral("Update %1 set %2 where %3 = ?")
        .arg(table.toString(), settings.join(QStringLiteral(", ")), bracketed(key));
}

} // namespace record
