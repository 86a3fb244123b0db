#include "reports/Gallery.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Error.h"
#include "platform/report/paginate/Paginator.h"
#include "platform/report/render/Export.h"
#include "platform/report/render/PagePainter.h"
#include "platform/report/render/PdfFile.h"
#include "reporting/FilterRequests.h"
#include "reporting/Preparation.h"
#include "reporting/ReportFiles.h"
#include "scheduling/Readings.h"
#include "workorders/Statements.h"

#include <QPainter>
#include <QSaveFile>
#include <algorithm>

namespace gallery {

using namespace Qt::StringLiterals;

namespace {

/// The numbers of the last posted orders, joined by commas.
QString lastOrders()
{
    QStringList orders;
    for (const db::Row row : gcnData->Open(u"Select distinct top 30 WorkorderNo from "
                                           "tblWOServiceUsedHistory order by WorkorderNo desc"_s))
        orders.append(row.text(u"WorkorderNo"));
    return orders.join(u',');
}

/// The machine with the most readings of its hours on different days.
QString muchUsedUnit()
{
    const db::Recordset found = gcnData->Open(
        u"Select top 1 UnitNo, Count(ChangeDate) as Readings from tblEquipmentCount inner join "
        "tblEquipment on tblEquipmentCount.EquipmentID = tblEquipment.EquipmentID where "
        "CountType = 'Hours' group by UnitNo order by 2 desc, 1"_s);
    return found.isEmpty() ? QString() : found.value(0, 0).toString();
}

constexpr int Dpi = 80;

QImage pictureOf(const report::Page &page, const report::PageSetup &setup)
{
    constexpr double HundredthsOfInch = 2540;
    const double scale = Dpi / HundredthsOfInch;
    QImage image(qRound(setup.width() * scale), qRound(setup.height() * scale),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    report::PagePainter().paint(page, painter);
    return image;
}

} // namespace

QList<catalogue::Request> requests(QDate today)
{
    using namespace filters;
    // Two years' rows are many pages; a quarter shows as much.
    const DateRange year{today.addYears(-1), today};
    const DateRange quarter{today.addMonths(-3), today};
    const QString openOrders = workorders::statements::printedOrders(
        u"Select top 20 WorkorderNo from tblWorkorder order by WorkorderNo"_s);
    QList<catalogue::Request> asked{
        request(EquipmentList{.groupOnSite = true}),
        equipmentDetailsRequest({.units = u"M001,T001,S003"_s, .inactive = true}),
        request(CrewHistory{}),
        equipmentExpenseRequest({}),
        request(Utilization{.read = year}),
        request(SingleUtilization{.read = year, .units = muchUsedUnit()}),
        request(Scans{.scanned = year}),
        inspectionRequest(year),
        licenseRequest(year),
        {.layout = u"rptEquipmentCount"_s, .filter = readings::dueStatement(0)},
        equipmentServicesRequest({}),
        request(HistoryTimes{.completed = quarter}),
        request(HistoryTimes{.completed = quarter, .byDate = true}),
        request(Parts{}),
        request(Reorder{.lessOrders = true}),
        request(UpcomingParts{.due = {today, today.addMonths(1)}}),
        partUsageRequest({}),
        {.layout = u"rptWorkorder"_s, .filter = openOrders},
        {.layout = u"rptWorkOrderByCrew"_s, .filter = openOrders},
        request(WorkorderHistory{.numbers = lastOrders()}),
        request(WorkorderHistory{.numbers = lastOrders(), .summary = true}),
    };
    for (int version = 1; version <= 6; ++version)
        asked.append(request(EquipmentList{.version = static_cast<ListVersion>(version)}));
    for (const HistoryGroup group : {HistoryGroup::None, HistoryGroup::Site, HistoryGroup::Crew})
        asked.append(request(ServiceHistory{.completed = quarter, .group = group}));
    for (const PartHistoryForm form :
         {PartHistoryForm::DetailByPart, PartHistoryForm::DetailByDate, PartHistoryForm::Summary})
        asked.append(request(PartHistory{.completed = quarter, .form = form}));
    QList<catalogue::Request> all;
    for (const catalogue::Report &report : catalogue::reports()) {
        const auto found = std::ranges::find(asked, report.layout, &catalogue::Request::layout);
        all.append(found == asked.end() ? catalogue::Request{.layout = report.layout} : *found);
    }
    return all;
}

void widen()
{
    for (const QStringView statement :
         {u"Update tblEquipment set EquipmentName = Left(EquipmentName & ' with grass catcher, "
          "light kit and sunshade, second one of the south yard', 80), UnitNo = "
          "Left('WWW-' & UnitNo & '-MMMM', 20), AcquisitionCost = AcquisitionCost * 100 where "
          "EquipmentID mod 3 = 0",
          u"Update tblEquipment set SiteID = 0, LocationID = 0, CrewID = 0, EquipmentMake = 0, "
          "EquipmentModel = 0 where EquipmentID mod 7 = 0",
          u"Update tblWOServiceUsedHistory set CostEstimate = 1234567.89, ServiceName = "
          "Left(ServiceName & ' and replace all worn parts of the cutting deck, left and "
          "right', 100) where WorkorderNo mod 5 = 0",
          u"Update tblPart set Description = Left(Description & ' for heavy duty mowers with "
          "two blades, galvanized, pack of twelve', 100), Quantity = 123456.75, Price = "
          "98765.4321 where Bin is not null and Quantity > 5",
          u"Update tblWoPartHistory set Price = 98765.4321, QuantityUsed = 1234.5 where "
          "QuantityUsed > 1",
          u"Update tblSite set SiteName = Left(SiteName & ' at the northern end of the long "
          "road', 60)",
          u"Update tblCrew set Description = Left(Description & ' and helpers of the summer "
          "months, second shift', 60)"})
        gcnData->Execute(statement.toString());
}

Rendered render(const catalogue::Request &asked, const QDir &folder)
{
    const catalogue::Report &report = catalogue::reportOf(asked.layout);
    const db::Recordset rows = catalogue::open(report, asked.filter);
    const catalogue::Prepared ready =
        catalogue::prepare(asked, reportfiles::readDelivered(report.layout), rows);
    Rendered result{.layout = report.layout, .rows = rows.RecordCount()};
    report::PdfFile pdf(folder.filePath(report.layout + u".pdf"_s), ready.layout.page,
                        report.title);
    const report::Outcome outcome =
        report::paginate(ready.layout, *ready.rows, ready.inputs, [&](const report::Page &page) {
            if (result.pages++ == 0)
                pictureOf(page, ready.layout.page).save(folder.filePath(report.layout + u".png"_s));
            pdf.add(page);
            return true;
        });
    pdf.finish();
    result.problems = outcome.problems;
    static_cast<void>(report::exportReport(ready.layout, *ready.rows, ready.inputs,
                                           folder.filePath(report.layout + u".xlsx"_s),
                                           report::ExportFormat::Spreadsheet));
    return result;
}

void writeIndex(const QList<Rendered> &all, const QDir &folder)
{
    QString page = u"<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Reports</title>\n"
                   "<style>body{font-family:sans-serif;background:#ddd}figure{display:inline-block;"
                   "vertical-align:top;margin:8px}img{width:420px;border:1px solid "
                   "#888}</style></head><body>\n"_s;
    for (const Rendered &report : all)
        page += u"<figure><a href=\"%1.pdf\"><img src=\"%1.png\" alt=\"%1\"></a><figcaption>%1: "
                "%2 rows, %3 pages <a href=\"%1.xlsx\">spreadsheet</a>%4</figcaption></figure>\n"_s
                    .arg(report.layout)
                    .arg(report.rows)
                    .arg(report.pages)
                    .arg(report.problems.isEmpty()
                             ? QString()
                             : u"<br>"_s + report.problems.join(u"<br>").toHtmlEscaped());
    page += u"</body></html>\n"_s;
    QSaveFile file(folder.filePath(u"index.html"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(page.toUtf8()) < 0 || !file.commit())
        throw base::Error(base::ErrorNumber::PathAccess,
                          u"%1 can't be written."_s.arg(file.fileName()));
}

} // namespace gallery
