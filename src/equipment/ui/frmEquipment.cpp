#include "equipment/ui/frmEquipment.h"

#include "core/Identifiers.h"
#include "core/Permission.h"
#include "core/Tables.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "equipment/MachineRows.h"
#include "equipment/clsEquipment_Manager.h"
#include "equipment/ui/DepreciationPage.h"
#include "equipment/ui/DocumentsPage.h"
#include "equipment/ui/EnginePage.h"
#include "equipment/ui/EquipmentTabs.h"
#include "equipment/ui/HistoryPage.h"
#include "equipment/ui/IdentityPage.h"
#include "equipment/ui/MachinePartsPage.h"
#include "equipment/ui/NotesPages.h"
#include "equipment/ui/PicturesPage.h"
#include "equipment/ui/PurchasePage.h"
#include "equipment/ui/VehiclePage.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/help/Help.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Leaving.h"
#include "platform/input/Theme.h"
#include "scheduling/ui/CountPage.h"
#include "scheduling/ui/ServicePage.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QWhatsThis>

using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "Equipment";
/// Characters of an item that a list shows at least.
constexpr int ListLength = 9;
constexpr QStringView DetailReport = u"ShowEquipmentDetailReport";

/// A page may be larger than a small screen.
QScrollArea *scrolled(QWidget *page)
{
    auto *area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

} // namespace

frmEquipment::frmEquipment(QWidget *parent)
    : RecordScreen(u"frmEquipment"_s, u"Equipment"_s, parent)
{
    setRights(rights::Machines);
    buildForm();
    connectPages();
    resize(1040, 600);
}

void frmEquipment::buildForm()
{
    auto *body = new QWidget(this);
    auto *across = new QHBoxLayout(body);
    across->setContentsMargins(0, 0, 0, 0);
    across->setSpacing(10);
    m_tabs = new EquipmentTabs(body);
    m_stack = new QStackedWidget(body);
    lblHeading = new QLabel(body);
    lblHeading->setObjectName(u"lblHeading"_s);
    theme::setOwnLook(lblHeading, theme::font(11, true));
    // A name with an angle bracket in it is text, and no markup.
    lblHeading->setTextFormat(Qt::PlainText);
    auto *right = new QVBoxLayout;
    right->addWidget(lblHeading);
    right->addWidget(m_stack, 1);
    across->addWidget(m_tabs);
    across->addLayout(right, 1);
    makePages();

    input::FormBuilder form(this);
    form.widget(body, true);
    makeButtons(form, {.find = true, .print = true});
    QPushButton *cmdHelp = form.leftButton(u"cmdHelp"_s, u"Help"_s, theme::icon(u"help"_s));
    connect(cmdHelp, &QPushButton::clicked, this, [] { cmdHelp_Click(); });
    form.finish();
    for (QPushButton *button : {cmdCancel, cmdExit})
        // Cancel and Exit leave a box without its checks: what is in it is given up.
        input::setCausesValidation(button, false);
}

void frmEquipment::addPage(const QString &name, MachinePage *page)
{
    page->setObjectName(name);
    // Long items must not make a page wider than the window.
    for (QComboBox *list : page->findChildren<QComboBox *>()) {
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(ListLength);
    }
    m_pages.append(page);
    // Each page scrolls by itself, so that a long one doesn't widen the window of the others.
    m_stack->addWidget(scrolled(page));
    // Some pages hold fields of the machine's own row, others rows of tables beside it.
    if (auto *record = qobject_cast<RecordPage *>(page))
        m_recordPages.append(record);
}

/// In the order of the tabs.
void frmEquipment::makePages()
{
    m_identity = new IdentityPage(*this);
    addPage(u"fraEquipment"_s, m_identity);
    m_services = new ServicePage(*this);
    addPage(u"fraService"_s, m_services);
    addPage(u"fraHistory"_s, new HistoryPage(*this));
    addPage(u"fraNotes"_s, new NotesPage(*this));
    addPage(u"fraUserDefined"_s, new UserFieldsPage(*this));
    addPage(u"fraEngineInfo"_s, new EnginePage(*this));
    addPage(u"fraVehicleInfo"_s, new VehiclePage(*this));
    addPage(u"fraPartUsed"_s, new MachinePartsPage(*this));
    addPage(u"fraPurchase"_s, new PurchasePage(*this));
    m_counts = new CountPage(*this);
    addPage(u"fraCounts"_s, m_counts);
    addPage(u"fraImages"_s, new PicturesPage(*this));
    addPage(u"fraDocuments"_s, new DocumentsPage(*this));
    m_depreciation = new DepreciationPage(*this);
    addPage(u"fraDepreciation"_s, m_depreciation);
}

