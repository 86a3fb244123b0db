#pragma once

#include "reporting/Catalogue.h"
#include "reporting/FilterText.h"

/// What the filter screens ask of the catalogue: the report with its layout, the clause, and the
/// question in plain words for the printed page. All raise DbError Syntax for a filter that can't
/// be one.
namespace filters {

/// The values of a list in plain words, "Units A-11, 001."; "All units." for a blank one. A word
/// for one and for several.
[[nodiscard]] QString listed(const QString &one, const QString &several, const QString &values);
/// "03/15/2023 - 03/15/2024".
[[nodiscard]] QString rangeLabel(const DateRange &range);

/// A request for each set of fields; reports that share a set are told apart by their names.
[[nodiscard]] catalogue::Request equipmentServicesRequest(const Machines &asked);
[[nodiscard]] catalogue::Request equipmentDetailsRequest(const Machines &asked);
[[nodiscard]] catalogue::Request equipmentExpenseRequest(const Machines &asked);
[[nodiscard]] catalogue::Request inspectionRequest(const DateRange &asked);
[[nodiscard]] catalogue::Request licenseRequest(const DateRange &asked);
[[nodiscard]] catalogue::Request request(const Parts &asked);
[[nodiscard]] catalogue::Request request(const Reorder &asked);
[[nodiscard]] catalogue::Request partUsageRequest(const QString &parts);
[[nodiscard]] catalogue::Request request(const CrewHistory &asked);
[[nodiscard]] catalogue::Request request(const PartHistory &asked);
[[nodiscard]] catalogue::Request request(const HistoryTimes &asked);
[[nodiscard]] catalogue::Request request(const UpcomingParts &asked);
[[nodiscard]] catalogue::Request request(const EquipmentList &asked);
[[nodiscard]] catalogue::Request wideListRequest(const QString &types, const QString &crews);
[[nodiscard]] catalogue::Request request(const ServiceHistory &asked);
[[nodiscard]] catalogue::Request request(const Scans &asked);
[[nodiscard]] catalogue::Request request(const NotScanned &asked);
[[nodiscard]] catalogue::Request request(const Utilization &asked);
[[nodiscard]] catalogue::Request request(const SingleUtilization &asked);
[[nodiscard]] catalogue::Request request(const WorkorderHistory &asked);

} // namespace filters
