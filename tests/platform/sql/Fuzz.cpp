#include "SampleSchema.h"

#include "platform/base/Error.h"
#include "platform/sql/Translator.h"

#include <cstdint>

/// Any text is either translated or refused with an error of the dialect.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString statement =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    try {
        static_cast<void>(sql::translate(statement, test::machineSchema()));
    } catch (const base::Error &) {
        return 0;
    }
    return 0;
}
