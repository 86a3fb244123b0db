#include "equipment/ui/PurchasePage.h"

#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "core/ui/LookupCombo.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/DateStamp.h"
#include "platform/input/FormBuilder.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int IntervalLength = 9;
/// The number of this way to come by a machine, as its list counts them.
constexpr qint64 Loan = 3;

constexpr QStringView LeaseCaptions[] = {u"Lease Company", u"Lease is for", u"Lease Start Date",
                                         u"Lease End Date", u"Lease Payment"};
constexpr QStringView LoanCaptions[] = {u"Loan Company", u"Loan is for", u"Loan Start Date",
                                        u"Loan End Date", u"Loan Payment"};

} // namespace

PurchasePage::PurchasePage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    input::FormBuilder form(this);
    form.beginColumns();
    buildLease(form);
    buildWarranty(form);
    form.nextColumn();
    buildPurchase(form);
    form.endColumns();
    form.finish();

    loadFixedList(*cboLeaseOwnedLeased, {u"Owned"_s, u"Leased"_s, u"Loan"_s});
    for (input::IdCombo *period : {cboLeasePeriod, cboWarrantyPeriod})
        loadFixedList(*period,
                      {u"Hours"_s, u"Miles"_s, u"Days"_s, u"Weeks"_s, u"Months"_s, u"Years"_s});
    for (const auto *list : {"LEASECOMPANY", "SUPPLIER", "MANUFACTURE"})
        RefreshCombo(QString::fromLatin1(list));
    // Also when another machine is shown: the captions follow what is chosen, by whomever.
    connect(cboLeaseOwnedLeased, &QComboBox::currentIndexChanged, this, &PurchasePage::nameLease);
    nameLease();
}

input::DateInput *PurchasePage::addDate(input::FormBuilder &form, const QString &name,
                                        const QString &label, QDateTime clsEquipment::*member)
{
    input::DateInput *box = form.dateField(name, label);
    // Each date is judged where it is typed; the page is not left with half a date in it.
    box->checkOnLeave();
    fields().add(box, member);
    return box;
}

void PurchasePage::buildLease(input::FormBuilder &form)
{
    const auto caption = [&](std::size_t line, QWidget *field) {
        m_leaseCaptions[line] = {form.lastLabel(), field};
    };
    const auto label = [](std::size_t line) { return LeaseCaptions[line].toString(); };
    form.beginGroup(u"Ownership"_s, u"fraLease"_s);
    cboLeaseOwnedLeased = form.comboField(u"cboLeaseOwnedLeased"_s, u"Owned or &Leased:"_s);
    fields().add(cboLeaseOwnedLeased, &clsEquipment::LeaseOwnedLeased);
    cboLeaseCompany = form.comboField(u"cboLeaseCompany"_s, label(0));
    fields().add(cboLeaseCompany, &clsEquipment::LeaseCompany);
    caption(0, cboLeaseCompany);
    editorButton(form, u"cmdLeaseCompany"_s, u"Edit the lease companies"_s, u"LEASECOMPANY"_s,
                 [this] { ShowIndicatorDetail(LookupList::LeaseCompany, cboLeaseCompany->id()); });
    form.beginRow();
    txtLeaseInterval = form.digitsField(u"txtLeaseInterval"_s, label(1), IntervalLength);
    caption(1, txtLeaseInterval);
    cboLeasePeriod = form.comboField(u"cboLeasePeriod"_s, {});
    cboLeasePeriod->setAccessibleName(u"Period of the lease"_s);
    form.endRow();
    // One after the other: a caption belongs to the label made last.
    caption(2, addDate(form, u"datLeaseStart"_s, label(2), &clsEquipment::LeaseStartDate));
    caption(3, addDate(form, u"datLeaseEnd"_s, label(3), &clsEquipment::LeaseEndDate));
    input::CurrencyInput *payment = form.currencyField(u"txtLeasePayment"_s, label(4));
    caption(4, payment);
    form.endGroup();

    zeroWhenLeftBlank(txtLeaseInterval);
    fields().add(txtLeaseInterval, &clsEquipment::LeaseInterval);
    fields().add(cboLeasePeriod, &clsEquipment::LeasePeriod);
    fields().add(payment, &clsEquipment::LeasePayment);
}

