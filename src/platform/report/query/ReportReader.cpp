#include "platform/report/query/ReportReader.h"

#include "platform/base/Format.h"
#include "platform/report/expr/Expression.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "platform/report/query/QueryText.h"
#include "platform/sql/Conversion.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// Knows the day and the hour, and nothing else.
class ClockContext final : public EvaluationContext
{
public:
    explicit ClockContext(QDateTime now)
        : m_now(std::move(now))
    {}
    [[nodiscard]] std::optional<QVariant> value(const QString &name) const override
    {
        if (name == u"today")
            return QDateTime(m_now.date(), QTime(0, 0), Qt::UTC);
        if (name == u"now")
            return m_now;
        return std::nullopt;
    }
    [[nodiscard]] QVariant aggregate(int) const override { return {}; }

private:
    const QDateTime m_now;
};

[[noreturn]] void refuse(const QString &what)
{
    throw base::Error(base::ErrorNumber::InvalidCall, what);
}

/// The answer to a parameter of the layout; raises base::Error for a name that is none, and for an
/// answer that is missing.
QVariant answerFor(const Layout &layout, const QString &name, const Answers &answers)
{
    for (const Parameter &parameter : layout.parameters) {
        if (parameter.name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        QVariant answer = answers.value(name.toLower());
        if (answer.isNull() && !parameter.isOptional)
            refuse(u"The report needs a value for \"%1\"."_s.arg(
                parameter.prompt.isEmpty() ? parameter.name : parameter.prompt));
        return answer;
    }
    // Left open, it would reach the engine as a parameter without a value.
    refuse(u"The report's query asks for \"%1\", which is none of its parameters."_s.arg(name));
}

std::shared_ptr<const DataSource> runQuery(const Layout &layout, const QString &query,
                                           const Answers &answers, QueryRunner &runner)
{
    const QueryText text = withoutNames(query);
    QVariantList values;
    for (const QString &name : text.parameters)
        values.append(answerFor(layout, name, answers));
    return runner.run(text.statement, values);
}

} // namespace

std::shared_ptr<const DataSource> DatabaseRunner::run(const QString &statement,
                                                      const QVariantList &parameters)
{
    return std::make_shared<RecordsetSource>(m_connection.Open(statement, parameters));
}

ReportRows readRows(const Layout &layout, const Answers &answers, QueryRunner &runner)
{
    if (layout.query.isEmpty())
        refuse(u"The report has no query of its own."_s);
    ReportRows result;
    result.rows = runQuery(layout, layout.query, answers, runner);
    result.sets = readRowSets(layout, answers, runner);
    return result;
}

QHash<QString, std::shared_ptr<const DataSource>>
readRowSets(const Layout &layout, const Answers &answers, QueryRunner &runner)
{
    QHash<QString, std::shared_ptr<const DataSource>> sets;
    for (const RowSet &set : layout.rowSets)
        sets.insert(set.name, runQuery(layout, set.query, answers, runner));
    return sets;
}

QVariant usualAnswer(const Parameter &parameter, const QDateTime &now, QStringList &problems)
{
    if (parameter.usual.isEmpty())
        return {};
    QString error;
    const Expression expression = Expression::parse(parameter.usual, &error);
    // What is offered is asked for before the rows are there.
    for (const QString &name : expression.names())
        if (name != u"today" && name != u"now")
            error = u"there is no \"%1\" before the report is read"_s.arg(name);
    if (!error.isEmpty()) {
        problems.append(u"parameter %1: %2"_s.arg(parameter.name, error));
        return {};
    }
    return expression.evaluate(ClockContext(now));
}

QVariantList choicesOf(const Parameter &parameter, QueryRunner &runner)
{
    QVariantList choices;
    if (parameter.list.isEmpty())
        return choices;
    const auto rows = runner.run(parameter.list, {});
    for (int row = 0; row < rows->rowCount(); ++row)
        if (const QVariant value = rows->value(row, 0);
            !value.isNull() && (choices.isEmpty() || compareValues(choices.last(), value) != 0))
            choices.append(value);
    return choices;
}

std::optional<QVariant> answerOf(const Parameter &parameter, const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QVariant();
    switch (parameter.type) {
    case ParameterType::Text:
        return trimmed;
    case ParameterType::Number:
        return sql::parseNumber(trimmed);
    case ParameterType::Date: {
        const auto date = base::parseMonthFirst(trimmed);
        return date ? std::optional<QVariant>(*date) : std::nullopt;
    }
    case ParameterType::YesNo:
        break;
    }
    const bool yes = trimmed.compare(u"yes", Qt::CaseInsensitive) == 0;
    const bool no = trimmed.compare(u"no", Qt::CaseInsensitive) == 0;
    return yes || no ? std::optional<QVariant>(yes) : std::nullopt;
}

} // namespace report
