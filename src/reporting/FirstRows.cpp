#include "reporting/FirstRows.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/db/ReadOnlyConnection.h"
#include "platform/report/query/QueryText.h"
#include "platform/report/query/ReportReader.h"
#include "platform/sql/Lexer.h"
#include "reporting/GuardedRunner.h"

#include <algorithm>

namespace ownreports {

using namespace Qt::StringLiterals;

namespace {

/// What is offered for one of the layout's parameters; a name that is none raises base::Error.
QVariant usualValue(const report::Layout &layout, const QString &name)
{
    for (const report::Parameter &parameter : layout.parameters) {
        QStringList problems;
        if (parameter.name.compare(name, Qt::CaseInsensitive) == 0)
            return report::usualAnswer(parameter, base::now(), problems);
    }
    throw base::Error(
        base::ErrorNumber::InvalidCall,
        u"The query asks for \"%1\", which is none of the report's parameters."_s.arg(name));
}

} // namespace

QString limited(const QString &query, int rows)
{
    using sql::Keyword;
    const std::vector<sql::Token> tokens = sql::tokensOf(query);
    const bool isUnion =
        std::ranges::find(tokens, Keyword::Union, &sql::Token::keyword) != tokens.end();
    if (isUnion || tokens.front().keyword != Keyword::Select)
        return query;
    std::size_t at = 1;
    while (tokens[at].keyword == Keyword::Distinct || tokens[at].keyword == Keyword::DistinctRow ||
           tokens[at].keyword == Keyword::All)
        ++at;
    if (tokens[at].keyword == Keyword::Top)
        return query;
    QString limitedQuery = query;
    return limitedQuery.insert(tokens[at - 1].end, u" TOP %1"_s.arg(rows));
}

db::Recordset firstRows(const report::Layout &layout, int rows)
{
    const report::QueryText text = report::withoutNames(layout.query);
    demandShowable(text.statement);
    QVariantList values;
    for (const QString &name : text.parameters)
        values.append(usualValue(layout, name));
    return db::ReadOnlyConnection(gcnData->target()).Open(limited(text.statement, rows), values);
}

} // namespace ownreports
