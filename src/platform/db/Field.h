#pragma once

#include "platform/db/Engine.h"

#include <cstring>
#include <vector>

/// The messages in which values go to and come from the engine.
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

    /// What the engine's type holds: characters, a whole number with a scale, a binary number.
    [[nodiscard]] bool isText() const { return type == SQL_VARYING || type == SQL_TEXT; }
    [[nodiscard]] bool isExact() const
    {
        return type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64;
    }
    [[nodiscard]] bool isReal() const
    {
        return type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_D_FLOAT;
    }
    /// What a whole number in the message has to be divided by.
    [[nodiscard]] qint64 divisor() const;
};

/// The fields of a message, in their order. Raises DbError.
[[nodiscard]] std::vector<Field> fieldsOf(Firebird::IMessageMetadata *metadata, Status &status);

/// Where blobs are read and written.
struct Context
{
    Firebird::IAttachment *attachment;
    Firebird::ITransaction *transaction;
};

/// The engine's numbers of character sets.
inline constexpr unsigned octetsCharSet = 1;
inline constexpr unsigned utf8CharSet = 4;

/// Day 0 of the engine (17 November 1858) as a Julian day, and 1 January 1970 as a day of the
/// engine.
inline constexpr qint64 dayZero = 2400001;
inline constexpr qint64 epochDay = 40587;
/// The engine counts a day's time in ten-thousandths of a second.
inline constexpr qint64 unitsPerMillisecond = 10;

/// A value in a message's bytes, read and written as a copy: the bytes are no object of its type.
template<class T>
[[nodiscard]] T load(const unsigned char *place)
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

} // namespace db::engine
