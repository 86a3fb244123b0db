#include "reporting/ui/NewReportWizard.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "platform/report/render/PagePainter.h"
#include "reporting/FirstRows.h"
#include "reporting/ui/BusyPointer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace {

enum Step { TableStep, ColumnsStep, GroupsStep, LooksStep };
const QStringList StepTitles{u"Step 1 of 4: What is the report about?"_s,
                             u"Step 2 of 4: Which columns does it show?"_s,
                             u"Step 3 of 4: Groups and totals"_s, u"Step 4 of 4: Looks"_s};
constexpr int MostGroups = 3;
constexpr int LargestPage = 470;
constexpr int AroundPage = 190; ///< what the window needs besides the picture of a page
constexpr int ComboWidth = 240;
constexpr int LineGap = 2; ///< above and below a line of a list, in pixels

/// The first page on the first rows, as large as fits into the room.
QPixmap firstPagePicture(const report::Layout &layout, QSize room, qreal ratio)
{
    report::RecordsetSource rows(ownreports::firstRows(layout));
    report::Inputs inputs;
    inputs.now = base::now();
    // Groups are told by rows that follow each other, so the order comes before the page.
    rows.sortFor(layout, inputs);
    const report::Page page = report::firstPage(layout, rows, inputs);
    const QSize sheet(layout.page.width(), layout.page.height());
    const QSize size = sheet.scaled(room * ratio, Qt::KeepAspectRatio);
    QPixmap picture(size);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = static_cast<double>(size.width()) / sheet.width();
    painter.scale(scale, scale);
    report::PagePainter().paint(page, painter);
    // Drawn in the screen's own points, so that small letters stay readable at 150 %.
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void addTickable(QListWidget *list, const QString &text, const QVariant &data, bool isTicked)
{
    auto *item = new QListWidgetItem(text, list);
    item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setCheckState(isTicked ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::UserRole, data);
}

} // namespace

NewReportWizard::NewReportWizard(QList<reporttables::Table> tables, QWidget *parent)
    : Screen(u"frmNewReportWizard"_s, u"New Report"_s, parent, StoreWhat::SizeOnly)
    , m_tables(std::move(tables))
{
    buildForm();
    goTo(TableStep);
}

void NewReportWizard::buildForm()
{
    input::FormBuilder form(this);
    lblStep = form.note({}, u"lblStep"_s);
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(tablePage());
    m_pages->addWidget(columnsPage());
    m_pages->addWidget(groupsPage());
    m_pages->addWidget(looksPage());
    form.widget(m_pages, true);
    cmdBack = form.button(u"cmdBack"_s, u"&Back"_s, theme::icon(u"previous"_s));
    cmdNext = form.button(u"cmdNext"_s, u"&Next"_s, theme::icon(u"next"_s));
    cmdFinish = form.button(u"cmdFinish"_s, u"&Finish"_s, theme::icon(u"complete"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    resize(880, 620);
    connect(cmdBack, &QPushButton::clicked, this, [this] { goTo(m_pages->currentIndex() - 1); });
    connect(cmdNext, &QPushButton::clicked, this, [this] { goTo(m_pages->currentIndex() + 1); });
    connect(cmdFinish, &QPushButton::clicked, this, &NewReportWizard::cmdFinish_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &NewReportWizard::reject);
}

QWidget *NewReportWizard::tablePage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    lstTables = new QListWidget(page);
    lstTables->setObjectName(u"lstTables"_s);
    lstTables->setAccessibleName(u"Tables"_s);
    for (const reporttables::Table &table : std::as_const(m_tables)) {
        auto *item = new QListWidgetItem(table.caption, lstTables);
        item->setData(Qt::UserRole, table.name);
    }
    lstTables->setSpacing(LineGap);
    form.widget(lstTables, true);
    txtTitle = form.textField(u"txtTitle"_s, u"&Title"_s, 80);
    form.finish();
    // Something is always chosen: no step has to ask what the report is about.
    lstTables->setCurrentRow(0);
    connect(lstTables, &QListWidget::itemActivated, this, [this] { goTo(ColumnsStep); });
    return page;
}

QWidget *NewReportWizard::columnsPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.note(u"Tick the columns. They stand in this order from left to right."_s);
    lstColumns = new QListWidget(page);
    lstColumns->setObjectName(u"lstColumns"_s);
    lstColumns->setAccessibleName(u"Columns"_s);
    lstColumns->setSpacing(LineGap);
    form.widget(lstColumns, true);
    form.beginRow();
    auto *up = form.inlineButton(u"cmdUp"_s, u"Move &Up"_s);
    auto *down = form.inlineButton(u"cmdDown"_s, u"Move &Down"_s);
    form.endRow();
    form.finish();
    connect(up, &QPushButton::clicked, this, [this] { moveColumn(-1); });
    connect(down, &QPushButton::clicked, this, [this] { moveColumn(1); });
    return page;
}

