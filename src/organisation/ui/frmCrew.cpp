#include "organisation/ui/frmCrew.h"

#include "core/General.h"
#include "core/ui/ListGrid.h"
#include "organisation/clsCrew.h"
#include "platform/base/Format.h"
#include "platform/input/FormBuilder.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

frmCrew::frmCrew(QWidget *parent)
    : RecordScreen(u"frmCrew"_s, u"Crew"_s, parent)
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
    txtCrewNumber = form.digitsField(u"txtCrewNumber"_s, u"Crew &Number:"_s, 9);
    txtDescription = form.textField(u"txtDescription"_s, u"D&escription:"_s, 60);
    makeButtons(form, {});
    form.finish();
    resize(560, 400);
    setDataControls({txtCrewNumber, txtDescription});
    setListGrid(grdCrew);
}

db::Recordset frmCrew::loadRows()
{
    return clsCrewManager().GetCrewInfo();
}

void frmCrew::DisplayData(const db::Row &row)
{
    const clsCrew crew = clsCrew::fromRow(row);
    m_crewID = crew.CrewID;
    m_storedNumber = crew.CrewNumber;
    txtCrewNumber->setText(crew.CrewNumber);
    txtDescription->setText(crew.Description);
}

void frmCrew::ClearData()
{
    m_crewID = 0;
    m_storedNumber.clear();
    txtCrewNumber->clear();
    txtDescription->clear();
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
    if (!confirmMassChange(txtCrewNumber, m_storedNumber))
        return false;
    if (IsDuplicate(u"tblcrew"_s, u"crewnumber"_s, m_storedNumber, txtCrewNumber->text(), true))
        return refuse(txtCrewNumber, u"Crew Number you specified already exists. Please enter a "
                                     "different Crew Number."_s);
    return true;
}

std::optional<QVariant> frmCrew::saveRecord()
{
    const clsCrew crew{m_crewID, txtCrewNumber->text().trimmed(), txtDescription->text().trimmed()};
    if (!clsCrewManager().SaveRecord(crew, mode()))
        return std::nullopt;
    return QVariant(m_crewID);
}

bool frmCrew::deleteRecord(const QVariant &key)
{
    return clsCrewManager().DeleteRecord(key.toLongLong());
}

QString frmCrew::usedBy(const QVariant &key) const
{
    return clsCrewManager().CanDeleteCrew(key.toLongLong());
}
