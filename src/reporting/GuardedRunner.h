#pragma once

#include "platform/report/query/ReportReader.h"

#include <optional>

/// Reports of the users' own: what they may read, and how their rows come.
namespace ownreports {

/// Raises base::Error when a query of a layout asks for a table that no report shows, such as that
/// of the users and their passwords.
void demandShowable(const QString &statement);

/// Runs the queries of layouts: only reading, and only what reports may show. It attaches with the
/// first query.
class GuardedRunner final : public report::QueryRunner
{
public:
    explicit GuardedRunner(db::Target target)
        : m_target(std::move(target))
    {}
    [[nodiscard]] std::shared_ptr<const report::DataSource>
    run(const QString &statement, const QVariantList &parameters) override;

private:
    db::Target m_target;
    std::optional<report::DatabaseRunner> m_runner;
};

/// Rows in the order that a layout's groups need.
[[nodiscard]] std::shared_ptr<const report::DataSource>
ordered(std::shared_ptr<const report::DataSource> rows, const report::Layout &layout,
        const report::Inputs &inputs);

/// What a report that reads for itself is shown with: its rows in order, and all that it is given
/// besides. Raises base::Error as report::readRows does.
struct OwnRows
{
    std::shared_ptr<const report::DataSource> rows;
    report::Inputs inputs;
};
[[nodiscard]] OwnRows readOwn(const report::Layout &layout, const report::Answers &answers,
                              report::QueryRunner &runner);

} // namespace ownreports