void frmEquipment::connectPages()
{
    QList<Bindings *> fields;
    for (RecordPage *page : std::as_const(m_recordPages))
        fields.append(&page->fields());
    // All fields of one row, whichever page they stand on: they are edited, compared and saved
    // together.
    setFields(fields);
    m_identity->setSaveControl(cmdUpdate);
    // Ctrl+D is also the key of a page; in these boxes it stamps the time.
    for (const auto *noteBox : {u"rtfNotes", u"txtPurchaseNotes", u"txtNote"})
        if (auto *box = findChild<QPlainTextEdit *>(QString::fromUtf16(noteBox)))
            m_tabs->leaveStampTo(box);
    // A service's target may hang on a reading, and a reading may bring a service's date.
    connect(m_services, &ServicePage::servicesChanged, this,
            [this] { m_counts->showMachine(m_equipmentID); });
    connect(m_counts, &CountPage::readingsChanged, this,
            [this] { m_services->showMachine(m_equipmentID); });
    connect(m_tabs, &EquipmentTabs::chosen, this, &frmEquipment::chooseTab);
    // A year that is chosen shows what the schedule would be, before the machine is saved.
    connect(m_identity, &IdentityPage::yearChosen, m_depreciation,
            &DepreciationPage::setPurchaseYear);
}

void frmEquipment::beginEdit()
{
    edited();
    // A dialog that joined the transaction may have ended it with its own commit.
    base::trapped(Module, "beginEdit", [] { BeginTrans(); });
}

void frmEquipment::keepLayout(grid::GridView *grid, const QString &gridName)
{
    adoptGrid(grid, gridName);
}

void frmEquipment::RefreshCombo(const QString &listName)
{
    for (RecordPage *page : std::as_const(m_recordPages))
        page->RefreshCombo(listName.toUpper());
}

// --- The record ----------------------------------------------------------------------------------

db::Recordset frmEquipment::rowsAt(Place place, const QVariant &key)
{
    return base::trapped(Module, "RefreshRecordSet", db::Recordset(),
                         [&] { return machinerows::at(place, key.toLongLong()); });
}

void frmEquipment::DisplayData(const db::Row &row)
{
    // Ahead of all that may fail: what is saved later must not land on the machine shown before.
    m_equipmentID = row.integer(keyColumn());
    base::trapped(Module, "DisplayData", [&] {
        const clsEquipment machine = clsEquipment_Manager::fromRow(row);
        for (RecordPage *page : std::as_const(m_recordPages))
            page->DisplayData(machine, row);
    });
    for (MachinePage *page : std::as_const(m_pages))
        // Each on its own: a page that fails must not keep the others on the machine before.
        base::trapped(Module, "DisplayData", [&] { page->showMachine(m_equipmentID); });
}

void frmEquipment::ClearData()
{
    m_equipmentID = 0;
    for (RecordPage *page : std::as_const(m_recordPages))
        page->ClearData();
    for (MachinePage *page : std::as_const(m_pages))
        base::trapped(Module, "ClearData", [&] { page->showMachine(0); });
}

void frmEquipment::prepareNewRecord()
{
    m_equipmentID = GenrateUniqueID();
    FrameVisible(0);
    m_identity->focusUnitNo();
}

/// Keys are made of the clock, so that one second may give the same twice.
bool frmEquipment::takeFreshKey()
{
    m_equipmentID = qMax(GenrateUniqueID(), m_equipmentID + 1);
    return true;
}

QString frmEquipment::recordName() const
{
    return u"the machine \"%1\""_s.arg(m_identity->fields().read().UnitNo.trimmed());
}

clsEquipment frmEquipment::SetObjectValues() const
{
    // What no page shows goes through the save as it was.
    clsEquipment machine = m_identity->fields().shown();
    for (const RecordPage *page : m_recordPages)
        page->SetObjectValues(machine);
    machine.EquipmentID = m_equipmentID;
    return machine;
}

