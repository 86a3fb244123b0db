#include "reporting/FilterRequests.h"

namespace filters {

using namespace Qt::StringLiterals;
using catalogue::Request;

namespace {

QString units(const QString &values)
{
    return listed(u"unit"_s, u"units"_s, values);
}

QString machines(const QString &names)
{
    return listed(u"machine"_s, u"machines"_s, names);
}

QString types(const QString &values)
{
    return listed(u"type"_s, u"types"_s, values);
}

QString crews(const QString &numbers)
{
    return listed(u"crew"_s, u"crews"_s, numbers);
}

QString categories(const QString &values)
{
    return listed(u"category"_s, u"categories"_s, values);
}

QString suppliers(const QString &names)
{
    return listed(u"supplier"_s, u"suppliers"_s, names);
}

QString parts(const QString &numbers)
{
    return listed(u"part"_s, u"parts"_s, numbers);
}

QString inactiveToo(bool inactive)
{
    return inactive ? u"Inactive machines included."_s : u"Inactive machines left out."_s;
}

QString sentences(const QStringList &parts)
{
    return parts.join(u' ');
}

/// "Completed 01/01/2024 to 03/15/2024."
QString happened(const QString &what, const DateRange &range)
{
    return u"%1 %2 to %3."_s.arg(what, dateText(range.from), dateText(range.to));
}

Request ofMachines(const QString &layout, const QString &clause, const Machines &asked)
{
    return {.layout = layout,
            .filter = clause,
            .asked = sentences({units(asked.units), inactiveToo(asked.inactive)})};
}

} // namespace

QString listed(const QString &one, const QString &several, const QString &values)
{
    if (values.trimmed().isEmpty())
        return u"All "_s + several + u'.';
    QStringList named;
    // By the function that the clause takes them with: what it leaves out isn't told as asked for.
    for (const QString &value : valuesOf(values))
        named.append(value.trimmed());
    const QString word = named.size() == 1 ? one : several;
    return word.first(1).toUpper() + word.sliced(1) + u' ' + named.join(u", "_s) + u'.';
}

QString rangeLabel(const DateRange &range)
{
    return dateText(range.from) + u" - "_s + dateText(range.to);
}

Request equipmentServicesRequest(const Machines &asked)
{
    return ofMachines(u"rptEquipmentServices"_s, equipmentServices(asked), asked);
}

Request equipmentDetailsRequest(const Machines &asked)
{
    return ofMachines(u"rptEquipmentDetail"_s, equipmentDetails(asked), asked);
}

Request equipmentExpenseRequest(const Machines &asked)
{
    return ofMachines(u"rptEquipmentExpense"_s, equipmentExpense(asked), asked);
}

Request inspectionRequest(const DateRange &asked)
{
    return {.layout = u"rptEquipmentInspectionDate"_s,
            .filter = inspectionDates(asked),
            .asked = happened(u"Inspection dates"_s, asked)};
}

Request licenseRequest(const DateRange &asked)
{
    return {.layout = u"rptEquipmentLicenseDate"_s,
            .filter = licenseDates(asked),
            .asked = happened(u"License renewal dates"_s, asked)};
}

Request request(const Parts &asked)
{
    return {.layout = u"rptInventoryReport"_s,
            .filter = inventory(asked),
            .asked = sentences(
                {categories(asked.categories), suppliers(asked.suppliers),
                 asked.inactive ? u"Inactive parts only."_s : u"Inactive parts left out."_s})};
}

Request request(const Reorder &asked)
{
    return {.layout = u"rptInventoryReorderReport"_s,
            .filter = reorder(asked),
            .asked = sentences(
                {asked.lessOrders ? u"Below the minimum quantity, now or after open work orders."_s
                                  : u"Below the minimum quantity."_s,
                 categories(asked.categories), suppliers(asked.suppliers)})};
}

Request partUsageRequest(const QString &numbers)
{
    return {.layout = u"rptInventoryPartUsage"_s,
            .filter = partUsage(numbers),
            .asked = parts(numbers)};
}

Request request(const CrewHistory &asked)
{
    return {.layout = u"rptEquipmentCrewHistory"_s,
            .filter = crewHistory(asked),
            .asked = sentences({machines(asked.names), crews(asked.crews)})};
}

Request request(const PartHistory &asked)
{
    const auto layout = [&] {
        switch (asked.form) {
        case PartHistoryForm::Summary:
            return u"rptInventoryPartHistorySummary"_s;
        case PartHistoryForm::DetailByDate:
            return u"rptInventoryPartHistoryCDate"_s;
        case PartHistoryForm::DetailByPart:
            break;
        }
        return u"rptInventoryPartHistory"_s;
    };
    return {.layout = layout(),
            .filter = partHistory(asked),
            .asked = sentences({happened(u"Completed"_s, asked.completed), parts(asked.parts)})};
}

Request request(const HistoryTimes &asked)
{
    return {.layout = asked.byDate ? u"rptServiceHistoryTimesCDate"_s : u"rptServiceHistoryTimes"_s,
            .filter = historyTimes(asked),
            .asked = sentences({happened(u"Completed"_s, asked.completed), machines(asked.names)})};
}

Request request(const UpcomingParts &asked)
{
    return {.layout = u"rptInventoryOrder_UpCommingServices"_s,
            .filter = upcomingParts(asked),
            .asked =
                sentences({happened(u"Services due"_s, asked.due), suppliers(asked.suppliers)})};
}

Request request(const EquipmentList &asked)
{
    const auto layout = [&] {
        switch (asked.version) {
        case ListVersion::Two:
            return u"rptEquipmentListLandScape"_s;
        case ListVersion::Three:
            return u"rptEquipmentListCrewWise"_s;
        case ListVersion::Four:
            return u"rptEquipmentListVer4"_s;
        case ListVersion::Five:
            return u"rptEquipmentListVer5"_s;
        case ListVersion::Six:
            return u"rptEquipmentListVer6"_s;
        case ListVersion::One:
            break;
        }
        return asked.groupOnSite ? u"rptEquipmentListSiteWise"_s : u"rptEquipmentList"_s;
    };
    // Fields that the version takes no notice of may hold values, which weren't asked for then.
    const ListFields fields = fieldsOf(asked.version);
    QStringList words;
    if (fields.types)
        words << types(asked.types) << crews(asked.crews);
    if (fields.sites)
        words << listed(u"site"_s, u"sites"_s, asked.sites);
    words << inactiveToo(asked.inactive);
    return {.layout = layout(), .filter = equipmentList(asked), .asked = sentences(words)};
}

Request wideListRequest(const QString &typeNames, const QString &crewNumbers)
{
    return {.layout = u"rptEquipmentListLandScape"_s,
            .filter = wideEquipmentList(typeNames, crewNumbers),
            .asked = sentences({types(typeNames), crews(crewNumbers), inactiveToo(true)})};
}

Request request(const ServiceHistory &asked)
{
    const QString completed = happened(u"Completed"_s, asked.completed);
    const auto made = [&](const QString &layout, const QString &words) {
        return Request{.layout = layout,
                       .filter = serviceHistory(asked),
                       .asked = sentences({completed, words})};
    };
    switch (asked.group) {
    case HistoryGroup::Site:
        return made(u"rptServiceHistorySiteWise"_s, listed(u"site"_s, u"sites"_s, asked.sites));
    case HistoryGroup::Crew:
        return made(u"rptServiceHistoryCrewWise"_s, crews({}));
    case HistoryGroup::None:
        break;
    }
    return made(u"rptServiceHistory"_s, units(asked.units));
}

Request request(const Scans &asked)
{
    return {.layout = u"rptEquipmentScanHistory"_s,
            .filter = lastScans(asked),
            .asked = sentences({happened(u"Scanned"_s, asked.scanned), units(asked.units)})};
}

Request request(const NotScanned &asked)
{
    // The field may be blank, so the days are told that were reckoned with.
    const int days = daysBack(asked);
    return {.layout = u"rptEquipmentScanHistory"_s,
            .filter = notScanned(asked),
            .asked = days == 1 ? u"Not scanned in the last day."_s
                               : u"Not scanned in the last %1 days."_s.arg(days)};
}

// Reports of utilization print their range as a text of its own, so it isn't told twice.

Request request(const Utilization &asked)
{
    return {.layout = u"rptEquipmentUtilization"_s,
            .filter = utilization(asked),
            .asked = sentences({types(asked.types), crews(asked.crews)}),
            .texts = {{u"lblDateFrom"_s, rangeLabel(asked.read)}}};
}

Request request(const SingleUtilization &asked)
{
    const QString days = QString::number(asked.read.from.daysTo(asked.read.to));
    return {.layout = u"rptEquipmentUtilization_Single"_s,
            .filter = utilization(asked),
            .asked = units(asked.units),
            .texts = {{u"lblDateFrom"_s, rangeLabel(asked.read)}},
            .formulas = {{u"days"_s, days}}};
}

Request request(const WorkorderHistory &asked)
{
    return {.layout = asked.summary ? u"rptWorkorderHistorySummary"_s : u"rptWorkOrderHistory"_s,
            .filter = workorderHistory(asked),
            .asked = sentences(
                {units(asked.units), listed(u"work order"_s, u"work orders"_s, asked.numbers)})};
}

} // namespace filters
