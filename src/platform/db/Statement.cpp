#include "platform/db/Statement.h"

#include <limits>

namespace db::engine {
namespace {

constexpr unsigned dialect = 3;

Firebird::IStatement *prepare(const Context &context, const QString &text, Status &status)
{
    const QByteArray bytes = utf8(text);
    return context.attachment->prepare(&status, context.transaction,
                                       static_cast<unsigned>(bytes.size()), bytes.constData(),
                                       dialect, Firebird::IStatement::PREPARE_PREFETCH_METADATA);
}

} // namespace

Statement::Statement(const Context &context, const QString &text, const sql::Schema *schema)
    : m_statement(prepare(context, text, m_status))
    , m_input(Ref(m_statement->getInputMetadata(&m_status)))
    , m_output(Ref(m_statement->getOutputMetadata(&m_status)), schema)
    , m_hasRows((m_statement->getFlags(&m_status) & Firebird::IStatement::FLAG_HAS_CURSOR) != 0)
{}

Ref<Firebird::IResultSet> Statement::openCursor(const Context &context)
{
    return Ref<Firebird::IResultSet>(m_statement->openCursor(&m_status, context.transaction,
                                                             m_input.metadata(), m_input.buffer(),
                                                             m_output.metadata(), 0));
}

bool Statement::fetchSome(Firebird::IResultSet &cursor, RowData &rows, int count,
                          const Context &context)
{
    for (; count > 0; --count) {
        if (cursor.fetchNext(&m_status, m_output.buffer()) != Firebird::IStatus::RESULT_OK)
            return false;
        m_output.appendTo(rows, context);
    }
    return true;
}

std::shared_ptr<RowData> Statement::fetch(const Context &context)
{
    auto rows = emptyRows();
    Ref<Firebird::IResultSet> cursor = openCursor(context);
    while (fetchSome(*cursor.get(), *rows, std::numeric_limits<int>::max(), context)) {
    }
    // Closed by hand, for a failure of the last rows would get lost with the cursor.
    cursor->close(&m_status);
    cursor.take();
    rows->squeeze();
    return rows;
}

qint64 Statement::execute(const Context &context)
{
    m_statement->execute(&m_status, context.transaction, m_input.metadata(), m_input.buffer(),
                         m_output.metadata(), m_output.buffer());
    return static_cast<qint64>(m_statement->getAffectedRecords(&m_status));
}

std::shared_ptr<const RowData> query(const Context &context, const QString &text)
{
    Statement statement(context, text, nullptr);
    return statement.fetch(context);
}

} // namespace db::engine
