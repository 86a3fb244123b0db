#pragma once

#include "platform/report/layout/Layout.h"

namespace report {

/// A layout as its file can hold it, so that what is designed always reads back without loss:
/// lengths and sizes within their bounds, names that are there and unlike each other, blanks cut
/// where the file cuts them, bands of groups and rows that exist, in the order of their kinds.
/// Lists that need no change stay shared with the layout that was given.
[[nodiscard]] Layout normalised(Layout layout);

/// A name that is not yet taken: the wanted one, or with the next free number.
[[nodiscard]] QString freeName(const QString &wanted, const QStringList &taken);

} // namespace report
