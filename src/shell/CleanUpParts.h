#pragma once

/// Removes the rows without a part from the parts and from the five tables that refer to them.
/// False when that failed, which is reported; then no row is removed. Data.
[[nodiscard]] bool CleanUpParts();
