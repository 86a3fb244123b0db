#pragma once

#include "core/ui/LineChart.h"

namespace db {
class Recordset;
}

/// The curve of a depreciation schedule: book value and accumulated depreciation over the years.
class DepreciationChart final : public LineChart
{
    Q_OBJECT

public:
    explicit DepreciationChart(QWidget *parent = nullptr);

    /// Draws the rows of a schedule, columns [End of Year], [Accumualted Depreciation] and
    /// [Book Value]; without rows the chart says that there are none.
    void show(const db::Recordset &rows);
    using LineChart::show;
};
