#include "reporting/ui/frmReportQuery.h"

#include "core/ui/ListGrid.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "reporting/FirstRows.h"
#include "reporting/ReportQuery.h"
#include "reporting/ui/BusyPointer.h"
#include "reporting/ui/QueryPicker.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "frmReportQuery";
constexpr int PickTab = 0;
constexpr int TextTab = 1;
constexpr int LeastRowsHeight = 110;
constexpr int MostRowsHeight = 220;

const QList<grid::Choice> &types()
{
    using enum report::ParameterType;
    static const QList<grid::Choice> all{{static_cast<int>(Text), u"Text"_s},
                                         {static_cast<int>(Number), u"Number"_s},
                                         {static_cast<int>(Date), u"Date"_s},
                                         {static_cast<int>(YesNo), u"Yes or No"_s}};
    return all;
}

// The columns of the two lists.
const QString Name = u"Name"_s;
const QString Type = u"Type"_s;
const QString Question = u"Question"_s;
const QString Default = u"Default"_s;
const QString List = u"List (a query)"_s;
const QString MayBeEmpty = u"May stay empty"_s;
const QString Query = u"Query"_s;
const QString Key = u"Their key"_s;
const QString BelongsTo = u"Belongs to the row with"_s;

QString textAt(const grid::GridModel &rows, int row, const QString &column)
{
    return base::toText(rows.value(row, column)).trimmed();
}

} // namespace

frmReportQuery::frmReportQuery(const report::Layout &layout, ownreports::Kind kind,
                               const QList<reporttables::Table> &tables, QWidget *parent)
    : Screen(u"frmReportQuery"_s, u"Data of the Report"_s, parent, StoreWhat::SizeOnly)
    , m_layout(layout)
    , m_kind(kind)
    , m_tables(tables)
{
    buildForm();
    showEntries();
}

void frmReportQuery::buildForm()
{
    input::FormBuilder form(this);
    tabQuery = new QTabWidget(this);
    tabQuery->setObjectName(u"tabQuery"_s);
    form.widget(tabQuery, true);
    const bool isOwn = m_kind == ownreports::Kind::NewReport;
    if (isOwn)
        buildQueryTabs();
    buildParameters();
    buildRowSets();
    if (isOwn) {
        lblRows = form.note(u"The first %1 rows"_s.arg(ownreports::SampleRows), u"lblRows"_s);
        grdRows = makeListGrid(this, u"grdRows"_s, u"First rows"_s, {});
        grdRows->setMinimumHeight(LeastRowsHeight);
        grdRows->setMaximumHeight(MostRowsHeight);
        form.widget(grdRows);
        cmdShowRows = form.leftButton(u"cmdShowRows"_s, u"&Show Rows"_s, theme::icon(u"preview"_s));
        connect(cmdShowRows, &QPushButton::clicked, this, &frmReportQuery::cmdShowRows_Click);
    } else {
        form.note(u"The rows of this report come from the program."_s);
    }
    cmdTake = form.button(u"cmdTake"_s, u"O&K"_s, theme::icon(u"complete"_s));
    cmdCancel = form.button(u"cmdCancel"_s, u"&Cancel"_s, theme::icon(u"cancel"_s));
    form.finish();
    resize(1180, 680);
    connect(cmdTake, &QPushButton::clicked, this, &frmReportQuery::cmdTake_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmReportQuery::reject);
}

void frmReportQuery::buildQueryTabs()
{
    m_picker = new QueryPicker(m_tables, tabQuery);
    tabQuery->addTab(m_picker, u"&Pick"_s);
    txtQuery = new QPlainTextEdit(tabQuery);
    txtQuery->setObjectName(u"txtQuery"_s);
    txtQuery->setAccessibleName(u"Query as text"_s);
    txtQuery->setTabChangesFocus(true);
    tabQuery->addTab(txtQuery, u"Te&xt"_s);
    txtQuery->setPlainText(m_layout.query);
    const bool isEmpty = m_layout.query.trimmed().isEmpty();
    const auto picked = reportquery::read(m_layout.query, m_tables);
    if (isEmpty || picked)
        m_picker->setQuery(picked.value_or(reportquery::Query()));
    else
        tabQuery->setCurrentIndex(TextTab);
    m_isText = tabQuery->currentIndex() == TextTab;
    connect(tabQuery, &QTabWidget::currentChanged, this, &frmReportQuery::tabChanged);
}

