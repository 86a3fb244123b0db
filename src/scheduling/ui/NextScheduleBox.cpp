#include "scheduling/ui/NextScheduleBox.h"

#include "core/Meters.h"
#include "core/RegistryValues.h"
#include "core/RowTests.h"
#include "core/ui/Screen.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "scheduling/Readings.h"
#include "scheduling/ui/OrderWarning.h"
#include "scheduling/ui/ScheduleBox.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Digits of the largest count that a service can have.
constexpr int CountLength = 10;
constexpr qint64 LargestCount = std::numeric_limits<qint32>::max();

QString dateText(const QDateTime &date)
{
    return date.isValid() ? date.toString(u"MM/dd/yyyy") : QString();
}

void tellCountTooBig()
{
    QString address = GetMakerRegistryValue(u"SupportAddress"_s);
    if (address.isEmpty())
        address = u"Quorvantis support"_s;
    base::showMessage(
        u"Next service count is bigger than field size. please contact %1"_s.arg(address));
}

} // namespace

NextScheduleBox::NextScheduleBox(input::FormBuilder &form, const ScheduleBox &schedule,
                                 Screen &screen)
    : QObject(&screen)
    , m_schedule(schedule)
    , m_screen(screen)
{
    const auto last = [&form](const QString &name, const QString &caption) {
        QLabel *shown = form.readOnlyField(name + u"Data"_s, caption);
        form.lastLabel()->setObjectName(name);
        return shown;
    };
    form.beginRow();
    lblLastDateScheduledData = last(u"lblLastDateScheduled"_s, u"Last Date Scheduled:"_s);
    lblLastDatePerformedData = last(u"lblLastDatePerformed"_s, u"Last Date Performed:"_s);
    form.endRow();

    // A date box can't be blank in a way that reads as "no date", so a blank line lies over it.
    stkNextDate = new QStackedWidget(&screen);
    makeDate();
    form.beginRow();
    txtCount = form.digitsField(u"txtCount"_s, u"Ne&xt Scheduled Count:"_s, CountLength);
    lblNextSchedule = form.lastLabel();
    lblNextSchedule->setObjectName(u"lblNextSchedule"_s);
    // Of a count service the date is only where the meter has reached the target.
    lblDueOn = new QLabel(u"Due On:"_s, &screen);
    form.widget(lblDueOn);
    form.widget(stkNextDate);
    form.endRow();

    // By the user alone: dates that the program shows are no changes to be asked about.
    connect(datNextScheduledDate, &input::DateInput::edited, this, [this] {
        m_nextDateChanged = true;
        Q_EMIT edited();
    });
    connect(txtCount, &QLineEdit::textEdited, this, [this] {
        m_nextCountChanged = true;
        Q_EMIT edited();
    });
    input::validateOnLeave(txtCount, [this] { return txtCount_Validate(); });
}

void NextScheduleBox::makeDate()
{
    stkNextDate->setObjectName(u"stkNextDate"_s);
    datNextScheduledDate = new input::DateInput(stkNextDate);
    datNextScheduledDate->setObjectName(u"datNextScheduledDate"_s);
    datNextScheduledDate->setAccessibleName(u"Next Scheduled Date"_s);
    datNextScheduledDate->checkOnLeave();
    txtNextScheduledDate = new QLineEdit(stkNextDate);
    txtNextScheduledDate->setObjectName(u"txtNextScheduledDate"_s);
    txtNextScheduledDate->setAccessibleName(u"No next scheduled date"_s);
    txtNextScheduledDate->installEventFilter(this);
    stkNextDate->addWidget(datNextScheduledDate);
    stkNextDate->addWidget(txtNextScheduledDate);
    // A stack grows with its room, and would push the labels of the row apart.
    stkNextDate->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    stkNextDate->setFixedWidth(stkNextDate->fontMetrics().horizontalAdvance(u'0') * 12 + 48);
    stkNextDate->setFocusProxy(datNextScheduledDate);
}

void NextScheduleBox::bind(Binding<AssignedService> &fields)
{
    m_fields = &fields;
    fields.add(
        datNextScheduledDate, &AssignedSchedule::NextScheduledDate,
        // Null while the blank line is in front: an invalid date would be stored as one.
        [this] { return nextDate().isValid() ? QVariant(nextDate()) : QVariant(); },
        [this](const QVariant &date) { showNextDate(date.toDateTime()); });
    fields.add(txtCount, &AssignedSchedule::NextScheduledCount);
}

