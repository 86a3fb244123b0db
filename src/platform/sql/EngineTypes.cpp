#include "platform/sql/EngineTypes.h"

#include <QCryptographicHash>

namespace sql::EngineTypes {
namespace {

using namespace Qt::StringLiterals;

/// Types as RDB$FIELD_TYPE numbers them.
enum FieldType {
    Smallint = 7,
    Integer = 8,
    Float = 10,
    Date = 12,
    Time = 13,
    Char = 14,
    Bigint = 16,
    Double = 27,
    Timestamp = 35,
    Varchar = 37,
    Blob = 261,
};

/// The name itself when the engine can carry it, else its beginning and a mark made from the whole.
QString fitted(const QString &name)
{
    const QByteArray utf8 = name.toUtf8();
    if (utf8.size() <= MaximumNameLength)
        return name;
    // Of the name in lower case: an index is dropped in another spelling than it was made in.
    const QByteArray mark =
        QCryptographicHash::hash(name.toLower().toUtf8(), QCryptographicHash::Sha1).toHex().left(6);
    QString beginning = name;
    // Whole characters, since a name cut within one is no text any more.
    while (beginning.toUtf8().size() > MaximumNameLength - mark.size() - 1)
        beginning.chop(1);
    return beginning + u'~' + QString::fromLatin1(mark);
}

QString yesNoTriggerName(QStringView table)
{
    return quotedName(fitted(table.toString() + u".YesNo"_s));
}

} // namespace

std::vector<QString> preparationStatements()
{
    return {
        // The catalogue shows by its domain what a column is: the engine itself knows whole numbers
        // and times only.
        u"CREATE DOMAIN D_YESNO AS SMALLINT DEFAULT 0"_s,
        u"CREATE DOMAIN D_DATE_TODAY AS TIMESTAMP DEFAULT CURRENT_DATE"_s,
        u"CREATE DOMAIN D_MONEY AS NUMERIC(18,4)"_s,
    };
}

QString quotedName(QStringView name)
{
    QString quoted;
    quoted.reserve(name.size() + 2);
    quoted += u'"';
    for (const QChar character : name) {
        quoted += character;
        if (character == u'"')
            quoted += u'"';
    }
    quoted += u'"';
    return quoted;
}

QString indexName(QStringView table, QStringView index)
{
    return fitted(table.toString() + u"."_s + index.toString());
}

QString yesNoTrigger(QStringView table, const std::vector<QString> &columns)
{
    QString body;
    for (const QString &column : columns) {
        const QString name = u"NEW."_s + quotedName(column);
        body += u' ' + name + u" = IIF(COALESCE("_s + name + u", 0) = 0, 0, -1);"_s;
    }
    return u"CREATE OR ALTER TRIGGER "_s + yesNoTriggerName(table) + u" FOR "_s +
           quotedName(table) + u" ACTIVE BEFORE INSERT OR UPDATE AS BEGIN"_s + body + u" END"_s;
}

QString dropYesNoTrigger(QStringView table)
{
    return u"DROP TRIGGER "_s + yesNoTriggerName(table);
}

Column columnFromCatalogue(const QString &name, QStringView domain, int fieldType, int subType,
                           int scale, int characterLength, bool identity)
{
    Column column;
    column.name = name;
    column.autoNumber = identity;
    switch (fieldType) {
    case Smallint:
        column.kind = domain == YesNo ? ColumnKind::YesNo : ColumnKind::Integer;
        break;
    // An exact number is stored as a whole one and its scale.
    case Integer:
    case Bigint:
        column.kind = scale == 0 ? ColumnKind::Integer : ColumnKind::Money;
        break;
    case Float:
    case Double:
        column.kind = ColumnKind::Real;
        break;
    case Date:
    case Time:
    case Timestamp:
        column.kind = ColumnKind::Date;
        column.defaultsToToday = domain == DateToday;
        break;
    case Char:
    case Varchar:
        column.kind = ColumnKind::Text;
        column.length = characterLength;
        break;
    case Blob:
        // Subtype 1 is text.
        column.kind = subType == 1 ? ColumnKind::Text : ColumnKind::Binary;
        column.length = subType == 1 ? MemoLength : 0;
    }
    return column;
}

} // namespace sql::EngineTypes
