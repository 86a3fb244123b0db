#include "reporting/ui/frmServiceHistory.h"

#include "platform/input/FormBuilder.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

frmServiceHistory::frmServiceHistory(QWidget *parent)
    : FilterScreen(u"frmServiceHistory"_s, u"Service History"_s, "frmServiceHistory", parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"List of Service History"_s, u"fraServiceHistory"_s);
    m_range = rangeField(form, {u"Complete Date &From"_s, u"dtpCompleteDateF"_s,
                                u"dtpCompleteDateT"_s, u"SERVICE hISTORY REPORT DATE FROM"_s,
                                u"SERVICE hISTORY REPORT DATE TO"_s});
    txtSite = valueField(form, {u"txtSite"_s, u"&Site"_s, u"cmdSite"_s, picklists::sites()});
    txtSHUnitNo =
        valueField(form, {u"txtSHUnitNo"_s, u"&Unit #"_s, u"cmdSHUnitNo"_s, picklists::units()});
    chkgrouponsite = form.checkBox(u"chkgrouponsite"_s, u"&Group On Site"_s);
    chkgrouponCrew = form.checkBox(u"chkgrouponCrew"_s, u"Group On &Crew"_s);
    endFields(form);
    for (QCheckBox *box : {chkgrouponsite, chkgrouponCrew})
        connect(box, &QCheckBox::toggled, this, &frmServiceHistory::enableFields);
    enableFields();
}

filters::HistoryGroup frmServiceHistory::group() const
{
    if (chkgrouponsite->isChecked())
        return filters::HistoryGroup::Site;
    return chkgrouponCrew->isChecked() ? filters::HistoryGroup::Crew : filters::HistoryGroup::None;
}

/// One grouping leaves the other out, and each has the values of its own.
void frmServiceHistory::enableFields()
{
    // Two boxes and no options: none of them is a choice too, the list by machines.
    chkgrouponsite->setEnabled(!chkgrouponCrew->isChecked());
    chkgrouponCrew->setEnabled(!chkgrouponsite->isChecked());
    setUsable(txtSite, group() == filters::HistoryGroup::Site);
    setUsable(txtSHUnitNo, group() == filters::HistoryGroup::None);
}

std::optional<catalogue::Request> frmServiceHistory::request() const
{
    return filters::request(filters::ServiceHistory{.completed = m_range.dates(),
                                                    .sites = txtSite->text(),
                                                    .units = txtSHUnitNo->text(),
                                                    .group = group()});
}
