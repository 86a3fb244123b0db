#include "platform/db/Message.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/db/Blob.h"
#include "platform/db/DbError.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;

/// The engine's number of a character set.
constexpr unsigned octets = 1;
constexpr unsigned utf8CharSet = 4;
/// Bytes; the longest text that a message can carry.
constexpr unsigned longestText = 32765;
/// Day 0 of the engine (17 November 1858) as a Julian day, and 1 January 1970 as a day of the
/// engine.
constexpr qint64 dayZero = 2400001;
constexpr qint64 epochDay = 40587;
/// The engine counts a day's time in ten-thousandths of a second.
constexpr qint64 unitsPerMillisecond = 10;
constexpr qint64 millisecondsPerDay = 86'400'000;

template<class T>
T load(const unsigned char *place)
{
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

template<class T>
void store(unsigned char *place, const T &value)
{
    std::memcpy(place, &value, sizeof value);
}

Field fieldOf(Firebird::IMessageMetadata *metadata, unsigned index, Status &status)
{
    Field field;
    field.type = metadata->getType(&status, index);
    field.subType = metadata->getSubType(&status, index);
    field.length = metadata->getLength(&status, index);
    field.scale = metadata->getScale(&status, index);
    field.charSet = metadata->getCharSet(&status, index);
    field.offset = metadata->getOffset(&status, index);
    field.nullOffset = metadata->getNullOffset(&status, index);
    return field;
}

std::vector<Field> fieldsOf(Firebird::IMessageMetadata *metadata, Status &status)
{
    std::vector<Field> fields;
    const unsigned count = metadata->getCount(&status);
    fields.reserve(count);
    for (unsigned i = 0; i < count; ++i)
        fields.push_back(fieldOf(metadata, i, status));
    return fields;
}

bool isText(const Field &field)
{
    return field.type == SQL_VARYING || field.type == SQL_TEXT;
}

bool isExact(const Field &field)
{
    return field.type == SQL_SHORT || field.type == SQL_LONG || field.type == SQL_INT64;
}

bool isReal(const Field &field)
{
    return field.type == SQL_DOUBLE || field.type == SQL_FLOAT || field.type == SQL_D_FLOAT;
}

qint64 powerOfTen(int exponent)
{
    qint64 result = 1;
    for (; exponent > 0; --exponent)
        result *= 10;
    return result;
}

[[noreturn]] void overflow()
{
    throw DbError(ErrorNumber::Overflow, u"Overflow"_s);
}

/// A value brought to the few forms that are bound.
struct Bound
{
    enum class Form { Null, Whole, Real, Date, Text, Bytes } form = Form::Null;
    qint64 whole = 0;
    double real = 0;
};

Bound boundForm(const QVariant &value)
{
    using Form = Bound::Form;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return {};
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Char:
        return {Form::Whole, value.toLongLong(), 0};
    case QMetaType::Bool:
        return {Form::Whole, value.toBool() ? -1 : 0, 0};
    case QMetaType::Double:
    case QMetaType::Float:
        return {Form::Real, 0, value.toDouble()};
    case QMetaType::QDateTime:
        return {value.toDateTime().isValid() ? Form::Date : Form::Null, 0, 0};
    case QMetaType::QDate:
        return {value.toDate().isValid() ? Form::Date : Form::Null, 0, 0};
    case QMetaType::QTime:
        return {value.toTime().isValid() ? Form::Date : Form::Null, 0, 0};
    case QMetaType::QByteArray:
        return {Form::Bytes, 0, 0};
    default:
        break;
    }
    return {Form::Text, 0, 0};
}

/// A number for a field with so many decimals, or nothing when it has more digits than the field.
bool scaled(const Bound &value, const Field &field, qint64 &result)
{
    const qint64 factor = powerOfTen(-field.scale);
    if (value.form == Bound::Form::Whole)
        return !__builtin_mul_overflow(value.whole, factor, &result);
    const double exact = value.real * static_cast<double>(factor);
    if (!(std::abs(exact) < 9.2e18))
        return false;
    result = base::roundedToEven(exact);
    return true;
}

