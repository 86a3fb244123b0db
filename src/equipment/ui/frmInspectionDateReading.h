#pragma once

#include "equipment/ui/DateReading.h"

/// The sheet of the machines' inspection dates.
class frmInspectionDateReading final : public DateReading
{
    Q_OBJECT

public:
    explicit frmInspectionDateReading(QWidget *parent = nullptr)
        : DateReading(datesheet::inspection(), parent)
    {}
};
