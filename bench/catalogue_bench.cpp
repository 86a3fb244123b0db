// The goals of speed of the catalogue's reports, each with what was measured and, where it is a
// matter of the engine, what the same statements take there alone.
//
//     catalogue_bench LARGE     a database of the console's create-sample --large
//
// Works on a copy of which only a year's history is left. Times are as those of goals_bench.
#include "Measure.h"
#include "core/Session.h"
#include "core/ui/Openings.h"
#include "platform/base/Environment.h"
#include "platform/input/Theme.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/render/Export.h"
#include "platform/settings/Registry.h"
#include "reporting/FilterRequests.h"
#include "reporting/Preparation.h"
#include "reporting/ReportFiles.h"
#include "reporting/ui/FilterEntries.h"
#include "reporting/ui/frmFilterScreen.h"
#include "reporting/ui/frmReportPreview.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace measure;

namespace {

constexpr qint64 yearRows = 200'001;

double megabytesInUse()
{
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

/// The last days in which about a year's services of a large company were done.
filters::DateRange yearOfHistory()
{
    filters::DateRange range;
    qint64 rows = 0;
    for (const db::Row day : gcnData->Open(
             u"Select CompleteDate, Count(ServiceUsedID) as Services from tblWOServiceUsedHistory "
             "group by CompleteDate order by CompleteDate desc"_s)) {
        range.from = day.date(u"CompleteDate").date();
        if (!range.to.isValid())
            range.to = range.from;
        rows += day.integer(u"Services");
        if (rows >= yearRows)
            break;
    }
    return range;
}

void keepOnly(const filters::DateRange &range)
{
    gcnData->Execute(u"Delete from tblWOServiceUsedHistory where CompleteDate < #%1#"_s.arg(
        filters::dateText(range.from)));
    gcnData->Execute(u"Delete from tblWoPartHistory where not exists (Select ServiceUsedID from "
                     "tblWOServiceUsedHistory where tblWOServiceUsedHistory.ServiceUsedID = "
                     "tblWoPartHistory.ServiceusedID)"_s);
}

db::Recordset rowsOf(const catalogue::Request &asked)
{
    return catalogue::open(catalogue::reportOf(asked.layout), asked.filter);
}

catalogue::Prepared prepared(const catalogue::Request &asked, const db::Recordset &rows)
{
    return catalogue::prepare(asked, reportfiles::readDelivered(asked.layout), rows);
}

void exported(const catalogue::Prepared &report, const QString &path)
{
    (void)report::exportReport(report.layout, *report.rows, report.inputs, path,
                               *report::exportFormat(path));
}

/// From the rows to the first page's picture in its window.
Times firstPageOf(const catalogue::Request &asked, const db::Recordset &rows)
{
    const Watch watch;
    frmReportPreview preview(u"Report"_s);
    preview.show(prepared(asked, rows));
    (void)preview.grab();
    return watch.read();
}

void measureHistory(Company &company, const filters::DateRange &year, const QString &folder)
{
    const catalogue::Request asked = filters::request(filters::ServiceHistory{.completed = year});
    const double bare = company.bareTimeOf([&] { (void)rowsOf(asked); });
    company.measure("a year's service history: the query", 1.15 * bare,
                    [&] { return timesOf([&] { (void)rowsOf(asked); }); });
    const db::Recordset rows = rowsOf(asked);
    std::printf("    %lld rows\n", static_cast<long long>(rows.RecordCount()));
    company.measure(
        "its first page on screen", 300, [&] { return firstPageOf(asked, rows); }, false);
    const double start = megabytesInUse();
    company.measure(
        "the order of its rows", 300, [&] { return timesOf([&] { (void)prepared(asked, rows); }); },
        false);
    const catalogue::Prepared report = prepared(asked, rows);
    company.measure(
        "its pages", 6000,
        [&] {
            return timesOf([&] {
                (void)report::paginate(report.layout, *report.rows, report.inputs,
                                       [](report::Page &&) { return true; });
            });
        },
        false);
    company.measure(
        "all its pages to PDF", 6000,
        [&] { return timesOf([&] { exported(report, folder + u"/history.pdf"_s); }); }, false);
    std::printf("    memory %.1f MB over the start (goal 200)\n", megabytesInUse() - start);
}

void measureReport(Company &company, const char *what, double goal, const catalogue::Request &asked,
                   const QString &path)
{
    company.measure(what, goal, [&] {
        return timesOf([&] { exported(prepared(asked, rowsOf(asked)), path); });
    });
}

void measureDialogs(Company &company)
{
    QStringList names{u"frmEquipmentListReport"_s,  u"frmEquipmentListLandScape"_s,
                      u"frmEquipmentUtilization"_s, u"frmScanHistory"_s,
                      u"frmServiceHistory"_s,       u"frmWorkorderhistoryReport"_s};
    for (const frmFilterScreen::Entry &entry : frmFilterScreen::entries())
        names.append(entry.name.toString());
    for (const QString &name : std::as_const(names))
        company.measure(
            qPrintable(u"filter "_s + name), 50,
            [&] { return openingOf([&] { openings().open(name); }); }, false);
}

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: catalogue_bench LARGE\n", stderr);
        return 1;
    }
    const QString file = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    const QTemporaryDir folder(QFileInfo(file).absolutePath() + u"/catalogue"_s);
    const QString copy = folder.filePath(u"year.fdb"_s);
    base::Environment environment = base::Environment::ofProcess();
    environment.applicationFolder = folder.path();
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    settings::registry().setValue(settings::ProductKey, u"GUID"_s, QString(32, u'0'));
    theme::install(application);
    reportfiles::installDelivered(folder.path());
    joinFilterScreens();
    gRights.EqList = gRights.EqDetail = gRights.ExpOnEq = gRights.EqUtilization = true;
    gRights.EqCrewHistory = gRights.EqScanHistory = gRights.InspDatReading = true;
    gRights.LicRenDateReading = gRights.WOHistory = gRights.SerEqName = gRights.SerHistory = true;
    gRights.SerHistoryTime = gRights.InvReport = gRights.InvReorderReport = true;
    gRights.InvOrUpSer = gRights.InvPartUsage = gRights.InvPartHistory = true;
    if (!QFile::copy(file, copy)) {
        std::fprintf(stderr, "%s can't be copied\n", qPrintable(file));
        return 1;
    }
    Company company(u"large"_s, copy);
    const filters::DateRange year = yearOfHistory();
    keepOnly(year);
    printHead();
    measureHistory(company, year, folder.path());
    measureReport(company, "expenses of a year to PDF", 1200,
                  filters::equipmentExpenseRequest({.inactive = true}),
                  folder.filePath(u"expense.pdf"_s));
    measureReport(company, "list of 10,000 machines to a spreadsheet", 1500,
                  filters::request(filters::EquipmentList{.inactive = true}),
                  folder.filePath(u"list.xlsx"_s));
    measureReport(company, "utilization of one machine to PDF", 300,
                  filters::request(filters::SingleUtilization{
                      .read = {year.to.addYears(-5), year.to}, .units = u"M001"_s}),
                  folder.filePath(u"single.pdf"_s));
    measureDialogs(company);
    return 0;
}
