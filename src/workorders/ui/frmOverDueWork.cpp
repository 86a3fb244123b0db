#include "workorders/ui/frmOverDueWork.h"

#include "core/OpeningTable.h"
#include "core/Options.h"
#include "core/ui/ListGrid.h"
#include "core/ui/Openings.h"
#include "core/ui/ScreenCalls.h"
#include "parts/ui/Entries.h"
#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/Theme.h"
#include "scheduling/ui/Entries.h"
#include "workorders/Board.h"
#include "workorders/ui/Entries.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmOverDueWork";
constexpr int Margin = 14;
constexpr int ReportsWidth = 290;
constexpr int HeadingHeight = 26;
constexpr int BoardDays = 30; ///< services that are overdue for longer are not on the board

const QString OpenOrders = u"Open Work Order"_s;
const QString OverDue = u"Over Due Service"_s;

/// What a link of the report tree opens, empty for a heading.
QString openingNameOf(const QString &link)
{
    const Opening *row = boardOpening(link);
    return row != nullptr ? QString::fromLatin1(row->name) : QString();
}

grid::Style headingStyle()
{
    return {.foreground = theme::mainColor(), .bold = true};
}

struct ShortcutText
{
    const char *caption;
    const char *icon;
    const char *purpose;
};

constexpr ShortcutText Shortcuts[] = {
    {"Print Work Orders ", "print", "What is due, and the orders to print"},
    {"Record Work Order", "complete", "Enter the work that was done, and post it"},
    {"Equipment Reading", "reading", "Enter the meter readings that are missing"},
    {"Add New Part", "part", "Enter a new part"},
    {"Inventory CheckIn", "check-in", "Receive parts into stock"},
    {"Assign Crew", "crew", "Give a machine to another crew"},
};

} // namespace

frmOverDueWork::frmOverDueWork(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"frmOverDueWork"_s);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(10);
    auto *heading = new QHBoxLayout;
    lblToday = new QLabel(this);
    lblToday->setObjectName(u"lblToday"_s);
    theme::setOwnLook(lblToday, theme::font(13, true));
    lblSummary = new QLabel(this);
    lblSummary->setObjectName(u"lblSummary"_s);
    theme::setOwnLook(lblSummary, theme::font(10));
    heading->addWidget(lblToday);
    heading->addStretch();
    heading->addWidget(lblSummary);
    column->addLayout(heading);
    buildShortcuts(column);
    auto *panels = new QHBoxLayout;
    panels->setSpacing(12);
    buildBoard(panels);
    buildReports(panels);
    column->addLayout(panels, 1);
    ShowReports();
    LoadData();
}

void frmOverDueWork::buildShortcuts(QBoxLayout *column)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    for (int index = 0; const ShortcutText &text : Shortcuts) {
        auto *button = new QToolButton(this);
        button->setObjectName(u"cmdToolbar%1"_s.arg(index));
        button->setText(QString::fromLatin1(text.caption));
        button->setAccessibleName(QString::fromLatin1(text.caption).trimmed());
        button->setToolTip(QString::fromLatin1(text.purpose));
        button->setIcon(theme::icon(QString::fromLatin1(text.icon)));
        button->setIconSize({28, 28});
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setMinimumHeight(62);
        button->setFocusPolicy(Qt::StrongFocus);
        connect(button, &QToolButton::clicked, this, [this, index] {
            base::trapped(Module, "cmdToolbar_Click", [&] { cmdToolbar_Click(index); });
        });
        cmdToolbar[index++] = button;
        row->addWidget(button, 1);
    }
    // The search is another folder's screen, which may not have joined.
    cmdToolbar[AssignCrew]->setEnabled(static_cast<bool>(screenCalls().ShowQuickFind));
    column->addLayout(row);
}

