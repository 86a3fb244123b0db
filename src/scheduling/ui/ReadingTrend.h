#pragma once

#include "core/ui/LineChart.h"

namespace db {
class Recordset;
}

/// The course of a machine's meters: a line for each count type over the dates of its readings.
class ReadingTrend final : public LineChart
{
    Q_OBJECT

public:
    explicit ReadingTrend(QWidget *parent = nullptr);

    /// Draws readings, columns [Count Date], [Count Type] and [Count Value] in any order; without
    /// any the chart says so.
    void show(const db::Recordset &readings);
    using LineChart::show;
};
