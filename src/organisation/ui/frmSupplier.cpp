#include "organisation/ui/frmSupplier.h"

#include "core/Identifiers.h"
#include "core/Tables.h"
#include "core/ui/LookupCombo.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateStamp.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/PhoneInput.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

frmSupplier::frmSupplier(QWidget *parent)
    : MasterScreen(u"frmSupplier"_s, u"Supplier"_s, parent)
{
    buildForm();
    // A supplier has no country: the states of all of them are offered.
    loadAllStates(*cboState);
}

void frmSupplier::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    addAddress(form);
    form.nextColumn();
    addTerms(form);
    form.endColumns();
    txtNotes = form.memoField(u"txtNotes"_s, u"Notes:"_s, 5);
    input::installDateStamp(txtNotes);
    makeButtons(form, {.find = true, .print = true});
    form.finish();
    resize(760, 560);
    // Ahead of it stands only the number, which nobody types.
    txtName->setFocus();
    bindFields();
    setFields({&m_fields});
    input::validateOnLeave(txtPhone, [this] { return txtPhone_Validate(); });
    input::validateOnLeave(txtFax, [this] { return txtFax_Validate(); });
    // Who gives up is not held back by what is half typed.
    for (QPushButton *button : {cmdCancel, cmdExit})
        input::setCausesValidation(button, false);
}

void frmSupplier::bindFields()
{
    m_fields.addTrimmed(txtName, &clsSupplier::Name);
    m_fields.add(txtContactName, &clsSupplier::ContactName);
    m_fields.add(txtAtten, &clsSupplier::Atten);
    m_fields.add(txtAddress, &clsSupplier::Address);
    m_fields.add(txtAddress2, &clsSupplier::Address2);
    m_fields.add(txtCity, &clsSupplier::City);
    m_fields.add(cboState, &clsSupplier::State);
    m_fields.addTrimmed(txtZip, &clsSupplier::Zip);
    m_fields.add(txtPhone, &clsSupplier::Phone);
    m_fields.add(txtFax, &clsSupplier::Fax);
    m_fields.addTrimmed(txtEmail, &clsSupplier::Email);
    m_fields.addTrimmed(txtWebSite, &clsSupplier::WebSite);
    m_fields.addTrimmed(txtTax, &clsSupplier::Tax);
    m_fields.add(txtTerms, &clsSupplier::Terms);
    m_fields.add(txtCreditLimit, &clsSupplier::CreditLimit);
    m_fields.add(txtLicenseNo, &clsSupplier::LicenseNo);
    m_fields.add(txtNotes, &clsSupplier::Notes);
}

void frmSupplier::addAddress(input::FormBuilder &form)
{
    txtSupplierID = form.textField(u"txtSupplierID"_s, u"Supplier &ID:"_s);
    txtSupplierID->setReadOnly(true);
    txtName = form.textField(u"txtName"_s, u"Supplier Na&me:"_s, 80);
    txtContactName = form.textField(u"txtContactName"_s, u"C&ontact Name:"_s, 60);
    txtAtten = form.textField(u"txtAtten"_s, u"Atte&ntion:"_s, 60);
    txtAddress = form.textField(u"txtAddress"_s, u"Addr&ess:"_s, 100);
    txtAddress2 = form.textField(u"txtAddress2"_s, u"Address &2:"_s, 100);
    txtCity = form.textField(u"txtCity"_s, u"Cit&y:"_s, 60);
    cboState = form.comboField(u"cboState"_s, u"S&tate:"_s);
    connect(form.sideButton(u"cmdState"_s, u"Edit the states"_s), &QToolButton::clicked, this,
            &frmSupplier::cmdState_Click);
    txtZip = form.textField(u"txtZip"_s, u"&Zip:"_s, 20);
}

void frmSupplier::addTerms(input::FormBuilder &form)
{
    txtPhone = form.phoneField(u"txtPhone"_s, u"P&hone:"_s);
    txtFax = form.phoneField(u"txtFax"_s, u"Fa&x:"_s);
    txtEmail = form.textField(u"txtEmail"_s, u"Emai&l:"_s, 100);
    txtWebSite = form.textField(u"txtWebSite"_s, u"&Web Site:"_s, 100);
    txtTax = form.digitsField(u"txtTax"_s, u"Tax N&umber:"_s, 30);
    txtTerms = form.textField(u"txtTerms"_s, u"Terms:"_s, 60);
    txtCreditLimit = form.currencyField(u"txtCreditLimit"_s, u"Credit Limit:"_s);
    txtLicenseNo = form.textField(u"txtLicenseNo"_s, u"License No:"_s, 30);
}

bool frmSupplier::txtPhone_Validate() const
{
    return txtPhone->check(u"Invalid phone No"_s);
}

bool frmSupplier::txtFax_Validate() const
{
    return txtFax->check(u"Invalid fax No"_s);
}

void frmSupplier::cmdState_Click()
{
    ShowIndicatorDetail(LookupList::State, cboState->id());
    rebuildKeepingChoice(*cboState, [this] { loadAllStates(*cboState); });
}

db::Recordset frmSupplier::loadRows()
{
    return GetTableInfoWithIndicator(u"tblSupplier"_s, u"SupplierID"_s);
}

void frmSupplier::DisplayData(const db::Row &row)
{
    MasterScreen::DisplayData(row);
    txtSupplierID->setText(QString::number(m_fields.shown().SupplierID));
}

void frmSupplier::ClearData()
{
    MasterScreen::ClearData();
    txtSupplierID->clear();
}

void frmSupplier::prepareNewRecord()
{
    // A preview: if another workstation stores it first, the save takes the next one.
    (void)takeFreshKey();
    txtName->setFocus();
}

bool frmSupplier::takeFreshKey()
{
    txtSupplierID->setText(
        QString::number(GenerateIDWithIndicator(u"tblSupplier"_s, u"SupplierID"_s)));
    return true;
}

bool frmSupplier::VailidateFields()
{
    if (input::isBlank(txtSupplierID))
        return refuse(txtSupplierID, u"Supplier ID should not be blank."_s, false);
    // Names may be alike: two branches of one dealer are told apart by their numbers.
    if (input::isBlank(txtName))
        return refuse(txtName, u"Supplier Name should not be blank."_s, false);
    return true;
}

std::optional<QVariant> frmSupplier::saveRecord()
{
    clsSupplier supplier = m_fields.read();
    // Its column is a field like the others, since the database doesn't give it.
    supplier.SupplierID = txtSupplierID->text().toLongLong();
    if (!clsSupplier_Manager().SaveRecord(supplier, mode(), m_fields.shown()))
        return std::nullopt;
    return QVariant(supplier.SupplierID);
}

QString frmSupplier::recordName() const
{
    return u"the supplier \"%1\""_s.arg(txtName->text().trimmed());
}

void frmSupplier::recordShown()
{
    // What has not joined the program is grey.
    cmdFind->setEnabled(hasRows() && screenCalls().ShowQuickFind != nullptr);
    cmdPrint->setEnabled(hasRows() && openings().isJoined(u"ShowSupplierReport"));
}

void frmSupplier::cmdFind_Click()
{
    const QString found = screenCalls().ShowQuickFind(
        {u"Name"_s, u"Supplier Name"_s, u"tblSupplier"_s, u"frmSupplier"_s, txtSupplierID->text()});
    if (!found.trimmed().isEmpty())
        RefreshRecordSet(found);
}

void frmSupplier::cmdPrint_Click()
{
    openings().open(u"ShowSupplierReport",
                    {.query = u"Where tblSupplier.SupplierID="_s + txtSupplierID->text()});
}