bool frmEquipment::refusedBy(MachinePage *page)
{
    const auto index = static_cast<int>(m_pages.indexOf(page));
    m_tabs->ChangeButtonState(index);
    m_stack->setCurrentIndex(index);
    // A control takes the focus only when its page is in front.
    if (QWidget *refusing = page->focusWidget())
        refusing->setFocus();
    return false;
}

bool frmEquipment::VailidateFields()
{
    for (MachinePage *page : std::as_const(m_pages))
        // The cells first, on all pages: what they hold is written by the time the record is
        // checked.
        if (!page->finishEditing())
            return false;
    if (!m_identity->VailidateFields())
        return refusedBy(m_identity);
    // A key that saves leaves no box, so what leaving checks is checked here.
    for (MachinePage *page : std::as_const(m_pages))
        if (!page->mayLeave())
            return refusedBy(page);
    return true;
}

std::optional<QVariant> frmEquipment::saveRecord()
{
    // Without a key the mode and the transaction stay: the user corrects and saves again, or
    // cancels.
    return base::trapped(Module, "cmdUpdate_Click", std::optional<QVariant>{}, [this] {
        std::optional<QVariant> key;
        BeginTrans();
        // The machine first, since its number may be taken and another one be given.
        if (clsEquipment_Manager().SaveRecord(SetObjectValues(), mode(),
                                              m_identity->fields().shown()) &&
            // In the same transaction: the row of the crew's history stands for a change that was
            // saved.
            m_identity->storeCrewHistory(m_equipmentID)) {
            CommitTrans();
            key = m_equipmentID;
        }
        return key;
    });
}

bool frmEquipment::save()
{
    cmdUpdate_Click();
    // A save that was refused keeps the mode, which is all that tells it from here.
    return mode() == Mode::Browse;
}

void frmEquipment::cmdCancel_Click()
{
    // Ahead of the display, which would show what the pages have written otherwise.
    base::trapped(Module, "cmdCancel_Click", [] { RollbackTrans(); });
    RecordScreen::cmdCancel_Click();
}

bool frmEquipment::deleteRecord(const QVariant &key)
{
    return clsEquipment_Manager().DeleteRecord(key.toLongLong());
}

QString frmEquipment::usedBy(const QVariant &key) const
{
    return clsEquipment_Manager().CanDeleteEquipment(key.toLongLong());
}

QString frmEquipment::deleteQuestion() const
{
    return u"This will delete the entire piece of equipment and all its history. Are you sure you "
           "want to do this?"_s;
}

/// The machine behind the deleted one, the one before it at the end.
QVariant frmEquipment::keyAfterDeletion() const
{
    const int position = rows().Position();
    const int neighbour = position + 1 < rows().RecordCount() ? position + 1 : position - 1;
    return neighbour < 0 ? QVariant() : rows().row(neighbour)[keyColumn()];
}

// --- Modes and pages -----------------------------------------------------------------------------

/// Called with each change of mode, which the transaction follows.
void frmEquipment::EnableControls()
{
    base::trapped(Module, "EnableControls", [this] {
        if (mode() == Mode::Browse)
            RollbackTrans();
        else
            BeginTrans();
    });
    RecordScreen::EnableControls();
}

void frmEquipment::recordShown()
{
    for (MachinePage *page : std::as_const(m_pages))
        // Pages with rows of their own lock themselves; the fields are locked by the record screen.
        page->setEditable(mayEdit());
    // Without a machine there is nothing on any page, and no page to leave.
    const bool hasMachine = hasRows() || mode() == Mode::Add;
    m_tabs->setEnabled(hasMachine);
    if (!hasMachine && m_stack->currentIndex() != 0)
        FrameVisible(0);
    // Search and report are other folders' screens, which may not have joined.
    cmdFind->setEnabled(hasRows() && screenCalls().ShowQuickFind != nullptr);
    cmdPrint->setEnabled(hasRows() && openings().isJoined(DetailReport));
    showHeading();
    CheckUserDefinedfields();
}

void frmEquipment::showHeading()
{
    if (mode() == Mode::Add)
        lblHeading->setText(u"New machine"_s);
    else if (!hasRows())
        lblHeading->setText(u"No machines yet"_s);
    else
        lblHeading->setText(u"%1   %2"_s.arg(rows().current().text(u"UnitNo"),
                                             rows().current().text(u"EquipmentName")));
}

