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
/// The fifth form of the equipment list, whose columns differ from those of all others.
[[nodiscard]] QString version5();
/// Grouped by machine and kind of count; a filter follows the grouping.
[[nodiscard]] QString version6();
/// All that a machine's screen shows, with the names of what it only keeps by key.
[[nodiscard]] QString machineDetails();
/// A row for each crew that a machine has been with.
[[nodiscard]] QString crewHistory();
/// What machines have cost; ends before the filter and its grouping.
[[nodiscard]] QString expenses();
/// What a machine has run between its first and its last reading, by the day and as a share of it;
/// ends in a condition that the filter goes on from.
[[nodiscard]] QString utilization();
/// A row for each reading of a machine, with the one before it.
[[nodiscard]] QString utilizationSingle();
/// Machines with one of their dates.
[[nodiscard]] QString dates(const QString &column);
/// Posted services with the sum of their parts; more columns with their joins to other tables.
[[nodiscard]] QString history(const QString &columns = {}, const QStringList &joins = {});
/// The grouping behind it, with the further columns.
[[nodiscard]] QString historyGroup(const QString &columns = {});
/// The services that machines have, and those of the catalogue, with their period as a word.
[[nodiscard]] QString servicesOfMachines();
[[nodiscard]] QString serviceList();
/// Posted services with the hours that they took.
[[nodiscard]] QString historyTimes();
/// The parts with their category and supplier.
[[nodiscard]] QString inventory();
/// Ends in a keyword: the filter is the condition itself.
[[nodiscard]] QString reorder();
/// How much of each part services ask for, beside what is in stock.
[[nodiscard]] QString upcoming();
/// The services of machines that ask for parts, a row for each part.
[[nodiscard]] QString partUsage();
/// Parts that posted services have used, row by row or summed by part.
[[nodiscard]] QString partHistory();
[[nodiscard]] QString partHistorySummary();
/// Addresses, with the names of what their tables only keep by key.
[[nodiscard]] QString suppliers();
[[nodiscard]] QString employees();

/// A join of a machine's site, and of the crew that a posted service was for.
[[nodiscard]] QString siteJoin();
[[nodiscard]] QString serviceCrewJoin();

} // namespace catalogue::queries
