#pragma once

#include <QString>

namespace report {

/// An expression whose aggregates count over another group where they name the former one, in any
/// case. What can't be read stays as it is.
[[nodiscard]] QString withScopeRenamed(const QString &expression, const QString &former,
                                       const QString &name);
/// The same of words with expressions in braces.
[[nodiscard]] QString withScopeRenamedInWords(const QString &words, const QString &former,
                                              const QString &name);

} // namespace report
