#include "platform/sql/Errors.h"
#include "platform/sql/Functions.h"
#include "platform/sql/Names.h"
#include "platform/sql/Resolver.h"
#include "platform/sql/Types.h"

namespace sql {

using namespace Qt::StringLiterals;
using Kind = Expression::Kind;

namespace {

QString shownName(const Expression &name)
{
    return name.qualifier.isEmpty() ? name.name.toString()
                                    : u"%1.%2"_s.arg(name.qualifier, name.name);
}

ColumnKind literalType(TokenKind kind)
{
    switch (kind) {
    case TokenKind::Integer:
        return ColumnKind::Integer;
    case TokenKind::Real:
        return ColumnKind::Real;
    case TokenKind::Date:
        return ColumnKind::Date;
    default:
        return ColumnKind::Text;
    }
}

/// A condition that stands for a value is -1 or 0.
ColumnKind typeOf(const Expression &operand)
{
    return operand.isCondition() ? ColumnKind::YesNo : operand.type;
}

/// The type of a function that keeps that of a number, and of a date where that has a whole part.
ColumnKind numberType(FunctionId function, ColumnKind operand)
{
    if (operand == ColumnKind::Date && (function == FunctionId::Int || function == FunctionId::Fix))
        return ColumnKind::Date;
    if (operand == ColumnKind::YesNo)
        return ColumnKind::Integer;
    return isNumber(operand) ? operand : ColumnKind::Real;
}

/// The type of a call of a function whose type follows from its operands'.
ColumnKind typeByOperands(const Expression &call)
{
    const auto operand = [&](std::size_t index) { return typeOf(*call.operands[index]); };
    ColumnKind type = ColumnKind::Unknown;
    switch (call.function->id) {
    case FunctionId::IIf:
        return commonType(operand(1), operand(2));
    case FunctionId::Switch:
        for (std::size_t i = 1; i < call.operands.size(); i += 2)
            type = commonType(type, operand(i));
        return type;
    case FunctionId::Nz:
        return call.operands.size() > 1 ? commonType(operand(0), operand(1)) : operand(0);
    case FunctionId::Max:
    case FunctionId::Min:
        return operand(0);
    default:
        return numberType(call.function->id, operand(0));
    }
}

} // namespace

Resolver::Found Resolver::find(const Expression &name, const Scope &scope) const
{
    bool outside = false;
    // The nearest select that has such a column counts, whatever those around it have.
    for (const Scope *around = &scope; around; around = around->outer) {
        Found found;
        found.outside = outside;
        for (const Source *source : around->sources) {
            if (!name.qualifier.isEmpty() && !equalNames(source->name(), name.qualifier))
                continue;
            const int column = source->find(name.name);
            if (column < 0)
                continue;
            // In two tables: which one is meant can't be told, and the engine would choose.
            if (found.source) {
                found.ambiguous = true;
                break;
            }
            found.source = source;
            found.column = column;
        }
        if (found.source)
            return found;
        outside = true;
    }
    return {};
}

void Resolver::resolveName(Expression &name, const Scope &scope)
{
    const Found found = find(name, scope);
    if (!found.source) {
        throw base::Error(
            ErrorNumber::ValueMissing,
            u"No value is given for \"%1\": no table of the statement has a column of "
            "that name."_s.arg(shownName(name)));
    }
    if (found.ambiguous) {
        raiseSyntaxError(
            u"the column \"%1\" stands in more than one table; write the table before it."_s.arg(
                name.name),
            m_statement, name.position);
    }
    name.source = found.source;
    name.column = found.column;
    // Where a bare name could mean an output column, or another table's, to the engine.
    name.qualified = found.outside || m_sorting || scope.qualifies || scope.sources.size() > 1;
    name.type = found.source->columnKind(found.column);
}

void Resolver::resolveOperands(Expression &expression, const Scope &scope)
{
    for (ExpressionPointer &operand : expression.operands)
        resolveExpression(*operand, scope);
}

void Resolver::resolveExpression(Expression &expression, const Scope &scope)
{
    switch (expression.kind) {
    case Kind::Literal:
        expression.type = literalType(expression.token.kind);
        return;
    // Of no kind until it meets something: then it is of that one's.
    case Kind::Parameter:
    case Kind::Null:
        return;
    case Kind::Boolean:
        expression.type = ColumnKind::YesNo;
        return;
    case Kind::Name:
        resolveName(expression, scope);
        return;
    // The values of an INSERT stand in no select.
    case Kind::CountRows:
        if (scope.select)
            scope.select->aggregates = true;
        expression.type = ColumnKind::Integer;
        return;
    case Kind::Call:
        resolveCall(expression, scope);
        return;
    case Kind::Negate:
        resolveOperands(expression, scope);
        // As 0 minus the operand: a negated Yes/No is a whole number.
        expression.type = isNumber(expression.operands.front()->type)
                              ? arithmeticType(Operator::Subtract, ColumnKind::Integer,
                                               expression.operands.front()->type)
                              : ColumnKind::Real;
        return;
    case Kind::Arithmetic:
        resolveOperands(expression, scope);
        // The outcome of the last step is that of the whole chain.
        expression.type = chainTypes(expression).back();
        return;
    case Kind::Scalar:
    case Kind::Exists:
    case Kind::InQuery:
        resolveInQuery(expression, scope);
        return;
    // What is left are the conditions.
    default:
        resolveOperands(expression, scope);
        expression.type = ColumnKind::YesNo;
    }
}

void Resolver::resolveInQuery(Expression &expression, const Scope &scope)
{
    resolveOperands(expression, scope);
    resolveQuery(*expression.query, &scope, false);
    expression.type = ColumnKind::YesNo;
    // EXISTS asks for rows alone, whatever columns they have.
    if (expression.kind == Kind::Exists)
        return;
    const std::vector<OutputColumn> &output = expression.query->selects.front().output;
    if (output.size() != 1) {
        raiseSyntaxError(u"a query that stands for a value has to give one column."_s, m_statement,
                         expression.position);
    }
    if (expression.kind == Kind::Scalar)
        expression.type = output.front().kind;
}

void Resolver::resolveCall(Expression &call, const Scope &scope)
{
    resolveOperands(call, scope);
    if (call.function->isAggregate() && scope.select)
        scope.select->aggregates = true;
    // The same condition as "Is Null".
    if (call.function->id == FunctionId::IsNull)
        call.kind = Kind::IsNull;
    call.type =
        call.function->type == ColumnKind::Unknown ? typeByOperands(call) : call.function->type;
}

} // namespace sql
