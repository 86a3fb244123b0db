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
#include <QTabWidget>
#include <algorithm>

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

} // namespace

frmReportQuery::frmReportQuery(const report::Layout &layout, ownreports::Kind kind,
                               const QList<reporttables::Table> &tables, QWidget *parent)
    : Screen(u"frmReportQuery"_s, u"Data of the Report"_s, parent, StoreWhat::SizeOnly)
    , m_layout(layout)
    , m_kind(kind)
    , m_tables(tables)
{
    buildForm();
    showParameters();
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
    m_parametersPage = new QWidget(tabQuery);
    input::FormBuilder form(m_parametersPage);
    form.note(u"What the report asks for before it is shown. The query and the expressions read "
              "the answer by its name, ?Name in the query."_s);
    grdParameters = makeListGrid(m_parametersPage, u"grdParameters"_s, u"Parameters"_s,
                                 {{.name = u"Name"_s, .width = 130, .editable = true},
                                  {.name = u"Type"_s,
                                   .width = 90,
                                   .editable = true,
                                   .editor = grid::Editor::DropDown,
                                   .choices = types()},
                                  {.name = u"Question"_s, .width = 220, .editable = true},
                                  {.name = u"Default"_s, .width = 130, .editable = true},
                                  {.name = u"List (a query)"_s, .width = 330, .editable = true},
                                  {.name = u"May stay empty"_s,
                                   .width = 110,
                                   .editable = true,
                                   .editor = grid::Editor::Check}});
    form.widget(grdParameters, true);
    form.beginRow();
    auto *add = form.inlineButton(u"cmdAddParameter"_s, u"&Add Parameter"_s);
    auto *remove = form.inlineButton(u"cmdRemoveParameter"_s, u"&Remove"_s);
    form.endRow();
    form.finish();
    tabQuery->addTab(m_parametersPage, u"P&arameters"_s);
    connect(add, &QPushButton::clicked, this, [this] {
        grdParameters->selectRow(grdParameters->rows().insertRow(
            {{u"Type"_s, static_cast<int>(report::ParameterType::Text)},
             {u"May stay empty"_s, false}}));
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        if (grdParameters->currentRow() >= 0)
            grdParameters->rows().removeRow(grdParameters->currentRow());
    });
}

void frmReportQuery::showParameters()
{
    for (const report::Parameter &parameter : std::as_const(m_layout.parameters))
        grdParameters->rows().insertRow({{u"Name"_s, parameter.name},
                                         {u"Type"_s, static_cast<int>(parameter.type)},
                                         {u"Question"_s, parameter.prompt},
                                         {u"Default"_s, parameter.usual},
                                         {u"List (a query)"_s, parameter.list},
                                         {u"May stay empty"_s, parameter.isOptional}});
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
            tabQuery->setCurrentIndex(PickTab);
            base::showMessage(problem);
            return;
        }
        txtQuery->setPlainText(query.sources.isEmpty() ? QString()
                                                       : reportquery::textOf(query, m_tables));
        m_isText = true;
    } else if (tab == PickTab && m_isText) {
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

std::optional<QList<report::Parameter>> frmReportQuery::enteredParameters()
{
    QList<report::Parameter> parameters;
    const grid::GridModel &rows = grdParameters->rows();
    for (int row = 0; row < grdParameters->displayedOrder().size(); ++row) {
        const auto text = [&](QStringView column) {
            return base::toText(rows.value(row, column)).trimmed();
        };
        report::Parameter parameter;
        parameter.name = text(u"Name");
        parameter.type = static_cast<report::ParameterType>(rows.value(row, u"Type").toInt());
        parameter.prompt = text(u"Question");
        parameter.usual = text(u"Default");
        parameter.list = text(u"List (a query)");
        parameter.isOptional = rows.value(row, u"May stay empty").toBool();
        const bool isTwice = std::ranges::any_of(parameters, [&](const report::Parameter &other) {
            return other.name.compare(parameter.name, Qt::CaseInsensitive) == 0;
        });
        if (parameter.name.isEmpty() || isTwice) {
            base::showMessage(u"Each parameter needs a name of its own."_s);
            tabQuery->setCurrentWidget(m_parametersPage);
            grdParameters->selectCell(row, u"Name");
            return std::nullopt;
        }
        parameters.append(parameter);
    }
    return parameters;
}

std::optional<report::Layout> frmReportQuery::entered()
{
    if (!grdParameters->finishEditing())
        return std::nullopt;
    const std::optional<QList<report::Parameter>> parameters = enteredParameters();
    if (!parameters)
        return std::nullopt;
    const std::optional<QString> query = enteredQuery();
    if (!query)
        return std::nullopt;
    report::Layout layout = m_layout;
    layout.parameters = *parameters;
    layout.query = *query;
    return layout;
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
        if (m_kind == ownreports::Kind::NewReport && !cmdShowRows_Click())
            return;
        for (const report::Parameter &parameter : layout->parameters)
            if (!parameter.list.isEmpty()) {
                try {
                    report::Layout list;
                    list.query = parameter.list;
                    static_cast<void>(ownreports::firstRows(list, 1));
                } catch (const base::Error &error) {
                    base::showMessage(u"The list of \"%1\" can't be read.\n%2"_s.arg(
                        parameter.name, error.description()));
                    return;
                }
            }
        m_layout = *layout;
        m_isTaken = true;
        unload();
    });
}
