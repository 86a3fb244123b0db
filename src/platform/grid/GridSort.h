#pragma once

#include "platform/grid/GridModel.h"

namespace grid {

/// What rows are compared by: a number, or a text in one case.
struct GridModel::SortKey
{
    bool null = true;
    bool isNumber = false;
    double number = 0;
    QString text{};
};

} // namespace grid
