#include "reporting/GuardedRunner.h"

#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/paginate/RowOrder.h"
#include "platform/sql/Lexer.h"

namespace ownreports {

using namespace Qt::StringLiterals;

namespace {

/// Another source's rows in another order.
class OrderedSource final : public report::DataSource
{
public:
    OrderedSource(std::shared_ptr<const report::DataSource> rows, std::vector<int> order)
        : m_rows(std::move(rows))
        , m_order(std::move(order))
    {}
    [[nodiscard]] int rowCount() const override { return m_rows->rowCount(); }
    [[nodiscard]] int fieldIndex(const QString &name) const override
    {
        return m_rows->fieldIndex(name);
    }
    [[nodiscard]] QVariant value(int row, int field) const override
    {
        return m_rows->value(m_order[row], field);
    }

private:
    std::shared_ptr<const report::DataSource> m_rows;
    std::vector<int> m_order;
};

} // namespace

void demandShowable(const QString &statement)
{
    constexpr QStringView Users = u"tblUser";
    // Names are compared word by word: a text that speaks of the table is no query of it.
    for (const sql::Token &token : sql::tokensOf(statement)) {
        const bool isName =
            token.kind == sql::TokenKind::Word || token.kind == sql::TokenKind::Name;
        if (isName && token.text.trimmed().compare(Users, Qt::CaseInsensitive) == 0)
            throw base::Error(base::ErrorNumber::PermissionDenied,
                              u"Users and their passwords are shown in no report."_s);
    }
}

std::shared_ptr<const report::DataSource> GuardedRunner::run(const QString &statement,
                                                             const QVariantList &parameters)
{
    demandShowable(statement);
    if (!m_runner)
        m_runner.emplace(m_target);
    return m_runner->run(statement, parameters);
}

std::shared_ptr<const report::DataSource> ordered(std::shared_ptr<const report::DataSource> rows,
                                                  const report::Layout &layout,
                                                  const report::Inputs &inputs)
{
    // Not by the engine: groups may go by expressions that only layouts know.
    std::vector<int> order = report::orderOf(layout, *rows, inputs);
    return std::make_shared<OrderedSource>(std::move(rows), std::move(order));
}

OwnRows readOwn(const report::Layout &layout, const report::Answers &answers,
                report::QueryRunner &runner)
{
    report::ReportRows read = report::readRows(layout, answers, runner);
    OwnRows own;
    own.inputs.parameters = answers;
    own.inputs.rowSets = std::move(read.sets);
    own.inputs.now = base::now();
    own.inputs.folder = base::applicationPath(u"\\User Defined Reports"_s);
    own.rows = ordered(std::move(read.rows), layout, own.inputs);
    return own;
}

} // namespace ownreports
