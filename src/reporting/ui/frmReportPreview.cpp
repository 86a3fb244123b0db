#include "reporting/ui/frmReportPreview.h"

#include "core/ui/Sending.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/report/viewer/ReportViewer.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

frmReportPreview::frmReportPreview(const QString &title, QWidget *parent)
    : Screen(u"frmReportPreview"_s, title, parent, StoreWhat::SizeOnly)
{
    input::FormBuilder form(this);
    CRViewerReport = new report::ReportViewer(this);
    CRViewerReport->setObjectName(u"CRViewerReport"_s);
    CRViewerReport->setMailer(mailing::mailDocument);
    form.widget(CRViewerReport, true);
    cmdPrint = form.button(u"cmdPrint"_s, u"&Print"_s, theme::icon(u"print"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(1000, 660);
    connect(cmdPrint, &QPushButton::clicked, this, [this] { CRViewerReport->print(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmReportPreview::show(catalogue::Prepared report)
{
    show(report.layout, std::move(report.rows), report.inputs);
}

void frmReportPreview::show(const report::Layout &layout,
                            std::shared_ptr<const report::DataSource> rows,
                            const report::Inputs &inputs)
{
    CRViewerReport->setReport(layout, std::move(rows), inputs);
    // As on paper: what fits the window would make forms of one page unreadable on small screens.
    CRViewerReport->setZoom(100);
}
