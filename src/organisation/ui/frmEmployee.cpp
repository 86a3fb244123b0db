#include "organisation/ui/frmEmployee.h"

#include "core/Flag.h"
#include "core/Labour.h"
#include "core/RowTests.h"
#include "core/ui/Combos.h"
#include "core/ui/LookupCombo.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"
#include "platform/input/PhoneInput.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

frmEmployee::frmEmployee(QWidget *parent)
    : RecordScreen(u"frmEmployee"_s, u"Employee"_s, parent)
{
    buildForm();
    // Ahead of the first record, whose numbers are looked up in the lists.
    loadLists();
    checkOnLeaving();
}

void frmEmployee::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    addPerson(form);
    form.nextColumn();
    addWork(form);
    form.endColumns();
    txtSkills = form.memoField(u"txtSkills"_s, u"S&kills:"_s, 3);
    makeButtons(form, {.find = true, .print = true});
    form.finish();
    resize(760, 600);

    // Work orders, users and reports refer to employees by this number, some inside of texts: it
    // holds nothing that would need quoting, and one spelling only.
    input::restrictTo(txtEmployeeID, input::TypeCheck::String, input::TypeCheck::Int);
    input::upperCaseAsTyped(txtEmployeeID);
    bindFields();
    setFields({&m_fields});
}

void frmEmployee::bindFields()
{
    // The number alone is trimmed, since the row is found by it.
    m_fields.addTrimmed(txtEmployeeID, &clsEmployee::EmployeeID);
    m_fields.add(txtFirstName, &clsEmployee::FirstName);
    m_fields.add(txtInitialName, &clsEmployee::InitialName);
    m_fields.add(txtLastname, &clsEmployee::Lastname);
    m_fields.addIdAsText(cboGender, &clsEmployee::Gender);
    m_fields.add(datBirthDate, &clsEmployee::BirthDate);
    m_fields.add(txtAddress, &clsEmployee::Address);
    m_fields.add(txtCity, &clsEmployee::City);
    // The country stands ahead of the list that follows it.
    m_fields.addIdAsText(cboCountry, &clsEmployee::Country);
    m_fields.addIdAsText(cboState, &clsEmployee::State);
    m_fields.add(txtZip, &clsEmployee::Zip);
    m_fields.add(txtPhone, &clsEmployee::Phone);
    m_fields.add(txtCellPhone, &clsEmployee::CellPhone);
    m_fields.add(txtPager, &clsEmployee::Pager);
    m_fields.add(txtEmail, &clsEmployee::Email);
    m_fields.add(txtSS, &clsEmployee::SS);
    m_fields.add(txtLicenseNo, &clsEmployee::LicenseNo);
    m_fields.add(cboSite, &clsEmployee::Site);
    m_fields.add(cboCrew, &clsEmployee::Crew);
    m_fields.add(cboPosition, &clsEmployee::EmpPosition);
    m_fields.add(txtLaborCost, &clsEmployee::LaborCost);
    m_fields.add(txtLaborRate, &clsEmployee::LaborRate);
    m_fields.add(chkInactive, &clsEmployee::Inactive);
    m_fields.add(chkIncludeWoList, &clsEmployee::IncludeWoList);
    m_fields.add(txtSkills, &clsEmployee::Skills);
}

void frmEmployee::addPerson(input::FormBuilder &form)
{
    txtEmployeeID = form.textField(u"txtEmployeeID"_s, u"Employee &Number:"_s, 20);
    txtFirstName = form.textField(u"txtFirstName"_s, u"First Na&me:"_s, 60);
    txtInitialName = form.textField(u"txtInitialName"_s, u"Initial:"_s, 10);
    txtLastname = form.textField(u"txtLastname"_s, u"&Last Name:"_s, 60);
    cboGender = form.comboField(u"cboGender"_s, u"&Gender:"_s);
    datBirthDate = form.dateField(u"datBirthDate"_s, u"&Birth Date:"_s);
    txtAddress = form.textField(u"txtAddress"_s, u"Addr&ess:"_s, 100);
    txtCity = form.textField(u"txtCity"_s, u"Cit&y:"_s, 60);
    cboCountry = form.comboField(u"cboCountry"_s, u"C&ountry:"_s);
    connect(form.sideButton(u"cmdCountry"_s, u"Edit the countries"_s), &QToolButton::clicked, this,
            [this] {
                ShowIndicatorDetail(LookupList::Country, cboCountry->id());
                // The country may be another one now, or be gone, and the states follow it.
                rebuildKeepingChoice(*cboCountry,
                                     [this] { loadLookupList(*cboCountry, LookupList::Country); });
                rebuildKeepingChoice(*cboState, [this] { loadStates(); });
            });
    cboState = form.comboField(u"cboState"_s, u"S&tate:"_s);
    connect(form.sideButton(u"cmdState"_s, u"Edit the states"_s), &QToolButton::clicked, this,
            [this] {
                // A state that isn't chosen yet doesn't tell its country: the editor gets it by
                // name.
                ShowIndicatorDetail(LookupList::State, cboState->id(), cboCountry->currentText());
                rebuildKeepingChoice(*cboState, [this] { loadStates(); });
            });
    txtZip = form.textField(u"txtZip"_s, u"&Zip:"_s, 20);
    // The states follow whatever country is shown, also while a record is displayed.
    connect(cboCountry, &QComboBox::currentIndexChanged, this, &frmEmployee::loadStates);
}

