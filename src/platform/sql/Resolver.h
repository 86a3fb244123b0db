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

    void resolveChange(Change &change, StatementKind kind);
    void resolveQuery(Query &query, const Scope *outer, bool derived);
    void resolveSelect(Select &select, Scope &scope, bool derived);
    void resolveJoins(JoinChain &chain, Scope &scope);
    void resolveJoinConditions(JoinChain &chain, const Scope &scope);
    void resolveSource(Source &source, const Scope &scope);
    void nameSource(Source &source);
    void resolveItems(Select &select, const Scope &scope);
    void makeOutput(Select &select, bool derived);
    static void markCompared(Query &query);
    void resolveOrder(OrderItem &item, Query &query, const Scope &scope);
    [[nodiscard]] int orderedOutput(const OrderItem &item, const Query &query, const Scope &scope);

    void resolveExpression(Expression &expression, const Scope &scope);
    void resolveOperands(Expression &expression, const Scope &scope);
    void resolveName(Expression &name, const Scope &scope);
    void resolveCall(Expression &call, const Scope &scope);
    void resolveInQuery(Expression &expression, const Scope &scope);
    void checkTextOperands(const Expression &chain);
    [[nodiscard]] Found find(const Expression &name, const Scope &scope) const;

    QStringView m_statement;
    const Schema &m_schema;
    int m_madeNames = 0;
    bool m_sorting = false; ///< within ORDER BY
};

} // namespace sql
