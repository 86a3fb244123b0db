#include "shell/ui/frmUserManageMent.h"

#include "core/Tables.h"
#include "core/ui/Openings.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "shell/Login.h"
#include "shell/clsUser_Manager.h"
#include "shell/ui/frmUserRoles.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr auto module = "frmUserManageMent";
constexpr auto employeeScreen = u"frmEmployee";

/// "17   Miller, Ann"
QString employeeText(const db::Row &row)
{
    const QString last = row.text(u"Lastname");
    const QString first = row.text(u"FirstName");
    const QString name = last.isEmpty() || first.isEmpty() ? last + first : last + u", "_s + first;
    return (row.text(u"EmployeeID") + u"   "_s + name).trimmed();
}

} // namespace

frmUserManageMent::frmUserManageMent(QWidget *parent)
    : SavingScreen(u"frmUserManageMent"_s, u"User Management"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
    // The employees first: the rows of the grid show them by name.
    RefreshCombo();
    grdUser->sortBy(u"UserName"_s, grid::Sort::Ascending);
    adoptGrid(grdUser, u"grdUser"_s);
    RefreshRecordSet();

    // Behind the first display, which is no change.
    watch({txtUserName, txtPassword, cboEmployee});
    connect(grdUser, &grid::GridView::currentRowChanged, this, [this] {
        // The grid is read anew while a record is edited too.
        if (mode() == Mode::Browse)
            DisplayData();
    });
    connect(cmdAdd, &QPushButton::clicked, this, &frmUserManageMent::cmdAdd_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmUserManageMent::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmUserManageMent::cmdCancel_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmUserManageMent::cmdDelete_Click);
    connect(cmdRole, &QPushButton::clicked, this, &frmUserManageMent::cmdRole_Click);
    connect(cmdEmployee, &QToolButton::clicked, this, &frmUserManageMent::cmdEmployee_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmUserManageMent::cmdExit_Click);
}

