#include "reporting/ui/frmReportModify.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/ReadOnlyConnection.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/viewer/ParameterDialog.h"
#include "reporting/DesignFields.h"
#include "reporting/FirstRows.h"
#include "reporting/GuardedRunner.h"
#include "reporting/Preparation.h"
#include "reporting/QueryString.h"
#include "reporting/ReportDrafts.h"
#include "reporting/ReportFiles.h"
#include "reporting/ui/BusyPointer.h"
#include "reporting/ui/ExpressionDialog.h"
#include "reporting/ui/NewReportWizard.h"
#include "reporting/ui/ShowReport.h"
#include "reporting/ui/frmReportQuery.h"

#include <QFileInfo>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;
using ownreports::Kind;

namespace {

constexpr const char *Module = "Report Designer";
constexpr int DraftDelay = 3000; // milliseconds after a change

} // namespace

frmReportModify::frmReportModify(QWidget *parent)
    : Screen(u"frmReportModify"_s, u"Report Designer"_s, parent)
{
    buildForm();
    m_draft.setSingleShot(true);
    m_draft.setInterval(DraftDelay);
    connect(&m_draft, &QTimer::timeout, this, &frmReportModify::keepDraft);
}

void frmReportModify::buildForm()
{
    input::FormBuilder form(this);
    CRDesignerCtrl1 = new report::ReportDesigner(this);
    CRDesignerCtrl1->setObjectName(u"CRDesignerCtrl1"_s);
    form.widget(CRDesignerCtrl1, true);
    cmdWizard = form.leftButton(u"cmdWizard"_s, u"Report &Wizard..."_s, theme::icon(u"report"_s));
    cmdUpdate = form.button(u"cmdUpdate"_s, u"&Save"_s, theme::icon(u"save"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(1340, 704);

    connect(CRDesignerCtrl1, &report::ReportDesigner::layoutChanged, this,
            &frmReportModify::layoutChanged);
    connect(CRDesignerCtrl1, &report::ReportDesigner::modifiedChanged, this,
            &frmReportModify::showTitle);
    connect(cmdWizard, &QPushButton::clicked, this, &frmReportModify::cmdWizard_Click);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmReportModify::cmdUpdate_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmReportModify::reject);
    // Of the window: the sheet, the attributes and the tree all save by it.
    auto *save = new QShortcut(QKeySequence::Save, this);
    connect(save, &QShortcut::activated, this, &frmReportModify::cmdUpdate_Click);

    CRDesignerCtrl1->setRowsProvider(
        [this](const report::Layout &layout) { return rowsFor(layout); });
    CRDesignerCtrl1->setFieldAdder(
        [this](report::Layout &layout, const report::DesignField &field) {
            return addField(layout, field);
        });
    CRDesignerCtrl1->setQueryAsker([this](const report::Layout &layout, QWidget *parentWidget) {
        return frmReportQuery(layout, m_kind, m_tables, parentWidget).ask();
    });
    CRDesignerCtrl1->setExpressionAsker(
        [this](const report::ExpressionQuestion &question, QWidget *parentWidget) {
            return askExpression(question, CRDesignerCtrl1->layout(), sampleRows(), parentWidget);
        });
}

void frmReportModify::CreateNewReport()
{
    base::trapped(Module, "CreateNewReport", [this] {
        setMode(Mode::Add);
        m_kind = Kind::NewReport;
        m_path.clear();
        m_key.clear();
        // Nothing is known of a file: any that has the name by then belongs to somebody else.
        m_known.clear();
        open(report::emptyLayout());
        showModal();
    });
}

void frmReportModify::ShowReport(const QString &path, const QString &key)
{
    base::trapped(Module, "ShowReport", [&] {
        setMode(Mode::Modify);
        m_kind = ownreports::kindOf(path);
        m_key = key;
        // A delivered layout is read from its folder but saved beside it, as the customer's copy.
        m_path = ownreports::savePath(m_kind, QFileInfo(path).fileName());
        // Noted ahead of reading: what another workstation saves in between is asked about later
        // rather than lost.
        m_known = ownreports::versionOf(m_path);
        if (const std::optional<report::Layout> layout = layoutAt(path)) {
            open(*layout);
            showModal();
        }
    });
}

/// The layout in a file. A damaged copy of a delivered one gives way to that, if the user wants it.
std::optional<report::Layout> frmReportModify::layoutAt(const QString &path) const
{
    const QString name = QFileInfo(path).completeBaseName();
    QString failure;
    try {
        const BusyPointer busy;
        return reportfiles::readLayoutAt(path);
    } catch (const base::Error &error) {
        if (m_kind == Kind::NewReport || !reportfiles::isDelivered(name))
            throw;
        failure = error.description();
    }
    if (!base::askYesNo(failure + u"\n\nBegin with the layout that came with the program?"_s))
        return std::nullopt;
    return reportfiles::readDelivered(name);
}

void frmReportModify::open(const report::Layout &layout)
{
    m_tables = reporttables::tables();
    // Where the printed report looks for them too.
    CRDesignerCtrl1->setPictureFolder(
        ownreports::folderPath(m_kind == Kind::DefaultReport ? ownreports::Folder::Delivered
                                                             : ownreports::Folder::UserDefined));
    // The fields come below, once.
    m_shownQuery = layout.query;
    CRDesignerCtrl1->setLayout(layout);
    cmdWizard->setVisible(m_kind == Kind::NewReport);
    if (m_kind == Kind::NewReport)
        CRDesignerCtrl1->setEmptyHint(
            u"Drag what the report shows from the list \"Data\" to the band \"Detail\", or let "
            "the Report Wizard make a whole report of a few choices."_s);
    refreshFields();
    showTitle();
    offerDraft();
}

void frmReportModify::showTitle()
{
    const QString name = m_path.isEmpty() ? u"New Report"_s : QFileInfo(m_path).completeBaseName();
    setWindowTitle(
        u"Report Designer - %1%2"_s.arg(name, CRDesignerCtrl1->isModified() ? u" *"_s : QString()));
}

// The draft

QString frmReportModify::draftKey() const
{
    return m_path.isEmpty() ? u"new"_s : m_path;
}

void frmReportModify::offerDraft()
{
    const std::optional<drafts::Draft> draft = drafts::find(draftKey());
    // The work was saved after all, and only the draft was left behind.
    if (!draft || draft->layout == CRDesignerCtrl1->layout())
        return;
    if (!base::askYesNo(
            u"This report was being designed on %1 and was not saved. Go on with it?"_s.arg(
                draft->kept.toString(u"MM/dd/yyyy hh:mm AP"_s))))
        return;
    // What somebody has saved since is asked about when this is saved.
    m_known = draft->base;
    // As a change, so that the user can go back to what stands in the file.
    CRDesignerCtrl1->replaceLayout(u"Draft"_s, draft->layout);
}

void frmReportModify::keepDraft()
{
    if (CRDesignerCtrl1->isModified())
        drafts::keep(draftKey(), CRDesignerCtrl1->layout(), m_known);
}

// The data

/// Moves don't ask the database: the fields are read anew only when the query has changed.
void frmReportModify::layoutChanged()
{
    // Begins anew with each change: nothing is written in the middle of a drag.
    m_draft.start();
    if (CRDesignerCtrl1->layout().query != m_shownQuery)
        refreshFields();
}

/// Some rows to design on, none where they can't be read, which is told: a layout can be changed
/// without them too.
db::Recordset frmReportModify::sampleRows() const
{
    const report::Layout &layout = CRDesignerCtrl1->layout();
    try {
        const BusyPointer busy;
        if (m_kind == Kind::NewReport)
            return layout.query.isEmpty() ? db::Recordset() : ownreports::firstRows(layout);
        const QString query = previewQuery(m_key);
        return query.isEmpty()
                   ? db::Recordset()
                   : db::openReadOnly(*gcnData, ownreports::limited(query, ownreports::SampleRows));
    } catch (const base::Error &error) {
        base::showMessage(u"The report's rows can't be read.\n%1"_s.arg(error.description()));
        return {};
    }
}

void frmReportModify::refreshFields()
{
    m_shownQuery = CRDesignerCtrl1->layout().query;
    QList<report::DesignField> fields = designfields::ofRows(sampleRows(), m_tables);
    if (m_kind == Kind::NewReport)
        fields += designfields::ofTables(m_tables);
    CRDesignerCtrl1->setFields(fields);
}

bool frmReportModify::addField(report::Layout &layout, const report::DesignField &field)
{
    const QString problem = designfields::addTo(layout.query, field, m_tables);
    if (!problem.isEmpty())
        base::showMessage(problem);
    return problem.isEmpty();
}

std::optional<report::PreviewRows> frmReportModify::rowsFor(const report::Layout &layout) const
{
    if (m_kind == Kind::DefaultReport) {
        const QString query = previewQuery(m_key);
        if (query.isEmpty())
            throw base::Error(base::ErrorNumber::NoSuchItem,
                              u"The program has no report of the name \"%1\"."_s.arg(m_key));
        const std::optional<report::Answers> answers = askOwnParameters(layout);
        if (!answers)
            return std::nullopt;
        const BusyPointer busy;
        catalogue::Request asked{.layout = QFileInfo(m_key).completeBaseName()};
        asked.answers = *answers;
        catalogue::Prepared prepared =
            catalogue::prepare(asked, layout, db::openReadOnly(*gcnData, query));
        return report::PreviewRows{std::move(prepared.rows), std::move(prepared.inputs)};
    }
    if (layout.query.isEmpty())
        throw base::Error(
            base::ErrorNumber::InvalidCall,
            u"Please choose first which data the report shows: bring a field from the "
            "list of tables, or open the query."_s);
    ownreports::GuardedRunner runner(gcnData->target());
    const std::optional<report::Answers> answers =
        report::askParameters(layout, runner, base::now(), window());
    if (!answers)
        return std::nullopt;
    const BusyPointer busy;
    ownreports::OwnRows read = ownreports::readOwn(layout, *answers, runner);
    return report::PreviewRows{std::move(read.rows), std::move(read.inputs)};
}

void frmReportModify::cmdWizard_Click()
{
    if (CRDesignerCtrl1->isModified() &&
        !base::askYesNo(u"The wizard makes the whole report anew. Go on?"_s))
        return;
    if (const std::optional<report::Layout> made = NewReportWizard(m_tables, this).ask())
        CRDesignerCtrl1->replaceLayout(u"Wizard"_s, *made);
}

// Saving

QString frmReportModify::askedFileName() const
{
    // A report can't be saved without a name; leaving the question asks it again.
    for (;;) {
        const QString typed = base::prompts()
                                  .input(u"Please give a file name."_s, u"Quorvantis"_s, {})
                                  .value_or(QString());
        const QString file = ownreports::fileNameOf(typed);
        if (file.isEmpty())
            continue;
        const QString problem = ownreports::problemOf(typed);
        if (problem.isEmpty())
            return file;
        base::showMessage(problem);
    }
}

bool frmReportModify::mayReplace(ownreports::InPlace what) const
{
    if (what == ownreports::InPlace::ChangedMeanwhile || m_kind == Kind::DefaultReport)
        return base::askYesNo(u"Another workstation has saved this report since you opened it. "
                              "Replace what was saved there?"_s,
                              base::Prompts::Icon::Warning);
    return base::askYesNo(u"There is a report of this name already. Replace it?"_s,
                          base::Prompts::Icon::Warning);
}

bool frmReportModify::cmdUpdate_Click()
{
    return base::trapped(Module, "cmdUpdate_Click", false, [this] {
        CRDesignerCtrl1->finishEditing();
        // The draft of a new report stands under another key than the one it has once it is named.
        const QString former = draftKey();
        const bool needsName = mode() == Mode::Add && m_path.isEmpty();
        const QString path = needsName ? ownreports::savePath(m_kind, askedFileName()) : m_path;
        report::Layout layout = CRDesignerCtrl1->layout();
        const QString name = QFileInfo(path).completeBaseName();
        // In the copy that is saved alone; the design would count as changed.
        if (layout.name.isEmpty())
            layout.name = name;
        if (layout.title.isEmpty())
            layout.title = name;
        if (!ownreports::save(layout, path, m_known,
                              [this](ownreports::InPlace what) { return mayReplace(what); }))
            return false;
        m_path = path;
        m_key = QFileInfo(path).fileName();
        setMode(Mode::Modify);
        m_draft.stop();
        drafts::drop(former);
        CRDesignerCtrl1->markSaved();
        showTitle();
        return true;
    });
}

bool frmReportModify::mayClose()
{
    CRDesignerCtrl1->finishEditing();
    m_draft.stop();
    if (!CRDesignerCtrl1->isModified())
        return true;
    using enum base::Prompts::Answer;
    const auto answer = base::prompts().show({.text = u"Do you want to save the changes?"_s,
                                              .icon = base::Prompts::Icon::Question,
                                              .buttons = base::Prompts::Buttons::YesNoCancel,
                                              .title = {}});
    if (answer == Yes)
        // A save that failed, or that the user did not want after all, leaves the designer open.
        return cmdUpdate_Click();
    // Given up by intent; after Cancel, or a crash, the draft is what is left of the work.
    if (answer == No)
        drafts::drop(draftKey());
    return answer == No;
}
