#pragma once

#include "reporting/ui/FilterScreen.h"

/// The filter screen of the scans of machines, and of those that were not scanned.
class frmScanHistory final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmScanHistory(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    /// Scans have their range and machines, those not scanned their days.
    void enableFields();

    QRadioButton *optByDays = nullptr;
    Range m_range;
    QLineEdit *txtSHUnitNo = nullptr;
    QLineEdit *txtNoofdays = nullptr;
    QRadioButton *optScanTime = nullptr;
};
