#include "platform/db/OutputMessage.h"

#include "platform/db/Blob.h"
#include "platform/db/DbError.h"

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;
using Storage = RowData::Storage;
using Kind = sql::ColumnKind;

constexpr qint64 millisecondsPerDay = 86'400'000;

/// What a column is by the engine's type alone.
RowLayout::Column columnOf(const Field &field)
{
    RowLayout::Column column;
    if (field.isExact()) {
        column.kind = field.scale == 0 ? Kind::Integer : Kind::Money;
        column.storage = field.scale == 0 ? Storage::Integer : Storage::Real;
        return column;
    }
    if (field.isReal()) {
        column.kind = Kind::Real;
        column.storage = Storage::Real;
        return column;
    }
    switch (field.type) {
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIME:
        column.kind = Kind::Date;
        column.storage = Storage::Date;
        break;
    case SQL_BOOLEAN:
        column.kind = Kind::YesNo;
        break;
    case SQL_BLOB:
        column.kind = field.subType == isc_blob_text ? Kind::Text : Kind::Binary;
        column.storage = column.kind == Kind::Text ? Storage::Text : Storage::Bytes;
        break;
    default:
        column.kind = field.charSet == octetsCharSet ? Kind::Binary : Kind::Text;
        column.storage = column.kind == Kind::Text ? Storage::Text : Storage::Bytes;
        break;
    }
    return column;
}

} // namespace

OutputMessage::OutputMessage(Ref<Firebird::IMessageMetadata> metadata, const sql::Schema *schema)
    : m_metadata(std::move(metadata))
{
    Status status;
    std::vector<RowLayout::Column> columns;
    for (const Field &field : fieldsOf(m_metadata.get(), status)) {
        const auto i = static_cast<unsigned>(columns.size());
        RowLayout::Column column = columnOf(field);
        column.name = QString::fromUtf8(m_metadata->getAlias(&status, i));
        // The engine knows small whole numbers only: that one is a Yes/No shows in the table from
        // which it comes.
        if (schema && column.kind == Kind::Integer) {
            const sql::Table *table =
                schema->find(QString::fromUtf8(m_metadata->getRelation(&status, i)));
            const sql::Column *origin =
                table ? table->find(QString::fromUtf8(m_metadata->getField(&status, i))) : nullptr;
            if (origin && origin->kind == Kind::YesNo)
                column.kind = Kind::YesNo;
        }
        m_columns.push_back({field, column.storage, static_cast<double>(field.divisor())});
        columns.push_back(std::move(column));
    }
    m_layout = std::make_shared<const RowLayout>(std::move(columns));
    m_buffer.resize(m_metadata->getMessageLength(&status));
}

void OutputMessage::renameColumn(int column, const QString &name)
{
    // The layout may be shared by rows that are out already.
    std::vector<RowLayout::Column> columns = m_layout->columns();
    columns[column].name = name;
    m_layout = std::make_shared<const RowLayout>(std::move(columns));
}

void OutputMessage::appendTo(RowData &rows, const Context &context) const
{
    // Runs for each cell of all rows: everything that can be known before has been worked out in
    // m_columns.
    const unsigned char *const message = m_buffer.data();
    const int count = static_cast<int>(m_columns.size());
    for (int i = 0; i < count; ++i) {
        const Field &field = m_columns[i].field;
        const unsigned char *const place = message + field.offset;
        if (load<qint16>(message + field.nullOffset) != 0)
            rows.addNull(i);
        else if (field.type == SQL_VARYING || field.type == SQL_TEXT || field.type == SQL_BLOB)
            appendText(rows, i, place, context);
        else
            appendNumber(rows, i, place);
    }
    rows.endRow();
}

/// Numbers, and what is kept as one.
void OutputMessage::appendNumber(RowData &rows, int i, const unsigned char *place) const
{
    const Column &column = m_columns[i];
    const auto addExact = [&](qint64 value) {
        if (column.field.scale == 0)
            rows.addInteger(i, value);
        else
            rows.addReal(i, static_cast<double>(value) / column.divisor);
    };
    switch (column.field.type) {
    case SQL_SHORT:
        return addExact(load<qint16>(place));
    case SQL_LONG:
        return addExact(load<qint32>(place));
    case SQL_INT64:
        return addExact(load<qint64>(place));
    case SQL_FLOAT:
        return rows.addReal(i, static_cast<double>(load<float>(place)));
    case SQL_DOUBLE:
    case SQL_D_FLOAT:
        return rows.addReal(i, load<double>(place));
    case SQL_BOOLEAN:
        return rows.addInteger(i, *place != 0 ? -1 : 0);
    case SQL_TIMESTAMP: {
        const auto stamp = load<ISC_TIMESTAMP>(place);
        // Whole milliseconds; the engine's ten-thousandths of a second are nobody's.
        return rows.addInteger(i, (stamp.timestamp_date - epochDay) * millisecondsPerDay +
                                      stamp.timestamp_time / unitsPerMillisecond);
    }
    case SQL_TYPE_DATE:
        return rows.addInteger(i, (load<ISC_DATE>(place) - epochDay) * millisecondsPerDay);
    case SQL_TYPE_TIME: {
        // A time alone stands on the zero date, 30 December 1899.
        constexpr qint64 zeroDateDay = 15018;
        return rows.addInteger(i, (zeroDateDay - epochDay) * millisecondsPerDay +
                                      load<ISC_TIME>(place) / unitsPerMillisecond);
    }
    default:
        return rows.addNull(i);
    }
}

void OutputMessage::appendText(RowData &rows, int i, const unsigned char *place,
                               const Context &context) const
{
    const Column &column = m_columns[i];
    const bool isBytes = column.storage == Storage::Bytes;
    if (column.field.type == SQL_BLOB) {
        QByteArray content = readBlob(load<ISC_QUAD>(place), context);
        if (isBytes)
            rows.addBytes(i, std::move(content));
        else
            rows.addText(i, content.constData(), static_cast<std::size_t>(content.size()));
        return;
    }
    const auto *chars = reinterpret_cast<const char *>(place);
    std::size_t length = column.field.length;
    if (column.field.type == SQL_VARYING) {
        length = load<quint16>(place);
        chars += sizeof(quint16);
    } else if (!isBytes) {
        // A text of a fixed length is filled up with blanks.
        while (length > 0 && chars[length - 1] == ' ')
            --length;
    }
    if (isBytes)
        rows.addBytes(i, QByteArray(chars, static_cast<qsizetype>(length)));
    else
        rows.addText(i, chars, length);
}

qint64 OutputMessage::integer(int column) const
{
    const Field &field = m_columns[column].field;
    const unsigned char *const place = m_buffer.data() + field.offset;
    if (load<qint16>(m_buffer.data() + field.nullOffset) != 0)
        return 0;
    switch (field.type) {
    case SQL_SHORT:
        return load<qint16>(place);
    case SQL_LONG:
        return load<qint32>(place);
    case SQL_INT64:
        return load<qint64>(place);
    default:
        break;
    }
    throw DbError(ErrorNumber::TypeMismatch, u"The key column holds no whole numbers."_s);
}

} // namespace db::engine
