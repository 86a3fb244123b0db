#pragma once

#include "platform/sql/Tree.h"

namespace sql {

/// Finds out which table and column every name of a statement means, and of which type every
/// expression is. Works on the tree; the schema has to outlive what is done with it.
class Resolver
{
public:
    Resolver(QStringView statement, const Schema &schema)
        : m_statement(statement)
        , m_schema(schema)
    {}

    /// Raises table unknown, value missing, syntax and type mismatch errors.
    void resolve(Statement &statement);

private:
    /// The tables that a name may mean: those of a select, then those of the select around it.
    struct Scope
    {
        Select *select = nullptr; ///< null for the target of a change
        std::vector<Source *> sources;
        const Scope *outer = nullptr;
        /// In the engine's GROUP BY a bare name is an output column's before a table's.
        bool qualifies = false;
    };
    struct Found
    {
        const Source *source = nullptr;
        int column = -1;
        bool outside = false; ///< in a select around this one
        bool ambiguous = false;
    };

    /// An insert, update or delete. An insert has to give as many values as it names columns.
    void resolveChange(Change &change, StatementKind kind);
    /// The selects of a query, then its order. outer: what the selects around it know, null for
    /// none. derived: it stands in a FROM clause, where the engine has to tell its columns apart.
    void resolveQuery(Query &query, const Scope *outer, bool derived);
    void resolveSelect(Select &select, Scope &scope, bool derived);
    /// First all tables of the FROM clause, then the conditions, since a condition may name any of
    /// them.
    void resolveJoins(JoinChain &chain, Scope &scope);
    void resolveJoinConditions(JoinChain &chain, const Scope &scope);
    void resolveSource(Source &source, const Scope &scope);
    /// Decides how the engine's statement calls a table.
    void nameSource(Source &source);
    /// The values and stars of the list; what the list gives then becomes the output.
    void resolveItems(Select &select, const Scope &scope);
    void makeOutput(Select &select, bool derived);
    /// Finds out which selects compare their rows by what they give.
    static void markCompared(Query &query);
    /// One item of ORDER BY: an output column by number or name, or an expression.
    void resolveOrder(OrderItem &item, Query &query, const Scope &scope);
    /// The number, from 1, of the output column that an item means; 0 when it is an expression.
    [[nodiscard]] int orderedOutput(const OrderItem &item, const Query &query, const Scope &scope);

    /// Types of an expression and all below it, and the columns of its names.
    void resolveExpression(Expression &expression, const Scope &scope);
    void resolveOperands(Expression &expression, const Scope &scope);
    void resolveName(Expression &name, const Scope &scope);
    void resolveCall(Expression &call, const Scope &scope);
    /// A query that stands for a value, or that a condition asks.
    void resolveInQuery(Expression &expression, const Scope &scope);
    /// The column of a name, looked for from the select outwards. Nothing is raised.
    [[nodiscard]] Found find(const Expression &name, const Scope &scope) const;

    QStringView m_statement;
    const Schema &m_schema;
    int m_madeNames = 0;
    bool m_sorting = false; ///< within ORDER BY
};

} // namespace sql