bool fitsWidth(qint64 value, unsigned type)
{
    switch (type) {
    case SQL_SHORT:
        return value == static_cast<qint16>(value);
    case SQL_LONG:
        return value == static_cast<qint32>(value);
    default:
        return true;
    }
}

QDateTime dateTimeOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QDate:
        return base::wallClock(value.toDate());
    case QMetaType::QTime:
        return base::wallClock(QDate(1899, 12, 30), value.toTime());
    default:
        return value.toDateTime();
    }
}

QByteArray textBytes(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString().toUtf8();
    case QMetaType::QByteArray:
        return value.toByteArray();
    default:
        return base::toText(value).toUtf8();
    }
}

} // namespace

InputMessage::InputMessage(Ref<Firebird::IMessageMetadata> described)
    : m_describedMetadata(std::move(described))
{
    m_described = fieldsOf(m_describedMetadata.get(), m_status);
    m_fields = m_described;
    m_describedMetadata->addRef();
    m_metadata.reset(m_describedMetadata.get());
    m_buffer.resize(m_metadata->getMessageLength(&m_status));
}

bool InputMessage::bind(std::span<const QVariant> values, const Context &context)
{
    Q_ASSERT(values.size() == m_fields.size());
    bool changed = false;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Field &described = m_described[i];
        const Bound value = boundForm(values[i]);
        unsigned type = described.type;
        unsigned length = described.length;
        switch (value.form) {
        case Bound::Form::Null:
            continue;
        case Bound::Form::Whole:
            if (isReal(described))
                type = SQL_DOUBLE;
            else if (isText(described))
                type = SQL_VARYING;
            else if (!isExact(described))
                type = SQL_INT64;
            break;
        case Bound::Form::Real:
            if (described.scale == 0 && isExact(described) &&
                value.real != std::nearbyint(value.real))
                return false;
            type = isExact(described)
                       ? type
                       : (isText(described) ? unsigned{SQL_VARYING} : unsigned{SQL_DOUBLE});
            break;
        case Bound::Form::Date:
            type = isText(described) ? unsigned{SQL_VARYING} : unsigned{SQL_TIMESTAMP};
            break;
        case Bound::Form::Text:
        case Bound::Form::Bytes:
            if (described.type != SQL_BLOB)
                type = SQL_VARYING;
            break;
        }
        if (type == SQL_VARYING) {
            const auto bytes = static_cast<std::size_t>(textBytes(values[i]).size());
            if (bytes > longestText)
                return false;
            // Some room, so that the next longer text doesn't change the form again.
            const unsigned room = isText(described) ? described.length : 64;
            length = bytes <= room ? room : std::min(longestText, static_cast<unsigned>(bytes * 2));
            if (m_fields[i].type == type && m_fields[i].length >= length)
                continue;
        } else if (type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64) {
            qint64 number = 0;
            if (isExact(described)) {
                if (!scaled(value, described, number))
                    overflow();
                if (!fitsWidth(number, type))
                    type = SQL_INT64;
            }
        }
        if (m_fields[i].type != type || (type == SQL_VARYING && m_fields[i].length < length)) {
            m_fields[i].type = type;
            m_fields[i].length = length;
            changed = true;
        }
    }
    if (changed)
        rebuild();
    for (std::size_t i = 0; i < values.size(); ++i)
        write(m_fields[i], values[i], context);
    return true;
}

