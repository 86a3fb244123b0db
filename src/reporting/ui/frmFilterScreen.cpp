#include "reporting/ui/frmFilterScreen.h"

#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <array>

using namespace Qt::StringLiterals;

namespace {
const QString NotInactive = u"No"_s;
} // namespace

std::span<const frmFilterScreen::Entry> frmFilterScreen::entries()
{
    using F = frmFilterScreen;
    static constexpr std::array all{
        Entry{u"ShowEquipmentServices", u"Equipment Services", u"List of Equipment Services",
              u"fraEquipmentServices", &F::buildEquipmentServices, &F::services},
        Entry{u"ShowEquipmentExpense", u"Equipment Expense", u"List of Equipment Expense",
              u"fraEquipmentServices", &F::buildEquipmentServices, &F::expense},
        Entry{u"ShowEquipmentDetails", u"Equipment Details", u"List of Equipment Details",
              u"fraEquipmentServices", &F::buildEquipmentServices, &F::details},
        Entry{u"ShowServiceHistoryTimes", u"Service History Times", u"List of Service History",
              u"fraServiceHistoryTimes", &F::buildServiceHistoryTimes, &F::historyTimes},
        Entry{u"ShowInventoryPartHistory", u"Inventory Part History",
              u"List of Inventory Part History", u"fraInventoryPartHistory",
              &F::buildInventoryPartHistory, &F::partHistory},
        Entry{u"ShowInventoryPartUsage", u"Inventory Part Usage",
              u"List of Inventory Part Usage Details", u"fraInventoryPartUsage",
              &F::buildInventoryPartUsage, &F::partUsage},
        Entry{u"ShowInventryDetails", u"Inventroy Details", u"List of Inventroy Details",
              u"fraPart", &F::buildPart, &F::inventory},
        Entry{u"ShowInventoryOrderUpCommingServices", u"Inventory Order For Upcomming Services",
              u"List of Inventory Order For Upcomming Services",
              u"fraInventoryOrderUpcommingServices", &F::buildInventoryOrderUpcommingServices,
              &F::upcomingParts},
        Entry{u"ShowInventoryReorder", u"Inventory  Reorder", u"List of Inventory  Reorder",
              u"fraReorder", &F::buildReorder, &F::reorder},
        Entry{u"ShowEquipmentCrewHistory", u"Equipment Crew History",
              u"List of Equipment Crew History", u"fraEquipmentCrewHistory",
              &F::buildEquipmentCrewHistory, &F::crewHistory},
        Entry{u"ShowInspectionDateReading", u"Inspection Date Reading",
              u"Inspection Date Reading Reports", u"fraInspectionDate", &F::buildInspectionDate,
              &F::inspections},
        Entry{u"ShowLicenseDateReading", u"License Renewal Date Reading",
              u"License Renewal Date Reading Reports", u"fraLicenseDate", &F::buildLicenseDate,
              &F::licenses},
    };
    return all;
}

frmFilterScreen::frmFilterScreen(const Entry &entry, QWidget *parent)
    : FilterScreen(u"frmFilterScreen"_s, entry.caption.toString(), "frmFilterScreen", parent)
    , m_entry(entry)
{
    input::FormBuilder form(this);
    beginFields(form, entry.heading.toString(), entry.frame.toString());
    // One dialog for twelve reports: the entry says which fields it has and what they come to.
    (this->*entry.build)(form);
    endFields(form);
}

std::optional<catalogue::Request> frmFilterScreen::request() const
{
    return (this->*m_entry.ask)();
}

void frmFilterScreen::resetChoices()
{
    // Only one of the ten sets has this list; the other choices stay on reset.
    if (cboInactive)
        cboInactive->selectText(NotInactive);
}

// The sets of fields

void frmFilterScreen::buildEquipmentServices(input::FormBuilder &form)
{
    txtUnitNo =
        valueField(form, {u"txtUnitNo"_s, u"&Unit #"_s, u"cmdUnitNo"_s, picklists::units()});
    chkInactive = form.checkBox(u"chkInactive"_s, u"Show &Inactive"_s);
}

