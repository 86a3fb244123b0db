#include "scheduling/ui/frmServices.h"

#include "core/Identifiers.h"
#include "core/Permission.h"
#include "core/Session.h"
#include "core/ui/Lock.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "scheduling/ui/BudgetBox.h"
#include "scheduling/ui/NextScheduleBox.h"
#include "scheduling/ui/PatternBox.h"
#include "scheduling/ui/ScheduleBox.h"
#include "scheduling/ui/ServiceNameBox.h"
#include "scheduling/ui/ServiceParts.h"

#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmServices";
bool canBeTriedAgain(const base::Error &error)
{
    return error.number() == db::ErrorNumber::LockConflict ||
           dynamic_cast<const record::Conflict *>(&error) != nullptr;
}

} // namespace

frmServices::frmServices(ServiceStore store, QWidget *parent)
    : SavingScreen(u"frmServices"_s, u"Services"_s, parent)
    , m_store(store)
    , m_fields(AssignedService::fields())
{
    buildForm();
    bindFields();
    joinRules();
    // The boxes lend their grid to the screen, which stores its layout under their name.
    adoptGrid(fraParts->grid(), fraParts->grid()->objectName());
}

void frmServices::buildForm()
{
    input::FormBuilder form(this);
    form.beginColumns();
    m_name = new ServiceNameBox(form, m_store, *this);
    m_budget = new BudgetBox(form, m_name->crew(), this);
    form.nextColumn();
    buildSchedule(form);
    form.endColumns();
    form.beginColumns();
    fraParts = new ServiceParts(m_store, this);
    form.widget(fraParts, true);
    form.nextColumn();
    txtNotes = form.memoField(u"txtNotes"_s, u"No&tes:"_s, 4);
    form.endColumns();
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"Re&vert"_s, theme::icon(u"undo"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
}

void frmServices::buildSchedule(input::FormBuilder &form)
{
    form.beginGroup(u"Schedule"_s, u"fraSchedule"_s);
    m_schedule = new ScheduleBox(form, this);
    if (isAssigned())
        m_next = new NextScheduleBox(form, *m_schedule, *this);
    form.endGroup();
    form.widget(m_schedule->pattern());
}

void frmServices::bindFields()
{
    m_name->bind(m_fields);
    m_schedule->bind(m_fields);
    m_fields.add(txtNotes, &clsServices::Note);
    m_budget->bind(m_fields);
    if (m_next)
        m_next->bind(m_fields);
    // One binding for all boxes: what is compared with another workstation's values is the service
    // as a whole.
    setSavedFields({&m_fields});
}

void frmServices::joinBoxes()
{
    // Boxes don't know each other: what one has to say to another goes through here.
    connect(m_name, &ServiceNameBox::crewChosen, m_budget, &BudgetBox::crewChosen);
    connect(m_name, &ServiceNameBox::inactiveChanged, this, &frmServices::EnableLogicControl);
    connect(fraParts, &ServiceParts::costChanged, this,
            [this] { m_budget->setPartCost(fraParts->SetPastCost()); });
    connect(fraParts, &ServiceParts::edited, this, &Screen::edited);
    connect(m_schedule, &ScheduleBox::edited, this, &Screen::edited);
    if (!m_next)
        return;
    connect(m_schedule, &ScheduleBox::periodChanged, m_next, &NextScheduleBox::CheckServiceChange);
    connect(m_next, &NextScheduleBox::edited, this, &Screen::edited);
}

void frmServices::joinRules()
{
    // Pattern, parts and next date tell their edits by a signal of their own, since they also
    // change by themselves.
    watch(m_name->controls() + m_budget->controls() + m_schedule->controls() +
          QList<QWidget *>{txtNotes});
    joinBoxes();
    fraParts->mayAdd = [this] { return mayAddPart(); };
    connect(cmdUpdate, &QPushButton::clicked, this, &frmServices::cmdUpdate_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmServices::cmdCancel_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmServices::cmdExit_Click);
    for (QPushButton *button : {cmdCancel, cmdExit})
        // Leaving for these two buttons must check nothing: what is typed is given up, or asked
        // about by the button itself.
        input::setCausesValidation(button, false);
}

void frmServices::display(Mode mode, qint64 key)
{
    m_key = key;
    if (mode == Mode::Add && !isAssigned())
        beginNew();
    else
        RefreshRecordSet();
}

void frmServices::beginNew()
{
    ClearData();
    // A key from the clock. Only the insert finds out whether another workstation has taken the
    // same.
    m_key = GenrateUniqueID();
    const Displaying displaying(*this);
    m_name->beginNew(GenerateID(u"tblServices"_s, u"JobNO"_s));
    setMode(Mode::Add);
    m_name->focusName();
}

void frmServices::unloading()
{
    // Parts that were added lie in the open transaction; closing without Save gives them up.
    base::trapped(Module, "Form_Unload", [] { RollbackTrans(); });
}

// --- Controls by mode and schedule ---------------------------------------------------------------

bool frmServices::mayEdit() const
{
    // Adding is another right, which was asked for before this screen opened.
    return mode() == Mode::Add || (m_hasRow && rights::isGranted(rights::Services.modify));
}

void frmServices::EnableControls()
{
    const bool browsing = mode() == Mode::Browse;
    const bool may = mayEdit();
    cmdUpdate->setEnabled(!browsing);
    cmdCancel->setEnabled(!browsing);
    m_name->setMayEdit(may);
    setLocked(txtNotes, !may);
    for (QWidget *control : m_budget->controls())
        setLocked(control, !may);
    fraParts->setMayEdit(may);
    EnableLogicControl();
    // While something is being edited Return is the way out: it asks.
    setCloseEnabled(browsing);
}

/// An inactive service has no schedule to be changed.
void frmServices::EnableLogicControl()
{
    const bool active = mayEdit() && !m_name->isInactive();
    m_schedule->setActive(active);
    if (m_next)
        m_next->setActive(active);
}

// --- Showing -------------------------------------------------------------------------------------

void frmServices::RefreshRecordSet()
{
    base::trapped(Module, "RefreshRecordSet", [this] {
        const db::Recordset rows = clsServicesManager().GetServiceInfo(m_key, m_store);
        // The service may have been deleted by another workstation since the list was read.
        if (rows.isEmpty())
            ClearData();
        else
            DisplayData(rows.current());
    });
    setMode(Mode::Browse);
}

void frmServices::DisplayData(const db::Row &row)
{
    const Displaying displaying(*this);
    m_hasRow = true;
    showService(isAssigned() ? AssignedService::fromRow(row)
                             : AssignedService{clsServicesManager::fromRow(row, m_store), {}});
    if (m_next)
        // No fields of the service: the postings write them, and this screen only shows them.
        m_next->showLast(row.date(u"LastDateScheduled"), row.date(u"LastDatePerformed"));
    clearChanges();
    fraParts->RefreshPartGrid(m_key);
}

void frmServices::showService(const AssignedService &service)
{
    m_fields.show(service);
    // Behind the fields, whose values these take as what was there before the user's edits.
    m_name->serviceShown(m_key);
    if (m_next)
        m_next->showScheduleKind();
    m_schedule->serviceShown();
    m_budget->showLabourRate();
}

void frmServices::ClearData()
{
    const Displaying displaying(*this);
    m_hasRow = false;
    AssignedService blank;
    // What most services are: every so many days, counted from the completion.
    blank.Period = u"D"_s;
    blank.RenewalOn = u"W"_s;
    showService(blank);
    m_name->clear();
    if (m_next)
        m_next->clear();
    clearChanges();
    fraParts->RefreshPartGrid(0);
}

void frmServices::clearChanges()
{
    if (m_next)
        m_next->forgetChanges();
    m_name->forgetChanges();
}

bool frmServices::mayAddPart()
{
    // A part is stored under its service's key, which a new service has only once it is saved.
    if (mode() != Mode::Add)
        return true;
    return base::askYesNo(u"Record must be saved. Do you want to save it."_s) && cmdUpdate_Click();
}

// --- Saving --------------------------------------------------------------------------------------

bool frmServices::refuse(QWidget *field, const QString &message)
{
    base::showInformation(message);
    field->setFocus();
    return false;
}

bool frmServices::ValidateFields()
{
    // In the order of the form, from top to bottom.
    for (const auto &gap : {m_name->gap(), m_schedule->gap()})
        if (gap)
            return refuse(gap->field, gap->message);
    return true;
}

AssignedService frmServices::SetObjectValues() const
{
    const AssignedService &shown = m_fields.shown();
    AssignedService service = m_fields.read();
    // A new one gets its key at the last moment: the longer it is held, the likelier another
    // workstation has the same.
    service.ServiceID = mode() == Mode::Modify ? m_key : GenrateUniqueID();
    m_schedule->complete(service, shown);
    return service;
}

std::optional<QVariant> frmServices::saveRecord()
{
    AssignedService service = SetObjectValues();
    const qint64 typed = service.JobNo;
    // Asked ahead of BeginTrans, which joins a transaction that is open already.
    const bool holdsParts = gbInTransaction;
    try {
        BeginTrans();
        const clsServicesManager manager;
        if (!manager.SaveRecord(service, mode(), m_store, service, m_fields.shown()) ||
            // Within the same transaction: the number of the catalogue and those of its copies
            // change together or not at all.
            (m_carriesJobNo && !manager.UpdateJobNoForAllService(service.ServiceID, service.JobNo)))
            return std::nullopt;
        CommitTrans();
    } catch (const base::Error &error) {
        // Parts that were added or changed in this editing stay when the save can be tried again.
        if (!holdsParts || !canBeTriedAgain(error))
            RollbackTrans();
        throw;
    }
    // The manager takes the next free number when another workstation was faster.
    if (mode() == Mode::Add && service.JobNo != typed)
        base::showMessage(u"Service no %1 is already being used the new service number is "
                          "%2."_s.arg(QString::number(typed), QString::number(service.JobNo)));
    return QVariant(service.ServiceID);
}

bool frmServices::becomesNew()
{
    // A catalogue service that is gone can be stored anew; one of a machine has lost the schedule
    // that it was part of.
    if (!isAssigned())
        return SavingScreen::becomesNew();
    base::showMessage(u"Another workstation has removed %1 from its machine. What you typed is "
                      "still here, but there is nothing left to store it in."_s.arg(recordName()));
    return false;
}

QString frmServices::recordName() const
{
    return u"the service \"%1\""_s.arg(m_fields.shown().Name.trimmed());
}

/// Save by its key leaves the focus, and so what has not been checked yet, in a field.
bool frmServices::finishFields()
{
    // The cell first: ending it may still change the transaction that the save is to commit.
    return fraParts->grid()->finishEditing() && (!m_next || m_next->finish()) && m_name->finish();
}

bool frmServices::cmdUpdate_Click()
{
    if (!finishFields())
        return false;
    if (!ValidateFields())
        return false;
    if (m_next)
        // Behind the checks, so that nobody is asked about a date that is refused anyhow.
        m_next->confirmChangesOnOrder(m_key);
    // The question stands ahead of the writing: the save locks no row while the user thinks.
    m_carriesJobNo = m_name->isJobNumberCarried();
    const std::optional<QVariant> key = store();
    if (!key) {
        // The failed save has undone the parts as well; what is stored is shown again.
        if (!gbInTransaction && m_hasRow)
            fraParts->RefreshPartGrid(m_key);
        if (m_next)
            m_next->showScheduleKind();
        EnableLogicControl();
        return false;
    }
    m_key = key->toLongLong();
    RefreshRecordSet();
    m_name->focusName();
    return true;
}

void frmServices::cmdCancel_Click()
{
    // Ahead of the reading, which would see the parts of the open transaction otherwise.
    base::trapped(Module, "cmdCancel_Click", [] { RollbackTrans(); });
    RefreshRecordSet();
}

void frmServices::cmdExit_Click()
{
    if (mode() != Mode::Browse) {
        const auto answer = base::prompts().show({u"Do you want to save changes?"_s,
                                                  base::Prompts::Icon::Question,
                                                  base::Prompts::Buttons::YesNoCancel,
                                                  {}});
        if (answer == base::Prompts::Answer::Cancel ||
            // What can't be saved keeps the screen, with the focus where the fault is.
            (answer == base::Prompts::Answer::Yes && !cmdUpdate_Click()))
            return;
    }
    // Closing undoes what is open.
    unload();
}
