#pragma once

#include "platform/db/ReadOnlyConnection.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/DataSource.h"

#include <QStringList>
#include <optional>

namespace report {

/// Runs queries for reports that read for themselves.
class QueryRunner
{
public:
    virtual ~QueryRunner() = default;
    /// The rows of a query, "?" for parameters. Raises base::Error.
    [[nodiscard]] virtual std::shared_ptr<const DataSource> run(const QString &statement,
                                                                const QVariantList &parameters) = 0;
};

/// Runs them on a connection of its own that can only read.
class DatabaseRunner final : public QueryRunner
{
public:
    /// Attaches; raises db::DbError.
    explicit DatabaseRunner(const db::Target &target)
        : m_connection(target)
    {}
    [[nodiscard]] std::shared_ptr<const DataSource> run(const QString &statement,
                                                        const QVariantList &parameters) override;

private:
    db::ReadOnlyConnection m_connection;
};

/// The answers to a layout's parameters, by name in lower case.
using Answers = QHash<QString, QVariant>;

/// All rows of a report that reads for itself.
struct ReportRows
{
    std::shared_ptr<const DataSource> rows;
    QHash<QString, std::shared_ptr<const DataSource>> sets;
};

/// Runs a layout's query and those of its further rows, each once, the answers bound. Raises
/// base::Error: for a layout without a query, a name that is no parameter, a parameter without an
/// answer that needs one, and as the runner does.
[[nodiscard]] ReportRows readRows(const Layout &layout, const Answers &answers,
                                  QueryRunner &runner);
/// Only the further rows, for a report whose own rows are given.
[[nodiscard]] QHash<QString, std::shared_ptr<const DataSource>>
readRowSets(const Layout &layout, const Answers &answers, QueryRunner &runner);

/// What is offered for a parameter: its default, Null without one. Problems are added to the list.
[[nodiscard]] QVariant usualAnswer(const Parameter &parameter, const QDateTime &now,
                                   QStringList &problems);
/// The values that a parameter's list offers, none without one. Raises as the runner does.
[[nodiscard]] QVariantList choicesOf(const Parameter &parameter, QueryRunner &runner);
/// What a text means for a parameter: Null for an empty one; nothing when it can't be read as the
/// parameter's type.
[[nodiscard]] std::optional<QVariant> answerOf(const Parameter &parameter, const QString &text);

} // namespace report
