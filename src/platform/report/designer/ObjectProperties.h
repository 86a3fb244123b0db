#pragma once

#include "platform/report/designer/Property.h"

namespace report {

/// The attributes that all these objects have, with their rules, and the series of a chart.
[[nodiscard]] QList<Property> objectProperties(const Layout &layout, const Selection &selection);

} // namespace report
