#pragma once

#include "core/ui/MasterScreen.h"
#include "organisation/clsCostCenter.h"

namespace input {
class CurrencyInput;
}

/// Cost centres: their descriptions and budgets.
class frmCostCenter final : public MasterScreen<clsCostCenter, clsCostCenterManager,
                                                &clsCostCenterManager::CanDeleteCostCenter>
{
    Q_OBJECT

public:
    explicit frmCostCenter(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("CostCenterID"); }
    void prepareNewRecord() override;
    /// The number is made as it is saved, so a taken one needs only another try.
    bool takeFreshKey() override { return true; }
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;

private:
    void buildForm();

    QLineEdit *txtDescription = nullptr;
    input::CurrencyInput *txtBudget = nullptr;
};