void frmReportQuery::buildParameters()
{
    grdParameters = addEntryPage(
        u"P&arameters"_s,
        u"What the report asks for before it is shown. The query and the expressions read the "
        "answer by its name, ?Name in the query."_s,
        u"grdParameters"_s,
        {{.name = Name, .width = 130, .editable = true},
         {.name = Type,
          .width = 90,
          .editable = true,
          .editor = grid::Editor::DropDown,
          .choices = types()},
         {.name = Question, .width = 220, .editable = true},
         {.name = Default, .width = 130, .editable = true},
         {.name = List, .width = 330, .editable = true},
         {.name = MayBeEmpty, .width = 110, .editable = true, .editor = grid::Editor::Check}},
        {{Type, static_cast<int>(report::ParameterType::Text)}, {MayBeEmpty, false}});
}

void frmReportQuery::buildRowSets()
{
    grdRowSets = addEntryPage(
        u"&Further Rows"_s,
        u"Rows that are read beside those of the report, such as the parts of each machine. They "
        "are printed below the row to which their key belongs."_s,
        u"grdRowSets"_s,
        {{.name = Name, .width = 130, .editable = true},
         {.name = Query, .width = 520, .editable = true},
         {.name = Key, .width = 150, .editable = true},
         {.name = BelongsTo, .width = 200, .editable = true}},
        {});
}

grid::GridView *frmReportQuery::addEntryPage(const QString &title, const QString &note,
                                             const QString &gridName,
                                             const QList<grid::Column> &columns,
                                             const QVariantMap &newRow)
{
    auto *page = new QWidget(tabQuery);
    input::FormBuilder form(page);
    form.note(note);
    grid::GridView *entries = makeListGrid(page, gridName, input::plainCaption(title), columns);
    form.widget(entries, true);
    form.beginRow();
    auto *add = form.inlineButton(gridName + u"Add"_s, u"A&dd"_s);
    auto *remove = form.inlineButton(gridName + u"Remove"_s, u"&Remove"_s);
    form.endRow();
    form.finish();
    tabQuery->addTab(page, title);
    connect(add, &QPushButton::clicked, this,
            [entries, newRow] { entries->selectRow(entries->rows().insertRow(newRow)); });
    connect(remove, &QPushButton::clicked, this, [entries] {
        if (entries->currentRow() >= 0)
            entries->rows().removeRow(entries->currentRow());
    });
    return entries;
}

void frmReportQuery::showEntries()
{
    for (const report::Parameter &parameter : std::as_const(m_layout.parameters))
        grdParameters->rows().insertRow({{Name, parameter.name},
                                         {Type, static_cast<int>(parameter.type)},
                                         {Question, parameter.prompt},
                                         {Default, parameter.usual},
                                         {List, parameter.list},
                                         {MayBeEmpty, parameter.isOptional}});
    for (const report::RowSet &set : std::as_const(m_layout.rowSets))
        grdRowSets->rows().insertRow(
            {{Name, set.name}, {Query, set.query}, {Key, set.key}, {BelongsTo, set.of}});
}

std::optional<report::Layout> frmReportQuery::ask()
{
    showModal();
    return m_isTaken ? std::optional(m_layout) : std::nullopt;
}

/// Pick and text show the same query; what picking can't show stays text. The parameters beside
/// them leave the one of the two in force that was shown before.
void frmReportQuery::tabChanged(int tab)
{
    if (tab == TextTab && !m_isText) {
        const reportquery::Query query = m_picker->query();
        const QString problem =
            query.sources.isEmpty() ? QString() : reportquery::problemOf(query, m_tables);
        if (!problem.isEmpty()) {
            // Back ahead of the message: else the text would be on show behind it, empty.
            tabQuery->setCurrentIndex(PickTab);
            base::showMessage(problem);
            return;
        }
        txtQuery->setPlainText(query.sources.isEmpty() ? QString()
                                                       : reportquery::textOf(query, m_tables));
        m_isText = true;
    } else if (tab == PickTab && m_isText) {
        // Read again each time: what the user has written may have become something that can be
        // picked.
        const QString text = txtQuery->toPlainText().trimmed();
        const auto picked = reportquery::read(text, m_tables);
        if (picked || text.isEmpty()) {
            m_picker->setQuery(picked.value_or(reportquery::Query()));
            m_isText = false;
            return;
        }
        tabQuery->setCurrentIndex(TextTab);
        base::showMessage(u"This query can be changed as text only."_s);
    }
}

std::optional<QString> frmReportQuery::enteredQuery()
{
    if (m_kind == ownreports::Kind::DefaultReport)
        return m_layout.query;
    if (m_isText)
        return txtQuery->toPlainText().trimmed();
    const reportquery::Query query = m_picker->query();
    const QString problem = reportquery::problemOf(query, m_tables);
    if (problem.isEmpty())
        return reportquery::textOf(query, m_tables);
    base::showMessage(problem);
    return std::nullopt;
}

