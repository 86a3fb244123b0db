#pragma once

#include "platform/db/Gradual.h"
#include "platform/db/Statement.h"

namespace db {

/// A statement of its own, since one of the cache would have to be free for others, and its cursor.
class Gradual::Source
{
public:
    /// The statement's parameters are set.
    Source(std::unique_ptr<engine::Statement> statement, const engine::Context &context);

    bool fetch(int rows);
    [[nodiscard]] bool isComplete() const { return !m_cursor; }
    [[nodiscard]] Recordset rows() const;

private:
    std::unique_ptr<engine::Statement> m_statement;
    engine::Context m_context;
    std::shared_ptr<RowData> m_rows;
    engine::Ref<Firebird::IResultSet> m_cursor;
};

} // namespace db
