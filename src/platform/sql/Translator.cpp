#include "platform/sql/Translator.h"

#include "platform/sql/DefinitionWriter.h"
#include "platform/sql/JoinReduction.h"
#include "platform/sql/Lexer.h"
#include "platform/sql/Parser.h"
#include "platform/sql/Resolver.h"
#include "platform/sql/Writer.h"

namespace sql {

Lifted lift(QStringView statement)
{
    Lifted lifted;
    lifted.key.reserve(statement.size());
    Lexer lexer(statement);
    qsizetype copied = 0;
    for (Token token = lexer.next(); token.kind != TokenKind::End; token = lexer.next()) {
        if (token.kind == TokenKind::Parameter)
            ++lifted.callerParameters;
        if (!token.isLiteral())
            continue;
        lifted.literals.push_back({literalValue(token, statement)});
        // A control character can't be part of any statement that gets through the lexer.
        lifted.key += statement.sliced(copied, token.begin - copied);
        lifted.key +=
            QChar(u'\x01' + static_cast<int>(token.kind) - static_cast<int>(TokenKind::Text));
        copied = token.end;
    }
    lifted.key += statement.sliced(copied);
    return lifted;
}

Plan translate(QStringView statement, const Schema &schema, const TranslateOptions &options)
{
    Parser parser(statement);
    Statement tree = parser.parseStatement();
    Plan plan;
    if (tree.definition) {
        plan.kind = StatementKind::Ddl;
        plan.ddl = definitionStatements(*tree.definition, statement, schema);
        const auto literals = static_cast<int>(lift(statement).literals.size());
        // No part of a definition can be a parameter of the engine.
        for (int i = 0; i < literals; ++i)
            plan.fixedLiterals.push_back(i);
        return plan;
    }
    // In this order: joins are reduced by what the names mean, and the writer may then take all
    // names and types for granted.
    Resolver(statement, schema).resolve(tree);
    reduceOuterJoins(tree);
    Writer(statement, options, plan).write(tree);
    return plan;
}

} // namespace sql