bool NextScheduleBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtNextScheduledDate && event->type() == QEvent::FocusIn) {
        // Who comes to the blank box wants to give a date.
        stkNextDate->setCurrentWidget(datNextScheduledDate);
        stkNextDate->setFocusProxy(datNextScheduledDate);
        datNextScheduledDate->setFocus();
    }
    return QObject::eventFilter(watched, event);
}

void NextScheduleBox::showLast(const QDateTime &scheduled, const QDateTime &performed)
{
    lblLastDateScheduledData->setText(dateText(scheduled));
    lblLastDatePerformedData->setText(dateText(performed));
}

void NextScheduleBox::clear()
{
    showLast({}, {});
    txtCount->clear();
}

void NextScheduleBox::showScheduleKind()
{
    const bool count = m_schedule.isCountPeriod();
    lblNextSchedule->setText(count ? u"Ne&xt Scheduled Count:"_s : u"Ne&xt Scheduled Date:"_s);
    // The key of the label leads to the box that it names now.
    lblNextSchedule->setBuddy(count ? static_cast<QWidget *>(txtCount) : datNextScheduledDate);
    txtCount->setVisible(count);
    lblDueOn->setVisible(count);
}

void NextScheduleBox::setActive(bool active)
{
    stkNextDate->setEnabled(active);
    txtCount->setEnabled(active);
}

void NextScheduleBox::forgetChanges()
{
    m_nextDateChanged = false;
    m_nextCountChanged = false;
}

void NextScheduleBox::showNextDate(const QDateTime &date)
{
    datNextScheduledDate->setDate(date);
    stkNextDate->setCurrentWidget(date.isValid() ? static_cast<QWidget *>(datNextScheduledDate)
                                                 : txtNextScheduledDate);
    stkNextDate->setFocusProxy(stkNextDate->currentWidget());
}

QDateTime NextScheduleBox::nextDate() const
{
    if (stkNextDate->currentWidget() == txtNextScheduledDate ||
        !datNextScheduledDate->date().isValid())
        return {};
    return base::wallClock(datNextScheduledDate->date());
}

/// The machine's newest reading of the kind that the period wants.
qint64 NextScheduleBox::presentCount() const
{
    return GetEquipmentCount(m_fields->shown().EquipmentID,
                             readings::countType(m_schedule.period()));
}

void NextScheduleBox::CheckServiceChange()
{
    showScheduleKind();
    m_nextDateChanged = true;
    if (m_schedule.isCountPeriod()) {
        const qint64 count = presentCount() + m_schedule.interval();
        if (count > LargestCount)
            tellCountTooBig();
        else
            txtCount->setText(QString::number(count));
        // A count service waits for its reading, and has no date until then.
        showNextDate({});
    } else {
        showNextDate(base::wallClock(base::today()));
    }
}

bool NextScheduleBox::txtCount_Validate()
{
    // The box stands there for calendar services too, only out of sight.
    if (m_screen.mode() == Mode::Browse || !m_schedule.isCountPeriod())
        return true;
    if (input::isBlank(txtCount)) {
        base::showMessage(u"Please enter the next schedule count"_s);
        return false;
    }
    const qint64 count = txtCount->text().trimmed().toLongLong();
    if (count > LargestCount) {
        tellCountTooBig();
        return false;
    }
    if (count >= 1)
        return true;
    base::showMessage(u"Count value shouldn't be less then or equal to 0"_s);
    // The machine's own count is what the user most likely meant to go beyond.
    txtCount->setText(QString::number(presentCount()));
    return false;
}

void NextScheduleBox::confirmChangesOnOrder(qint64 ServiceUsedID)
{
    // The order keeps what it took from the service. Only a change of the next date or count makes
    // the two differ in what the posting will do.
    if (!(m_nextDateChanged || m_nextCountChanged) || !ServiceInWorkOrder(ServiceUsedID))
        return;
    if (m_nextDateChanged && !orderwarning::confirmDate()) {
        showNextDate(m_fields->shown().NextScheduledDate);
        m_nextDateChanged = false;
    }
    if (m_nextCountChanged && !orderwarning::confirmCount()) {
        txtCount->setText(QString::number(m_fields->shown().NextScheduledCount));
        m_nextCountChanged = false;
    }
}

bool NextScheduleBox::finish()
{
    // A count that an earlier release left at 0 keeps nobody from changing something else.
    const bool isCountNew = m_nextCountChanged || m_schedule.period() != m_fields->shown().Period;
    if ((isCountNew || txtCount->hasFocus()) && !txtCount_Validate())
        return false;
    if (datNextScheduledDate->isValidOrEmpty())
        return true;
    base::showInformation(u"Please enter valid date."_s);
    datNextScheduledDate->setFocus();
    return false;
}
