#include "platform/sql/JoinReduction.h"

#include "platform/sql/Functions.h"

#include <set>

namespace sql {

using Kind = Expression::Kind;

namespace {

using Sources = std::set<const Source *>;

void reduce(Query &query);

/// The tables whose missing row makes the expression Null: all that stand in it where Null passes
/// through.
void collectStrict(const Expression &expression, Sources &strict)
{
    switch (expression.kind) {
    case Kind::Name:
        strict.insert(expression.source);
        return;
    case Kind::Negate:
        break;
    case Kind::Arithmetic:
        for (const Operator operation : expression.operators) {
            if (operation == Operator::Concatenate)
                return; // takes Null as empty text
        }
        break;
    case Kind::Call:
        // Functions that give Null for Null. A function that is not listed costs speed, one too
        // many would lose rows.
        switch (expression.function->id) {
        case FunctionId::Abs:
        case FunctionId::CDate:
        case FunctionId::CDbl:
        case FunctionId::CInt:
        case FunctionId::CStr:
        case FunctionId::Day:
        case FunctionId::Fix:
        case FunctionId::Hour:
        case FunctionId::Int:
        case FunctionId::LCase:
        case FunctionId::Len:
        case FunctionId::Minute:
        case FunctionId::Month:
        case FunctionId::Trim:
        case FunctionId::UCase:
        case FunctionId::Year:
            break;
        default:
            return;
        }
        break;
    default:
        return;
    }
    for (const ExpressionPointer &operand : expression.operands)
        collectStrict(*operand, strict);
}

/// The tables that have to have a row for the condition to hold.
void collectNeeded(const Expression &condition, Sources &needed)
{
    switch (condition.kind) {
    case Kind::And:
        for (const ExpressionPointer &term : condition.operands)
            collectNeeded(*term, needed);
        return;
    // None of these holds where an operand is Null.
    case Kind::Compare:
    case Kind::Like:
    case Kind::InQuery:
        // "x not in (empty)" holds for Null too, so that only the plain form needs a row.
        if (condition.kind == Kind::InQuery && condition.negated)
            return;
        for (const ExpressionPointer &operand : condition.operands)
            collectStrict(*operand, needed);
        return;
    case Kind::In:
    case Kind::Between:
        // A negated "between" may hold by one bound alone.
        collectStrict(*condition.operands.front(), needed);
        return;
    case Kind::IsNull:
        if (condition.negated)
            collectStrict(*condition.operands.front(), needed);
        return;
    case Kind::Name:
        needed.insert(condition.source);
        return;
    // OR, NOT and the rest may hold by another part, so that they need nothing for sure.
    default:
        return;
    }
}

bool contains(const JoinChain &chain, const Sources &sources);

bool contains(const Join &member, const Sources &sources)
{
    return member.group ? contains(*member.group, sources) : sources.contains(member.source.get());
}

bool contains(const JoinChain &chain, const Sources &sources)
{
    for (const Join &member : chain) {
        if (contains(member, sources))
            return true;
    }
    return false;
}

/// Reduces the joins of a chain whose rows are kept only when all the needed tables have one.
void reduce(JoinChain &chain, Sources needed)
{
    // From the last join backwards, since that one is the outermost: what it needs is needed of all
    // rows of those before it.
    for (auto member = chain.rbegin(); member != chain.rend(); ++member) {
        const bool first = std::next(member) == chain.rend();
        Sources neededOfMember = needed;
        if (!first) {
            if (member->kind == JoinKind::Left && contains(*member, needed))
                member->kind = JoinKind::Inner;
            if (member->kind == JoinKind::Right) {
                // All that stands before it is the side that may be missing.
                for (auto left = std::next(member); left != chain.rend(); ++left) {
                    if (contains(*left, needed))
                        member->kind = JoinKind::Inner;
                }
            }
            if (member->condition) {
                Sources joined;
                collectNeeded(*member->condition, joined);
                // The condition decides over rows of both sides of an inner join, but only over
                // those of the side that may be missing of an outer one.
                if (member->kind == JoinKind::Inner)
                    needed.insert(joined.begin(), joined.end());
                if (member->kind == JoinKind::Inner || member->kind == JoinKind::Left)
                    neededOfMember.insert(joined.begin(), joined.end());
            }
            if (member->kind == JoinKind::Full)
                return; // both sides may be missing; nothing is known of what is inside
        }
        if (member->group)
            reduce(*member->group, std::move(neededOfMember));
    }
}

void reduceInside(Expression &expression)
{
    for (ExpressionPointer &operand : expression.operands)
        reduceInside(*operand);
    if (expression.query)
        reduce(*expression.query);
}

/// Each query inside a table or a condition has a WHERE and joins of its own.
void reduceSources(JoinChain &chain)
{
    for (Join &member : chain) {
        if (member.group)
            reduceSources(*member.group);
        else if (member.source->derived)
            reduce(*member.source->derived);
        if (member.condition)
            reduceInside(*member.condition);
    }
}

void reduce(Query &query)
{
    for (Select &select : query.selects) {
        Sources needed;
        if (select.where) {
            collectNeeded(*select.where, needed);
            reduceInside(*select.where);
        }
        reduce(select.from, std::move(needed));
        reduceSources(select.from);
        for (SelectItem &item : select.items) {
            if (item.value)
                reduceInside(*item.value);
        }
        // HAVING looks at groups, in which a missing row may well take part: it needs no table.
        if (select.having)
            reduceInside(*select.having);
    }
}

} // namespace

void reduceOuterJoins(Statement &statement)
{
    if (statement.query)
        reduce(*statement.query);
    if (!statement.change)
        return;
    Change &change = *statement.change;
    if (change.query)
        reduce(*change.query);
    if (change.where)
        reduceInside(*change.where);
    for (Assignment &assignment : change.assignments)
        reduceInside(*assignment.value);
    for (ExpressionPointer &value : change.values)
        reduceInside(*value);
}

} // namespace sql