QWidget *NewReportWizard::groupsPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    const QStringList labels{u"&Group by"_s, u"&then by"_s, u"and t&hen by"_s};
    for (int number = 0; number < MostGroups; ++number) {
        auto *combo = new QComboBox(page);
        combo->setObjectName(u"cboGroup%1"_s.arg(number + 1));
        combo->setMinimumWidth(ComboWidth);
        form.field(labels[number], combo);
        m_groups.append(combo);
    }
    form.note(u"Add up, for each group and for the whole report:"_s);
    lstTotals = new QListWidget(page);
    lstTotals->setObjectName(u"lstTotals"_s);
    lstTotals->setAccessibleName(u"Totals"_s);
    lstTotals->setSpacing(LineGap);
    form.widget(lstTotals, true);
    chkCounts = form.checkBox(u"chkCounts"_s, u"Count the &rows too"_s);
    form.finish();
    chkCounts->setChecked(true);
    return page;
}

QWidget *NewReportWizard::looksPage()
{
    auto *page = new QWidget(this);
    input::FormBuilder form(page);
    form.beginColumns();
    const auto combo = [&](const QString &name, const QString &label, const QStringList &items) {
        auto *made = new QComboBox(page);
        made->setObjectName(name);
        made->addItems(items);
        made->setMinimumWidth(ComboWidth / 2);
        form.field(label, made);
        connect(made, &QComboBox::activated, this, &NewReportWizard::showPage);
        return made;
    };
    cboChart = combo(u"cboChart"_s, u"C&hart"_s, {u"None"_s, u"Bars"_s, u"Line"_s});
    QStringList looks;
    for (const report::Look &look : report::looks())
        looks.append(look.name);
    cboLook = combo(u"cboLook"_s, u"&Style"_s, looks);
    cboPaper = combo(u"cboPaper"_s, u"&Paper"_s, report::PageSetup::papers());
    chkLandscape = form.checkBox(u"chkLandscape"_s, u"&Landscape"_s);
    connect(chkLandscape, &QCheckBox::clicked, this, &NewReportWizard::showPage);
    form.stretch();
    form.nextColumn(2);
    lblPage = form.note({}, u"lblPage"_s);
    form.stretch();
    form.endColumns();
    form.finish();
    // The window must fit on a low screen with the picture in it.
    const int room = qMin(LargestPage, screen()->availableGeometry().height() - AroundPage);
    lblPage->setMinimumSize(room * 11 / 10, room);
    lblPage->setAlignment(Qt::AlignCenter);
    lblPage->setAccessibleName(u"First page"_s);
    return page;
}

std::optional<report::Layout> NewReportWizard::ask()
{
    showModal();
    return m_made;
}

void NewReportWizard::goTo(int step)
{
    takeTable();
    if (step == GroupsStep)
        showTotals();
    if (step == LooksStep) {
        const QString problem = newreport::problemOf(choice());
        if (!problem.isEmpty()) {
            base::showMessage(problem);
            return;
        }
        chkLandscape->setChecked(newreport::isWide(choice()));
        showPage();
    }
    lblStep->setText(StepTitles[step]);
    m_pages->setCurrentIndex(step);
    EnableControls();
    // Each step begins at what it asks, so that Enter and the arrow keys work at once.
    QWidget *const first[] = {lstTables, lstColumns, m_groups.first(), cboChart};
    first[step]->setFocus();
}

