#pragma once

#include "platform/grid/GridTypes.h"

#include <QDate>

/// How services are coloured by how late they are: red with white text, pale yellow, or in the
/// grid's own colours. Holds the two options as they were when it was read, since a grid asks for
/// each painted cell.
struct LatenessStyle
{
    QDate today;
    int lateYellow = 0;
    int lateRed = 0;

    /// Today and the options as they stand now. Lookup.
    [[nodiscard]] static LatenessStyle current();
    [[nodiscard]] grid::Style of(const QDate &nextServiceDate) const;
    /// The colours of what is late.
    [[nodiscard]] static grid::Style late();
};