/// Makes the engine's description of the form that the fields now have.
void InputMessage::rebuild()
{
    Ref<Firebird::IMetadataBuilder> builder(m_describedMetadata->getBuilder(&m_status));
    for (unsigned i = 0; i < m_fields.size(); ++i) {
        Field &field = m_fields[i];
        builder->setType(&m_status, i, field.type);
        switch (field.type) {
        case SQL_VARYING:
            builder->setLength(&m_status, i, field.length);
            if (!isText(m_described[i]))
                builder->setCharSet(&m_status, i, utf8CharSet);
            builder->setScale(&m_status, i, 0);
            continue;
        case SQL_SHORT:
            field.length = sizeof(qint16);
            break;
        case SQL_LONG:
            field.length = sizeof(qint32);
            break;
        case SQL_INT64:
            field.length = sizeof(qint64);
            break;
        case SQL_DOUBLE:
            field.length = sizeof(double);
            break;
        case SQL_TIMESTAMP:
            field.length = sizeof(ISC_TIMESTAMP);
            break;
        default:
            break;
        }
        if (!isExact(field))
            builder->setScale(&m_status, i, 0);
        builder->setLength(&m_status, i, field.length);
    }
    m_metadata.reset(builder->getMetadata(&m_status));
    m_fields = fieldsOf(m_metadata.get(), m_status);
    m_buffer.assign(m_metadata->getMessageLength(&m_status), 0);
}

void InputMessage::write(const Field &field, const QVariant &variant, const Context &context)
{
    unsigned char *const place = m_buffer.data() + field.offset;
    const Bound value = boundForm(variant);
    const bool null = value.form == Bound::Form::Null;
    store<qint16>(m_buffer.data() + field.nullOffset, null ? -1 : 0);
    if (null)
        return;
    switch (field.type) {
    case SQL_SHORT:
    case SQL_LONG:
    case SQL_INT64: {
        qint64 number = 0;
        if (!scaled(value, field, number))
            overflow();
        if (field.type == SQL_SHORT)
            store(place, static_cast<qint16>(number));
        else if (field.type == SQL_LONG)
            store(place, static_cast<qint32>(number));
        else
            store(place, number);
        break;
    }
    case SQL_DOUBLE:
        store(place,
              value.form == Bound::Form::Real ? value.real : static_cast<double>(value.whole));
        break;
    case SQL_TIMESTAMP: {
        const QDateTime date = dateTimeOf(variant);
        ISC_TIMESTAMP stamp;
        stamp.timestamp_date = static_cast<ISC_DATE>(date.date().toJulianDay() - dayZero);
        stamp.timestamp_time =
            static_cast<ISC_TIME>(date.time().msecsSinceStartOfDay() * unitsPerMillisecond);
        store(place, stamp);
        break;
    }
    case SQL_VARYING: {
        const QByteArray text = textBytes(variant);
        store(place, static_cast<quint16>(text.size()));
        std::memcpy(place + sizeof(quint16), text.constData(),
                    static_cast<std::size_t>(text.size()));
        break;
    }
    case SQL_BLOB:
        store(place, writeBlob(textBytes(variant), context));
        break;
    default:
        break;
    }
}

OutputMessage::OutputMessage(Ref<Firebird::IMessageMetadata> metadata, const sql::Schema *schema)
    : m_metadata(std::move(metadata))
{
    using Storage = RowData::Storage;
    using Kind = sql::ColumnKind;
    Status status;
    const unsigned count = m_metadata->getCount(&status);
    m_columns.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        Column column;
        column.field = fieldOf(m_metadata.get(), i, status);
        column.name = QString::fromUtf8(m_metadata->getAlias(&status, i));
        switch (column.field.type) {
        case SQL_SHORT:
        case SQL_LONG:
        case SQL_INT64:
            column.divisor = static_cast<double>(powerOfTen(-column.field.scale));
            column.kind = column.field.scale == 0 ? Kind::Integer : Kind::Money;
            column.storage = column.field.scale == 0 ? Storage::Integer : Storage::Real;
            break;
        case SQL_FLOAT:
        case SQL_DOUBLE:
        case SQL_D_FLOAT:
            column.kind = Kind::Real;
            column.storage = Storage::Real;
            break;
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
            column.kind = column.field.subType == isc_blob_text ? Kind::Text : Kind::Binary;
            column.storage = column.kind == Kind::Text ? Storage::Text : Storage::Bytes;
            break;
        default:
            column.kind = column.field.charSet == octets ? Kind::Binary : Kind::Text;
            column.storage = column.field.charSet == octets ? Storage::Bytes : Storage::Text;
            break;
        }
        if (schema && column.kind == Kind::Integer) {
            const sql::Table *table =
                schema->find(QString::fromUtf8(m_metadata->getRelation(&status, i)));
            const sql::Column *origin =
                table ? table->find(QString::fromUtf8(m_metadata->getField(&status, i))) : nullptr;
            if (origin && origin->kind == Kind::YesNo)
                column.kind = Kind::YesNo;
        }
        m_columns.push_back(std::move(column));
    }
    m_buffer.resize(m_metadata->getMessageLength(&status));
}