void frmFilterScreen::buildPart(input::FormBuilder &form)
{
    txtPartCategory = valueField(form, {u"txtPartCategory"_s, u"Part &Category"_s,
                                        u"cmdPartCategory"_s, picklists::partCategories()});
    txtSupplier = valueField(
        form, {u"txtSupplier"_s, u"&Supplier"_s, u"cmdSupplier"_s, picklists::suppliers()});
    cboInactive = new input::IdCombo(this);
    cboInactive->setObjectName(u"cboInactive"_s);
    form.field(u"&Inactive"_s, cboInactive);
    cboInactive->add({u"Yes"_s, NotInactive});
    cboInactive->selectText(NotInactive);
}

void frmFilterScreen::buildReorder(input::FormBuilder &form)
{
    txtPartCategoryIn = valueField(form, {u"txtPartCategoryIn"_s, u"Part &Category"_s,
                                          u"cmdPartCategoryIn"_s, picklists::partCategories()});
    txtSupplierIn = valueField(
        form, {u"txtSupplierIn"_s, u"&Supplier"_s, u"cmdSupplierIn"_s, picklists::suppliers()});
    optPostedPartWO = options(form, u"Include"_s,
                              {{u"optPostedServices"_s, u"&Posted Services"_s},
                               {u"optPostedPartWO"_s, u"Posted and Parts on &Work Orders"_s}})
                          .last();
}

void frmFilterScreen::buildInventoryPartUsage(input::FormBuilder &form)
{
    txtPartIPU =
        valueField(form, {u"txtPartIPU"_s, u"&Part Number"_s, u"cmdIPU"_s, picklists::parts()});
}

void frmFilterScreen::buildEquipmentCrewHistory(input::FormBuilder &form)
{
    txtEquipment = valueField(form, {u"txtEquipment"_s, u"&Equipment Name"_s, u"cmdEquipmentName"_s,
                                     picklists::equipmentNames()});
    txtCrewNo =
        valueField(form, {u"txtCrewNo"_s, u"&Crew Number"_s, u"cmdCrewNo"_s, picklists::crews()});
    // A crew is known by its number; a letter can only be a mistake.
    input::restrictTo(txtCrewNo, input::TypeCheck::Int, u","_s);
}

void frmFilterScreen::buildInventoryPartHistory(input::FormBuilder &form)
{
    m_range = rangeField(form, {u"Complete Date &From"_s, u"dtpPdateF"_s, u"dtpPdateT"_s,
                                u"INVENTORY PART HISTORY DATE FROM"_s,
                                u"INVENTORY PART HISTORY DATE TO"_s});
    txtPartH =
        valueField(form, {u"txtPartH"_s, u"&Part Number"_s, u"cmdPartH"_s, picklists::parts()});
    optSummary =
        options(form, u"Show"_s, {{u"optDetail"_s, u"&Detail"_s}, {u"optSummary"_s, u"Su&mmary"_s}})
            .last();
    const QList<QRadioButton *> sorts = options(
        form, u"Sort by"_s, {{u"optPDate"_s, u"D&ate"_s}, {u"optPartNumber"_s, u"Part &Number"_s}});
    optPDate = sorts.first();
    // A summary has an order of its own.
    connect(optSummary, &QRadioButton::toggled, this, [sorts](bool summary) {
        for (QRadioButton *sort : sorts)
            sort->setEnabled(!summary);
    });
}

