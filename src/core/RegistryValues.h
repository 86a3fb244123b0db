#pragma once

#include <QString>

/// What the installation keeps about the product and its maker. No error crosses one of these
/// procedures: it goes to ErrorHandler, and the default is returned.

/// The program's version, dotted.
[[nodiscard]] QString GetVersionNo();
/// A value of the product, and of its maker; "" where the installation lacks it.
[[nodiscard]] QString GetRegistryValue(const QString &Name);
void SetRegistryValue(const QString &Name, const QString &Value);
[[nodiscard]] QString GetMakerRegistryValue(const QString &Name);
