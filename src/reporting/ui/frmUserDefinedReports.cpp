#include "reporting/ui/frmUserDefinedReports.h"

#include "core/ui/EmptyText.h"
#include "core/ui/ListGrid.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *Module = "frmUserDefinedReports";
constexpr QStringView Name = u"Reports Name";
} // namespace

frmUserDefinedReports::frmUserDefinedReports(QWidget *parent)
    : Screen(u"frmUserDefinedReports"_s, u"Reports"_s, parent, StoreWhat::SizeOnly)
{
    buildForm();
}

void frmUserDefinedReports::buildForm()
{
    input::FormBuilder form(this);
    fraReports = form.beginGroup(u"Show"_s, u"fraReports"_s);
    form.beginRow();
    optDefaultReport = form.optionButton(u"optDefaultReport"_s, u"&Default  Reports"_s);
    optUserReport = form.optionButton(u"optUserReport"_s, u"&User Defined Report"_s);
    form.endRow();
    form.endGroup();
    lblFolder = form.note({}, u"lblFolder"_s);
    grdReports = makeListGrid(this, u"grdReports"_s, u"Reports"_s,
                              {{.name = Name.toString(), .width = 420}});
    showWhenEmpty(*grdReports, u"There are no reports here yet."_s);
    form.widget(grdReports, true);
    cmdAdd = form.leftButton(u"cmdAdd"_s, u"&Add New"_s, theme::icon(u"add"_s));
    cmdViewReport = form.button(u"cmdViewReport"_s, u"&View Report"_s, theme::icon(u"preview"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(520, 460);
    cmdViewReport->setDefault(true);

    connect(optUserReport, &QRadioButton::toggled, this, [this](bool own) {
        setFolder(own ? ownreports::Folder::UserDefined : ownreports::Folder::Delivered);
    });
    connect(grdReports, &grid::GridView::rowActivated, this,
            &frmUserDefinedReports::cmdViewReport_Click);
    connect(cmdViewReport, &QPushButton::clicked, this,
            &frmUserDefinedReports::cmdViewReport_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmUserDefinedReports::cmdAdd_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmUserDefinedReports::reject);
}

QString frmUserDefinedReports::ShowUserDefinedReportDetatils()
{
    // Only the user's own are viewed here; the delivered ones have their own places in the menu.
    fraReports->hide();
    cmdViewReport->setText(u"&View Report"_s);
    setFolder(ownreports::Folder::UserDefined);
    showModal();
    return m_result;
}

QString frmUserDefinedReports::ShowReportList()
{
    fraReports->show();
    cmdViewReport->setText(u"&Modify Report"_s);
    cmdViewReport->setIcon(theme::icon(u"edit"_s));
    optDefaultReport->setChecked(true);
    setFolder(ownreports::Folder::Delivered);
    showModal();
    return m_result;
}

void frmUserDefinedReports::setFolder(ownreports::Folder folder)
{
    m_folder = folder;
    lblFolder->setText(folder == ownreports::Folder::Delivered ? u"Reports"_s
                                                               : u"User Defined Reports"_s);
    ShowGrid();
}

void frmUserDefinedReports::ShowGrid()
{
    base::trapped(Module, "ShowGrid", [this] {
        grid::GridModel &rows = grdReports->rows();
        rows.clear();
        m_paths.clear();
        for (const ownreports::Entry &entry : ownreports::list(m_folder)) {
            rows.insertRow({{Name.toString(), entry.name}});
            m_paths.append(entry.path);
        }
        // One is always chosen, so that Enter opens something.
        grdReports->selectRow(m_paths.isEmpty() ? -1 : 0);
        EnableControls();
        grdReports->setFocus();
    });
}

void frmUserDefinedReports::EnableControls()
{
    cmdViewReport->setEnabled(!m_paths.isEmpty());
}

void frmUserDefinedReports::cmdViewReport_Click()
{
    m_result = m_paths.value(grdReports->currentRow());
    if (!m_result.isEmpty())
        unload();
}

void frmUserDefinedReports::cmdAdd_Click()
{
    // Not the path of a file: whoever opened the list makes a new report then.
    m_result = AddNew.toString();
    unload();
}