void frmUserManageMent::buildForm()
{
    input::FormBuilder form(this);
    grdUser = new grid::GridView(this);
    grdUser->setObjectName(u"grdUser"_s);
    grdUser->setAccessibleName(u"Users"_s);
    grdUser->setEditing(false);
    grdUser->rows().addColumn({.name = u"UserName"_s, .caption = u"User Name"_s, .width = 200});
    // The stored text is needed for the save, which finds by it what somebody else has changed.
    grdUser->rows().addColumn({.name = u"Password"_s, .visible = false});
    grdUser->rows().addColumn({.name = u"EmployeeID"_s, .visible = false});
    grdUser->rows().addColumn({.name = u"Employee"_s, .width = 320});
    form.widget(grdUser, true);

    txtUserName = form.textField(u"txtUserName"_s, u"&User Name:"_s, 60);
    txtPassword = form.passwordField(u"txtPassword"_s, u"&Password:"_s, 100);
    cboEmployee = form.comboField(u"cboEmployee"_s, u"&Employee:"_s);
    cmdEmployee = form.sideButton(u"cmdEmployee"_s, u"Open the employees"_s);

    cmdRole = form.leftButton(u"cmdRole"_s, u"R&oles"_s, theme::icon(u"roles"_s));
    cmdAdd = form.button(u"cmdAdd"_s, u"&Add"_s, theme::icon(u"add"_s));
    cmdSave = form.button(u"cmdSave"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    cmdDelete = form.button(u"cmdDelete"_s, u"&Delete"_s, theme::icon(u"delete"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(620, 460);
    m_fields.addTrimmed(txtUserName, &clsUser::UserName);
    // By the text of the number: an item's own id is only its place in the list.
    m_fields.add(
        cboEmployee, &clsUser::EmployeeID,
        [this] { return QVariant(m_employeeIDs.value(cboEmployee->currentIndex())); },
        [this](const QVariant &id) { showEmployee(id.toString()); });
    setSavedFields({&m_fields});
}

void frmUserManageMent::ShowUserManagement()
{
    frmUserManageMent(QApplication::activeWindow()).showModal();
}

void frmUserManageMent::RefreshRecordSet(const QString &userToShow)
{
    base::trapped(module, "RefreshRecordSet", [&] {
        grdUser->rows().setRecordset(clsUser_Manager().Users());
        showEmployeeNames();
        const int wanted =
            userToShow.isEmpty() ? -1 : grdUser->rows().findRow(u"UserName", userToShow);
        // By the order that is shown, which the user may have changed.
        const int first = grdUser->displayedOrder().value(0, -1);
        grdUser->selectRow(wanted >= 0 ? wanted : first);
    });
    // In any case, so that a list that can't be read leaves no half changed screen.
    setMode(Mode::Browse);
    DisplayData();
}

void frmUserManageMent::DisplayData()
{
    const Displaying displaying(*this);
    ClearData();
    const int row = grdUser->currentRow();
    if (row < 0)
        return;
    const grid::GridModel &rows = grdUser->rows();
    m_fields.show(
        {rows.text(row, u"UserName"), rows.text(row, u"Password"), rows.text(row, u"EmployeeID")});
    showPasswordHint(m_fields.shown().Password);
}

void frmUserManageMent::showEmployee(const QString &employeeID)
{
    // One who has left the register stays with the user until another one is chosen.
    if (!employeeID.isEmpty() && !m_employeeIDs.contains(employeeID)) {
        cboEmployee->add(employeeID, m_employeeIDs.size());
        m_employeeIDs << employeeID;
    }
    cboEmployee->setCurrentIndex(
        employeeID.isEmpty() ? 0 : static_cast<int>(m_employeeIDs.indexOf(employeeID)));
}

void frmUserManageMent::showEmployeeNames()
{
    grid::GridModel &rows = grdUser->rows();
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QString id = rows.text(row, u"EmployeeID");
        const auto index = static_cast<int>(m_employeeIDs.indexOf(id));
        rows.setValue(row, u"Employee", index < 0 ? id : cboEmployee->itemText(index).trimmed());
    }
}

void frmUserManageMent::showPasswordHint(const QString &stored)
{
    txtPassword->setPlaceholderText(stored.isEmpty() ? QString()
                                                     : u"Unchanged. Type to give a new one."_s);
}

clsUser frmUserManageMent::SetObjectValues() const
{
    clsUser user = m_fields.read();
    // A box that nobody has typed in stands for the stored password.
    if (mode() == Mode::Add || txtPassword->isModified())
        user.Password = txtPassword->text();
    return user;
}

void frmUserManageMent::ClearData()
{
    m_fields.clear();
    txtPassword->clear();
    // Clearing counts as a change to the box, and an unmodified box stands for the stored password.
    txtPassword->setModified(false);
    showPasswordHint({});
}

void frmUserManageMent::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    const bool hasRow = grdUser->currentRow() >= 0;
    for (QWidget *box : std::initializer_list<QWidget *>{txtUserName, txtPassword, cboEmployee})
        box->setEnabled(!browsing || hasRow);
    cmdEmployee->setEnabled(openings().isJoined(employeeScreen));
    grdUser->setEnabled(browsing);
    cmdAdd->setEnabled(browsing);
    cmdDelete->setEnabled(browsing && hasRow);
    // While a user is edited it stays on, and says what is to be done first.
    cmdRole->setEnabled(!browsing || hasRow);
    cmdSave->setEnabled(!browsing);
    cmdCancel->setEnabled(!browsing);
    cmdExit->setEnabled(browsing);
    setCloseEnabled(browsing);
}

void frmUserManageMent::RefreshCombo()
{
    const Displaying displaying(*this);
    cboEmployee->clear();
    m_employeeIDs = {QString()};
    cboEmployee->add(u"  "_s, 0);
    for (const db::Row row : GetTableInfo(u"tblEmployee"_s, u"EmployeeID"_s)) {
        cboEmployee->add(employeeText(row), m_employeeIDs.size());
        m_employeeIDs << row.text(u"EmployeeID");
    }
    cboEmployee->setCurrentIndex(0);
}

bool frmUserManageMent::VailidateFields()
{
    if (input::isBlank(txtUserName)) {
        base::showMessage(u"User Name should not be blank."_s);
        txtUserName->setFocus();
        return false;
    }
    // Of a renamed user the manager asks it, who knows the row that is no other's.
    if (mode() == Mode::Add && clsUser_Manager().IsUserExist(txtUserName->text().trimmed())) {
        base::showMessage(u"User Name should be unique."_s);
        txtUserName->setFocus();
        txtUserName->selectAll();
        return false;
    }
    return mayLogInWith(txtUserName) && mayLogInWith(txtPassword);
}

bool frmUserManageMent::mayLogInWith(QLineEdit *box)
{
    const QString refusal = shell::refusalOfLoginText(box->text());
    if (refusal.isEmpty())
        return true;
    base::showMessage(refusal);
    box->setFocus();
    box->selectAll();
    return false;
}

void frmUserManageMent::cmdAdd_Click()
{
    {
        const Displaying displaying(*this);
        ClearData();
    }
    setMode(Mode::Add);
    txtUserName->setFocus();
}

void frmUserManageMent::cmdSave_Click()
{
    base::trapped(module, "cmdSave_Click", [this] {
        if (!VailidateFields())
            return;
        if (const std::optional<QVariant> name = store())
            RefreshRecordSet(name->toString());
    });
}

std::optional<QVariant> frmUserManageMent::saveRecord()
{
    const clsUser user = SetObjectValues();
    bool saved = false;
    clsUser_Manager().SaveRecord(user, mode(), saved, m_fields.shown());
    return saved ? std::optional<QVariant>(user.UserName) : std::nullopt;
}

QString frmUserManageMent::recordName() const
{
    return u"the user \"%1\""_s.arg(m_fields.shown().UserName);
}

bool frmUserManageMent::becomesNew()
{
    // Added again, the user would have neither password nor rights.
    base::showMessage(u"Another workstation has deleted or renamed %1. Nothing was stored; Cancel "
                      "shows the users that there are."_s.arg(recordName()));
    return false;
}

void frmUserManageMent::cmdCancel_Click()
{
    // The grid still stands on the row from which the change or the new record was begun.
    const int row = grdUser->currentRow();
    RefreshRecordSet(row < 0 ? QString() : grdUser->rows().text(row, u"UserName"));
}

void frmUserManageMent::cmdDelete_Click()
{
    base::trapped(module, "cmdDelete_Click", [this] {
        if (!base::askYesNo(u"Are you sure you want to Delete this record?"_s))
            return;
        bool deleted = false;
        // By the stored name, whatever stands in the box.
        clsUser_Manager().DeleteRecord(m_fields.shown().UserName, deleted);
        if (deleted)
            RefreshRecordSet();
        else
            base::showMessage(u"Deletion not allowed."_s);
    });
}

void frmUserManageMent::cmdRole_Click()
{
    if (mode() == Mode::Browse)
        frmUserRoles::ShowUserRolesDetail(m_fields.shown().UserName);
    else
        base::showMessage(u"Please save this record first then goto next screen"_s);
}

void frmUserManageMent::cmdEmployee_Click()
{
    // The list is made anew behind the employees' screen: places change, the number stays.
    const QString chosen = m_employeeIDs.value(cboEmployee->currentIndex());
    openings().open(employeeScreen);
    RefreshCombo();
    showEmployeeNames();
    const Displaying displaying(*this);
    showEmployee(chosen);
}

void frmUserManageMent::cmdExit_Click()
{
    unload();
}