void frmEmployee::addWork(input::FormBuilder &form)
{
    txtPhone = form.phoneField(u"txtPhone"_s, u"P&hone:"_s);
    txtCellPhone = form.phoneField(u"txtCellPhone"_s, u"Cell Phone:"_s);
    txtPager = form.phoneField(u"txtPager"_s, u"Pager:"_s);
    txtEmail = form.textField(u"txtEmail"_s, u"Email:"_s, 100);
    txtSS = form.digitsField(u"txtSS"_s, u"SS:"_s, 20);
    txtLicenseNo = form.textField(u"txtLicenseNo"_s, u"License No:"_s, 30);
    cboSite = form.comboField(u"cboSite"_s, u"S&ite:"_s);
    connect(form.sideButton(u"cmdSite"_s, u"Edit the sites"_s), &QToolButton::clicked, this,
            [this] {
                showSiteDetail(Mode::Browse, cboSite->id());
                rebuildKeepingChoice(*cboSite, [this] { loadSites(*cboSite, u"SiteName"_s); });
            });
    cboCrew = form.comboField(u"cboCrew"_s, u"Cre&w:"_s);
    connect(form.sideButton(u"cmdCrew"_s, u"Edit the crews"_s), &QToolButton::clicked, this,
            [this] {
                ShowCrewDetail(Mode::Browse, cboCrew->id());
                rebuildKeepingChoice(*cboCrew, [this] { loadCrews(*cboCrew); });
            });
    cboPosition = form.comboField(u"cboPosition"_s, u"Position:"_s);
    connect(form.sideButton(u"cmdEmployeePosition"_s, u"Edit the employee positions"_s),
            &QToolButton::clicked, this, [this] {
                ShowIndicatorDetail(LookupList::EmployeePosition, cboPosition->id());
                rebuildKeepingChoice(*cboPosition, [this] {
                    loadLookupList(*cboPosition, LookupList::EmployeePosition);
                });
            });
    txtLaborCost = form.currencyField(u"txtLaborCost"_s, u"Labor Cost:"_s);
    txtLaborRate = form.currencyField(u"txtLaborRate"_s, u"Labor Rate:"_s);
    chkInactive = form.checkBox(u"chkInactive"_s, u"Inacti&ve"_s);
    chkIncludeWoList = form.checkBox(u"chkIncludeWoList"_s, u"Include in WO List"_s);
    // By the user's own choice and not by a changed index: it counts also when it ends on the same
    // crew, by which a cost can be carried into services that were added since.
    connect(cboCrew, &QComboBox::activated, this, [this] { m_crewTouched = true; });
}

void frmEmployee::loadLists()
{
    cboGender->add(u"  "_s, 0);
    cboGender->add(u"Male"_s, 1);
    cboGender->add(u"Female"_s, 2);
    loadSites(*cboSite, u"SiteName"_s);
    loadCrews(*cboCrew);
    loadLookupList(*cboCountry, LookupList::Country);
    loadLookupList(*cboPosition, LookupList::EmployeePosition);
    loadStates();
}

void frmEmployee::loadStates()
{
    // Without a country there are no states.
    loadLookupList(*cboState, cboCountry->id() == 0 ? -1 : cboCountry->id());
}

void frmEmployee::checkOnLeaving()
{
    const auto check = [](input::PhoneInput *box, const QString &message) {
        input::validateOnLeave(box, [box, message] { return box->check(message); });
    };
    check(txtPhone, u"Invalid phone No"_s);
    check(txtCellPhone, u"Invalid cell phone No"_s);
    check(txtPager, u"Invalid pager no"_s);
    datBirthDate->checkOnLeave();
    // Who gives up is not held back by what is half typed.
    for (QPushButton *button : {cmdCancel, cmdExit})
        input::setCausesValidation(button, false);
}

