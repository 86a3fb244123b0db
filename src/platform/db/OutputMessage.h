#pragma once

#include "platform/db/Field.h"
#include "platform/db/RowData.h"
#include "platform/sql/Schema.h"

#include <memory>
#include <vector>

namespace db::engine {

/// The columns of a result and the message that one row arrives in.
class OutputMessage
{
public:
    /// The schema tells the kinds that the engine's types can't, such as Yes/No.
    OutputMessage(Ref<Firebird::IMessageMetadata> metadata, const sql::Schema *schema);

    [[nodiscard]] Firebird::IMessageMetadata *metadata() const { return m_metadata.get(); }
    [[nodiscard]] void *buffer() { return m_buffer.data(); }
    [[nodiscard]] const std::shared_ptr<const RowLayout> &layout() const { return m_layout; }
    /// For a name of the dialect that the engine could not carry. Rows that were fetched before
    /// keep the former one.
    void renameColumn(int column, const QString &name);

    /// Appends the row in the message to rows of this layout.
    void appendTo(RowData &rows, const Context &context) const;
    /// A whole number from the message's column.
    [[nodiscard]] qint64 integer(int column) const;

private:
    struct Column
    {
        Field field;
        RowData::Storage storage;
        double divisor; ///< of a number with decimals
    };

    void appendNumber(RowData &rows, int i, const unsigned char *place) const;
    void appendText(RowData &rows, int i, const unsigned char *place, const Context &context) const;

    Ref<Firebird::IMessageMetadata> m_metadata;
    std::vector<Column> m_columns;
    std::shared_ptr<const RowLayout> m_layout;
    std::vector<unsigned char> m_buffer;
};

} // namespace db::engine
