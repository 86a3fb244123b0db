#pragma once

#include "equipment/ui/DateReading.h"

/// The sheet of the dates on which licenses of machines are renewed.
class frmLicenseDateReading final : public DateReading
{
    Q_OBJECT

public:
    explicit frmLicenseDateReading(QWidget *parent = nullptr)
        : DateReading(datesheet::license(), parent)
    {}
};
