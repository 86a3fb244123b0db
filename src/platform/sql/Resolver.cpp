#include "platform/sql/Resolver.h"

#include "platform/sql/EngineTypes.h"
#include "platform/sql/Errors.h"
#include "platform/sql/Names.h"
#include "platform/sql/Types.h"

#include <QSet>

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

bool fitsEngine(QStringView name)
{
    return name.toUtf8().size() <= EngineTypes::MaximumNameLength;
}

} // namespace

void Resolver::resolve(Statement &statement)
{
    if (statement.query)
        resolveQuery(*statement.query, nullptr, false);
    else if (statement.change)
        resolveChange(*statement.change, statement.kind);
}

void Resolver::resolveChange(Change &change, StatementKind kind)
{
    resolveSource(*change.target, {});
    const Scope target{nullptr, {change.target.get()}, nullptr};
    // The values of an insert can name no column.
    const Scope nothing;
    for (Expression &column : change.columns)
        resolveName(column, target);
    for (ExpressionPointer &value : change.values)
        resolveExpression(*value, nothing);
    for (Assignment &assignment : change.assignments) {
        resolveName(assignment.target, target);
        resolveExpression(*assignment.value, target);
    }
    if (change.where)
        resolveExpression(*change.where, target);
    if (kind != StatementKind::Insert)
        return;
    std::size_t values = change.values.size();
    if (change.query) {
        resolveQuery(*change.query, nullptr, false);
        values = change.query->selects.front().output.size();
    }
    const std::size_t columns = change.columns.empty()
                                    ? static_cast<std::size_t>(change.target->columnCount())
                                    : change.columns.size();
    if (values != columns) {
        throw base::Error(
            ErrorNumber::Syntax,
            u"The statement gives %1 values for %2 columns."_s.arg(values).arg(columns));
    }
}

void Resolver::resolveQuery(Query &query, const Scope *outer, bool derived)
{
    Scope first;
    for (std::size_t i = 0; i < query.selects.size(); ++i) {
        Scope scope;
        scope.outer = outer;
        resolveSelect(query.selects[i], scope, derived);
        if (query.selects[i].output.size() != query.selects.front().output.size()) {
            throw base::Error(ErrorNumber::Syntax,
                              u"The selects of a UNION have to give the same number of columns."_s);
        }
        // The order of a union knows the tables of its first select.
        if (i == 0)
            first = std::move(scope);
    }
    // Who reads a column of a UNION meets the values of each of its selects.
    std::vector<OutputColumn> &output = query.selects.front().output;
    for (const Select &select : query.selects) {
        for (std::size_t i = 0; i < output.size(); ++i)
            output[i].kind = commonType(output[i].kind, select.output[i].kind);
    }
    // The whole is sorted by what the first select calls its columns.
    for (OrderItem &item : query.orderBy)
        resolveOrder(item, query, first);
    markCompared(query);
}

/// The engine compares a memo by its place in the file, so where rows are compared it has to be
/// written as a plain text.
void Resolver::markCompared(Query &query)
{
    // UNION ALL compares no rows, plain UNION all of them.
    const bool united = std::ranges::find(query.all, false) != query.all.end();
    const bool sorted = std::ranges::any_of(query.orderBy, [](const OrderItem &item) {
        return item.ordinal > 0 || item.value->kind == Expression::Kind::Literal;
    });
    for (Select &select : query.selects) {
        select.compared = united || sorted || select.distinct || !select.groupBy.empty();
        const bool memos = std::ranges::find(select.output, MemoLength, &OutputColumn::length) !=
                           select.output.end();
        select.expanded = select.expanded || (select.compared && memos);
    }
}

