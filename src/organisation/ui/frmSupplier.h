#pragma once

#include "core/ui/MasterScreen.h"
#include "organisation/clsSupplier.h"

class QPlainTextEdit;

namespace input {
class CurrencyInput;
class IdCombo;
class PhoneInput;
} // namespace input

/// Suppliers of machines and parts.
class frmSupplier final
    : public MasterScreen<clsSupplier, clsSupplier_Manager, &clsSupplier_Manager::CanDeleteLocation>
{
    Q_OBJECT

public:
    explicit frmSupplier(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("SupplierID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    /// Shows the next free number, which is stored with the record.
    bool takeFreshKey() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    void recordShown() override;
    void cmdFind_Click() override;
    void cmdPrint_Click() override;

private:
    void buildForm();
    void bindFields();
    void addAddress(input::FormBuilder &form);
    void addTerms(input::FormBuilder &form);
    void cmdState_Click();
    [[nodiscard]] bool txtPhone_Validate() const;
    [[nodiscard]] bool txtFax_Validate() const;

    QLineEdit *txtSupplierID = nullptr;
    QLineEdit *txtName = nullptr;
    QLineEdit *txtTax = nullptr;
    QLineEdit *txtTerms = nullptr;
    input::CurrencyInput *txtCreditLimit = nullptr;
    QLineEdit *txtEmail = nullptr;
    QLineEdit *txtWebSite = nullptr;
    QLineEdit *txtAddress = nullptr;
    QLineEdit *txtAddress2 = nullptr;
    QLineEdit *txtCity = nullptr;
    input::IdCombo *cboState = nullptr;
    QLineEdit *txtZip = nullptr;
    input::PhoneInput *txtPhone = nullptr;
    input::PhoneInput *txtFax = nullptr;
    QLineEdit *txtAtten = nullptr;
    QLineEdit *txtLicenseNo = nullptr;
    QLineEdit *txtContactName = nullptr;
    QPlainTextEdit *txtNotes = nullptr;
};