void frmEquipment::CheckUserDefinedfields()
{
    for (int index = 0; index < m_pages.size(); ++index)
        // So that nobody has to turn to a page to see that it is empty.
        m_tabs->setMarked(index, m_pages[index]->hasContent());
}

bool frmEquipment::ChkFrameVisible(int index) const
{
    return m_stack->currentIndex() == index;
}

bool frmEquipment::ChkEquipmentNameAndNo()
{
    if (mode() != Mode::Add)
        return true;
    return base::askYesNo(u"Record must be saved. Do you want to save it."_s) && save();
}

void frmEquipment::chooseTab(int index)
{
    m_tabs->ChangeButtonState(index);
    if (ChkFrameVisible(index))
        return;
    MachinePage *current = m_pages[m_stack->currentIndex()];
    // The click has pushed the other button already; it goes back to the page that refuses.
    if (!current->finishEditing() || !current->mayLeave()) {
        m_tabs->ChangeButtonState(m_stack->currentIndex());
    } else if (ChkEquipmentNameAndNo()) {
        FrameVisible(index);
    } else {
        FrameVisible(0);
        m_identity->focusUnitNo();
    }
}

void frmEquipment::FrameVisible(int index)
{
    m_tabs->ChangeButtonState(index);
    m_stack->setCurrentIndex(index);
    m_pages[index]->pageShown();
}

void frmEquipment::unloading()
{
    for (MachinePage *page : std::as_const(m_pages))
        page->closing();
    // A window that is closed while it edits keeps nothing of the edit.
    base::trapped(Module, "Form_Unload", [] { RollbackTrans(); });
}

// --- The help pointer ----------------------------------------------------------------------------

void frmEquipment::cmdHelp_Click()
{
    QWhatsThis::enterWhatsThisMode();
}

bool frmEquipment::event(QEvent *event)
{
    if (event->type() != QEvent::WhatsThis)
        return RecordScreen::event(event);
    // A click with the help pointer comes here from whatever it hit, which does not act.
    const QPoint place = static_cast<QHelpEvent *>(event)->pos();
    QWhatsThis::leaveWhatsThisMode();
    help::showHelp(this, FindHelpContextId(childAt(place)));
    event->accept();
    return true;
}

QString frmEquipment::FindHelpContextId(const QWidget *control)
{
    // Pages and tabs go by two names each: what the page is called, and what stands on its button.
    static constexpr std::pair<QStringView, QStringView> Anchors[] = {
        {u"Equipment", u"identity"},  {u"Service", u"service"},
        {u"History", u"history"},     {u"Notes", u"notes"},
        {u"UserDefined", u"fields"},  {u"Fields", u"fields"},
        {u"EngineInfo", u"engine"},   {u"Engine", u"engine"},
        {u"VehicleInfo", u"vehicle"}, {u"Vehicle", u"vehicle"},
        {u"PartUsed", u"parts"},      {u"Parts", u"parts"},
        {u"Purchase", u"purchase"},   {u"Counts", u"counts"},
        {u"Images", u"pictures"},     {u"Pictures", u"pictures"},
        {u"Documents", u"documents"}, {u"Depreciation", u"depreciation"},
    };
    // From the control outwards: the innermost page that has a topic.
    for (const QWidget *widget = control; widget; widget = widget->parentWidget())
        for (const auto &[name, anchor] : Anchors)
            if (widget->objectName() == u"fra"_s + name.toString() ||
                widget->objectName() == u"tab"_s + name.toString())
                return u"equipment#"_s + anchor.toString();
    return u"equipment"_s;
}

// --- Print and find ------------------------------------------------------------------------------

void frmEquipment::cmdPrint_Click()
{
    openings().open(DetailReport,
                    {.query = u" where  tblEquipment.EquipmentID  = %1"_s.arg(m_equipmentID)});
}

void frmEquipment::cmdFind_Click()
{
    const QString found = screenCalls().ShowQuickFind(
        {u"UnitNo"_s, u"Unit No"_s, u"tblEquipment"_s, u"frmEquipment"_s});
    if (!found.trimmed().isEmpty())
        RefreshRecordSet(found);
}