void frmFilterScreen::buildServiceHistoryTimes(input::FormBuilder &form)
{
    m_range = rangeField(form, {u"Complete Date &From"_s, u"dtpCompleteDateF"_s,
                                u"dtpCompleteDateT"_s, u"SERVICE HISTORY REPORT TIMES DATE FROM"_s,
                                u"SERVICE HISTORY REPORT TIMES DATE TO"_s});
    txtSHEquipment = valueField(form, {u"txtSHEquipment"_s, u"Equipment Na&me"_s,
                                       u"cmdSHEquipment"_s, picklists::equipmentNames()});
    optDate = options(form, u"Sort by"_s,
                      {{u"optEquipment"_s, u"&Equipment"_s}, {u"optDate"_s, u"&Date"_s}})
                  .last();
}

void frmFilterScreen::buildInventoryOrderUpcommingServices(input::FormBuilder &form)
{
    m_range = rangeField(form, {u"Service Date &From"_s, u"dtpInvFrom"_s, u"dtpInvTo"_s});
    txtInv_Supplier = valueField(
        form, {u"txtInv_Supplier"_s, u"&Supplier"_s, u"cmdINv_Supplier"_s, picklists::suppliers()});
}

void frmFilterScreen::buildInspectionDate(input::FormBuilder &form)
{
    m_range = rangeField(form, {u"Inspection Date &From"_s, u"datINPDateFrom"_s, u"datINPDateTo"_s,
                                u"InspectionDateFromReport"_s, u"InspectionDateToReport"_s});
}

void frmFilterScreen::buildLicenseDate(input::FormBuilder &form)
{
    m_range =
        rangeField(form, {u"License Renewal Date &From"_s, u"datLICDateFrom"_s, u"datLICDateTo"_s,
                          u"LicenseDateFromReport"_s, u"LicenseDateToReport"_s});
}

// What they come to

filters::Machines frmFilterScreen::machines() const
{
    return {.units = txtUnitNo->text(), .inactive = chkInactive->isChecked()};
}

catalogue::Request frmFilterScreen::services() const
{
    return filters::equipmentServicesRequest(machines());
}

catalogue::Request frmFilterScreen::details() const
{
    return filters::equipmentDetailsRequest(machines());
}

catalogue::Request frmFilterScreen::expense() const
{
    return filters::equipmentExpenseRequest(machines());
}

catalogue::Request frmFilterScreen::inventory() const
{
    return filters::request(filters::Parts{.categories = txtPartCategory->text(),
                                           .suppliers = txtSupplier->text(),
                                           .inactive = cboInactive->currentText() != NotInactive});
}

catalogue::Request frmFilterScreen::reorder() const
{
    return filters::request(filters::Reorder{.categories = txtPartCategoryIn->text(),
                                             .suppliers = txtSupplierIn->text(),
                                             .lessOrders = optPostedPartWO->isChecked()});
}

catalogue::Request frmFilterScreen::partUsage() const
{
    return filters::partUsageRequest(txtPartIPU->text());
}

catalogue::Request frmFilterScreen::crewHistory() const
{
    return filters::request(
        filters::CrewHistory{.names = txtEquipment->text(), .crews = txtCrewNo->text()});
}

catalogue::Request frmFilterScreen::partHistory() const
{
    using Form = filters::PartHistoryForm;
    const Form form = optSummary->isChecked() ? Form::Summary
                      : optPDate->isChecked() ? Form::DetailByDate
                                              : Form::DetailByPart;
    return filters::request(filters::PartHistory{
        .completed = m_range.dates(), .parts = txtPartH->text(), .form = form});
}

catalogue::Request frmFilterScreen::historyTimes() const
{
    return filters::request(filters::HistoryTimes{.completed = m_range.dates(),
                                                  .names = txtSHEquipment->text(),
                                                  .byDate = optDate->isChecked()});
}

catalogue::Request frmFilterScreen::upcomingParts() const
{
    return filters::request(
        filters::UpcomingParts{.due = m_range.dates(), .suppliers = txtInv_Supplier->text()});
}

catalogue::Request frmFilterScreen::inspections() const
{
    return filters::inspectionRequest(m_range.dates());
}

catalogue::Request frmFilterScreen::licenses() const
{
    return filters::licenseRequest(m_range.dates());
}