void frmOverDueWork::buildBoard(QBoxLayout *row)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(6);
    lblBoard = new QLabel(u"Work to be done"_s, this);
    lblBoard->setObjectName(u"lblBoard"_s);
    theme::setOwnLook(lblBoard, theme::font(10, true));
    lblBoard->setFixedHeight(HeadingHeight);
    column->addWidget(lblBoard);
    grdEquipWithSer = makeListGrid(
        this, u"grdEquipWithSer"_s, u"Work to be done"_s,
        {{.name = u"Unit No"_s, .width = 330, .editor = grid::Editor::Link},
         {.name = u"WorkOrderNo"_s, .visible = false, .kind = sql::ColumnKind::Integer},
         {.name = u"W/O"_s,
          .width = 80,
          .align = grid::Align::Center,
          .kind = sql::ColumnKind::Integer},
         {.name = u"Due Since"_s,
          .width = 100,
          .align = grid::Align::Center,
          .format = u"mm/dd/yyyy"_s,
          .kind = sql::ColumnKind::Date},
         {.name = u"Count"_s,
          .caption = u"Services"_s,
          .width = 70,
          .kind = sql::ColumnKind::Integer}});
    grid::GridModel &rows = grdEquipWithSer->rows();
    rows.setTreeColumn(u"Unit No");
    rows.styleRule = [this](int line, const QString &name) { return boardStyle(line, name); };
    connect(grdEquipWithSer, &grid::GridView::linkClicked, this,
            &frmOverDueWork::grdEquipWithSer_HyperLinkClick);
    // Enter follows the link for those who work without a mouse.
    connect(grdEquipWithSer, &grid::GridView::rowActivated, this,
            &frmOverDueWork::grdEquipWithSer_HyperLinkClick);
    // Its width decides how much is left for the names.
    grdEquipWithSer->viewport()->installEventFilter(this);
    column->addWidget(grdEquipWithSer, 1);
    row->addLayout(column, 1);
}

void frmOverDueWork::buildReports(QBoxLayout *row)
{
    picReports = new QWidget(this);
    picReports->setObjectName(u"picReports"_s);
    auto *column = new QVBoxLayout(picReports);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto *heading = new QHBoxLayout;
    lblReports = new input::LinkLabel(u"Reports"_s, picReports);
    lblReports->setObjectName(u"lblReports"_s);
    theme::setOwnLook(lblReports, theme::font(10, true));
    lblReports->setToolTip(u"Show or hide the reports"_s);
    imgClose = new QToolButton(picReports);
    imgClose->setObjectName(u"imgClose"_s);
    imgClose->setAccessibleName(u"Show or hide the reports"_s);
    imgClose->setAutoRaise(true);
    imgClose->setFixedHeight(HeadingHeight);
    heading->addWidget(lblReports);
    heading->addStretch();
    heading->addWidget(imgClose);
    column->addLayout(heading);
    grdReport = makeListGrid(picReports, u"grdReport"_s, u"Reports"_s,
                             {{.name = u"ReportName"_s,
                               .caption = u"Report"_s,
                               .width = ReportsWidth - 30,
                               .editor = grid::Editor::Link}});
    grdReport->header()->setStretchLastSection(true);
    grdReport->rows().setTreeColumn(u"ReportName");
    grdReport->rows().styleRule = [this](int line, const QString &) { return reportStyle(line); };
    connect(grdReport, &grid::GridView::linkClicked, this,
            &frmOverDueWork::grdReport_HyperLinkClick);
    column->addWidget(grdReport, 1);
    column->addStretch();
    row->addWidget(picReports);
    const auto toggle = [this] { LoadUnloadReportsNavigator(!reportsVisible()); };
    connect(lblReports, &input::LinkLabel::clicked, this, toggle);
    connect(imgClose, &QToolButton::clicked, this, toggle);
    LoadUnloadReportsNavigator(true);
}

grid::Style frmOverDueWork::boardStyle(int row, const QString &column) const
{
    const grid::GridModel &rows = grdEquipWithSer->rows();
    if (rows.parentRow(row) < 0)
        return headingStyle();
    // Only the date is coloured: a whole red row could not be read beside the links.
    if (column.compare(u"Due Since", Qt::CaseInsensitive) != 0)
        return {};
    return m_lateness.of(rows.value(row, u"Due Since").toDateTime().date());
}

