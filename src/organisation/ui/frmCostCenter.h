#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"
#include "organisation/clsCostCenter.h"

namespace input {
class CurrencyInput;
}

/// Cost centres: their descriptions and budgets.
class frmCostCenter final : public RecordScreen
{
    Q_OBJECT

public:
    explicit frmCostCenter(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("CostCenterID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    /// The number is made as it is saved, so a taken one needs only another try.
    bool takeFreshKey() override { return true; }
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();

    Binding<clsCostCenter> m_fields{clsCostCenter::fields()};
    QLineEdit *txtDescription = nullptr;
    input::CurrencyInput *txtBudget = nullptr;
};
