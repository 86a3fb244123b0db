#pragma once

#include <QStringList>
#include <QVariantList>

namespace report {

using FunctionPointer = QVariant (*)(const QVariantList &arguments);

/// A function of the expression language.
struct Function
{
    QStringView name;
    int minimum; ///< numbers of arguments
    int maximum;
    FunctionPointer evaluate;
};

/// The function of a name in any case, or null.
[[nodiscard]] const Function *findFunction(QStringView name);
/// The names of all functions and aggregates.
[[nodiscard]] QStringList functionNames();

} // namespace report