grid::Style frmOverDueWork::reportStyle(int row) const
{
    const grid::GridModel &rows = grdReport->rows();
    if (rows.parentRow(row) < 0)
        return headingStyle();
    // Greyed, not left out: the list of reports is the same for everybody.
    return openings().isJoined(openingNameOf(rows.text(row, u"ReportName")))
               ? grid::Style{}
               : grid::Style{.foreground = theme::disabledColor()};
}

void frmOverDueWork::ShowReports()
{
    grid::GridModel &rows = grdReport->rows();
    rows.clear();
    QString parent;
    int parentRow = -1;
    // The table lists them heading by heading, so that a new heading begins a new parent.
    for (const Opening *report : boardOpenings()) {
        if (const QString title = QString::fromLatin1(report->boardParent); title != parent) {
            parent = title;
            parentRow = rows.insertRow({{u"ReportName"_s, title}});
        }
        rows.insertRow({{u"ReportName"_s, QString::fromLatin1(report->boardCaption)}}, parentRow);
    }
    for (int row = 0; row < rows.rowCount(); ++row) {
        if (rows.parentRow(row) < 0)
            // Collapsed at first: with all reports in view the other headings would be out of it.
            grdReport->setRowExpanded(row, false);
    }
}

void frmOverDueWork::LoadData()
{
    base::trapped(Module, "LoadData", [this] {
        // Read with each loading, since the options may have been changed in between.
        m_lateness = LatenessStyle::current();
        const QList<board::Entry> entries = board::entries();
        const int open = static_cast<int>(std::ranges::count_if(
            entries, [](const board::Entry &entry) { return entry.WorkOrderNo != 0; }));
        const int due = static_cast<int>(entries.size()) - open;

        // Ahead of the clearing, which forgets what was expanded and selected.
        const BoardView former = boardView();
        grid::GridModel &rows = grdEquipWithSer->rows();
        rows.clear();
        const int openRow = rows.insertRow({{u"Unit No"_s, OpenOrders}, {u"Count"_s, open}});
        const int dueRow = rows.insertRow({{u"Unit No"_s, OverDue}, {u"Count"_s, due}});
        showEntries(entries, openRow, dueRow);
        grdEquipWithSer->setRowExpanded(openRow, former.openExpanded);
        grdEquipWithSer->setRowExpanded(dueRow, former.dueExpanded);
        selectEntry(former.current);

        // The program speaks one language, whatever the computer is set to.
        lblToday->setText(QLocale(QLocale::English, QLocale::UnitedStates)
                              .toString(base::today(), u"dddd, MMMM d, yyyy"_s));
        lblSummary->setText(u"Open work orders: %1     Machines overdue: %2"_s.arg(open).arg(due));
    });
}

QString frmOverDueWork::keyOf(int row) const
{
    const grid::GridModel &rows = grdEquipWithSer->rows();
    // Both, since a machine may stand under each of the two headings.
    return rows.text(row, u"Unit No") + u'\n' + rows.text(row, u"WorkOrderNo");
}

frmOverDueWork::BoardView frmOverDueWork::boardView() const
{
    const grid::GridModel &rows = grdEquipWithSer->rows();
    // The first loading: both headings are expanded, nothing is selected.
    if (rows.rowCount() == 0)
        return {};
    const auto isExpanded = [&](const QString &parent) {
        const int row = rows.findRow(u"Unit No", parent);
        return row < 0 || grdEquipWithSer->isRowExpanded(row);
    };
    const int current = grdEquipWithSer->currentRow();
    return {isExpanded(OpenOrders), isExpanded(OverDue), current >= 0 ? keyOf(current) : QString()};
}

void frmOverDueWork::showEntries(const QList<board::Entry> &entries, int openRow, int dueRow)
{
    grid::GridModel &rows = grdEquipWithSer->rows();
    // A signal for each row would lay the view out as often as there are machines.
    const grid::GridModel::Filling filling(rows);
    for (const board::Entry &entry : entries) {
        const bool ordered = entry.WorkOrderNo != 0;
        const QVariant number = ordered ? QVariant(entry.WorkOrderNo) : QVariant();
        const QVariant since =
            entry.since.isValid() ? QVariant(base::wallClock(entry.since)) : QVariant();
        rows.insertRow({{u"Unit No"_s, entry.text},
                        {u"WorkOrderNo"_s, number},
                        {u"W/O"_s, number},
                        {u"Due Since"_s, since},
                        {u"Count"_s, entry.services}},
                       ordered ? openRow : dueRow);
    }
}