void Resolver::resolveSelect(Select &select, Scope &scope, bool derived)
{
    scope.select = &select;
    resolveJoins(select.from, scope);
    select.sources = scope.sources;
    scope.qualifies =
        !select.groupBy.empty() && std::ranges::any_of(select.items, [&](const SelectItem &item) {
            return std::ranges::any_of(scope.sources, [&](const Source *source) {
                return !item.alias.isEmpty() && source->find(item.alias) >= 0;
            });
        });
    // Not before all tables are known: a condition may name any of them.
    resolveJoinConditions(select.from, scope);
    resolveItems(select, scope);
    if (select.where)
        resolveExpression(*select.where, scope);
    for (ExpressionPointer &group : select.groupBy)
        resolveExpression(*group, scope);
    if (select.having)
        resolveExpression(*select.having, scope);
    // Found out in the items and in HAVING before; it decides what ORDER BY means.
    select.aggregates = select.aggregates || !select.groupBy.empty();
    makeOutput(select, derived);
}

void Resolver::resolveJoins(JoinChain &chain, Scope &scope)
{
    for (Join &member : chain) {
        if (member.group) {
            resolveJoins(*member.group, scope);
            continue;
        }
        resolveSource(*member.source, scope);
        for (const Source *other : scope.sources) {
            if (!member.source->name().isEmpty() &&
                equalNames(other->name(), member.source->name())) {
                raiseSyntaxError(
                    u"the name \"%1\" stands for two tables; give one of them another."_s.arg(
                        member.source->name()),
                    m_statement, member.source->position);
            }
        }
        scope.sources.push_back(member.source.get());
    }
}

void Resolver::resolveJoinConditions(JoinChain &chain, const Scope &scope)
{
    for (Join &member : chain) {
        if (member.group)
            resolveJoinConditions(*member.group, scope);
        if (member.condition)
            resolveExpression(*member.condition, scope);
    }
}

void Resolver::resolveSource(Source &source, const Scope &scope)
{
    if (source.derived) {
        // A derived table knows the selects around the one that it stands in, not its neighbours.
        resolveQuery(*source.derived, scope.outer, true);
        source.derivedColumns = source.derived->selects.front().output;
    } else {
        source.table = m_schema.find(source.tableName);
        if (!source.table) {
            throw base::Error(ErrorNumber::TableUnknown,
                              u"The table \"%1\" does not exist."_s.arg(source.tableName));
        }
    }
    nameSource(source);
}

void Resolver::nameSource(Source &source)
{
    if (source.alias.isEmpty() && source.table) {
        source.written = EngineTypes::quotedName(source.table->name);
        return;
    }
    source.renamed = true;
    // A name of our own where there is none, or none that is short enough for the engine.
    source.written = source.alias.isEmpty() || !fitsEngine(source.alias)
                         ? EngineTypes::quotedName(u"~Q%1"_s.arg(++m_madeNames))
                         : EngineTypes::quotedName(source.alias);
}

void Resolver::resolveItems(Select &select, const Scope &scope)
{
    for (SelectItem &item : select.items) {
        if (item.kind == SelectItem::Kind::Value) {
            resolveExpression(*item.value, scope);
            continue;
        }
        if (select.sources.empty())
            raiseSyntaxError(u"\"*\" needs a FROM clause."_s, m_statement, item.position);
        if (item.kind == SelectItem::Kind::AllColumns) {
            // The engine takes a bare star only where nothing else stands in the list.
            select.expanded = select.expanded || select.items.size() > 1;
            continue;
        }
        for (const Source *source : select.sources) {
            if (equalNames(source->name(), item.table))
                item.source = source;
        }
        if (!item.source) {
            throw base::Error(ErrorNumber::TableUnknown,
                              u"The statement has no table \"%1\"."_s.arg(item.table));
        }
    }
}

