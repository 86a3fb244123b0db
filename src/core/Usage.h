#pragma once

#include <QString>
#include <span>

/// Where a record may be referred to, and the word for it in "Record is being used in <word>.".
struct UsageTest
{
    QStringView table;
    QStringView field;
    QStringView word;
};

/// The word of the first place that refers to a numeric key, empty when none does. Data.
[[nodiscard]] QString usageWord(std::span<const UsageTest> tests, qint64 key);
/// The same for a text key.
[[nodiscard]] QString usageWord(std::span<const UsageTest> tests, const QString &key);
