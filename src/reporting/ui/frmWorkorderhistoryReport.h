#pragma once

#include "reporting/ui/FilterScreen.h"

/// The filter screen of posted work orders.
class frmWorkorderhistoryReport final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmWorkorderhistoryReport(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    QLineEdit *txtSHUnitNo = nullptr;
    QLineEdit *txtWo = nullptr;
    QRadioButton *optsummary = nullptr;
};
