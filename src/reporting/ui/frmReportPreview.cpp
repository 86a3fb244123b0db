#include "reporting/ui/frmReportPreview.h"

#include "core/General.h"
#include "core/Session.h"
#include "core/ui/Openings.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/Theme.h"
#include "platform/report/paginate/RecordsetSource.h"
#include "platform/report/viewer/ReportViewer.h"
#include "reporting/PostedLabor.h"
#include "reporting/ReportFiles.h"
#include "scheduling/Readings.h"

#include <QApplication>
#include <QPushButton>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Report Preview";
const QString NoRecords = u"No records found."_s;

/// The hourglass for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;
};

/// A field that is summed once for each value of a key, under a name of its own.
struct OnceField
{
    QString name;
    QString field;
    QString key;
};

struct Report
{
    const char *procedure;
    QString title;
    QString layout;
    QStringList sort;
    std::optional<OnceField> once{};
    bool addsLabor = false; ///< the field Labor beside the sum of a summary
};

std::shared_ptr<report::RecordsetSource> rowsOf(const Report &report,
                                                const std::function<db::Recordset()> &open)
{
    const BusyPointer busy;
    const db::Recordset found = open();
    auto rows = std::make_shared<report::RecordsetSource>(found);
    if (report.addsLabor)
        rows->addValues(u"Labor"_s, postedlabor::ofSummary(found));
    rows->sortBy(report.sort);
    if (report.once)
        rows->addOnce(report.once->name, report.once->field, report.once->key);
    return rows;
}

/// Shows the rows of a query in the report's layout, or the message of a report without any.
bool showReport(const Report &report, const std::function<db::Recordset()> &open)
{
    return base::trapped(Module, report.procedure, false, [&] {
        // A layout that can't be read is told before anybody waits for the rows.
        const report::Layout layout = reportfiles::readLayout(report.layout);
        auto rows = rowsOf(report, open);
        if (rows->rowCount() == 0) {
            base::showInformation(NoRecords);
            return false;
        }
        frmReportPreview preview(report.title, QApplication::activeWindow());
        preview.show(layout, std::move(rows));
        preview.showModal();
        return true;
    });
}

bool ShowWorkorderReport(const OpeningArguments &asked)
{
    const Report plain{"ShowWorkorderReport",
                       u"Work Orders"_s,
                       u"rptWorkorder"_s,
                       {u"WorkorderNo"_s, u"NserviceUsedID"_s, u"PartID"_s}};
    const Report grouped{"ShowWorkorderReport",
                         u"Work Orders"_s,
                         u"rptWorkOrderByCrew"_s,
                         {u"CrewNumber"_s, u"WorkorderNo"_s, u"NserviceUsedID"_s, u"PartID"_s}};
    return showReport(asked.other ? grouped : plain, [&] { return gcnData->Open(asked.query); });
}

bool ShowWorkorderHistoryReport(const OpeningArguments &asked)
{
    const Report detail{"ShowWorkorderHistoryReport",
                        u"Work Order History"_s,
                        u"rptWorkOrderHistory"_s,
                        {u"WorkOrderNo"_s, u"ServiceUSedID"_s, u"PartID"_s},
                        OnceField{u"LaborOnce"_s, u"CostEstimate"_s, u"ServiceUSedID"_s}};
    const Report totals{"ShowWorkorderHistoryReport",
                        u"Work Order History"_s,
                        u"rptWorkorderHistorySummary"_s,
                        {u"WorkOrderNo"_s},
                        std::nullopt,
                        true};
    return showReport(asked.other ? totals : detail, [&] { return gcnData->Open(asked.query); });
}

bool EquipmentCountReport()
{
    return showReport({"EquipmentCountReport",
                       u"Equipment Count Sheet"_s,
                       u"rptEquipmentCount"_s,
                       {u"UnitNo"_s, u"Equipment Name"_s}},
                      [] { return readings::due(readings::delay()); });
}

} // namespace

frmReportPreview::frmReportPreview(const QString &title, QWidget *parent)
    : Screen(u"frmReportPreview"_s, title, parent, StoreWhat::SizeOnly)
{
    input::FormBuilder form(this);
    CRViewerReport = new report::ReportViewer(this);
    CRViewerReport->setObjectName(u"CRViewerReport"_s);
    form.widget(CRViewerReport, true);
    cmdPrint = form.button(u"cmdPrint"_s, u"&Print"_s, theme::icon(u"print"_s));
    cmdExit = form.button(u"cmdExit"_s, u"&Return"_s, theme::icon(u"return"_s));
    form.finish();
    resize(1000, 660);
    connect(cmdPrint, &QPushButton::clicked, this, [this] { CRViewerReport->print(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmReportPreview::show(const report::Layout &layout,
                            std::shared_ptr<report::RecordsetSource> rows,
                            const QHash<QString, QString> &texts)
{
    report::Inputs inputs;
    inputs.texts = texts;
    inputs.texts.insert(u"lblCompanyName"_s, GetOption(u"GEN_COMPANY_NAME"_s, false));
    inputs.now = base::now();
    inputs.folder = base::applicationPath(u"\\Reports"_s);
    CRViewerReport->setReport(layout, std::move(rows), inputs);
    CRViewerReport->setZoom(100);
}

void joinReports()
{
    Openings &all = openings();
    all.join(u"ShowWorkorderReport"_s, ShowWorkorderReport);
    all.join(u"ShowWorkorderHistoryReport"_s, ShowWorkorderHistoryReport);
    all.join(u"EquipmentCountReport"_s, EquipmentCountReport);
}
