#pragma once

#include "platform/report/viewer/PageStore.h"

namespace report {

/// A point on a page.
struct PagePoint
{
    int page = 0; ///< index, from 0
    QPoint at;    ///< in 1/100 mm

    bool operator==(const PagePoint &) const = default;
};

/// What is selected between two points, in either order: the texts of a page are read line by line
/// from left to right, the first line from the first point on, the last one up to the last point.
struct PageSelection
{
    PagePoint from;
    PagePoint to;

    [[nodiscard]] bool isEmpty() const { return from == to; }
};

/// From the beginning of the first page to the end of the last.
[[nodiscard]] PageSelection everything(const PageStore &pages);
/// The places of the selected letters on a page.
[[nodiscard]] QList<QRect> selectedPlaces(const Page &page, int index,
                                          const PageSelection &selection);
/// The selected text: a line for each line of the pages, a tab between texts beside each other, so
/// that a spreadsheet takes it in columns.
[[nodiscard]] QString selectedText(const PageStore &pages, const PageSelection &selection);

} // namespace report
