#include "scheduling/ui/frmCountReading.h"

#include "core/Periods.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "scheduling/Assignment.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmCountReading";
/// Digits of the largest reading.
constexpr int ValueLength = 10;

/// The whole number that a box of digits holds; raises Overflow beyond what a reading can be.
qint64 readingOf(const QString &text)
{
    return text.trimmed().toLongLong();
}

} // namespace

frmCountReading::frmCountReading(qint64 EquipmentID, const QString &CountType, QWidget *parent)
    : Screen(u"frmCountReading"_s, u"Count Reading"_s, parent, StoreWhat::SizeOnly)
    , m_equipment(EquipmentID)
    , m_type(CountType)
{
    buildForm({});
    RefreshCountForm();
}

frmCountReading::frmCountReading(qint64 EquipmentID, qint64 ServiceUsedID,
                                 const QString &ServiceName, const QString &CountType,
                                 QWidget *parent)
    : Screen(u"frmCountReading"_s, u"Count Reading"_s, parent, StoreWhat::SizeOnly)
    , m_equipment(EquipmentID)
    , m_service(ServiceUsedID)
    , m_type(CountType)
{
    buildForm(ServiceName);
    RefreshCountForm();
}

void frmCountReading::buildForm(const QString &serviceName)
{
    input::FormBuilder form(this);
    // A service asks for its first reading: there is none before it to be shown or compared with.
    if (!showsLastReading()) {
        form.note(u"Enter the last count that this service was performed."_s, u"lblHeading"_s);
        form.readOnlyField(u"lblServiceName"_s, u"Service Name:"_s)->setText(serviceName);
    }
    if (choosesType()) {
        cboCountType = form.comboField(u"cboCountType"_s, u"Count &Type:"_s);
        for (const periods::Period &each : periods::all())
            if (each.isCount)
                cboCountType->add(QStringList(each.word.toString()));
        // The plainest of them; the list has no blank, so that some type is always chosen.
        cboCountType->selectText(u"Counts"_s);
        connect(cboCountType, &QComboBox::activated, this, [this] {
            // The service's own period follows the type, but only when the user chose it.
            m_typeChanged = true;
            RefreshCountForm();
        });
    } else {
        lblCountType = form.readOnlyField(u"lblCountType"_s, u"Count Type:"_s);
        lblCountType->setText(m_type);
    }
    if (showsLastReading()) {
        lblLastDate = form.readOnlyField(u"lblLastDate"_s, u"Last Count Date:"_s);
        lblLastCount = form.readOnlyField(u"lblLastCount"_s, u"Last Count Value:"_s);
    }
    datCountDate = form.dateField(u"datCountDate"_s, u"New Count &Date:"_s);
    datCountDate->checkOnLeave();
    txtCountValue = form.digitsField(u"txtCountValue"_s, u"New Count &Value:"_s, ValueLength);
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    setMinimumWidth(380);
    // A number and Enter, machine by machine.
    cmdUpdate->setDefault(true);
    txtCountValue->setFocus();

    // Ten digits may be more than the database holds.
    connect(txtCountValue, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (text.toLongLong() > std::numeric_limits<qint32>::max())
            txtCountValue->setText(text.left(ValueLength - 1));
    });
    connect(datCountDate, &input::DateInput::dateChanged, this, &frmCountReading::checkDate);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmCountReading::cmdUpdate_Click);
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
    input::setCausesValidation(cmdExit, false);
}

bool frmCountReading::choosesType() const
{
    return m_type.isEmpty();
}

QString frmCountReading::chosenType() const
{
    return cboCountType ? cboCountType->currentText() : m_type;
}

void frmCountReading::RefreshCountForm()
{
    base::trapped(Module, "RefreshCountForm", [this] {
        m_last = readings::newest(m_equipment, chosenType());
        if (showsLastReading()) {
            lblLastDate->setText(m_last.date.isValid() ? m_last.date.toString(u"MM/dd/yyyy")
                                                       : u"None"_s);
            lblLastCount->setText(QString::number(m_last.value));
        }
        // Each type begins at today again: the date that was put right belonged to another meter.
        datCountDate->setDate(base::today());
    });
}

void frmCountReading::checkDate()
{
    const QDate date = datCountDate->date();
    // A date that is being typed is not judged yet.
    if (!date.isValid())
        return;
    const QDate today = base::today();
    // A last reading that lies ahead of today leaves today as the one date to choose.
    const QDate last = qMin(m_last.date.date(), today);
    if (showsLastReading() && last.isValid() && date < last) {
        base::showMessage(u"New  date cann't be less than to last count date."_s);
        datCountDate->setDate(last);
    } else if (date > today) {
        base::showMessage(u"New  date cann't be greater than to current date."_s);
        datCountDate->setDate(today);
    }
}

bool frmCountReading::AddCount(const QString &periodCode)
{
    return base::trapped(Module, "AddCount", false, [&] {
        const QString type = chosenType();
        // Told ahead of the consequences, which go by the service's type.
        if (m_service != 0 && m_typeChanged &&
            !assignment::UpdateEquipmentService(m_service, u"Period"_s, periodCode))
            return false;
        readings::add(m_equipment, base::wallClock(datCountDate->date()), type,
                      readingOf(txtCountValue->text()));
        // The caller goes on with the type that was really stored.
        m_type = type;
        return true;
    });
}

void frmCountReading::cmdUpdate_Click()
{
    base::trapped(Module, "cmdUpdate_Click", [this] {
        const auto stayIn = [](QWidget *field, const QString &message) {
            base::showMessage(message);
            field->setFocus();
        };
        // Enter saves without leaving the box, where the date would have been checked.
        if (!datCountDate->date().isValid())
            return stayIn(datCountDate, u"Please enter valid date."_s);
        if (input::isBlank(txtCountValue))
            return stayIn(txtCountValue, u"New count value shouldn't be blank."_s);
        // Equal is right: a machine that stood still is read, too.
        if (showsLastReading() && readingOf(txtCountValue->text()) < m_last.value)
            return stayIn(txtCountValue, u"New count value should be greater than or equal to last "
                                         "count value."_s);
        // Asked last and of the database: an order may have been made while the number was typed.
        if (readings::isInProcess(m_equipment, chosenType()))
            return stayIn(txtCountValue, readings::inProcessMessage());
        if (!AddCount(readings::periodCode(chosenType())))
            return;
        m_saved = true;
        unload();
    });
}
