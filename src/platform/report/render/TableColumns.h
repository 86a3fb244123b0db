#pragma once

#include "platform/report/layout/Layout.h"

#include <vector>

/// How a layout, which places things freely, becomes the columns and rows of a table.
namespace report {

/// A column of pure data: a value that each line has.
struct DataColumn
{
    const Object *object = nullptr;
    QString heading;
};

/// The columns of a layout's data: the values of its group headers, then those of the detail or,
/// when the detail shows none, of the innermost group's footer. The heading is the caption that
/// stands above the column, or else what the layout calls the value.
[[nodiscard]] std::vector<DataColumn> dataColumns(const Layout &layout);
/// Which kind of bands ends a line of data: details, or footers of the innermost group.
[[nodiscard]] BandKind lineBand(const Layout &layout);

/// Where an object of a band stands in a sheet: lines are counted within the band.
struct SheetPlace
{
    int line = 0;
    int column = 0;
};

/// The columns of a sheet: where values of the detail begin, from left to right.
class SheetColumns
{
public:
    /// Values that begin within a millimetre of each other share a column.
    explicit SheetColumns(const Layout &layout);

    [[nodiscard]] int count() const { return static_cast<int>(m_starts.size()); }
    /// To the beginning of the next column, of the last one to where its values end; in 1/100 mm.
    [[nodiscard]] Length width(int column) const;
    /// The places of a band's texts and fields, in the order of its objects; other objects have
    /// column -1. No two share a place.
    [[nodiscard]] std::vector<SheetPlace> places(const Band &band) const;

private:
    [[nodiscard]] int columnAt(Length x) const;

    std::vector<Length> m_starts;
    Length m_end = 0;
};

} // namespace report
