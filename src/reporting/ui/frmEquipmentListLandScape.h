#pragma once

#include "reporting/ui/FilterScreen.h"

/// The filter screen of the wide equipment list.
class frmEquipmentListLandScape final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmEquipmentListLandScape(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    QLineEdit *txtType = nullptr;
    QLineEdit *txtCrew = nullptr;
};
