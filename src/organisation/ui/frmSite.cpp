#include "organisation/ui/frmSite.h"

#include "core/ui/ListGrid.h"
#include "core/ui/LookupCombo.h"
#include "organisation/clsIndicator.h"
#include "organisation/ui/Entries.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"

#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

frmSite::frmSite(QWidget *parent)
    : MasterScreen(u"frmSite"_s, u"Site"_s, parent)
{
    buildForm();
    // A site has no country: the states of all of them are offered.
    loadAllStates(*cboState);
}

void frmSite::buildForm()
{
    input::FormBuilder form(this);
    grid::GridView *grdSite =
        makeListGrid(this, u"grdSite"_s, u"Sites"_s,
                     {{.name = u"SiteID"_s, .caption = u"Site ID"_s, .width = 60},
                      {.name = u"SiteName"_s, .caption = u"Site Name"_s, .width = 200},
                      {.name = u"Address"_s, .width = 200},
                      {.name = u"City"_s, .width = 120},
                      {.name = u"Zip"_s, .width = 80}});
    form.widget(grdSite, true);
    txtSiteName = form.textField(u"txtSiteName"_s, u"Site &Name:"_s, 60);
    txtAddress = form.textField(u"txtAddress"_s, u"Addr&ess:"_s, 100);
    txtCity = form.textField(u"txtCity"_s, u"C&ity:"_s, 60);
    cboState = form.comboField(u"cboState"_s, u"S&tate:"_s);
    QToolButton *cmdState = form.sideButton(u"cmdState"_s, u"Edit the states"_s);
    txtZip = form.textField(u"txtZip"_s, u"&Zip:"_s, 20);
    // Codes of some countries hold letters and a blank.
    input::restrictTo(txtZip, input::TypeCheck::Int, input::TypeCheck::String);
    makeButtons(form, {});
    form.finish();
    resize(720, 480);
    m_fields.addTrimmed(txtSiteName, &clsSite::SiteName);
    m_fields.addTrimmed(txtAddress, &clsSite::Address);
    m_fields.addTrimmed(txtCity, &clsSite::City);
    m_fields.addIdAsText(cboState, &clsSite::StateID);
    m_fields.addTrimmed(txtZip, &clsSite::Zip);
    setFields({&m_fields});
    setListGrid(grdSite);
    connect(cmdState, &QToolButton::clicked, this, &frmSite::cmdState_Click);
}

void frmSite::cmdState_Click()
{
    // Without a country the editor takes the one that the state hangs under.
    ShowIndicatorDetail(LookupList::State, cboState->id());
    rebuildKeepingChoice(*cboState, [this] { loadAllStates(*cboState); });
}

db::Recordset frmSite::loadRows()
{
    return clsSiteManager().GetSiteInfo();
}

void frmSite::prepareNewRecord()
{
    txtSiteName->setFocus();
}

bool frmSite::VailidateFields()
{
    if (txtSiteName->text().trimmed().isEmpty())
        return refuse(txtSiteName, u"Site Name should not be blank."_s);
    return confirmMassChange(txtSiteName, m_fields.shown().SiteName);
}

std::optional<QVariant> frmSite::saveRecord()
{
    clsSite site = m_fields.read();
    if (site.Zip.isEmpty())
        // As the rows have it that were stored without one.
        site.Zip = u"0"_s;
    if (!clsSiteManager().SaveRecord(site, mode(), m_fields.shown()))
        return std::nullopt;
    return QVariant(site.SiteID);
}

QString frmSite::recordName() const
{
    return u"the site \"%1\""_s.arg(txtSiteName->text().trimmed());
}

QString frmSite::usedBy(const QVariant &key) const
{
    // The manager answers with a table; users read it without its "tbl".
    return MasterScreen::usedBy(key).mid(3);
}