db::Recordset frmEmployee::loadRows()
{
    return clsEmployee_Manager().GetEmployeeInfo();
}

void frmEmployee::DisplayData(const db::Row &row)
{
    m_crewTouched = false;
    m_fields.show(clsEmployee::fromRow(row));
}

void frmEmployee::ClearData()
{
    m_crewTouched = false;
    m_fields.clear();
}

void frmEmployee::prepareNewRecord()
{
    const QString usual = u"United States"_s;
    // A company may have renamed or deleted it. Then a new employee has no country.
    if (ChkCountryExist(usual))
        cboCountry->selectText(usual);
    // In any case: without a country there are no states to choose from.
    loadStates();
    txtEmployeeID->setFocus();
}

bool frmEmployee::VailidateFields()
{
    if (input::isBlank(txtEmployeeID))
        return refuse(txtEmployeeID, u"Employee Number should not be blank."_s);
    if (input::isBlank(txtFirstName))
        return refuse(txtFirstName, u"Employee's first name should not be blank."_s);
    // The number that is stored is passed as the old one: it is no duplicate of itself.
    if (IsDuplicate(u"tblEmployee"_s, u"EmployeeID"_s, m_fields.shown().EmployeeID,
                    txtEmployeeID->text(), false))
        return refuse(txtEmployeeID,
                      u"Employee Number you specified already exists. Please enter a "
                      "different Employee Number."_s);
    return true;
}

std::optional<QVariant> frmEmployee::saveRecord()
{
    const clsEmployee employee = m_fields.read();
    // Asked before anything is written: the row would be held from others while the box waits.
    const bool isCarriedOn = isLabourCostCarriedOn(employee);
    bool isSaved = false;
    try {
        TransactionScope transaction;
        isSaved = clsEmployee_Manager().SaveRecord(employee, mode(), m_fields.shown());
        // The scope rolls back on each way out but the last: a cost that could not be carried into
        // the services takes the employee back too.
        if (!isSaved)
            return std::nullopt;
        if (isCarriedOn && !ChangeServiceLabourEstimate(employee.Crew))
            return std::nullopt;
        transaction.commit();
        return QVariant(employee.EmployeeID);
    } catch (const base::Error &error) {
        // What failed ahead of the services, and a row that another workstation holds, has
        // sentences of its own in the shape of the screen.
        if (!isSaved || error.number() == db::ErrorNumber::LockConflict)
            throw;
        const base::Interlude telling;
        base::reportCurrentException("Employee", "cmdUpdate_Click");
        base::showInformation(u"Problem in changing Service Total Lobour cost."_s);
        return std::nullopt;
    }
}

QString frmEmployee::recordName() const
{
    return u"the employee \"%1\""_s.arg(txtEmployeeID->text().trimmed());
}

bool frmEmployee::isLabourCostCarriedOn(const clsEmployee &employee) const
{
    // The labor rate takes no part: it is what customers are charged, and services are estimated at
    // cost.
    const bool changed = m_crewTouched || employee.LaborCost != m_fields.shown().LaborCost;
    return changed &&
           base::askYesNo(u"Do you to update all the labor costs in every service that this "
                          "employee is assiged to.?"_s);
}

bool frmEmployee::deleteRecord(const QVariant &key)
{
    return clsEmployee_Manager().DeleteRecord(base::toText(key));
}

void frmEmployee::recordShown()
{
    // What has not joined the program is grey.
    cmdFind->setEnabled(hasRows() && screenCalls().ShowQuickFind != nullptr);
    cmdPrint->setEnabled(hasRows() && openings().isJoined(u"ShowEmployeeReport"));
}

void frmEmployee::cmdFind_Click()
{
    const QString found =
        screenCalls().ShowQuickFind({u"EmployeeID"_s, u"Employee Number"_s, u"tblEmployee"_s,
                                     u"frmEmployee"_s, m_fields.shown().EmployeeID});
    if (!found.trimmed().isEmpty())
        RefreshRecordSet(found);
}

void frmEmployee::cmdPrint_Click()
{
    // The filter is a clause of the report's statement, in which the number stands as a text.
    openings().open(u"ShowEmployeeReport", {.query = u" Where tblEmployee.EmployeeID='%1'"_s.arg(
                                                base::doubledQuotes(m_fields.shown().EmployeeID))});
}