void OutputMessage::addColumnsTo(RowData &rows) const
{
    for (const Column &column : m_columns)
        rows.addColumn(column.name, column.kind, column.storage);
    rows.indexNames();
}

void OutputMessage::appendTo(RowData &rows, const Context &context) const
{
    const unsigned char *const message = m_buffer.data();
    const int count = static_cast<int>(m_columns.size());
    const auto addNumber = [&rows](int i, const Column &column, qint64 value) {
        if (column.field.scale == 0)
            rows.addInteger(i, value);
        else
            rows.addReal(i, static_cast<double>(value) / column.divisor);
    };
    for (int i = 0; i < count; ++i) {
        const Column &column = m_columns[i];
        const Field &field = column.field;
        if (load<qint16>(message + field.nullOffset) != 0) {
            rows.addNull(i);
            continue;
        }
        const unsigned char *const place = message + field.offset;
        const auto *const chars = reinterpret_cast<const char *>(place);
        switch (field.type) {
        case SQL_SHORT:
            addNumber(i, column, load<qint16>(place));
            break;
        case SQL_LONG:
            addNumber(i, column, load<qint32>(place));
            break;
        case SQL_INT64:
            addNumber(i, column, load<qint64>(place));
            break;
        case SQL_FLOAT:
            rows.addReal(i, static_cast<double>(load<float>(place)));
            break;
        case SQL_DOUBLE:
        case SQL_D_FLOAT:
            rows.addReal(i, load<double>(place));
            break;
        case SQL_BOOLEAN:
            rows.addInteger(i, *place != 0 ? -1 : 0);
            break;
        case SQL_TIMESTAMP: {
            const auto stamp = load<ISC_TIMESTAMP>(place);
            rows.addInteger(i, (stamp.timestamp_date - epochDay) * millisecondsPerDay +
                                   stamp.timestamp_time / unitsPerMillisecond);
            break;
        }
        case SQL_TYPE_DATE:
            rows.addInteger(i, (load<ISC_DATE>(place) - epochDay) * millisecondsPerDay);
            break;
        case SQL_TYPE_TIME: {
            // A time alone stands on the zero date, 30 December 1899.
            constexpr qint64 zeroDateDay = 15018;
            rows.addInteger(i, (zeroDateDay - epochDay) * millisecondsPerDay +
                                   load<ISC_TIME>(place) / unitsPerMillisecond);
            break;
        }
        case SQL_VARYING: {
            const auto length = load<quint16>(place);
            if (column.storage == RowData::Storage::Bytes)
                rows.addBytes(i, QByteArray(chars + sizeof(quint16), length));
            else
                rows.addText(i, chars + sizeof(quint16), length);
            break;
        }
        case SQL_TEXT: {
            if (column.storage == RowData::Storage::Bytes) {
                rows.addBytes(i, QByteArray(chars, static_cast<qsizetype>(field.length)));
                break;
            }
            std::size_t length = field.length;
            while (length > 0 && chars[length - 1] == ' ')
                --length;
            rows.addText(i, chars, length);
            break;
        }
        case SQL_BLOB: {
            QByteArray content = readBlob(load<ISC_QUAD>(place), context);
            if (column.storage == RowData::Storage::Bytes)
                rows.addBytes(i, std::move(content));
            else
                rows.addText(i, content.constData(), static_cast<std::size_t>(content.size()));
            break;
        }
        default:
            rows.addNull(i);
            break;
        }
    }
    rows.endRow();
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