void Resolver::makeOutput(Select &select, bool derived)
{
    QSet<QString> taken;
    const auto add = [&](OutputColumn column) {
        column.written = column.name;
        if (!fitsEngine(column.name))
            column.written = u"~C%1"_s.arg(select.output.size() + 1);
        // Only the columns of a derived table have to be told apart by the engine.
        if (derived) {
            QString key = column.written.toLower();
            if (taken.contains(key)) {
                column.written = u"~C%1"_s.arg(select.output.size() + 1);
                key = column.written;
                select.expanded = true;
            }
            taken.insert(key);
        }
        select.output.push_back(std::move(column));
    };
    const auto addAll = [&](const Source &source) {
        for (int i = 0; i < source.columnCount(); ++i)
            add({source.columnName(i), {}, source.columnKind(i), source.columnLength(i)});
    };
    int unnamed = 0;
    for (const SelectItem &item : select.items) {
        if (item.kind == SelectItem::Kind::TableColumns) {
            addAll(*item.source);
        } else if (item.kind == SelectItem::Kind::AllColumns) {
            for (const Source *source : select.sources)
                addAll(*source);
        } else {
            const Expression &value = *item.value;
            OutputColumn column;
            column.kind = value.isCondition() ? ColumnKind::YesNo : value.type;
            if (!item.alias.isEmpty())
                column.name = item.alias.toString();
            else if (value.kind == Kind::Name)
                column.name = value.source->columnName(value.column);
            else
                // Queries around this one may refer to the value by that name.
                column.name = u"Expr%1"_s.arg(1000 + unnamed++);
            if (value.kind == Kind::Name)
                column.length = value.source->columnLength(value.column);
            add(std::move(column));
        }
    }
}

int Resolver::orderedOutput(const OrderItem &item, const Query &query, const Scope &scope)
{
    const Expression &value = *item.value;
    const Select &select = query.selects.front();
    if (value.kind != Kind::Name)
        return 0;
    const bool onlyOutput = query.selects.size() > 1;
    const Found column = find(value, scope);
    if (value.qualifier.isEmpty()) {
        int named = 0;
        for (std::size_t i = 0; i < select.output.size() && named == 0; ++i) {
            if (equalNames(select.output[i].name, value.name))
                named = static_cast<int>(i) + 1;
        }
        // A column of the tables goes before an output column of its name, so that an expression
        // named like a column sorts by the column. Where only the output is left to sort by, the
        // output's name counts.
        const bool columnCounts = column.source && !column.ambiguous && !column.outside &&
                                  !onlyOutput && !select.distinct && !select.aggregates;
        if (named != 0 && !columnCounts)
            return named;
    }
    // Where only the output can be sorted by, a column goes by its place there.
    if (!column.source || column.ambiguous || !(onlyOutput || select.distinct))
        return 0;
    int ordinal = 0;
    for (const SelectItem &selected : select.items) {
        // Behind a star the places are not counted.
        if (selected.kind != SelectItem::Kind::Value)
            return 0;
        ++ordinal;
        if (selected.value->kind == Kind::Name && selected.value->source == column.source &&
            selected.value->column == column.column)
            return ordinal;
    }
    return 0;
}

void Resolver::resolveOrder(OrderItem &item, Query &query, const Scope &scope)
{
    Expression &value = *item.value;
    const auto columns = static_cast<int>(query.selects.front().output.size());
    // "order by 2" means the second column, as in the engine, which takes the number from the text.
    if (value.kind == Kind::Literal && value.token.kind == TokenKind::Integer) {
        const qint64 ordinal = value.token.text.toLongLong();
        if (value.negated || ordinal < 1 || ordinal > columns)
            raiseSyntaxError(u"there is no column of this number to sort by."_s, m_statement,
                             value.position);
        value.type = ColumnKind::Integer;
        return;
    }
    item.ordinal = orderedOutput(item, query, scope);
    if (item.ordinal != 0)
        return;
    if (query.selects.size() > 1) {
        raiseSyntaxError(u"a UNION is sorted by the names of its columns."_s, m_statement,
                         value.position);
    }
    // The engine would take a bare name for an output column of that name.
    m_sorting = true;
    resolveExpression(value, scope);
    m_sorting = false;
}

} // namespace sql
