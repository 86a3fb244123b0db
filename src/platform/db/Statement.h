#pragma once

#include "platform/db/InputMessage.h"
#include "platform/db/OutputMessage.h"

#include <QString>

#include <memory>
#include <span>

namespace db::engine {

/// A statement that the engine has compiled, with its messages; to be run any number of times.
class Statement
{
public:
    /// Raises DbError when the engine refuses it.
    Statement(const Context &context, const QString &text, const sql::Schema *schema);
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    /// True for a query: then fetch gives its rows, else execute runs it.
    [[nodiscard]] bool hasRows() const { return m_hasRows; }
    [[nodiscard]] std::size_t parameterCount() const { return m_input.count(); }
    /// Gives a result column the name that the engine could not carry.
    void renameColumn(int column, const QString &name) { m_output.renameColumn(column, name); }

    /// Sets the parameters; see InputMessage::bind.
    [[nodiscard]] bool bind(std::span<const QVariant *const> values, const Context &context)
    {
        return m_input.bind(values, context);
    }
    /// Runs a query with the parameters set before and fetches its rows.
    [[nodiscard]] std::shared_ptr<RowData> fetch(const Context &context);
    /// The same a part at a time: first a cursor with the parameters set before, of which there is
    /// one at a time.
    [[nodiscard]] Ref<Firebird::IResultSet> openCursor(const Context &context);
    [[nodiscard]] std::shared_ptr<RowData> emptyRows() const
    {
        return std::make_shared<RowData>(m_output.layout());
    }
    /// Appends up to so many rows; false when there are no more.
    bool fetchSome(Firebird::IResultSet &cursor, RowData &rows, int count, const Context &context);
    /// Runs a statement without a cursor; the number of rows that it changed.
    qint64 execute(const Context &context);
    /// The first column of the row that the statement run last gave back (RETURNING).
    [[nodiscard]] qint64 returned() const { return m_output.integer(0); }

private:
    Status m_status;
    Ref<Firebird::IStatement> m_statement;
    InputMessage m_input;
    OutputMessage m_output;
    bool m_hasRows;
};

/// Runs a query of the engine's own dialect once, for the catalogue and the like.
[[nodiscard]] std::shared_ptr<const RowData> query(const Context &context, const QString &text);

} // namespace db::engine
