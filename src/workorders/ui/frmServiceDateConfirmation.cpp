#include "workorders/ui/frmServiceDateConfirmation.h"

#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "scheduling/GetNextScheduledDate.h"
#include "workorders/Posting.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "frmServiceDateConfirmation";
}

frmServiceDateConfirmation::frmServiceDateConfirmation(const QDateTime &completedDate,
                                                       qint64 ServiceUsedID, QWidget *parent)
    : Screen(u"frmServiceDateConfirmation"_s, u"Service Date Confirmation"_s, parent,
             StoreWhat::SizeOnly)
    , m_completed(completedDate)
    , m_service(ServiceUsedID)
{
    buildForm();
    showService();
    // The posting waits for a date. Closing without one would leave the service unscheduled for
    // good.
    setCloseEnabled(false);
    EnableControls();
}

QDateTime
frmServiceDateConfirmation::ShowServiceDateConfirmationForm(const QDateTime &completedDate,
                                                            qint64 ServiceUsedID)
{
    frmServiceDateConfirmation screen(completedDate, ServiceUsedID, QApplication::activeWindow());
    screen.showModal();
    return screen.m_result;
}

void frmServiceDateConfirmation::buildForm()
{
    input::FormBuilder form(this);
    lblEquipmentName = form.readOnlyField(u"lblEquipmentName"_s, u"Equipment Name:"_s);
    lblUnitNo = form.readOnlyField(u"lblUnitNo"_s, u"Unit No:"_s);
    lblName = form.readOnlyField(u"lblName"_s, u"Service:"_s);
    form.beginGroup(u"Scheduled Date Based On"_s);
    optServiceBased =
        form.optionButton(u"optServiceBased"_s, u"&Service Based on Work Order Completion"_s);
    optNextScheduled = form.optionButton(u"optNextScheduled"_s, u"&Next Scheduled Date"_s);
    datNextScheduled = form.dateField(u"datNextScheduled"_s, u"&Date:"_s);
    form.endGroup();
    cmdOK = form.button(u"cmdOK"_s, u"&OK"_s, theme::icon(u"complete"_s));
    form.finish();
    optServiceBased->setChecked(true);
    datNextScheduled->setDate(m_completed);
    cmdOK->setDefault(true);
    input::validateOnLeave(datNextScheduled, [this] {
        datNextScheduled_Change();
        return true;
    });
    // One of the pair is enough: they exclude each other.
    connect(optServiceBased, &QRadioButton::toggled, this, [this] { EnableControls(); });
    connect(cmdOK, &QPushButton::clicked, this, &frmServiceDateConfirmation::cmdOK_Click);
}

void frmServiceDateConfirmation::showService()
{
    base::trapped(Module, "Form_Load", [this] {
        const posting::ServiceName service = posting::nameOf(m_service);
        lblEquipmentName->setText(service.EquipmentName);
        lblUnitNo->setText(service.UnitNo);
        lblName->setText(service.Name);
    });
}

void frmServiceDateConfirmation::EnableControls()
{
    datNextScheduled->setEnabled(optNextScheduled->isChecked());
}

void frmServiceDateConfirmation::datNextScheduled_Change()
{
    const QDate date = datNextScheduled->date();
    // What has been done on that day can't fall due before it.
    if (date.isValid() && date >= m_completed.date())
        return;
    base::showMessage(u"Next Scheduled Date cann't be Less than to Complete Date"_s);
    datNextScheduled->setDate(m_completed);
}

void frmServiceDateConfirmation::cmdOK_Click()
{
    if (optNextScheduled->isChecked()) {
        // Enter presses the button without leaving the box; a date that is put right is shown
        // before it counts.
        const QDate date = datNextScheduled->date();
        datNextScheduled_Change();
        if (datNextScheduled->date() != date)
            return;
        m_result = base::wallClock(date);
    } else {
        // Without a date the posting would go on and leave the service without one.
        m_result = GetNextScheduledDate(m_service, true, m_completed);
        if (!m_result.isValid())
            return;
    }
    unload();
}
