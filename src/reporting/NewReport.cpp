#include "reporting/NewReport.h"

#include "reporting/NewReportPage.h"

#include <algorithm>

namespace newreport {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype UsualColumns = 6;
constexpr qsizetype MostGroups = 3;
/// An upright page does while columns get this share of what they would like.
constexpr double LeastShare = 0.85;

QString withoutBlanks(QString text)
{
    return text.removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
}

bool isShown(const reporttables::Column &column)
{
    return column.kind != sql::ColumnKind::Binary;
}

const reporttables::Link *linkAt(const QList<reporttables::Link> &links, const QString &column)
{
    const auto found = std::ranges::find_if(links, [&](const reporttables::Link &link) {
        return link.column.compare(column, Qt::CaseInsensitive) == 0;
    });
    return found == links.end() ? nullptr : &*found;
}

/// What else is known of the row behind a link: nothing of lookup lists, which are names alone.
void addFurther(QList<Field> &fields, const reporttables::Link &link,
                const reporttables::Table &table)
{
    const QList<reporttables::Link> onward = reporttables::linksOf(table.name);
    for (const reporttables::Column &column : table.columns)
        if (isShown(column) && column.name != link.shown && column.name != link.key &&
            linkAt(onward, column.name) == nullptr)
            fields.append({link.caption + u": "_s + column.caption, link, column});
}

bool contains(const QList<Field> &fields, const Field &field)
{
    return std::ranges::any_of(fields, [&](const Field &each) { return each.isSame(field); });
}

/// Puts what is shown into a query; the names by which the report reads it come back.
class Names
{
public:
    explicit Names(const QString &table) { m_query.sources.append({.table = table}); }

    QString add(const Field &field)
    {
        for (const auto &[known, name] : std::as_const(m_names))
            if (known.isSame(field))
                return name;
        const QString table = m_query.sources.first().name();
        if (field.isOwn())
            reportquery::addColumn(m_query, {table, field.column.name});
        else
            reportquery::addColumn(
                m_query, {reportquery::addLinked(m_query, table, field.link), field.column.name},
                withoutBlanks(field.caption));
        m_names.append({field, m_query.columns.last().name()});
        return m_names.last().second;
    }
    [[nodiscard]] const reportquery::Query &query() const { return m_query; }

private:
    reportquery::Query m_query;
    QList<std::pair<Field, QString>> m_names;
};

PageField pageField(const Field &field, Names &names)
{
    return {names.add(field), field.caption, field.column};
}

} // namespace

bool Field::canTotal() const
{
    using enum sql::ColumnKind;
    if (column.isFlag || column.kind == Unknown)
        return false;
    if (column.kind == Money || column.kind == Real)
        return true;
    // Numbers that name something are told by how the columns are called.
    const bool names = column.name.endsWith(u"ID", Qt::CaseInsensitive) ||
                       column.name.endsWith(u"No", Qt::CaseInsensitive) ||
                       column.name.endsWith(u"Number", Qt::CaseInsensitive);
    return column.kind == Integer && isOwn() && !names;
}

QList<Field> fieldsOf(const QString &table, const QList<reporttables::Table> &tables)
{
    QList<Field> fields;
    QList<Field> further;
    const reporttables::Table *own = reporttables::tableOf(tables, table);
    if (!own)
        return fields;
    const QList<reporttables::Link> links = reporttables::linksOf(table);
    for (const reporttables::Column &column : own->columns) {
        const reporttables::Link *link = linkAt(links, column.name);
        const reporttables::Table *other = link ? reporttables::tableOf(tables, link->to) : nullptr;
        // The key itself says something where it is what people write, as that of a part.
        if (isShown(column) && (!other || column.kind == sql::ColumnKind::Text))
            fields.append({column.caption, {}, column});
        if (!other)
            continue;
        fields.append({link->caption, *link, *other->find(link->shown)});
        if (link->to != "tblIndicator"_L1)
            addFurther(further, *link, *other);
    }
    return fields + further;
}

QList<Field> usualFields(const QList<Field> &fields)
{
    QList<Field> usual;
    for (const Field &field : fields) {
        const bool isMemo = field.column.length == sql::MemoLength;
        if (usual.size() < UsualColumns && !isMemo && !field.column.isFlag)
            usual.append(field);
    }
    return usual;
}

QString problemOf(const Choice &choice)
{
    if (choice.table.isEmpty())
        return u"Please choose what the report is about."_s;
    if (choice.columns.isEmpty() && choice.groups.isEmpty())
        return u"Please choose at least one column."_s;
    if (choice.groups.size() > MostGroups)
        return u"A report can be grouped by %1 columns at most."_s.arg(MostGroups);
    return {};
}

report::Layout make(const Choice &choice, const QList<reporttables::Table> &tables)
{
    Names names(choice.table);
    PageContent content;
    for (const Field &group : choice.groups)
        content.groups.append(pageField(group, names));
    QList<Field> columns;
    for (const Field &column : choice.columns + choice.totals)
        if (!contains(choice.groups, column) && !contains(columns, column))
            columns.append(column);
    // A report of nothing but its groups says at least what they are.
    if (columns.isEmpty())
        columns = choice.groups.last(1);
    for (const Field &column : std::as_const(columns)) {
        content.columns.append(pageField(column, names));
        content.columns.last().isTotalled = contains(choice.totals, column);
    }
    content.title = choice.title.trimmed();
    if (content.title.isEmpty())
        content.title = reporttables::tableOf(tables, choice.table)->caption;
    content.counts = choice.counts;
    content.chart = choice.chart;
    content.look = choice.look;

    report::Layout layout;
    layout.page.paper = choice.paper;
    layout.page.landscape = choice.landscape;
    layout.title = content.title;
    layout.query = reportquery::textOf(names.query(), tables);
    layOut(layout, content);
    return layout;
}

bool isWide(const Choice &choice)
{
    QList<PageField> fields;
    for (const Field &column : choice.columns)
        if (!contains(choice.groups, column))
            fields.append({column.column.name, column.caption, column.column});
    report::PageSetup upright;
    upright.paper = choice.paper;
    return naturalWidth(fields) * LeastShare > upright.innerWidth();
}

} // namespace newreport
