#pragma once

#include "platform/report/viewer/PageStore.h"

#include <optional>

namespace report {

/// Where a text was found.
struct Found
{
    int page = 0; ///< index, from 0
    QRect place;  ///< on the page, in 1/100 mm

    bool operator==(const Found &) const = default;
};

/// The places of a text on a page, without regard to case, in the order of the page's items. A text
/// that is broken over lines is not found.
[[nodiscard]] QList<QRect> placesOnPage(const Page &page, const QString &text);

/// The next place after (or before) another one, going on at the other end of the report; without
/// one, the first (last) from a page on. Nothing when the text is nowhere.
[[nodiscard]] std::optional<Found> findText(const PageStore &pages, const QString &text,
                                            const std::optional<Found> &last, int page,
                                            bool backward);

} // namespace report
