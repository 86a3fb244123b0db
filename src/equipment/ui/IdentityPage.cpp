#include "equipment/ui/IdentityPage.h"

#include "core/Labour.h"
#include "core/RowTests.h"
#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "core/ui/LookupCombo.h"
#include "equipment/MachineRows.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int FirstYear = 1950;

/// The locations of a site; without one the list stays empty.
void loadLocations(input::IdCombo &list, qint64 site)
{
    // Locations that stand nowhere have the site 0, which is what no site is, too: they are not
    // meant by it.
    LoadItemWithIdToCombo(list,
                          GetTableInfoWithIndicator(u"tblLocation"_s, u"LocationName"_s,
                                                    u"Site = %1"_s.arg(site == 0 ? -1 : site)),
                          u"LocationID"_s, u"LocationName"_s, site != 0);
}

} // namespace

IdentityPage::IdentityPage(MachineFrame &frame, QWidget *parent)
    : RecordPage(frame, parent)
{
    buildPage();
    checkFields();
    bindFields();
    followChoices();
    loadLists();
}

void IdentityPage::buildPage()
{
    input::FormBuilder form(this);
    form.beginColumns();
    buildMachine(form);
    form.nextColumn();
    buildPlace(form);
    form.endColumns();
    form.finish();
}

void IdentityPage::buildMachine(input::FormBuilder &form)
{
    txtUnitNo = form.textField(u"txtUnitNo"_s, u"&Unit No:"_s, 30);
    txtEquipmentName = form.textField(u"txtEquipmentName"_s, u"Equipment &Name:"_s, 100);
    cboType = form.comboField(u"cboType"_s, u"&Type:"_s);
    editorButton(form, u"cmdType"_s, u"Edit the equipment types"_s, u"TYPE"_s,
                 [this] { ShowIndicatorDetail(LookupList::EquipmentType, cboType->id()); });
    cboMake = form.comboField(u"cboMake"_s, u"&Make:"_s);
    editorButton(form, u"cmdMake"_s, u"Edit the makes"_s, u"MAKE"_s, [this] {
        ShowIndicatorDetail(LookupList::Make, cboMake->id(), cboType->currentText().trimmed());
    });
    cboModel = form.comboField(u"cboModel"_s, u"Mode&l:"_s);
    editorButton(form, u"cmdModel"_s, u"Edit the models"_s, u"MODEL"_s, [this] { editModels(); });
    txtCapacity = form.textField(u"txtCapacity"_s, u"Capacit&y:"_s, 50);
    cboYear = form.comboField(u"cboYear"_s, u"Y&ear:"_s);
    txtSerialNo = form.textField(u"txtSerialNo"_s, u"Serial N&o:"_s, 50);
}

void IdentityPage::buildPlace(input::FormBuilder &form)
{
    txtBarCode = form.textField(u"txtBarCode"_s, u"&Bar Code:"_s, 50);
    datInstalled = form.dateField(u"datInstalled"_s, u"&Installed Date:"_s);
    txtAttachedTo = form.textField(u"txtAttachedTo"_s, u"Attac&hed To:"_s, 60);
    cboSite = form.comboField(u"cboSite"_s, u"Site:"_s);
    editorButton(form, u"cmdSite"_s, u"Open the sites"_s, u"SITE"_s,
                 [this] { showSiteDetail(Mode::Browse, cboSite->id()); });
    cboLocation = form.comboField(u"cboLocation"_s, u"Location:"_s);
    editorButton(form, u"cmdLocation"_s, u"Open the locations"_s, u"LOCATION"_s,
                 [this] { ShowLocationDetail(Mode::Browse, cboLocation->id()); });
    cboCrew = form.comboField(u"cboCrew"_s, u"Cre&w:"_s);
    editorButton(form, u"cmdCrew"_s, u"Open the crews"_s, u"CREW"_s,
                 [this] { ShowCrewDetail(Mode::Browse, cboCrew->id()); });
    chkInactive = form.checkBox(u"chkInactive"_s, u"Inacti&ve"_s);
}

