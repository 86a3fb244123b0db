#pragma once

#include "core/ui/Binding.h"
#include "core/ui/RecordScreen.h"
#include "organisation/clsEmployee.h"

class QCheckBox;
class QPlainTextEdit;

namespace input {
class CurrencyInput;
class DateInput;
class IdCombo;
class PhoneInput;
} // namespace input

/// Employees, and what their crews cost by the hour.
class frmEmployee final : public RecordScreen
{
    Q_OBJECT

public:
    explicit frmEmployee(QWidget *parent = nullptr);

protected:
    db::Recordset loadRows() override;
    QString keyColumn() const override { return QStringLiteral("EmployeeID"); }
    void DisplayData(const db::Row &row) override;
    void ClearData() override;
    void prepareNewRecord() override;
    QString recordName() const override;
    bool VailidateFields() override;
    std::optional<QVariant> saveRecord() override;
    bool deleteRecord(const QVariant &key) override;
    void recordShown() override;
    void cmdFind_Click() override;
    void cmdPrint_Click() override;

private:
    void buildForm();
    void bindFields();
    /// The two columns of the form: who somebody is, and what he does here.
    void addPerson(input::FormBuilder &form);
    void addWork(input::FormBuilder &form);
    /// Fills the lists to choose from.
    void loadLists();
    /// Offers the states of the country on show.
    void loadStates();
    /// Lets half a phone number or date keep the focus.
    void checkOnLeaving();
    /// Asks whether a changed labour cost reaches the services of the crew.
    bool isLabourCostCarriedOn(const clsEmployee &employee) const;

    QLineEdit *txtEmployeeID = nullptr;
    QLineEdit *txtFirstName = nullptr;
    QLineEdit *txtLastname = nullptr;
    QLineEdit *txtInitialName = nullptr;
    input::DateInput *datBirthDate = nullptr;
    input::IdCombo *cboGender = nullptr;
    QLineEdit *txtAddress = nullptr;
    QLineEdit *txtCity = nullptr;
    input::IdCombo *cboCountry = nullptr;
    input::IdCombo *cboState = nullptr;
    QLineEdit *txtZip = nullptr;
    input::PhoneInput *txtPhone = nullptr;
    input::PhoneInput *txtCellPhone = nullptr;
    QLineEdit *txtEmail = nullptr;
    input::PhoneInput *txtPager = nullptr;
    QLineEdit *txtSS = nullptr;
    QLineEdit *txtLicenseNo = nullptr;
    input::IdCombo *cboSite = nullptr;
    QPlainTextEdit *txtSkills = nullptr;
    input::IdCombo *cboCrew = nullptr;
    input::IdCombo *cboPosition = nullptr;
    input::CurrencyInput *txtLaborCost = nullptr;
    input::CurrencyInput *txtLaborRate = nullptr;
    QCheckBox *chkInactive = nullptr;
    QCheckBox *chkIncludeWoList = nullptr;

    Binding<clsEmployee> m_fields{clsEmployee::fields()};
    bool m_crewTouched = false; ///< any choice in the crew list, even of the same crew
};
