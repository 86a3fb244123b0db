#pragma once

#include "core/Permission.h"

/// Asked by a screen before it begins something that needs a right. True when the user has it;
/// otherwise the user is told that it is missing.
[[nodiscard]] bool mayDo(bool Rights::*right);