void IdentityPage::checkFields()
{
    input::restrictTo(txtUnitNo, input::TypeCheck::Int, input::TypeCheck::String);
    input::upperCaseAsTyped(txtUnitNo);
    datInstalled->checkOnLeave();
    input::validateOnLeave(txtUnitNo, [this] {
        // On the way to Save the save itself checks. It leaves a taken number to be corrected,
        // where leaving the box empties it.
        return QApplication::focusWidget() == m_save || txtUnitNo_Validate();
    });
    input::validateOnLeave(txtSerialNo, [this] { return txtSerialNo_Validate(); });
    // A key that turns the page leaves no box; mayLeave asks then, but only of what was typed.
    connect(txtUnitNo, &QLineEdit::textEdited, this, [this] { m_unitTyped = true; });
    connect(txtSerialNo, &QLineEdit::textEdited, this, [this] { m_serialTyped = true; });
}

void IdentityPage::bindFields()
{
    fields().add(txtUnitNo, &clsEquipment::UnitNo);
    fields().add(txtEquipmentName, &clsEquipment::EquipmentName);
    fields().add(txtCapacity, &clsEquipment::Capacity);
    fields().add(cboYear, &clsEquipment::EquipmentYear);
    fields().add(txtSerialNo, &clsEquipment::EquipmentSerialNo);
    fields().add(txtBarCode, &clsEquipment::Bar_Code);
    fields().add(datInstalled, &clsEquipment::InstalledDate);
    fields().add(txtAttachedTo, &clsEquipment::AttachedTo);
    // A parent stands ahead of the list that follows it.
    fields().add(cboType, &clsEquipment::EquipmentType);
    fields().add(cboMake, &clsEquipment::EquipmentMake);
    fields().add(cboModel, &clsEquipment::EquipmentModel);
    fields().add(cboSite, &clsEquipment::SiteID);
    fields().add(cboLocation, &clsEquipment::LocationID);
    fields().add(cboCrew, &clsEquipment::CrewID);
    fields().add(chkInactive, &clsEquipment::Inactive);
}

void IdentityPage::followChoices()
{
    const auto follow = [this](input::IdCombo *parent, auto &&rebuild) {
        // Also when the program shows a machine: its make is looked for in the list of its type.
        connect(parent, &QComboBox::currentIndexChanged, this, rebuild);
    };
    follow(cboType, [this] {
        loadChildren(*cboMake, cboType->id());
        loadChildren(*cboModel, cboMake->id());
    });
    follow(cboMake, [this] { loadChildren(*cboModel, cboMake->id()); });
    follow(cboSite, [this] { loadLocations(*cboLocation, cboSite->id()); });
    // Activated, since the same crew chosen again is an assignment, too.
    connect(cboCrew, &QComboBox::activated, this, [this] { m_crewChanged = true; });
    connect(cboYear, &QComboBox::activated, this,
            [this] { Q_EMIT yearChosen(cboYear->currentText().trimmed()); });
}

void IdentityPage::loadLists()
{
    QStringList years{u"  "_s};
    // The models of next year are sold before it begins.
    for (int year = base::now().date().year() + 1; year >= FirstYear; --year)
        years.append(QString::number(year));
    cboYear->add(years);
    loadLookupList(*cboType, LookupList::EquipmentType);
    loadSites(*cboSite, u"SiteName"_s);
    loadCrews(*cboCrew);
}

void IdentityPage::DisplayData(const clsEquipment &machine, const db::Row &row)
{
    RecordPage::DisplayData(machine, row);
    m_storedUnitNo = machine.UnitNo;
    m_storedSerialNo = machine.EquipmentSerialNo;
    m_unitTyped = m_serialTyped = m_crewChanged = false;
}

void IdentityPage::ClearData()
{
    RecordPage::ClearData();
    m_storedUnitNo.clear();
    m_storedSerialNo.clear();
    m_unitTyped = m_serialTyped = m_crewChanged = false;
}

bool IdentityPage::hasContent() const
{
    // Every machine has one; only without a machine is the page empty.
    return !txtUnitNo->text().isEmpty();
}

void IdentityPage::focusUnitNo()
{
    txtUnitNo->setFocus();
}

