#pragma once

#include <QString>
#include <QStringList>

/// The queries of the reports, up to the place of their filter. The names of tables and joins are
/// those that filters speak of.
namespace catalogue::queries {

/// Machines, short and with more columns.
[[nodiscard]] QString machineList(const QString &more = {});
/// Machines by crew; own: the column in which these lists differ.
[[nodiscard]] QString crewList(const QString &own);
[[nodiscard]] QString version5();
/// Grouped by machine and kind of count; a filter follows the grouping.
[[nodiscard]] QString version6();
[[nodiscard]] QString machineDetails();
[[nodiscard]] QString crewHistory();
/// What machines have cost; ends before the filter and its grouping.
[[nodiscard]] QString expenses();
[[nodiscard]] QString utilization();
[[nodiscard]] QString utilizationSingle();
/// Machines with one of their dates.
[[nodiscard]] QString dates(const QString &column);
/// Posted services with the sum of their parts; more columns with their joins to other tables.
[[nodiscard]] QString history(const QString &columns = {}, const QStringList &joins = {});
/// The grouping behind it, with the further columns.
[[nodiscard]] QString historyGroup(const QString &columns = {});
[[nodiscard]] QString servicesOfMachines();
[[nodiscard]] QString serviceList();
[[nodiscard]] QString historyTimes();
[[nodiscard]] QString inventory();
[[nodiscard]] QString reorder();
[[nodiscard]] QString upcoming();
[[nodiscard]] QString partUsage();
[[nodiscard]] QString partHistory();
[[nodiscard]] QString partHistorySummary();
[[nodiscard]] QString suppliers();
[[nodiscard]] QString employees();

/// A join of a machine's site, and of the crew that a posted service was for.
[[nodiscard]] QString siteJoin();
[[nodiscard]] QString serviceCrewJoin();

} // namespace catalogue::queries
