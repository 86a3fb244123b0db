#include "reporting/ReportQuery.h"

#include "platform/base/Format.h"
#include "platform/sql/Conversion.h"

#include <QSet>
#include <algorithm>

namespace reportquery {

using namespace Qt::StringLiterals;

namespace {

bool isSame(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// The wanted name, or with the next number that makes it free.
template<class IsTaken>
QString freeName(const QString &wanted, const IsTaken &isTaken)
{
    QString name = wanted;
    for (int number = 2; isTaken(name); ++number)
        name = wanted + QString::number(number);
    return name;
}

/// A name as a statement holds it; brackets can't stand in one.
QString bracketed(const QString &name)
{
    QString inner = name;
    inner.remove(u'[').remove(u']');
    return u'[' + inner + u']';
}

QString written(const Place &place)
{
    return bracketed(place.table) + u'.' + bracketed(place.column);
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

/// A text of which no character means another one in a pattern.
QString plainPattern(const QString &text)
{
    QString pattern;
    for (const QChar letter : text) {
        if (QStringView(u"*?#[").contains(letter))
            pattern += u'[' + QString(letter) + u']';
        else
            pattern += letter;
    }
    return pattern;
}

bool isNumber(sql::ColumnKind kind)
{
    return kind == sql::ColumnKind::Integer || kind == sql::ColumnKind::Real ||
           kind == sql::ColumnKind::Money;
}

bool isPattern(Comparison comparison)
{
    return comparison == Comparison::Contains || comparison == Comparison::BeginsWith;
}

bool needsValue(Comparison comparison)
{
    return comparison != Comparison::IsEmpty && comparison != Comparison::IsNotEmpty;
}

/// A value as a literal; nothing when it is none of the column's kind.
std::optional<QString> literal(const QString &value, sql::ColumnKind kind)
{
    const QString trimmed = value.trimmed();
    if (isNumber(kind)) {
        const auto number = sql::parseNumber(trimmed);
        if (!number)
            return std::nullopt;
        return number->typeId() == QMetaType::Double
                   ? QString::number(number->toDouble(), 'f', QLocale::FloatingPointShortest)
                   : QString::number(number->toLongLong());
    }
    if (kind == sql::ColumnKind::Date) {
        const auto date = base::parseMonthFirst(trimmed);
        return date ? std::optional(u'#' + date->toString(u"MM/dd/yyyy"_s) + u'#') : std::nullopt;
    }
    if (kind == sql::ColumnKind::YesNo) {
        if (isSame(trimmed, u"Yes"))
            return u"True"_s;
        return isSame(trimmed, u"No") ? std::optional(u"False"_s) : std::nullopt;
    }
    return quoted(value);
}

QString sign(Comparison comparison)
{
    switch (comparison) {
    case Comparison::NotEqual:
        return u"<>"_s;
    case Comparison::Less:
        return u"<"_s;
    case Comparison::LessOrEqual:
        return u"<="_s;
    case Comparison::Greater:
        return u">"_s;
    case Comparison::GreaterOrEqual:
        return u">="_s;
    default:
        return u"="_s;
    }
}

QString written(const Condition &condition, sql::ColumnKind kind)
{
    const QString column = written(condition.place);
    if (condition.comparison == Comparison::IsEmpty)
        return column + u" is null"_s;
    if (condition.comparison == Comparison::IsNotEmpty)
        return column + u" is not null"_s;
    const QString before = condition.comparison == Comparison::Contains ? u"*"_s : QString();
    if (isPattern(condition.comparison)) {
        if (condition.isParameter)
            return column + u" like '%1' & ?%2 & '*'"_s.arg(before, bracketed(condition.value));
        return column + u" like "_s + quoted(before + plainPattern(condition.value) + u'*');
    }
    // What can't be read yet is written as Null, so that the text can be shown meanwhile.
    const QString value = condition.isParameter
                              ? u'?' + bracketed(condition.value)
                              : literal(condition.value, kind).value_or(u"Null"_s);
    return column + u' ' + sign(condition.comparison) + u' ' + value;
}

QString written(const Source &source)
{
    return bracketed(source.table) +
           (source.as.isEmpty() ? QString() : u" AS "_s + bracketed(source.as));
}

} // namespace

const Source *Query::find(QStringView name) const
{
    const auto found = std::ranges::find_if(
        sources, [&](const Source &source) { return isSame(source.name(), name); });
    return found == sources.end() ? nullptr : &*found;
}

sql::ColumnKind kindOf(const Query &query, const Place &place,
                       const QList<reporttables::Table> &tables)
{
    const Source *source = query.find(place.table);
    const reporttables::Table *table =
        source ? reporttables::tableOf(tables, source->table) : nullptr;
    const reporttables::Column *column = table ? table->find(place.column) : nullptr;
    return column ? column->kind : sql::ColumnKind::Unknown;
}

int addSource(Query &query, const QString &table)
{
    Source added;
    added.table = table;
    if (query.find(table))
        added.as =
            freeName(table, [&](const QString &name) { return query.find(name) != nullptr; });
    for (const Source &present : std::as_const(query.sources)) {
        const reporttables::Link link = reporttables::linkBetween(present.table, table);
        if (!link.column.isEmpty()) {
            added.column = link.key;
            added.to = {present.name(), link.column};
        }
    }
    query.sources.append(added);
    return static_cast<int>(query.sources.size()) - 1;
}

QString addLinked(Query &query, const QString &from, const reporttables::Link &link)
{
    const Place to{from, link.column};
    for (const Source &source : std::as_const(query.sources))
        if (isSame(source.table, link.to) && isSame(source.column, link.key) && source.to == to)
            return source.name();
    const QString as =
        freeName(link.as, [&](const QString &name) { return query.find(name) != nullptr; });
    // Not only what matches: a row whose link leads nowhere stays in the report.
    query.sources.append(Source{link.to, as, link.key, to});
    return as;
}

void addColumn(Query &query, const Place &place, const QString &wanted)
{
    const auto isTaken = [&](const QString &name) {
        return std::ranges::any_of(
            query.columns, [&](const Column &column) { return isSame(column.name(), name); });
    };
    const QString name = freeName(wanted.isEmpty() ? place.column : wanted, isTaken);
    query.columns.append({place, name == place.column ? QString() : name});
}

void removeSource(Query &query, int source)
{
    QSet<QString> gone{query.sources[source].name().toLower()};
    query.sources.removeAt(source);
    // What was joined to it goes along; a later one may have been joined to that.
    for (qsizetype at = source; at < query.sources.size();) {
        if (gone.contains(query.sources[at].to.table.toLower())) {
            gone.insert(query.sources[at].name().toLower());
            query.sources.removeAt(at);
        } else {
            ++at;
        }
    }
    const auto speaksOfGone = [&](const auto &part) {
        return gone.contains(part.place.table.toLower());
    };
    query.columns.removeIf(speaksOfGone);
    query.conditions.removeIf(speaksOfGone);
    query.sort.removeIf(speaksOfGone);
}

QString problemOf(const Query &query, const QList<reporttables::Table> &tables)
{
    if (query.sources.isEmpty())
        return u"Please choose a table."_s;
    if (query.columns.isEmpty())
        return u"Please choose at least one column."_s;
    for (qsizetype at = 1; at < query.sources.size(); ++at)
        if (query.sources[at].column.isEmpty() || query.sources[at].to.column.isEmpty())
            return u"Please say by which columns \"%1\" is joined."_s.arg(query.sources[at].name());
    for (const Condition &condition : query.conditions) {
        const sql::ColumnKind kind = kindOf(query, condition.place, tables);
        const QString &column = condition.place.column;
        if (!needsValue(condition.comparison))
            continue;
        if (condition.value.trimmed().isEmpty())
            return u"Please say what \"%1\" is compared with."_s.arg(column);
        if (isPattern(condition.comparison) && kind != sql::ColumnKind::Text)
            return u"\"%1\" is no text. Please compare it in another way."_s.arg(column);
        // A parameter is read when it is answered, and every text can be part of another.
        const bool isRead = condition.isParameter || isPattern(condition.comparison);
        if (!isRead && !literal(condition.value, kind))
            return u"\"%1\" can't be compared with \"%2\"."_s.arg(column, condition.value);
    }
    return {};
}

QString textOf(const Query &query, const QList<reporttables::Table> &tables)
{
    QStringList columns;
    for (const Column &column : query.columns)
        columns.append(written(column.place) +
                       (column.as.isEmpty() ? QString() : u" AS "_s + bracketed(column.as)));
    QString text = (query.distinct ? u"SELECT DISTINCT "_s : u"SELECT "_s) + columns.join(u", "_s);
    for (qsizetype at = 0; at < query.sources.size(); ++at) {
        const Source &source = query.sources[at];
        if (at == 0) {
            text += u"\nFROM "_s + written(source);
            continue;
        }
        text += (source.onlyMatching ? u"\nINNER JOIN "_s : u"\nLEFT JOIN "_s) + written(source) +
                u" ON "_s + written(source.to) + u" = "_s +
                written(Place{source.name(), source.column});
    }
    QStringList conditions;
    for (const Condition &condition : query.conditions)
        conditions.append(written(condition, kindOf(query, condition.place, tables)));
    if (!conditions.isEmpty())
        text += u"\nWHERE "_s + conditions.join(u" AND "_s);
    QStringList sort;
    for (const Sort &each : query.sort)
        sort.append(written(each.place) + (each.descending ? u" DESC"_s : QString()));
    if (!sort.isEmpty())
        text += u"\nORDER BY "_s + sort.join(u", "_s);
    return text;
}

} // namespace reportquery
