#include "platform/report/query/QueryText.h"

#include "platform/sql/Lexer.h"

namespace report {

QueryText withoutNames(const QString &query)
{
    QueryText result;
    const std::vector<sql::Token> tokens = sql::tokensOf(query);
    qsizetype copied = 0;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].kind != sql::TokenKind::Parameter)
            continue;
        result.statement += QStringView(query).sliced(copied, tokens[at].end - copied);
        copied = tokens[at].end;
        // A name stands right behind its sign; with a blank between them it is the next word of the
        // query.
        const bool isNamed = at + 1 < tokens.size() && tokens[at + 1].begin == tokens[at].end &&
                             (tokens[at + 1].kind == sql::TokenKind::Word ||
                              tokens[at + 1].kind == sql::TokenKind::Name);
        result.parameters.append(isNamed ? tokens[at + 1].text.toString() : QString());
        if (isNamed)
            copied = tokens[at + 1].end;
    }
    result.statement += QStringView(query).sliced(copied);
    return result;
}

} // namespace report
