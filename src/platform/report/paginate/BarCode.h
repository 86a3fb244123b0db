#pragma once

#include "platform/report/paginate/PageDocument.h"

#include <optional>

namespace report {

/// The bars of a text in Code 128, filling the frame; nothing for a text that it can't hold.
[[nodiscard]] std::optional<BarCodeItem> barCode(const QString &text, const QRect &frame);

} // namespace report
