#pragma once

#include "core/ui/MasterScreen.h"
#include "parts/clsPart.h"

class QCheckBox;
class QPlainTextEdit;

namespace input {
class CurrencyInput;
class IdCombo;
} // namespace input

/// Parts: what they are, what they cost, how many are there.
class frmPart final : public MasterScreen<clsPart, clsPartManager, &clsPartManager::CanDeletePart>
{
    Q_OBJECT

public:
    explicit frmPart(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("PartID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    void recordShown() override;
    void cmdFind_Click() override;
    void cmdPrint_Click() override;

private:
    void buildForm();
    void bindFields();
    void addDescription(input::FormBuilder &form);
    /// What only a tracked part has, and whether it is tracked at all.
    void addStock(input::FormBuilder &form);
    void loadSuppliers();
    void loadCategories();
    /// False for a number that another part has, which is told; the box is emptied then.
    bool txtPartID_Validate();
    /// Shows or hides what only a tracked part has.
    void ChangePosition();
    /// Shows a number with two decimals; what is none stays as it was typed.
    void formatQuantity(QLineEdit *box);

    QLineEdit *txtPartID = nullptr;
    QLineEdit *txtDescription = nullptr;
    input::IdCombo *cboPartCategory = nullptr;
    input::IdCombo *cboSupplier = nullptr;
    input::CurrencyInput *txtPrice = nullptr;
    QLineEdit *txtBin = nullptr;
    QLineEdit *txtBarCode = nullptr;
    QCheckBox *chkNotTrackInventory = nullptr;
    QWidget *fraInventory = nullptr;
    QLineEdit *txtQuantity = nullptr;
    QLineEdit *txtPartCommited = nullptr;
    QLineEdit *txtMax = nullptr;
    QLineEdit *txtMin = nullptr;
    QCheckBox *chkInactive = nullptr;
    QPlainTextEdit *txtNotes = nullptr;
};
