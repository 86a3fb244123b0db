#pragma once

#include "reporting/ui/FilterScreen.h"

class QCheckBox;
class QComboBox;

/// The filter screen of the equipment list in its six versions.
class frmEquipmentListReport final : public FilterScreen
{
    Q_OBJECT

public:
    explicit frmEquipmentListReport(QWidget *parent = nullptr);

protected:
    [[nodiscard]] std::optional<catalogue::Request> request() const override;

private:
    [[nodiscard]] filters::ListVersion version() const;
    void cmbversion_Click();

    QComboBox *cmbversion = nullptr;
    QLineEdit *txtType = nullptr;
    QLineEdit *txtCrew = nullptr;
    QLineEdit *txtSite = nullptr;
    QCheckBox *chkgrouponsite = nullptr;
    QCheckBox *chkInactive = nullptr;
};
