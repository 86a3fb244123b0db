#pragma once

#include "platform/db/Connection.h"

namespace test {

/// Adds a table, with the one column n, that can't be read without a statement of the engine being
/// run: it writes behind the back of everybody who only looks at a query's text.
void addWritingView(const db::Target &target, const QString &name, const QString &written);

} // namespace test
