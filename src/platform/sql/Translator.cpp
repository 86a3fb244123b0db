#include "platform/sql/Translator.h"

#include "platform/sql/EngineTypes.h"
#include "platform/sql/Lexer.h"

namespace sql {

using namespace Qt::StringLiterals;

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

} // namespace sql

namespace sql {

Plan translate(QStringView statement, const Schema &schema, const TranslateOptions &options)
{
    const std::vector<Token> tokens = tokensOf(statement);
    std::vector<const Table *> tables;
    for (const Token &token : tokens) {
        if (const Table *table = schema.find(token.text))
            tables.push_back(table);
    }
    Plan plan;
    switch (tokens.front().keyword) {
    case Keyword::Insert:
        plan.kind = StatementKind::Insert;
        break;
    case Keyword::Update:
        plan.kind = StatementKind::Update;
        break;
    case Keyword::Delete:
        plan.kind = StatementKind::Delete;
        break;
    default:
        break;
    }
    for (const Token &token : tokens) {
        if (!plan.text.isEmpty())
            plan.text += u' ';
        if (token.isLiteral() || token.kind == TokenKind::Parameter) {
            Slot slot;
            slot.source = token.isLiteral() ? Slot::Source::Literal : Slot::Source::Caller;
            slot.index = token.number;
            plan.slots.push_back(slot);
            plan.text += u'?';
            continue;
        }
        const bool name = token.kind == TokenKind::Name ||
                          (token.kind == TokenKind::Word && token.keyword == Keyword::None);
        if (!name) {
            plan.text += token.text;
            continue;
        }
        QString spelling;
        if (const Table *table = schema.find(token.text))
            spelling = table->name;
        for (const Table *table : tables) {
            if (const Column *column = table->find(token.text); column && spelling.isEmpty())
                spelling = column->name;
        }
        plan.text += spelling.isEmpty() ? token.text.toString() : EngineTypes::quotedName(spelling);
    }
    if (!options.returning.isEmpty())
        plan.text += u" RETURNING "_s + EngineTypes::quotedName(options.returning);
    return plan;
}

} // namespace sql