void PurchasePage::buildWarranty(input::FormBuilder &form)
{
    form.beginGroup(u"Warranty"_s, u"fraWarranty"_s);
    form.beginRow();
    txtWarrantyInterval =
        form.digitsField(u"txtWarrantyInterval"_s, u"&Warranty is for:"_s, IntervalLength);
    cboWarrantyPeriod = form.comboField(u"cboWarrantyPeriod"_s, {});
    cboWarrantyPeriod->setAccessibleName(u"Period of the warranty"_s);
    form.endRow();
    addDate(form, u"datWarrantyStart"_s, u"Warrant&y Start Date:"_s,
            &clsEquipment::WarrantyStartDate);
    addDate(form, u"datWarrantyEnd"_s, u"Warranty &End Date:"_s, &clsEquipment::WarrantyEndDate);
    form.endGroup();

    zeroWhenLeftBlank(txtWarrantyInterval);
    fields().add(txtWarrantyInterval, &clsEquipment::WarrantyInterval);
    fields().add(cboWarrantyPeriod, &clsEquipment::WarrantyPeriod);
}

void PurchasePage::buildPurchase(input::FormBuilder &form)
{
    form.beginGroup(u"Purchase"_s, u"fraPurchaseInfo"_s);
    cboSupplier = form.comboField(u"cboSupplier"_s, u"S&upplier:"_s);
    editorButton(form, u"cmdSupplier"_s, u"Open the suppliers"_s, u"SUPPLIER"_s,
                 [this] { ShowSupplierDetail(Mode::Browse, cboSupplier->id()); });
    QLineEdit *txtSupplierPartNo =
        form.textField(u"txtSupplierPartNo"_s, u"Supplier Part N&o:"_s, 50);
    cboManufacturer = form.comboField(u"cboManufacturer"_s, u"&Manufacturer:"_s);
    editorButton(form, u"cmdManufacturer"_s, u"Edit the manufacturers"_s, u"MANUFACTURE"_s,
                 [this] { ShowIndicatorDetail(LookupList::Manufacturer, cboManufacturer->id()); });
    QLineEdit *txtManufacturePartNo =
        form.textField(u"txtManufacturePartNo"_s, u"Manufacturer Part No:"_s, 50);
    addDate(form, u"datAcquisition"_s, u"Ac&quisition Date:"_s, &clsEquipment::Acquisitiondate);
    input::CurrencyInput *cost =
        form.currencyField(u"txtAcquisitionCost"_s, u"Acquisition Cos&t:"_s);
    input::CurrencyInput *additional =
        form.currencyField(u"txtAdditionalCost"_s, u"Add&itional Cost:"_s);
    QPlainTextEdit *txtPurchaseNotes =
        form.memoField(u"txtPurchaseNotes"_s, u"Purchase &Notes:"_s, 3);
    form.endGroup();

    input::installDateStamp(txtPurchaseNotes);
    fields().add(cboSupplier, &clsEquipment::SupplierID);
    fields().add(txtSupplierPartNo, &clsEquipment::SupplierPartNo);
    fields().add(cboManufacturer, &clsEquipment::ManufactureID);
    fields().add(txtManufacturePartNo, &clsEquipment::ManufacturePartNo);
    fields().add(cost, &clsEquipment::AcquisitionCost);
    fields().add(additional, &clsEquipment::AdditionalCost);
    fields().add(txtPurchaseNotes, &clsEquipment::PurchaseNotes);
}

void PurchasePage::DisplayData(const clsEquipment &machine, const db::Row &row)
{
    RecordPage::DisplayData(machine, row);
    blankIfNeverGiven(txtLeaseInterval, row, u"LeaseInterval");
    blankIfNeverGiven(txtWarrantyInterval, row, u"WarrantyInterval");
}

void PurchasePage::nameLease()
{
    const std::span captions =
        cboLeaseOwnedLeased->id() == Loan ? std::span(LoanCaptions) : std::span(LeaseCaptions);
    for (std::size_t line = 0; line < m_leaseCaptions.size(); ++line) {
        m_leaseCaptions[line].label->setText(captions[line].toString() + u':');
        m_leaseCaptions[line].field->setAccessibleName(captions[line].toString());
    }
}

void PurchasePage::loadSuppliers()
{
    LoadItemWithIdToCombo(*cboSupplier,
                          GetTableInfoWithIndicator(u"tblSupplier"_s, u"SupplierID"_s),
                          u"SupplierID"_s, u"Name"_s, true);
}

void PurchasePage::RefreshCombo(const QString &listName)
{
    if (listName == u"LEASECOMPANY")
        rebuildKeepingChoice(*cboLeaseCompany, [this] {
            loadLookupList(*cboLeaseCompany, LookupList::LeaseCompany);
        });
    else if (listName == u"SUPPLIER")
        rebuildKeepingChoice(*cboSupplier, [this] { loadSuppliers(); });
    else if (listName == u"MANUFACTURE")
        rebuildKeepingChoice(*cboManufacturer, [this] {
            loadLookupList(*cboManufacturer, LookupList::Manufacturer);
        });
}
