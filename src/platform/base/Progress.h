#pragma once

#include <functional>

namespace base {

/// Told how far a long step is: how much is done, and how much there is in all.
using Progress = std::function<void(int done, int all)>;

} // namespace base
