#include "scheduling/ui/ScheduleBox.h"

#include "core/Periods.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/SpinInput.h"
#include "scheduling/Readings.h"
#include "scheduling/ui/PatternBox.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

const QString Renewals[] = {u"W"_s, u"S"_s, u"D"_s}; // in the order of their buttons

} // namespace

ScheduleBox::ScheduleBox(input::FormBuilder &form, QWidget *parent)
    : QObject(parent)
{
    form.beginRow(u"Renew Every"_s);
    RRSpin1 = form.spinField(u"RRSpin1"_s, {});
    RRSpin1->setAccessibleName(u"Interval"_s);
    cboRenewalPeriod = form.comboField(u"cboRenewalPeriod"_s, {});
    // Number and period share one label, so that a reader needs a name for each.
    cboRenewalPeriod->setAccessibleName(u"Renewal period"_s);
    for (const periods::Period &each : periods::all())
        cboRenewalPeriod->add(QStringList(each.word.toString()));
    form.endRow();
    form.beginRow(u"Reschedule Based On"_s);
    OptWOC = form.optionButton(u"OptWOC"_s, u"Work Order Completion "_s);
    OptSOS = form.optionButton(u"OptSOS"_s, u"Service Original Scheduled"_s);
    OptDSA = form.optionButton(u"OptDSA"_s, u"Don't Schedule Again"_s);
    form.endRow();
    fraPattern = new PatternBox(parent);

    // Activated, not changed: a service that is shown is no choice of the user's.
    connect(cboRenewalPeriod, &QComboBox::activated, this, &ScheduleBox::cboRenewalPeriod_Click);
    for (const QRadioButton *option : {OptWOC, OptSOS, OptDSA})
        connect(option, &QRadioButton::clicked, this, &ScheduleBox::EnableLogicControl);
    connect(fraPattern, &PatternBox::dayOfMonthToggled, this, &ScheduleBox::useDayOfMonth);
    connect(fraPattern, &PatternBox::edited, this, &ScheduleBox::edited);
}

void ScheduleBox::bind(Binding<AssignedService> &fields)
{
    fields.add(RRSpin1, &clsServices::EInterval);
    fields.add(
        cboRenewalPeriod, &clsServices::Period, [this] { return period(); },
        [this](const QVariant &code) {
            cboRenewalPeriod->selectText(PeriodWord(code.toString()));
        });
    fields.add(
        // Three buttons are one field; the binding hangs on the first of them.
        OptWOC, &clsServices::RenewalOn, [this] { return renewal(); },
        [this](const QVariant &code) { showRenewal(code.toString()); });
    fraPattern->bind(fields);
}

QList<QWidget *> ScheduleBox::controls() const
{
    return {RRSpin1, cboRenewalPeriod, OptWOC, OptSOS, OptDSA};
}

void ScheduleBox::setActive(bool active)
{
    m_active = active;
    EnableLogicControl();
}

void ScheduleBox::EnableLogicControl()
{
    // A service that is not scheduled again needs neither interval nor pattern.
    const bool again = m_active && !OptDSA->isChecked();
    const bool calendar = again && !isCountPeriod();
    const bool byDom = fraPattern->usesDayOfMonth();
    fraPattern->setLive({.days = calendar && !byDom,
                         .weeks = calendar && !byDom,
                         .months = calendar && !byDom,
                         .dom = calendar});
    // Listed days of the month rule alone: the next one of them, whatever the interval.
    const bool interval = again && (!calendar || !byDom);
    RRSpin1->setEnabled(interval);
    cboRenewalPeriod->setEnabled(interval);
    for (QRadioButton *option : {OptWOC, OptSOS, OptDSA})
        option->setEnabled(m_active);
}

void ScheduleBox::serviceShown()
{
    m_shownPeriod = period();
}

QString ScheduleBox::period() const
{
    const periods::Period *chosen = periods::ofWord(cboRenewalPeriod->currentText());
    return chosen ? chosen->code.toString() : QString();
}

bool ScheduleBox::isCountPeriod() const
{
    return !readings::countType(period()).isEmpty();
}

int ScheduleBox::interval() const
{
    return RRSpin1->value();
}

/// The code of the way of renewal that is chosen; empty while none is.
QString ScheduleBox::renewal() const
{
    const QRadioButton *options[] = {OptWOC, OptSOS, OptDSA};
    for (std::size_t i = 0; i < std::size(options); ++i)
        if (options[i]->isChecked())
            return Renewals[i];
    return {};
}

void ScheduleBox::showRenewal(const QString &code)
{
    QRadioButton *options[] = {OptWOC, OptSOS, OptDSA};
    for (std::size_t i = 0; i < std::size(options); ++i)
        options[i]->setChecked(code == Renewals[i]);
}

void ScheduleBox::cboRenewalPeriod_Click()
{
    // Choosing the same period again must not throw the next date away.
    if (period() != m_shownPeriod)
        Q_EMIT periodChanged();
    m_shownPeriod = period();
    EnableLogicControl();
}

void ScheduleBox::useDayOfMonth(bool used)
{
    if (used) {
        // What days of the month are stored with: the search begins on the day after, and from the
        // completion.
        RRSpin1->setValue(1);
        cboRenewalPeriod->selectText(u"Days"_s);
        OptWOC->setChecked(true);
        cboRenewalPeriod_Click();
    }
    EnableLogicControl();
}

std::optional<Gap> ScheduleBox::gap() const
{
    if (fraPattern->usesDayOfMonth() && !fraPattern->hasDayOfMonth())
        return Gap{fraPattern->firstDayOfMonth(),
                   u"User Should fill at least one day of the month"_s};
    // Only a date that has to be found needs days that fit.
    if (OptDSA->isChecked() || isCountPeriod() || fraPattern->usesDayOfMonth())
        return std::nullopt;
    if (!fraPattern->hasDay())
        return Gap{fraPattern->firstDay(), u"At least select one day of week."_s};
    if (!fraPattern->hasWeek())
        return Gap{fraPattern->firstWeek(), u"At least select one week of month."_s};
    if (!fraPattern->hasMonth())
        return Gap{fraPattern->firstMonth(), u"At least select one month of year."_s};
    return std::nullopt;
}

void ScheduleBox::complete(AssignedService &service, const AssignedService &shown) const
{
    // A code that this release doesn't know shows nothing in the list, and is kept.
    if (service.Period.isEmpty())
        service.Period = shown.Period;
    if (service.RenewalOn.isEmpty())
        service.RenewalOn = shown.RenewalOn;
    // A count service shows no pattern. It keeps the one it had for the day when it goes by the
    // calendar again.
    if (isCountPeriod())
        PatternBox::keepAll(service, shown);
    else
        PatternBox::keepUnused(service, shown);
}
