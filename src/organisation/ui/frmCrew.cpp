#include "organisation/ui/frmCrew.h"

#include "core/RowTests.h"
#include "core/Tables.h"
#include "core/ui/ListGrid.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

frmCrew::frmCrew(QWidget *parent)
    : MasterScreen(u"frmCrew"_s, u"Crew"_s, parent)
{
    buildForm();
}

void frmCrew::buildForm()
{
    input::FormBuilder form(this);
    grid::GridView *grdCrew =
        makeListGrid(this, u"grdCrew"_s, u"Crews"_s,
                     {{.name = u"CrewID"_s, .caption = u"Crew ID"_s, .width = 70},
                      {.name = u"CrewNumber"_s, .caption = u"Crew Number"_s, .width = 110},
                      {.name = u"Description"_s, .width = 320}});
    form.widget(grdCrew, true);
    // Nine digits at most: the column is a whole number of 32 bits.
    txtCrewNumber = form.digitsField(u"txtCrewNumber"_s, u"Crew &Number:"_s, 9);
    txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s, 60);
    makeButtons(form, {});
    form.finish();
    resize(560, 400);
    m_fields.addTrimmed(txtCrewNumber, &clsCrew::CrewNumber);
    m_fields.addTrimmed(txtDescription, &clsCrew::Description);
    setFields({&m_fields});
    setListGrid(grdCrew);
}

db::Recordset frmCrew::loadRows()
{
    return clsCrewManager().GetCrewInfo();
}

void frmCrew::prepareNewRecord()
{
    txtCrewNumber->setFocus();
}

bool frmCrew::VailidateFields()
{
    if (txtCrewNumber->text().trimmed().isEmpty())
        return refuse(txtCrewNumber, u"Crew Number should not be blank."_s);
    if (txtDescription->text().trimmed().isEmpty())
        return refuse(txtDescription, u"Description should not be blank."_s);
    // Asked ahead of the look for a taken number: a No puts the stored number back, which nobody
    // else has.
    if (!confirmMassChange(txtCrewNumber, m_fields.shown().CrewNumber))
        return false;
    if (IsDuplicate(u"tblcrew"_s, u"crewnumber"_s, m_fields.shown().CrewNumber,
                    txtCrewNumber->text(), true))
        return refuse(txtCrewNumber, u"Crew Number you specified already exists. Please enter a "
                                     "different Crew Number."_s);
    return true;
}

std::optional<QVariant> frmCrew::saveRecord()
{
    if (!clsCrewManager().SaveRecord(m_fields.read(), mode(), m_fields.shown()))
        return std::nullopt;
    // A new crew has no number here, since the database gives it while the row is stored: the list
    // then begins at its first crew.
    return QVariant(m_fields.shown().CrewID);
}

QString frmCrew::recordName() const
{
    return u"the crew \"%1\""_s.arg(txtCrewNumber->text().trimmed());
}
