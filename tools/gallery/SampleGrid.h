#pragma once

class QWidget;
namespace grid {
class GridView;
}

namespace gallery {

/// A grid with every kind of column and a few rows. The rule of its count column refuses a
/// number below 10.
[[nodiscard]] grid::GridView *makeSampleGrid(QWidget *parent);

} // namespace gallery
