#pragma once

#include "reporting/ui/FilterScreen.h"

class QCheckBox;

/// The filter screen of how much machines are used, all or a single one.
class frmEquipmentUtilization final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmEquipmentUtilization(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    void chkEquipment_Click();

    QCheckBox *chkEquipment = nullptr;
    Range m_range;
    QLineEdit *txtEQUTUnitNo = nullptr;
    QLineEdit *txtEQUTType = nullptr;
    QLineEdit *txtEQUTCrew = nullptr;
};