void NewReportWizard::EnableControls()
{
    const int step = m_pages->currentIndex();
    cmdBack->setEnabled(step > TableStep);
    cmdNext->setEnabled(step < LooksStep);
    cmdFinish->setEnabled(step > TableStep);
    (step < LooksStep ? cmdNext : cmdFinish)->setDefault(true);
}

/// Another table brings other columns; the same one keeps what was ticked.
void NewReportWizard::takeTable()
{
    const QListWidgetItem *chosen = lstTables->currentItem();
    const QString table = chosen ? chosen->data(Qt::UserRole).toString() : QString();
    if (table == m_table)
        return;
    m_table = table;
    m_fields = newreport::fieldsOf(table, m_tables);
    const QList<newreport::Field> usual = newreport::usualFields(m_fields);
    lstColumns->clear();
    for (QComboBox *combo : std::as_const(m_groups)) {
        combo->clear();
        combo->addItem(u"(nothing)"_s, -1);
    }
    for (int number = 0; number < m_fields.size(); ++number) {
        const newreport::Field &field = m_fields[number];
        const bool isUsual = std::ranges::any_of(
            usual, [&](const newreport::Field &each) { return each.isSame(field); });
        addTickable(lstColumns, field.caption, number, isUsual);
        for (QComboBox *combo : std::as_const(m_groups))
            combo->addItem(field.caption, number);
    }
    lstColumns->setCurrentRow(0);
    lstTotals->clear();
}

/// What can be added up: also what is no column yet, it becomes one then.
void NewReportWizard::showTotals()
{
    // Filled already: what the user has ticked stays when he comes back to this step.
    if (lstTotals->count() > 0)
        return;
    for (int number = 0; number < m_fields.size(); ++number)
        if (m_fields[number].canTotal())
            addTickable(lstTotals, m_fields[number].caption, number, false);
}

void NewReportWizard::moveColumn(int by)
{
    const int row = lstColumns->currentRow();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= lstColumns->count())
        return;
    lstColumns->insertItem(to, lstColumns->takeItem(row));
    lstColumns->setCurrentRow(to);
}

QList<newreport::Field> NewReportWizard::ticked(const QListWidget *list) const
{
    QList<newreport::Field> fields;
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->checkState() == Qt::Checked)
            fields.append(m_fields[list->item(row)->data(Qt::UserRole).toInt()]);
    return fields;
}

newreport::Choice NewReportWizard::choice() const
{
    newreport::Choice choice;
    choice.title = txtTitle->text();
    choice.table = m_table;
    choice.columns = ticked(lstColumns);
    choice.totals = ticked(lstTotals);
    for (const QComboBox *combo : m_groups) {
        const int number = combo->currentData().toInt();
        if (number < 0)
            continue;
        const newreport::Field &field = m_fields[number];
        // The same field twice would make a group of the rows of a group.
        const bool isThere = std::ranges::any_of(
            choice.groups, [&](const newreport::Field &each) { return each.isSame(field); });
        if (!isThere)
            choice.groups.append(field);
    }
    choice.counts = chkCounts->isChecked();
    choice.chart = static_cast<newreport::ChartKind>(cboChart->currentIndex());
    choice.look = cboLook->currentText();
    choice.paper = cboPaper->currentText();
    choice.landscape = chkLandscape->isChecked();
    return choice;
}

void NewReportWizard::showPage()
{
    try {
        const BusyPointer busy;
        lblPage->setPixmap(firstPagePicture(newreport::make(choice(), m_tables),
                                            lblPage->minimumSize(), devicePixelRatioF()));
    } catch (const base::Error &error) {
        // The report can be made all the same; the reason stands where the page would.
        lblPage->setText(error.description());
    }
}

void NewReportWizard::cmdFinish_Click()
{
    takeTable();
    const QString problem = newreport::problemOf(choice());
    if (!problem.isEmpty()) {
        base::showMessage(problem);
        return;
    }
    // Who finishes early gets the page that suits the columns.
    if (m_pages->currentIndex() < LooksStep)
        chkLandscape->setChecked(newreport::isWide(choice()));
    m_made = newreport::make(choice(), m_tables);
    unload();
}
