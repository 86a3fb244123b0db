#pragma once

#include "core/ui/Binding.h"
#include "core/ui/SavingScreen.h"
#include "shell/clsUser.h"

#include <QStringList>

class QLineEdit;
class QPushButton;
class QToolButton;

namespace grid {
class GridView;
}
namespace input {
class IdCombo;
}

/// The users other than the built-in one, with their passwords and employees.
class frmUserManageMent : public SavingScreen
{
    Q_OBJECT

public:
    explicit frmUserManageMent(QWidget *parent = nullptr);

    /// Waits until the screen is closed.
    static void ShowUserManagement();

private:
    void buildForm();
    /// Reads the users again and shows this one, or the first where there is none of that name.
    void RefreshRecordSet(const QString &userToShow = {});
    void DisplayData();
    /// What is to be stored: the password as typed, or the stored one when nobody has typed.
    [[nodiscard]] clsUser SetObjectValues() const;
    void ClearData();
    void EnableControls() override;
    /// Fills the list of employees.
    void RefreshCombo();
    [[nodiscard]] bool VailidateFields();
    /// False, after a message, when nobody could log in with the text of the box.
    [[nodiscard]] bool mayLogInWith(QLineEdit *box);
    /// Says in the empty box that there is a password, which is never shown.
    void showPasswordHint(const QString &stored);
    /// Chooses an employee in the list, also one who is in the register no more.
    void showEmployee(const QString &employeeID);
    [[nodiscard]] std::optional<QVariant> saveRecord() override;
    [[nodiscard]] QString recordName() const override;
    /// A user who is gone is not added again from here.
    [[nodiscard]] bool becomesNew() override;
    /// Writes the employees' names into the grid, which has their numbers.
    void showEmployeeNames();

    void cmdAdd_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdDelete_Click();
    void cmdRole_Click();
    void cmdEmployee_Click();
    void cmdExit_Click();

    grid::GridView *grdUser = nullptr;
    QLineEdit *txtUserName = nullptr;
    QLineEdit *txtPassword = nullptr;
    input::IdCombo *cboEmployee = nullptr;
    QToolButton *cmdEmployee = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdSave = nullptr;
    QPushButton *cmdCancel = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdRole = nullptr;
    QPushButton *cmdExit = nullptr;

    /// The name and the employee; the password is never shown.
    Binding<clsUser> m_fields{clsUser::fields()};
    QStringList m_employeeIDs; ///< of the combo's items
};
