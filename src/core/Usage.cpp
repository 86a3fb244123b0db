#include "core/Usage.h"

#include "core/RowTests.h"

namespace {

QString firstHit(std::span<const UsageTest> tests, const QString &key, const QString &type)
{
    for (const UsageTest &test : tests)
        if (IsRecordUsed(test.table.toString(), test.field.toString(), key, type))
            return test.word.toString();
    return {};
}

} // namespace

QString usageWord(std::span<const UsageTest> tests, qint64 key)
{
    return firstHit(tests, QString::number(key), QStringLiteral("N"));
}

QString usageWord(std::span<const UsageTest> tests, const QString &key)
{
    return firstHit(tests, key, QStringLiteral("S"));
}
