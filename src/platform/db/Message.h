#pragma once

#include "platform/db/Engine.h"
#include "platform/db/RowData.h"
#include "platform/sql/Schema.h"

#include <QVariant>

#include <span>
#include <vector>

namespace db::engine {

/// Where a value stands in a message of the engine, and as what.
struct Field
{
    unsigned type = 0; ///< SQL_...
    int subType = 0;
    unsigned length = 0; ///< bytes
    int scale = 0;       ///< 0 or the negative number of decimals
    unsigned charSet = 0;
    unsigned offset = 0;
    unsigned nullOffset = 0;
};

/// Where blobs are read and written.
struct Context
{
    Firebird::IAttachment *attachment;
    Firebird::ITransaction *transaction;
};

/// The values for the parameters of a prepared statement. The message has the form that the engine
/// described as long as the values fit it; for others, such as a text in place of a number, it
/// changes to one that the engine converts.
class InputMessage
{
public:
    explicit InputMessage(Ref<Firebird::IMessageMetadata> described);

    [[nodiscard]] std::size_t count() const { return m_described.size(); }
    /// Writes the values, one for each parameter. False when one can't be written without changing
    /// what it is compared with: the statement needs it as a literal then. Raises DbError.
    [[nodiscard]] bool bind(std::span<const QVariant> values, const Context &context);

    [[nodiscard]] Firebird::IMessageMetadata *metadata() const { return m_metadata.get(); }
    [[nodiscard]] void *buffer() { return m_buffer.data(); }

private:
    void rebuild();
    void write(const Field &field, const QVariant &value, const Context &context);

    Ref<Firebird::IMessageMetadata> m_describedMetadata;
    Ref<Firebird::IMessageMetadata> m_metadata;
    std::vector<Field> m_described;
    std::vector<Field> m_fields; ///< the form now in use
    std::vector<unsigned char> m_buffer;
    Status m_status;
};

/// The columns of a result and the message that one row arrives in.
class OutputMessage
{
public:
    /// The schema tells the kinds that the engine's types can't, such as Yes/No.
    OutputMessage(Ref<Firebird::IMessageMetadata> metadata, const sql::Schema *schema);

    [[nodiscard]] Firebird::IMessageMetadata *metadata() const { return m_metadata.get(); }
    [[nodiscard]] void *buffer() { return m_buffer.data(); }
    void renameColumn(int column, const QString &name) { m_columns[column].name = name; }

    void addColumnsTo(RowData &rows) const;
    /// Appends the row in the message.
    void appendTo(RowData &rows, const Context &context) const;
    /// A whole number from the message's column.
    [[nodiscard]] qint64 integer(int column) const;

private:
    struct Column
    {
        Field field;
        QString name;
        sql::ColumnKind kind = sql::ColumnKind::Unknown;
        RowData::Storage storage = RowData::Storage::Integer;
        double divisor = 1; ///< of a number with decimals
    };

    Ref<Firebird::IMessageMetadata> m_metadata;
    std::vector<Column> m_columns;
    std::vector<unsigned char> m_buffer;
};

} // namespace db::engine
