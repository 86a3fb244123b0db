#pragma once

#include "platform/db/Recordset.h"

#include <QVariant>

namespace postedlabor {

/// The labour of each row of a summary of posted orders (columns WorkOrderNo and the crew's
/// Description), in dollars, each service rounded to whole cents. The summary's own sum counts a
/// service's cost once for each of its parts. Data; raises what the engine raises.
[[nodiscard]] QVariantList ofSummary(const db::Recordset &summary);

} // namespace postedlabor