QList<report::Parameter> frmReportQuery::enteredParameters() const
{
    QList<report::Parameter> parameters;
    const grid::GridModel &rows = grdParameters->rows();
    // The order on the screen is the one in which the report asks.
    for (const int row : grdParameters->displayedOrder()) {
        report::Parameter parameter;
        parameter.name = textAt(rows, row, Name);
        parameter.type = static_cast<report::ParameterType>(rows.value(row, Type).toInt());
        parameter.prompt = textAt(rows, row, Question);
        parameter.usual = textAt(rows, row, Default);
        parameter.list = textAt(rows, row, List);
        parameter.isOptional = rows.value(row, MayBeEmpty).toBool();
        parameters.append(parameter);
    }
    return parameters;
}

QList<report::RowSet> frmReportQuery::enteredRowSets() const
{
    QList<report::RowSet> sets;
    const grid::GridModel &rows = grdRowSets->rows();
    for (const int row : grdRowSets->displayedOrder()) {
        report::RowSet set;
        set.name = textAt(rows, row, Name);
        set.query = textAt(rows, row, Query);
        set.key = textAt(rows, row, Key);
        set.of = textAt(rows, row, BelongsTo);
        sets.append(set);
    }
    return sets;
}

bool frmReportQuery::hasNames(grid::GridView *entries)
{
    QSet<QString> names;
    for (const int row : entries->displayedOrder()) {
        // Expressions read names in any case.
        const QString name = textAt(entries->rows(), row, Name).toLower();
        if (!name.isEmpty() && !names.contains(name)) {
            names.insert(name);
            continue;
        }
        tabQuery->setCurrentWidget(entries->parentWidget());
        entries->selectCell(row, Name);
        base::showMessage(u"Each line needs a name of its own."_s);
        return false;
    }
    return true;
}

std::optional<report::Layout> frmReportQuery::entered()
{
    if (!grdParameters->finishEditing() || !grdRowSets->finishEditing() ||
        !hasNames(grdParameters) || !hasNames(grdRowSets))
        return std::nullopt;
    const std::optional<QString> query = enteredQuery();
    if (!query)
        return std::nullopt;
    report::Layout layout = m_layout;
    layout.parameters = enteredParameters();
    layout.rowSets = enteredRowSets();
    layout.query = *query;
    return layout;
}

bool frmReportQuery::canRead(const report::Layout &layout) const
{
    QString what;
    try {
        for (const report::Parameter &parameter : layout.parameters) {
            what = u"The list of \"%1\" can't be read."_s.arg(parameter.name);
            // A list has no parameters to ask by: it is read before any question is.
            report::Layout list;
            list.query = parameter.list;
            if (!list.query.isEmpty())
                static_cast<void>(ownreports::firstRows(list, 1));
        }
        for (const report::RowSet &set : layout.rowSets) {
            what = u"The rows \"%1\" can't be read."_s.arg(set.name);
            // Further rows may ask by the report's parameters, so they are tried with them.
            report::Layout further = layout;
            further.query = set.query;
            if (ownreports::firstRows(further, 1).columnIndex(set.key) < 0)
                throw base::Error(base::ErrorNumber::NoSuchItem,
                                  u"They have no column \"%1\" as their key."_s.arg(set.key));
        }
        return true;
    } catch (const base::Error &error) {
        base::showMessage(what + u'\n' + error.description());
        return false;
    }
}

bool frmReportQuery::cmdShowRows_Click()
{
    const std::optional<report::Layout> layout = entered();
    if (!layout)
        return false;
    try {
        const BusyPointer busy;
        const db::Recordset rows = ownreports::firstRows(*layout);
        grdRows->rows().setRecordset(rows);
        const int found = rows.RecordCount();
        lblRows->setText(found == 0                       ? u"No rows"_s
                         : found < ownreports::SampleRows ? u"All %1 rows"_s.arg(found)
                                                          : u"The first %1 rows"_s.arg(found));
        return true;
    } catch (const base::Error &error) {
        base::showMessage(u"This query can't be run.\n%1"_s.arg(error.description()));
        return false;
    }
}

void frmReportQuery::cmdTake_Click()
{
    base::trapped(Module, "cmdTake_Click", [this] {
        const std::optional<report::Layout> layout = entered();
        if (!layout)
            return;
        // A report is never left with a query that can't be run.
        if (m_kind == ownreports::Kind::NewReport && !cmdShowRows_Click())
            return;
        if (!canRead(*layout))
            return;
        m_layout = *layout;
        m_isTaken = true;
        unload();
    });
}
