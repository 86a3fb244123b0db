#include "workorders/ui/frmWorkorder.h"

#include "core/Options.h"
#include "core/Session.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "core/ui/Telling.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/grid/GridView.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/Leaving.h"
#include "platform/input/ProgressBox.h"
#include "platform/input/Theme.h"
#include "workorders/NumberList.h"
#include "workorders/Posting.h"
#include "workorders/Recording.h"
#include "workorders/Statements.h"
#include "workorders/ui/PrintWorkPage.h"
#include "workorders/ui/RecordWorkPage.h"
#include "workorders/ui/WorkLists.h"
#include "workorders/ui/frmWOCompletedDate.h"

#include <QCheckBox>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "WorkOrder";
constexpr int CrewsInView = 12; // characters of a list of crews
const QString PrintedReport = u"ShowWorkorderReport"_s;
const QString HistoryReport = u"ShowWorkorderHistoryReport"_s;

} // namespace

frmWorkorder::frmWorkorder(QWidget *parent)
    : Screen(u"frmWorkorder"_s, u"Work Order"_s, parent)
{
    buildForm();
    Form_Load();
    // Once they have their columns, to which the stored widths and sorts belong.
    for (grid::GridView *each : m_printing->grids() + m_recording->grids())
        adoptGrid(each, each->objectName());
    EnableControls();
}

