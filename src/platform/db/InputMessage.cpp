#include "platform/db/InputMessage.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/db/Blob.h"
#include "platform/db/DbError.h"

#include <QStringEncoder>

#include <algorithm>
#include <cmath>

namespace db::engine {
namespace {

using namespace Qt::StringLiterals;

/// Bytes; the longest text that a message can carry.
constexpr unsigned longestText = 32765;
/// The most bytes that UTF-8 needs for a UTF-16 unit.
constexpr qsizetype bytesPerUnit = 3;

[[noreturn]] void overflow()
{
    throw DbError(ErrorNumber::Overflow, u"Overflow"_s);
}

/// A number with a field's decimals as the whole number that is stored.
qint64 scaled(double value, qint64 divisor)
{
    const double exact = value * static_cast<double>(divisor);
    if (!(std::abs(exact) < 9.2e18))
        overflow();
    return base::roundedToEven(exact);
}

qint64 scaled(qint64 value, qint64 divisor)
{
    qint64 result = 0;
    if (__builtin_mul_overflow(value, divisor, &result))
        overflow();
    return result;
}

/// A number that is wider than its column is sent wider: compared, it is merely not found, and
/// stored, the engine refuses it in its own words.
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

/// The text in a value, without a copy; null when it holds something else.
const QString *textIn(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? static_cast<const QString *>(value.constData())
                                                : nullptr;
}

/// Writes a text as its length and its bytes.
void writeText(unsigned char *place, unsigned room, const QVariant &value)
{
    auto *const bytes = reinterpret_cast<char *>(place + sizeof(quint16));
    // Most texts surely fit, and go into the message without a copy.
    if (const auto *text = textIn(value);
        text && text->size() * bytesPerUnit <= static_cast<qsizetype>(room)) {
        QStringEncoder encoder(QStringEncoder::Utf8);
        const char *const end = encoder.appendToBuffer(bytes, *text);
        store(place, static_cast<quint16>(end - bytes));
        return;
    }
    const QByteArray text = textBytes(value);
    store(place, static_cast<quint16>(text.size()));
    std::memcpy(bytes, text.constData(), static_cast<std::size_t>(text.size()));
}

/// Bytes of the widest form of each type.
unsigned widthOf(unsigned type, unsigned described)
{
    switch (type) {
    case SQL_SHORT:
        return sizeof(qint16);
    case SQL_LONG:
        return sizeof(qint32);
    case SQL_INT64:
        return sizeof(qint64);
    case SQL_DOUBLE:
        return sizeof(double);
    case SQL_TIMESTAMP:
        return sizeof(ISC_TIMESTAMP);
    default:
        return described;
    }
}

} // namespace

InputMessage::InputMessage(Ref<Firebird::IMessageMetadata> described)
    : m_describedMetadata(std::move(described))
{
    m_described = fieldsOf(m_describedMetadata.get(), m_status);
    for (const Field &field : m_described)
        m_divisors.push_back(field.divisor());
    m_fields = m_described;
    m_bound.resize(m_fields.size());
    m_describedMetadata->addRef();
    m_metadata.reset(m_describedMetadata.get());
    m_buffer.resize(m_metadata->getMessageLength(&m_status));
}

InputMessage::Bound InputMessage::bound(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return {};
    // The two that come by the thousand stand first.
    case QMetaType::LongLong:
        return {Form::Whole, value.toLongLong()};
    case QMetaType::Int:
        return {Form::Whole, value.toInt()};
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Char:
        return {Form::Whole, value.toLongLong()};
    case QMetaType::Bool:
        return {Form::Whole, value.toBool() ? -1 : 0};
    case QMetaType::Double:
    case QMetaType::Float:
        return {Form::Real, 0, value.toDouble()};
    // The zero date is Null.
    case QMetaType::QDateTime:
        return {value.toDateTime().isValid() ? Form::Date : Form::Null};
    case QMetaType::QDate:
        return {value.toDate().isValid() ? Form::Date : Form::Null};
    case QMetaType::QTime:
        return {value.toTime().isValid() ? Form::Date : Form::Null};
    default:
        break;
    }
    return {Form::Text};
}

bool InputMessage::bind(std::span<const QVariant *const> values, const Context &context)
{
    Q_ASSERT(values.size() == m_fields.size());
    bool changed = false;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!chooseField(i, *values[i], changed))
            return false;
    }
    // The form stays as wide as it has become, so that a loop changes it once.
    if (changed)
        rebuild();
    for (std::size_t i = 0; i < values.size(); ++i)
        write(i, *values[i], context);
    return true;
}

