#pragma once

#include <QString>

namespace company {

/// The text of a file that was built into the program, by its name below "company"; raises
/// base::Error FileNotFound.
[[nodiscard]] QString resourceText(const QString &name);

} // namespace company