void frmWorkorder::buildForm()
{
    input::FormBuilder form(this);
    fraFilter = buildFilter();
    form.widget(fraFilter);
    sstabWorkorder = new QTabWidget(this);
    sstabWorkorder->setObjectName(u"sstabWorkorder"_s);
    m_printing =
        new PrintWorkPage([this] { return filter(); }, [this] { return reachToday(); }, this);
    m_recording = new RecordWorkPage(this);
    sstabWorkorder->addTab(m_printing, u"Print Work Order"_s);
    sstabWorkorder->addTab(m_recording, u"Complete Work Order"_s);
    form.widget(sstabWorkorder, true);
    cmdUnschedule =
        form.leftButton(u"cmdUnschedule"_s, u"&UnScheduled"_s, theme::icon(u"unschedule"_s));
    cmdPrint = form.button(u"cmdPrint"_s, u"&Print"_s, theme::icon(u"print"_s));
    cmdPost = form.button(u"cmdPost"_s, u"&Post"_s, theme::icon(u"complete"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(1240, 680);

    const auto click = [this](QPushButton *button, const char *procedure,
                              void (frmWorkorder::*action)()) {
        connect(button, &QPushButton::clicked, this, [this, procedure, action] {
            if (finishEditing())
                base::trapped(Module, procedure, [&] { (this->*action)(); });
        });
    };
    click(cmdRefreshWo, "cmdRefreshWo_Click", &frmWorkorder::cmdRefreshWo_Click);
    click(cmdPrint, "cmdPrint_Click", &frmWorkorder::cmdPrint_Click);
    click(cmdPost, "cmdPost_Click", &frmWorkorder::cmdPost_Click);
    click(cmdUnschedule, "cmdUnschedule_Click", &frmWorkorder::cmdUnschedule_Click);
    // Not unload(): reject asks mayClose, so that a note that can't stand keeps the screen.
    connect(cmdExit, &QPushButton::clicked, this, &frmWorkorder::reject);
    // Post is on only while there are orders, which come and go with each reading.
    connect(m_recording, &RecordWorkPage::refreshed, this, [this] { EnableControls(); });
    connect(sstabWorkorder, &QTabWidget::currentChanged, this,
            [this](int tab) { sstabWorkorder_Click(tab); });
    // The filter stands outside of the tabs, which only turn by a key that is pressed in them.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this), &QShortcut::activated, this,
            [this] {
                sstabWorkorder->setCurrentIndex((sstabWorkorder->currentIndex() + 1) %
                                                sstabWorkorder->count());
            });
}

QWidget *frmWorkorder::buildFilter()
{
    auto *pane = new QWidget(this);
    pane->setObjectName(u"fraFilter"_s);
    input::FormBuilder form(pane);
    form.beginRow();
    datDateFrom = form.dateField(u"datDateFrom"_s, u"&From:"_s);
    datDateTo = form.dateField(u"datDateTo"_s, u"T&o:"_s);
    txtCrewRange = form.textField(u"txtCrewRange"_s, u"Service &Crew:"_s, 60);
    txtAssignCrew = form.textField(u"txtAssignCrew"_s, u"Ass&ign Crew:"_s, 60);
    chkGroupWo = form.checkBox(u"chkGroupWo"_s, u"Group &Wo"_s);
    cmdRefreshWo = form.inlineButton(u"cmdRefreshWo"_s, u"R&efresh"_s, theme::icon(u"refresh"_s));
    form.endRow();
    form.finish();
    pane->layout()->setContentsMargins({});
    for (QLineEdit *crews : {txtCrewRange, txtAssignCrew}) {
        // Lists and ranges of crew numbers, "1,3-5": nothing else can be meant here.
        input::restrictTo(crews, input::TypeCheck::Int, u",-"_s);
        crews->setPlaceholderText(u"1,3-5"_s);
        // On a small or enlarged screen these give way, so that all buttons stay in reach.
        crews->setMinimumWidth(crews->fontMetrics().horizontalAdvance(u'0') * CrewsInView);
    }
    // What is no date is refused first; only dates are compared with each other.
    datDateFrom->checkOnLeave();
    input::validateOnLeave(datDateFrom, [this] {
        if (datDateFrom->isValidOrEmpty())
            datDateFrom_Change();
        return true;
    });
    datDateTo->checkOnLeave();
    input::validateOnLeave(datDateTo, [this] {
        if (datDateTo->isValidOrEmpty())
            datDateTo_Change();
        return true;
    });
    return pane;
}

void frmWorkorder::Form_Load()
{
    base::trapped(Module, "Form_Load", [this] {
        // The window of the last visit. The board sets it to its own thirty days before it opens
        // this screen.
        datDateFrom->setDate(dateOption(u"WoDateFrom"_s, base::today()));
        datDateTo->setDate(dateOption(u"WoDateTo"_s, base::today()));
        txtCrewRange->setText(GetOption(u"WoCrewNo"_s, true));
        txtAssignCrew->setText(GetOption(u"WoAssignCrew"_s, true));
        chkGroupWo->setChecked(GetOption(u"WoGroup"_s, true).trimmed() == u"1");
    });
}

void frmWorkorder::Form_Unload()
{
    base::trapped(Module, "Form_Unload", [this] {
        SetOption(u"WoDateFrom"_s, base::monthFirst(dateFrom()), true);
        SetOption(u"WodateTo"_s, base::monthFirst(dateTo()), true);
        SetOption(u"WoCrewNo"_s, txtCrewRange->text(), true);
        SetOption(u"WoAssignCrew"_s, txtAssignCrew->text(), true);
        SetOption(u"WoGroup"_s, chkGroupWo->isChecked() ? 1 : 0, true);
    });
}

bool frmWorkorder::finishEditing()
{
    // A key or a shortcut acts without anything being left, so all that leaving would check and
    // store is done here, ahead of each action and of closing.
    return input::focusedMayLeave(this) && m_printing->finishEditing() &&
           m_recording->finishEditing();
}

bool frmWorkorder::mayClose()
{
    return finishEditing();
}

void frmWorkorder::unloading()
{
    Form_Unload();
}

void frmWorkorder::EnableControls()
{
    cmdPost->setEnabled(m_recording->hasOrders());
    cmdPrint->setEnabled(openings().isJoined(PrintedReport));
    cmdUnschedule->setEnabled(static_cast<bool>(screenCalls().ShowQuickFind));
}

// --- The window of dates -------------------------------------------------------------------------

QDate frmWorkorder::dateFrom() const
{
    // A date that was emptied means today, as the options do that were never set.
    return datDateFrom->date().isValid() ? datDateFrom->date() : base::today();
}

QDate frmWorkorder::dateTo() const
{
    return datDateTo->date().isValid() ? datDateTo->date() : base::today();
}

WorkorderFilter frmWorkorder::filter() const
{
    return {dateFrom(), dateTo(), txtCrewRange->text(), txtAssignCrew->text()};
}

void frmWorkorder::datDateFrom_Change()
{
    if (dateFrom() > dateTo())
        datDateTo->setDate(dateFrom());
}

void frmWorkorder::datDateTo_Change()
{
    if (dateTo() >= dateFrom())
        return;
    base::showMessage(u"End date can't be less than Work Order Date"_s);
    datDateTo->setDate(dateFrom());
}

bool frmWorkorder::reachToday()
{
    if (dateTo() >= base::today())
        return false;
    datDateTo->setDate(base::today());
    return true;
}

// --- The two tabs --------------------------------------------------------------------------------

void frmWorkorder::showTab(Tab tab)
{
    // The tab is set from here; the signal would read the lists a second time.
    const QSignalBlocker quiet(sstabWorkorder);
    sstabWorkorder->setCurrentIndex(tab);
    const bool printing = tab == PrintTab;
    // The window of dates narrows what is due. Open orders are recorded whenever they were due.
    fraFilter->setVisible(printing);
    cmdPrint->setVisible(printing);
    cmdPost->setVisible(!printing);
}

void frmWorkorder::ShowPrintWorkorder(const QString &unitNo)
{
    showTab(PrintTab);
    m_printing->RefreshPrintWo();
    if (!unitNo.isEmpty())
        m_printing->FindNSelectPrintWorkorder(unitNo);
}

void frmWorkorder::ShowCompleteWorkorder(qint64 WorkorderNo)
{
    showTab(CompleteTab);
    m_recording->RefreshRecordWorkorder();
    if (WorkorderNo != 0)
        m_recording->FindNSelectRecordWorkorder(WorkorderNo);
}

void frmWorkorder::sstabWorkorder_Click(int tab)
{
    // A key turns the tab without anything being left.
    if (!finishEditing())
        // The tab has turned by the time this is told, so it is turned back to what refused to be
        // left.
        showTab(tab == PrintTab ? CompleteTab : PrintTab);
    else if (tab == PrintTab)
        ShowPrintWorkorder();
    else
        ShowCompleteWorkorder();
}

void frmWorkorder::cmdRefreshWo_Click()
{
    datDateFrom_Change();
    if (sstabWorkorder->currentIndex() == PrintTab)
        m_printing->RefreshPrintWo();
    else
        m_recording->RefreshRecordWorkorder();
}

// --- Printing ------------------------------------------------------------------------------------

void frmWorkorder::cmdPrint_Click()
{
    QList<qint64> generated;
    // Without the report nothing is generated either: the orders would be made for a paper that
    // never comes.
    if (!openings().isJoined(PrintedReport) || !m_printing->GenerateWorkorder(generated))
        return;
    // What was ticked as due has become orders just now and is printed with those that were ticked
    // as such.
    const QList<qint64> orders = m_printing->tickedOrders() + generated;
    if (orders.isEmpty())
        return base::showMessage(u"Please select workorder to print."_s);
    openings().open(PrintedReport,
                    {.query = workorders::statements::printedOrders(numberList(orders)),
                     .other = chkGroupWo->isChecked()});
    // Asked behind the report, since only the user sees whether the paper came out.
    if (base::askYesNo(u"Mark Work Orders as Printed"_s))
        (void)telling(Module, "UpdatePrintColInWorkOrder", false,
                      [&] { return recording::UpdatePrintColInWorkOrder(orders); });
    m_printing->RefreshPrintWo();
}

// --- Posting -------------------------------------------------------------------------------------

void frmWorkorder::cmdPost_Click()
{
    QList<qint64> orders = m_recording->completeOrders();
    if (orders.isEmpty())
        return base::showMessage(u"No Work Order is selected to post"_s);
    // Asked once for all of them and outside of any transaction: the orders are locked only by the
    // posting itself.
    const auto date = frmWOCompletedDate::ShowCompletedDateForm();
    if (!date || !RecordWorkPage::mayComplete(*date))
        return;
    // The list holds by now what really was posted.
    if (post(orders, *date) && !orders.isEmpty())
        printPosted(orders);
    m_recording->RefreshRecordWorkorder();
}

bool frmWorkorder::post(QList<qint64> &orders, QDate completed)
{
    return telling(Module, "PostWorkOrder", false,
                   [&] { return postWhatCanBe(orders, completed); });
}

/// An order that can't be posted need not keep the others.
bool frmWorkorder::postWhatCanBe(QList<qint64> &orders, QDate completed)
{
    for (;;) {
        QString obstacle;
        try {
            // Within the try: its box has to be gone before the next question opens.
            input::ProgressBox box(u"Posting work orders..."_s, this);
            return posting::PostWorkOrder(orders, box.progress(), completed);
        } catch (const posting::Obstacle &error) {
            // The posting is all or nothing, and has been undone. Each turn leaves one order less
            // to try, so that this ends.
            obstacle = error.description() + u"\n\nNothing has been posted."_s;
            orders.removeOne(error.order());
        }
        if (orders.isEmpty()) {
            base::showMessage(obstacle);
            return false;
        }
        if (!base::askYesNo(obstacle + u" Do you want to post the other work orders without it?"_s))
            return false;
    }
}

void frmWorkorder::printPosted(const QList<qint64> &orders)
{
    if (!openings().isJoined(HistoryReport) ||
        !base::askYesNo(u"Do you want to print a list of Work Orders posted?"_s))
        return;
    const QString where = u"where workorderno in (%1)"_s.arg(numberList(orders));
    // The single orders come first, as they are asked for; the list is printed in any case.
    if (base::askYesNo(u"Do you want to print out each individual Work Order"_s))
        openings().open(HistoryReport, {.query = workorders::statements::historyDetail(where)});
    openings().open(HistoryReport,
                    {.query = workorders::statements::historySummary(where), .other = true});
}

// --- Work that no schedule called for ------------------------------------------------------------

void frmWorkorder::cmdUnschedule_Click()
{
    const bool printing = sstabWorkorder->currentIndex() == PrintTab;
    const QString machines = screenCalls().ShowQuickFind(
        {.field = u"UnitNo"_s,
         .label = u"Unit No"_s,
         .table = u"tblEquipment"_s,
         .form = u"frmEquipment"_s,
         // A machine that is in the list has an order, or something due that becomes one.
         .leftOut = printing ? m_printing->machines() : m_recording->machines(),
         .several = true});
    // Nothing chosen makes no order, and so needs no message.
    const QList<qint64> chosen = worklists::numbersOf(machines);
    const qint64 order = recording::addUnscheduled(chosen);
    if (order == 0)
        return;
    base::showMessage(u"Workorder Generated"_s);
    // What is added next is meant for the new order.
    if (printing) {
        m_printing->RefreshPrintWo();
        m_printing->FindNSelectPrintWorkorderByWO(order);
    } else {
        m_recording->RefreshRecordWorkorder();
        m_recording->FindNSelectRecordWorkorder(order);
    }
}
