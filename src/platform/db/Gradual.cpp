#include "platform/db/GradualSource.h"

#include <utility>

namespace db {

Gradual::Source::Source(std::unique_ptr<engine::Statement> statement,
                        const engine::Context &context)
    : m_statement(std::move(statement))
    , m_context(context)
    , m_rows(m_statement->emptyRows())
    , m_cursor(m_statement->openCursor(context))
{}

bool Gradual::Source::fetch(int rows)
{
    if (m_cursor && !m_statement->fetchSome(*m_cursor.get(), *m_rows, rows, m_context))
        // At once, for an open cursor keeps its transaction's old rows alive.
        m_cursor = {};
    return !isComplete();
}

Recordset Gradual::Source::rows() const
{
    if (isComplete())
        return Recordset(m_rows);
    // Rows that are shared don't change any more, and these are still to grow.
    return Recordset(std::make_shared<const RowData>(*m_rows));
}

Gradual::Gradual(std::unique_ptr<Source> source)
    : m_source(std::move(source))
{}

Gradual::~Gradual() = default;
Gradual::Gradual(Gradual &&) noexcept = default;
Gradual &Gradual::operator=(Gradual &&) noexcept = default;

bool Gradual::fetch(int rows)
{
    return m_source->fetch(rows);
}

bool Gradual::isComplete() const
{
    return m_source->isComplete();
}

Recordset Gradual::rows() const
{
    return m_source->rows();
}

} // namespace db