void IdentityPage::editModels()
{
    // Models are the children of their make, and would hang on nothing.
    if (!cboMake->isItemChosen()) {
        base::showMessage(u"You must first add a new Make before adding a new Model"_s);
        return;
    }
    ShowIndicatorDetail(LookupList::Model, cboModel->id(), QString::number(cboMake->id()),
                        cboType->id());
}

void IdentityPage::RefreshCombo(const QString &listName)
{
    // A list that a parent drags along is rebuilt with it, so what it showed is put back here.
    const qint64 make = cboMake->id();
    const qint64 model = cboModel->id();
    const qint64 location = cboLocation->id();
    if (listName == u"TYPE")
        rebuildKeepingChoice(*cboType,
                             [this] { loadLookupList(*cboType, LookupList::EquipmentType); });
    if (listName == u"TYPE" || listName == u"MAKE") {
        loadChildren(*cboMake, cboType->id());
        cboMake->display(make);
    }
    if (listName == u"TYPE" || listName == u"MAKE" || listName == u"MODEL") {
        loadChildren(*cboModel, cboMake->id());
        cboModel->display(model);
    }
    if (listName == u"SITE")
        rebuildKeepingChoice(*cboSite, [this] { loadSites(*cboSite, u"SiteName"_s); });
    if (listName == u"SITE" || listName == u"LOCATION") {
        loadLocations(*cboLocation, cboSite->id());
        cboLocation->display(location);
    }
    if (listName == u"CREW")
        rebuildKeepingChoice(*cboCrew, [this] { loadCrews(*cboCrew); });
}

bool IdentityPage::mayLeave()
{
    if (m_unitTyped && !txtUnitNo_Validate()) {
        txtUnitNo->setFocus();
        return false;
    }
    if (m_serialTyped && !txtSerialNo_Validate()) {
        txtSerialNo->setFocus();
        return false;
    }
    return RecordPage::mayLeave();
}

bool IdentityPage::txtUnitNo_Validate()
{
    m_unitTyped = false;
    if (!IsDuplicate(u"tblEquipment"_s, u"UnitNo"_s, m_storedUnitNo, txtUnitNo->text(), false))
        return true;
    base::showMessage(u"Unit Number you specified already exists. Please enter a different Unit "
                      "Number."_s);
    txtUnitNo->clear();
    return false;
}

bool IdentityPage::txtSerialNo_Validate()
{
    m_serialTyped = false;
    const QString serial = txtSerialNo->text().trimmed();
    // Machines without a serial number are not each other's duplicates.
    if (serial.isEmpty() || !IsDuplicate(u"tblEquipment"_s, u"EquipmentSerialNo"_s,
                                         m_storedSerialNo, txtSerialNo->text(), false))
        return true;
    base::showMessage(u"This serial number is already in use on "_s +
                      machinerows::holderOf(serial));
    txtSerialNo->clear();
    return false;
}

bool IdentityPage::VailidateFields()
{
    if (input::isBlank(txtUnitNo))
        return refuse(txtUnitNo, u"Equipment Unit No should not be blank."_s);
    if (input::isBlank(txtEquipmentName))
        return refuse(txtEquipmentName, u"Equipment Name should not be blank."_s);
    // Asked again: the number may have been taken since the box was left.
    if (IsDuplicate(u"tblEquipment"_s, u"UnitNo"_s, m_storedUnitNo, txtUnitNo->text(), false))
        return refuse(txtUnitNo, u"Unit Number you specified already exists. Please enter a "
                                 "different Unit Number."_s);
    return true;
}

bool IdentityPage::storeCrewHistory(qint64 EquipmentID)
{
    // A machine that only gets a new name leaves no crew.
    if (!m_crewChanged)
        return true;
    const QString crew = cboCrew->currentText();
    // As the list shows it: number, three blanks, description.
    const QString number = crew.section(u"   "_s, 0, 0);
    // Taking the crew away is history as well, with blanks for the one that it has now.
    const bool none = cboCrew->id() == 0;
    if (!ChangeCrew(EquipmentID, none ? QString() : number,
                    none ? QString() : crew.section(u"   "_s, 1, 1)))
        return false;
    // The row lies in the open transaction now; a save that is tried again must not repeat it.
    m_crewChanged = false;
    return true;
}
