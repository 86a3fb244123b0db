#pragma once

#include <functional>

/// Stores a part of a screen's layout. Rows that another program holds at this moment are left as
/// they are, without a word: a width of a column is not worth one. Other errors pass.
void storeUnlessLocked(const std::function<void()> &store);
