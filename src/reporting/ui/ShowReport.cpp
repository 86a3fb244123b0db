#include "reporting/ui/ShowReport.h"

#include "core/Session.h"
#include "core/ui/Openings.h"
#include "platform/base/Environment.h"
#include "platform/base/Prompts.h"
#include "platform/base/Trapped.h"
#include "platform/db/DbError.h"
#include "platform/report/viewer/ParameterDialog.h"
#include "reporting/GuardedRunner.h"
#include "reporting/Preparation.h"
#include "reporting/ReportFiles.h"
#include "reporting/ui/BusyPointer.h"
#include "reporting/ui/frmReportPreview.h"
#include "scheduling/Readings.h"

#include <QApplication>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *Module = "Report Preview";

/// What to ask when a filter is refused; empty for a failure that is no filter's.
QString questionFor(const catalogue::Report &report, int errorNumber)
{
    using namespace db::ErrorNumber;
    if (errorNumber == ValueMissing || errorNumber == Syntax)
        return report.question;
    if (errorNumber == TypeMismatch)
        return report.mismatchQuestion.isEmpty() ? report.question : report.mismatchQuestion;
    return {};
}

/// The rows within the filter of what is asked; without it, which is emptied then, when the engine
/// refuses it and the user wants them all. Nothing when not.
std::optional<db::Recordset> rowsOf(const catalogue::Report &report, catalogue::Request &asked)
{
    QString question;
    try {
        // Only while the engine works: the question that may follow needs an ordinary pointer.
        const BusyPointer busy;
        return catalogue::open(report, asked.filter);
    } catch (const base::Error &failure) {
        question = questionFor(report, failure.number());
        if (question.isEmpty() || asked.filter.trimmed().isEmpty())
            throw;
    }
    if (!base::askYesNo(question, base::Prompts::Icon::Information))
        return std::nullopt;
    asked.filter.clear();
    // The report says in words what it was asked for; that is everything now.
    asked.asked.clear();
    // Without a filter nothing is left to refuse, so this ends.
    return rowsOf(report, asked);
}

/// The layout to print in. The customer's own one may be damaged: then the delivered one, if the
/// user wants it, or nothing.
std::optional<report::Layout> layoutOf(const catalogue::Report &report)
{
    // The error report is printed when things go wrong: no changed layout may come in its way.
    if (report.onlyDelivered)
        return reportfiles::readDelivered(report.layout);
    QString failure;
    try {
        return reportfiles::readLayout(report.layout);
    } catch (const base::Error &error) {
        if (!reportfiles::hasOwnLayout(report.layout))
            throw;
        failure = error.description();
    }
    if (!base::askYesNo(failure + u"\n\nUse the layout that came with the program instead?"_s))
        return std::nullopt;
    return reportfiles::readDelivered(report.layout);
}

bool show(const catalogue::Report &report, catalogue::Request asked)
{
    if (report.onlyDelivered && !reportfiles::isDelivered(report.layout)) {
        base::showInformation(u"Report not found."_s);
        return false;
    }
    // A layout that can't be read is told before anybody waits for the rows.
    std::optional<report::Layout> layout = layoutOf(report);
    if (!layout)
        return false;
    const std::optional<db::Recordset> rows = rowsOf(report, asked);
    if (!rows)
        return false;
    if (rows->RecordCount() == 0) {
        base::showInformation(report.empty);
        return false;
    }
    // Asked after the rows, so that nobody answers questions for a report without any.
    const std::optional<report::Answers> answers = askOwnParameters(*layout);
    if (!answers)
        return false;
    asked.answers = *answers;
    frmReportPreview preview(report.title, QApplication::activeWindow());
    preview.show(catalogue::prepare(asked, *std::move(layout), *rows));
    preview.showModal();
    return true;
}

} // namespace

std::optional<report::Answers> askOwnParameters(report::Layout layout)
{
    // The program fills in those by which further rows are read; the user is asked for the rest.
    layout.parameters = catalogue::parametersToAsk(layout);
    ownreports::GuardedRunner runner(gcnData->target());
    return report::askParameters(layout, runner, base::now(), QApplication::activeWindow());
}

bool showReport(const catalogue::Request &asked)
{
    const catalogue::Report &report = catalogue::reportOf(asked.layout);
    return base::trapped(Module, report.procedure.constData(), false,
                         [&] { return show(report, asked); });
}

void joinReports()
{
    struct Joined
    {
        QString name;
        QString layout;
        QString other{}; ///< the layout of the other form
    };
    const Joined filtered[] = {
        {u"ShowEquipmentDetailReport"_s, u"rptEquipmentDetail"_s},
        {u"ShowEquipmentInspectionReport"_s, u"rptEquipmentInspectionDate"_s},
        {u"ShowEquipmentLicenseReport"_s, u"rptEquipmentLicenseDate"_s},
        {u"ShowInventoryReport"_s, u"rptInventoryReport"_s},
        {u"ShowEmployeeReport"_s, u"rptEmployeeReport"_s},
        {u"ShowSupplierReport"_s, u"rptSupplierReport"_s},
        {u"ShowServiceList"_s, u"rptServiceList"_s},
        {u"ShowErrorList"_s, u"rptErrorReport"_s},
        {u"ShowWorkorderReport"_s, u"rptWorkorder"_s, u"rptWorkOrderByCrew"_s},
        {u"ShowWorkorderHistoryReport"_s, u"rptWorkOrderHistory"_s,
         u"rptWorkorderHistorySummary"_s},
    };
    for (const Joined &report : filtered)
        openings().join(report.name, [report](const OpeningArguments &asked) {
            return showReport(
                {.layout = asked.other ? report.other : report.layout, .filter = asked.query});
        });
    openings().join(u"EquipmentCountReport"_s, [] {
        return showReport({.layout = u"rptEquipmentCount"_s,
                           .filter = readings::dueStatement(readings::delay())});
    });
}
