#pragma once

#include <QString>

/// A flag as records hold it: "1" or "0".
[[nodiscard]] inline QString flagText(bool set)
{
    return set ? QStringLiteral("1") : QStringLiteral("0");
}