void frmOverDueWork::selectEntry(const QString &key)
{
    for (int row = 0; row < grdEquipWithSer->rows().rowCount() && !key.isEmpty(); ++row) {
        if (keyOf(row) == key)
            return grdEquipWithSer->selectRow(row);
    }
}

void frmOverDueWork::LoadUnloadReportsNavigator(bool show)
{
    grdReport->setVisible(show);
    imgClose->setIcon(theme::icon(show ? u"minus"_s : u"plus"_s));
    imgClose->setToolTip(show ? u"Hide the reports"_s : u"Show the reports"_s);
    if (show)
        picReports->setFixedWidth(ReportsWidth);
    else
        // Only the heading is left, by which the reports come back; the board gets the room.
        picReports->setFixedWidth(picReports->layout()->sizeHint().width());
}

bool frmOverDueWork::reportsVisible() const
{
    return !grdReport->isHidden();
}

void frmOverDueWork::cmdToolbar_Click(int index)
{
    switch (index) {
    case PrintOrders:
        return ShowPrintWorkorder();
    case RecordOrders:
        return ShowCompleteWorkorder();
    case Reading:
        // By its name, as the menu does, since it needs a right that the table of openings knows.
        openings().open(u"frmEquipmentReading");
        return;
    case NewPart:
        showPartDetail(Mode::Add, u"0"_s);
        return;
    case CheckIn:
        return ShowInventoryCheckIn();
    case AssignCrew: {
        const QString machine = screenCalls().ShowQuickFind({.field = u"UnitNo"_s,
                                                             .label = u"Unit No"_s,
                                                             .table = u"tblEquipment"_s,
                                                             .form = u"frmEquipment"_s});
        if (!machine.trimmed().isEmpty())
            (void)ShowAssignCrewForm(machine.toLongLong());
        return;
    }
    default:
        return;
    }
}

void frmOverDueWork::grdEquipWithSer_HyperLinkClick(int row)
{
    base::trapped(Module, "grdEquipWithSer_HyperLinkClick", [&] {
        const grid::GridModel &rows = grdEquipWithSer->rows();
        if (rows.parentRow(row) < 0)
            return;
        const qint64 order = rows.value(row, u"WorkOrderNo").toLongLong();
        if (order != 0)
            return ShowCompleteWorkorder(order);
        // The screen opens on the window of its options. With the last one of its own the machine
        // that was followed might not be in the list.
        SetOption(u"WoDateFrom"_s, base::monthFirst(base::today().addDays(-BoardDays)), true);
        SetOption(u"WodateTo"_s, base::monthFirst(base::today()), true);
        ShowPrintWorkorder(board::unitNumberOf(rows.text(row, u"Unit No")));
    });
}

void frmOverDueWork::grdReport_HyperLinkClick(int row)
{
    base::trapped(Module, "grdReport_HyperLinkClick", [&] {
        openings().open(openingNameOf(grdReport->rows().text(row, u"ReportName")));
    });
}

bool frmOverDueWork::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grdEquipWithSer->viewport() && event->type() == QEvent::Resize)
        fillWidth();
    return QWidget::eventFilter(watched, event);
}

/// Gives the names the width that the other columns leave.
void frmOverDueWork::fillWidth()
{
    grid::GridModel &rows = grdEquipWithSer->rows();
    int others = 0;
    for (int index = 0; index < rows.columnCount(); ++index) {
        const grid::Column &column = rows.columnAt(index);
        if (column.visible && index != rows.treeColumn())
            others += column.width;
    }
    constexpr int narrowest = 200;
    grid::Column &names = rows.column(u"Unit No");
    const int width = qMax(narrowest, grdEquipWithSer->viewport()->width() - others);
    // Telling the columns anew resizes the view, which comes back here.
    if (names.width == width)
        return;
    names.width = width;
    rows.columnsChanged();
}

void frmOverDueWork::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), theme::formColor());
}
