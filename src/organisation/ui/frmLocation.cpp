#include "organisation/ui/frmLocation.h"

#include "core/ui/ListGrid.h"
#include "core/ui/LookupCombo.h"
#include "organisation/ui/Entries.h"
#include "platform/input/FormBuilder.h"

#include <QEvent>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

frmLocation::frmLocation(QWidget *parent)
    : MasterScreen(u"frmLocation"_s, u"Location"_s, parent)
{
    buildForm();
    loadSites(*cboSite, u"SiteID"_s);
}

void frmLocation::buildForm()
{
    input::FormBuilder form(this);
    grid::GridView *grdLocation =
        makeListGrid(this, u"grdLocation"_s, u"Locations"_s,
                     {{.name = u"LocationName"_s, .caption = u"Location Name"_s, .width = 200},
                      {.name = u"Description"_s, .width = 280}});
    form.widget(grdLocation, true);
    // Shown and never typed: the database gives it, so the binding doesn't know it.
    txtLocationID = form.textField(u"txtLocationID"_s, u"Location &ID:"_s);
    txtLocationID->setReadOnly(true);
    txtLocationName = form.textField(u"txtLocationName"_s, u"Location &Name:"_s, 60);
    txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s, 100);
    cboSite = form.comboField(u"cboSite"_s, u"Si&te Name:"_s);
    QToolButton *cmdSite = form.sideButton(u"cmdSite"_s, u"Edit the sites"_s);
    makeButtons(form, {});
    form.finish();
    resize(560, 480);
    m_fields.addTrimmed(txtLocationName, &clsLocation::LocationName);
    m_fields.addTrimmed(txtDescription, &clsLocation::Description);
    m_fields.add(cboSite, &clsLocation::Site);
    setFields({&m_fields});
    setListGrid(grdLocation);
    connect(cmdSite, &QToolButton::clicked, this, &frmLocation::cmdSite_Click);
}

bool frmLocation::event(QEvent *event)
{
    // A site may have been added while another window was in front.
    if (event->type() == QEvent::WindowActivate)
        RefreshCombo();
    return RecordScreen::event(event);
}

void frmLocation::RefreshCombo()
{
    rebuildKeepingChoice(*cboSite, [this] { loadSites(*cboSite, u"SiteID"_s); });
}

void frmLocation::cmdSite_Click()
{
    showSiteDetail(Mode::Browse, cboSite->id());
    RefreshCombo();
}

db::Recordset frmLocation::loadRows()
{
    return clsLocation_Manager().GetLocationInfo();
}

void frmLocation::DisplayData(const db::Row &row)
{
    MasterScreen::DisplayData(row);
    txtLocationID->setText(QString::number(m_fields.shown().LocationID));
}

void frmLocation::ClearData()
{
    MasterScreen::ClearData();
    txtLocationID->clear();
}

void frmLocation::prepareNewRecord()
{
    // Stands for the number that the database is going to give.
    txtLocationID->setText(u"0"_s);
    txtLocationName->setFocus();
}

bool frmLocation::VailidateFields()
{
    if (txtLocationID->text().trimmed().isEmpty())
        return refuse(txtLocationID, u"Location ID should not be blank."_s);
    if (txtLocationName->text().trimmed().isEmpty())
        return refuse(txtLocationName, u"Location Name should not be blank."_s);
    if (cboSite->currentText().trimmed().isEmpty())
        return refuse(cboSite, u"Site Name should not be blank."_s);
    // Machines show where they stand by this name. Two sites may each have a shed, so it need not
    // be unlike all others.
    return confirmMassChange(txtLocationName, m_fields.shown().LocationName);
}

std::optional<QVariant> frmLocation::saveRecord()
{
    const clsLocation location = m_fields.read();
    if (!clsLocation_Manager().SaveRecord(location, mode(), m_fields.shown()))
        return std::nullopt;
    return QVariant(location.LocationID);
}

QString frmLocation::recordName() const
{
    return u"the location \"%1\""_s.arg(txtLocationName->text().trimmed());
}
