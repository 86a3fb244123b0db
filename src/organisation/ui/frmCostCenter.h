#pragma once

#include "core/ui/RecordScreen.h"

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
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    QString usedBy(const QVariant &key) const override;

private:
    void buildForm();

    QLineEdit *txtDescription = nullptr;
    input::CurrencyInput *txtBudget = nullptr;
    qint64 m_costCenterID = 0;
    QString m_storedName;
};
