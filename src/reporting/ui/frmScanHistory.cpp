#include "reporting/ui/frmScanHistory.h"

#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"

#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int MostDigits = 5; // more days lead before all calendars
} // namespace

frmScanHistory::frmScanHistory(QWidget *parent)
    : FilterScreen(u"frmScanHistory"_s, u"Equipmnt Scan History"_s, "frmScanHistory", parent)
{
    input::FormBuilder form(this);
    beginFields(form, u"List of Equipment Scan History"_s, u"fraScanHistory"_s);
    optByDays = options(form, u"Report"_s,
                        {{u"optByUnitNo"_s, u"&By Unit #"_s},
                         {u"optByDays"_s, u"By # &last days (not scanned)"_s}})
                    .last();
    m_range =
        rangeField(form, {u"Scan Date &From"_s, u"dtpScanDateF"_s, u"dtpScanDateT"_s,
                          u"SCAN hISTORY REPORT DATE FROM"_s, u"SCAN hISTORY REPORT DATE TO"_s});
    txtSHUnitNo =
        valueField(form, {u"txtSHUnitNo"_s, u"&Unit #"_s, u"cmdSHUnitNo"_s, picklists::units()});
    txtNoofdays = typedField(form, {u"txtNoofdays"_s, u"Find equipment &not scanned in last "_s,
                                    u"days. Default Value Blank = 1"_s, MostDigits});
    input::restrictTo(txtNoofdays, input::TypeCheck::Int);
    optScanTime =
        options(form, u"Sort by"_s,
                {{u"optUnitNo"_s, u"Un&it No"_s}, {u"optScanTime"_s, u"Scan &Date and Time"_s}})
            .last();
    endFields(form);
    connect(optByDays, &QRadioButton::toggled, this, &frmScanHistory::enableFields);
    enableFields();
}

void frmScanHistory::enableFields()
{
    const bool byDays = optByDays->isChecked();
    m_range.from->setEnabled(!byDays);
    m_range.to->setEnabled(!byDays);
    setUsable(txtSHUnitNo, !byDays);
    setUsable(txtNoofdays, byDays);
}

std::optional<catalogue::Request> frmScanHistory::request() const
{
    const bool byTime = optScanTime->isChecked();
    if (!optByDays->isChecked())
        return filters::request(filters::Scans{
            .scanned = m_range.dates(), .units = txtSHUnitNo->text(), .byTime = byTime});
    const filters::NotScanned asked{
        .today = base::today(), .days = txtNoofdays->text(), .byTime = byTime};
    // Empty stands for the usual number of days; only a zero that was typed asks for nothing.
    if (filters::daysBack(asked) > 0)
        return filters::request(asked);
    base::showMessage(u"Please enter the value greater than 0 in last no of days field."_s);
    txtNoofdays->setFocus();
    return {};
}
