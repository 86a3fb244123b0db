#include "parts/PartSelection.h"

#include "platform/base/Error.h"
#include "platform/base/Format.h"

#include <QRegularExpression>
#include <QStringList>

namespace parts {
namespace {

constexpr QChar FieldSeparator(134);
const QString LineSeparator = QStringLiteral("@@@@");

double number(const QString &text)
{
    if (text.trimmed().isEmpty())
        return 0;
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber)
        throw base::Error(base::ErrorNumber::TypeMismatch, QStringLiteral("Type mismatch"));
    return value;
}

} // namespace

QString selectionText(const QList<Chosen> &parts)
{
    QStringList lines;
    for (const Chosen &part : parts)
        lines.append(QStringList{part.PartID, base::toText(part.Quantity), base::toText(part.Price),
                                 QString::number(part.SupplierID)}
                         .join(FieldSeparator));
    return lines.join(LineSeparator);
}

QList<Chosen> parseSelection(const QString &text)
{
    QList<Chosen> result;
    for (const QString &line : text.split(LineSeparator, Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(FieldSeparator);
        if (fields.size() != 4)
            throw base::Error(base::ErrorNumber::InvalidCall,
                              QStringLiteral("Invalid procedure call or argument"));
        result.append({fields[0], number(fields[1]), number(fields[2]),
                       static_cast<qint64>(number(fields[3]))});
    }
    return result;
}

QString exclusionList(const QStringList &partIDs)
{
    QStringList quoted;
    for (const QString &id : partIDs)
        quoted.append(u'\'' + base::doubledQuotes(id) + u'\'');
    return quoted.join(QStringLiteral(", "));
}

QStringList excludedParts(const QString &list)
{
    static const QRegularExpression quoted(QStringLiteral("'((?:[^']|'')*)'"));
    QStringList parts;
    for (const QRegularExpressionMatch &match : quoted.globalMatch(list))
        parts.append(match.captured(1).replace(QStringLiteral("''"), QStringLiteral("'")));
    return parts;
}

} // namespace parts
