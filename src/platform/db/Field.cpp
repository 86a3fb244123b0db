#include "platform/db/Field.h"

namespace db::engine {

qint64 Field::divisor() const
{
    qint64 result = 1;
    for (int decimals = -scale; decimals > 0; --decimals)
        result *= 10;
    return result;
}

std::vector<Field> fieldsOf(Firebird::IMessageMetadata *metadata, Status &status)
{
    std::vector<Field> fields(metadata->getCount(&status));
    for (unsigned i = 0; i < fields.size(); ++i) {
        Field &field = fields[i];
        field.type = metadata->getType(&status, i);
        field.subType = metadata->getSubType(&status, i);
        field.length = metadata->getLength(&status, i);
        field.scale = metadata->getScale(&status, i);
        field.charSet = metadata->getCharSet(&status, i);
        field.offset = metadata->getOffset(&status, i);
        field.nullOffset = metadata->getNullOffset(&status, i);
    }
    return fields;
}

} // namespace db::engine
