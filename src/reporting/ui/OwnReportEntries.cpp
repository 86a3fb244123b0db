#include "reporting/ui/OwnReportEntries.h"

#include "core/Session.h"
#include "core/ui/Openings.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/report/viewer/ParameterDialog.h"
#include "reporting/GuardedRunner.h"
#include "reporting/ReportFiles.h"
#include "reporting/ui/BusyPointer.h"
#include "reporting/ui/frmReportModify.h"
#include "reporting/ui/frmReportPreview.h"
#include "reporting/ui/frmUserDefinedReports.h"

#include <QApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Report Preview";

bool show(const QString &path)
{
    report::Layout layout = reportfiles::readLayoutAt(path);
    // Layouts written by hand may lack one; window and PDF need a name.
    if (layout.title.isEmpty())
        layout.title = QFileInfo(path).completeBaseName();
    if (layout.query.isEmpty()) {
        base::showInformation(u"This report doesn't say yet which data it shows. Please open it by "
                              "\"Modify Reports\" and choose them."_s);
        return false;
    }
    ownreports::GuardedRunner runner(gcnData->target());
    const std::optional<report::Answers> answers =
        report::askParameters(layout, runner, base::now(), QApplication::activeWindow());
    if (!answers)
        return false;
    ownreports::OwnRows read;
    {
        const BusyPointer busy;
        read = ownreports::readOwn(layout, *answers, runner);
    }
    frmReportPreview preview(layout.title, QApplication::activeWindow());
    // Not by way of the catalogue: the layout reads for itself, and nothing of the program's is set
    // in it.
    preview.show(layout, std::move(read.rows), read.inputs);
    preview.showModal();
    return true;
}

} // namespace

bool ShowUserDefinedReport(const QString &path)
{
    return base::trapped(Module, "ShowUserDefinedReport", false, [&] { return show(path); });
}

void mnuViewUserReport_Click()
{
    const QString chosen =
        frmUserDefinedReports(QApplication::activeWindow()).ShowUserDefinedReportDetatils();
    if (chosen.isEmpty())
        return;
    if (chosen == frmUserDefinedReports::AddNew)
        frmReportModify(QApplication::activeWindow()).CreateNewReport();
    else
        ShowUserDefinedReport(chosen);
}

void mnuModifyReport_Click()
{
    const QString chosen = frmUserDefinedReports(QApplication::activeWindow()).ShowReportList();
    if (chosen.isEmpty())
        return;
    frmReportModify screen(QApplication::activeWindow());
    if (chosen == frmUserDefinedReports::AddNew)
        screen.CreateNewReport();
    else
        screen.ShowReport(chosen, QFileInfo(chosen).fileName());
}

void joinOwnReports()
{
    openings().join(u"CreateNewReport"_s,
                    [] { frmReportModify(QApplication::activeWindow()).CreateNewReport(); });
    openings().join(u"mnuViewUserReport"_s, mnuViewUserReport_Click);
    openings().join(u"mnuModifyReport"_s, mnuModifyReport_Click);
}