/// Sets the type that a parameter's field needs for the value. False when no type will do.
bool InputMessage::chooseField(std::size_t parameter, const QVariant &value, bool &changed)
{
    const Field &described = m_described[parameter];
    Field &field = m_fields[parameter];
    Bound &form = m_bound[parameter];
    form = bound(value);
    unsigned type = described.type;
    switch (form.form) {
    case Form::Null:
        return true;
    case Form::Whole:
    case Form::Real:
        if (described.isExact()) {
            const qint64 divisor = m_divisors[parameter];
            // Rounding is for money; a fraction must not meet a whole number.
            if (form.form == Form::Real && divisor == 1 && form.real != std::nearbyint(form.real))
                return false;
            form.whole =
                form.form == Form::Real ? scaled(form.real, divisor) : scaled(form.whole, divisor);
            if (!fitsWidth(form.whole, type))
                type = SQL_INT64;
        } else if (described.isText()) {
            form.form = Form::Text;
        } else if (form.form == Form::Whole && !described.isReal()) {
            type = SQL_INT64;
        } else {
            if (form.form == Form::Whole)
                form.real = static_cast<double>(form.whole);
            type = SQL_DOUBLE;
        }
        break;
    case Form::Date:
        type = SQL_TIMESTAMP;
        if (described.isText())
            form.form = Form::Text;
        break;
    case Form::Text:
        break;
    }
    unsigned length = widthOf(type, described.length);
    // A text for whatever column: the engine reads numbers and dates from it.
    if (form.form == Form::Text && described.type != SQL_BLOB) {
        type = SQL_VARYING;
        const auto *text = textIn(value);
        const bool surelyFits = text && field.type == SQL_VARYING &&
                                text->size() * bytesPerUnit <= static_cast<qsizetype>(field.length);
        if (surelyFits)
            return true;
        const auto bytes = static_cast<std::size_t>(textBytes(value).size());
        if (bytes > longestText)
            return false;
        const unsigned usual = described.isText() ? described.length : 64;
        // Some room, so that the next longer text doesn't change the form again.
        length = bytes <= usual ? usual : std::min(longestText, static_cast<unsigned>(bytes * 2));
        length = field.type == SQL_VARYING ? std::max(length, field.length) : length;
    }
    if (field.type != type || field.length != length) {
        field.type = type;
        field.length = length;
        changed = true;
    }
    return true;
}

/// Makes the engine's description of the form that the fields now have.
void InputMessage::rebuild()
{
    Ref<Firebird::IMetadataBuilder> builder(m_describedMetadata->getBuilder(&m_status));
    for (unsigned i = 0; i < m_fields.size(); ++i) {
        const Field &field = m_fields[i];
        builder->setType(&m_status, i, field.type);
        builder->setLength(&m_status, i, field.length);
        // The scale belongs to exact numbers; any other type refuses one.
        if (!field.isExact())
            builder->setScale(&m_status, i, 0);
        if (field.type == SQL_VARYING && !m_described[i].isText())
            // A field that was no text has no character set to take over.
            builder->setCharSet(&m_status, i, utf8CharSet);
    }
    m_metadata.reset(builder->getMetadata(&m_status));
    m_fields = fieldsOf(m_metadata.get(), m_status);
    m_buffer.assign(m_metadata->getMessageLength(&m_status), 0);
}

void InputMessage::write(std::size_t parameter, const QVariant &value, const Context &context)
{
    const Field &field = m_fields[parameter];
    const Bound &form = m_bound[parameter];
    unsigned char *const place = m_buffer.data() + field.offset;
    const bool null = form.form == Form::Null;
    store<qint16>(m_buffer.data() + field.nullOffset, null ? -1 : 0);
    if (null)
        return;
    switch (field.type) {
    case SQL_SHORT:
        store(place, static_cast<qint16>(form.whole));
        break;
    case SQL_LONG:
        store(place, static_cast<qint32>(form.whole));
        break;
    case SQL_INT64:
        store(place, form.whole);
        break;
    case SQL_DOUBLE:
        store(place, form.real);
        break;
    case SQL_TIMESTAMP: {
        const QDateTime date = dateTimeOf(value);
        ISC_TIMESTAMP stamp;
        stamp.timestamp_date = static_cast<ISC_DATE>(date.date().toJulianDay() - dayZero);
        stamp.timestamp_time =
            static_cast<ISC_TIME>(date.time().msecsSinceStartOfDay() * unitsPerMillisecond);
        store(place, stamp);
        break;
    }
    case SQL_VARYING:
        writeText(place, field.length, value);
        break;
    case SQL_BLOB:
        store(place, writeBlob(textBytes(value), context));
        break;
    default:
        break;
    }
}

} // namespace db::engine
