#include "exchange/Spliced.h"

#include "core/Session.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/db/DbError.h"
#include "platform/sql/Conversion.h"

#include <QDateTime>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace exchange::spliced {
namespace {

/// What the program keeps for itself. No device has any business there, and who can send a file
/// must not be able to make himself an administrator.
constexpr QStringView OwnTables[] = {u"tblUser",      u"tblSysOption",   u"tblGridSetting",
                                     u"tblErrorList", u"tblTableFields", u"tblTempServicePart",
                                     u"tblWotemp"};

[[noreturn]] void raise(int number, const QString &piece, const QString &complaint)
{
    QString shown = piece;
    if (shown.size() > 60)
        shown = shown.left(60) + u"..."_s;
    throw base::Error(number, u"\"%1\" %2"_s.arg(shown, complaint));
}

QString withoutBrackets(const QString &name)
{
    const QString trimmed = name.trimmed();
    return trimmed.startsWith(u'[') && trimmed.endsWith(u']') ? trimmed.sliced(1).chopped(1)
                                                              : trimmed;
}

const sql::Table &known(const QString &name)
{
    const QString plain = withoutBrackets(name);
    const sql::Table *found = dataConnection().schema().find(plain);
    const bool isOwn = std::ranges::any_of(
        OwnTables, [&](QStringView own) { return plain.compare(own, Qt::CaseInsensitive) == 0; });
    if (!found || isOwn)
        raise(db::ErrorNumber::TableUnknown, name, u"is no table that a handheld may write"_s);
    return *found;
}

const sql::Column &known(const sql::Table &table, const QString &name)
{
    const sql::Column *found = table.find(withoutBrackets(name));
    if (!found)
        raise(db::ErrorNumber::ValueMissing, name, u"is no column of "_s + table.name);
    return *found;
}

QString bracketed(const QString &name)
{
    return u'[' + name + u']';
}

} // namespace

QString quoted(const QString &piece)
{
    QString text = piece;
    // Doubled apostrophes stand aside while single ones are looked for.
    text.replace(u"''"_s, u"\0"_s);
    if (text.contains(u'\''))
        raise(db::ErrorNumber::Syntax, piece, u"holds an apostrophe, which would end the text"_s);
    return text.replace(u"\0"_s, u"'"_s);
}

QVariant bare(const QString &piece)
{
    if (const auto number = sql::parseNumber(piece))
        return *number;
    const QString word = piece.trimmed().toLower();
    if (word == u"true" || word == u"yes" || word == u"on")
        return qint64{-1};
    if (word == u"false" || word == u"no" || word == u"off")
        return qint64{0};
    if (word == u"null")
        return {};
    raise(db::ErrorNumber::Syntax, piece, u"is no number"_s);
}

qint64 bareInteger(const QString &piece)
{
    const auto number = sql::parseNumber(piece);
    // What a double still holds to the last digit.
    if (!number || std::abs(number->toDouble()) > 9e15)
        raise(db::ErrorNumber::Syntax, piece, u"is no whole number"_s);
    return number->typeId() == QMetaType::LongLong ? number->toLongLong()
                                                   : base::roundedToEven(number->toDouble());
}

qint64 wholeNumber(const QString &piece)
{
    return piece.trimmed().isEmpty() ? 0 : bareInteger(piece);
}

QDateTime date(const QString &piece)
{
    const auto found = sql::parseDate(piece);
    if (!found)
        raise(db::ErrorNumber::Syntax, piece, u"is no date"_s);
    return *found;
}

bool isNumeric(const QString &piece)
{
    return sql::parseNumber(piece).has_value();
}

QString table(const QString &name)
{
    // In the database's own spelling: nothing of the file's text gets into the statement.
    return bracketed(known(name).name);
}

QString column(const QString &ofTable, const QString &name)
{
    return bracketed(known(known(ofTable), name).name);
}

QString writtenColumn(const QString &ofTable, const QString &name)
{
    const sql::Column &found = known(known(ofTable), name);
    if (found.autoNumber)
        raise(db::ErrorNumber::Syntax, name, u"gets its numbers from the database"_s);
    return bracketed(found.name);
}

bool holdsFractions(const QString &ofTable, const QString &name)
{
    return known(known(ofTable), name).kind == sql::ColumnKind::Real;
}

} // namespace exchange::spliced
