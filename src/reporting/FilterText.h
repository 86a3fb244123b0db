#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

/// What the filters of reports come to: the clause that a report's query takes, made of what the
/// user typed and picked. One value and one clause for each set of fields; a list of values that is
/// blank asks for all. A range without both of its dates raises DbError Syntax, as the engine
/// would.
namespace filters {

/// The values between the delimiters, as they stand; one that begins or ends with a double quote is
/// left out.
[[nodiscard]] QStringList valuesOf(const QString &text, QChar delimiter = u',');
/// The same as texts of a clause: apostrophes doubled, in apostrophes and joined by ", ".
[[nodiscard]] QString QuoteValueList(const QString &text, QChar delimiter = u',');
/// Numbers and ranges such as "1-11,21" as a condition on a column. Raises DbError Syntax for a
/// piece that is neither.
[[nodiscard]] QString BuildFilterExpression(const QString &text,
                                            const QString &field = QStringLiteral("workorderno"));
/// The date as it stands in a clause and in the fields, "03/15/2024".
[[nodiscard]] QString dateText(QDate date);

struct DateRange
{
    QDate from{};
    QDate to{};
};

/// Machines by their unit numbers.
struct Machines
{
    QString units{};
    bool inactive = false; ///< inactive ones too
};
/// The same fields for three reports, whose queries name their columns in their own way.
[[nodiscard]] QString equipmentServices(const Machines &asked);
[[nodiscard]] QString equipmentDetails(const Machines &asked);
[[nodiscard]] QString equipmentExpense(const Machines &asked);

/// Machines that are inspected, or whose licenses are renewed, in the range.
[[nodiscard]] QString inspectionDates(const DateRange &asked);
[[nodiscard]] QString licenseDates(const DateRange &asked);

struct Parts
{
    QString categories{};
    QString suppliers{};
    bool inactive = false; ///< these only, otherwise those in use only
};
/// Ends in the condition on inactive parts, which is there also without a value.
[[nodiscard]] QString inventory(const Parts &asked);

struct Reorder
{
    QString categories{};
    QString suppliers{};
    bool lessOrders = false; ///< reckons with what open work orders will take
};
/// Follows a condition of the query, so that it has no keyword of its own.
[[nodiscard]] QString reorder(const Reorder &asked);

/// parts: part numbers.
[[nodiscard]] QString partUsage(const QString &parts);

struct CrewHistory
{
    QString names{}; ///< of machines
    QString crews{}; ///< numbers
};
/// Machines by name, and the crews that they have been with.
[[nodiscard]] QString crewHistory(const CrewHistory &asked);

enum class PartHistoryForm { DetailByPart, DetailByDate, Summary };
struct PartHistory
{
    DateRange completed{};
    QString parts{};
    PartHistoryForm form = PartHistoryForm::DetailByPart;
};
/// Parts that were used in the range. The form changes only the layout.
[[nodiscard]] QString partHistory(const PartHistory &asked);

struct HistoryTimes
{
    DateRange completed{};
    QString names{}; ///< of machines
    bool byDate = false;
};
/// Services that were completed in the range. byDate changes only the layout.
[[nodiscard]] QString historyTimes(const HistoryTimes &asked);

struct UpcomingParts
{
    DateRange due{};
    QString suppliers{};
};
/// Parts of services that come due in the range, by supplier.
[[nodiscard]] QString upcomingParts(const UpcomingParts &asked);

/// The six forms of the equipment list.
enum class ListVersion { One = 1, Two, Three, Four, Five, Six };
struct EquipmentList
{
    ListVersion version = ListVersion::One;
    QString types{};
    QString crews{};
    QString sites{};
    bool groupOnSite = false;
    bool inactive = false; ///< inactive machines too
};
/// Which of its fields a version takes notice of.
struct ListFields
{
    bool types = true; ///< and crews
    bool sites = true;
    bool groupOnSite = true;
};
[[nodiscard]] ListFields fieldsOf(ListVersion version);
/// Takes the fields that the version takes notice of. Of a version that groups it is a condition on
/// the groups.
[[nodiscard]] QString equipmentList(const EquipmentList &asked);
/// The wide list, of inactive machines too.
[[nodiscard]] QString wideEquipmentList(const QString &types, const QString &crews);

enum class HistoryGroup { None, Site, Crew };
struct ServiceHistory
{
    DateRange completed{};
    QString sites{}; ///< counts when grouped on site
    QString units{}; ///< counts when not grouped
    HistoryGroup group = HistoryGroup::None;
};
/// Services that were completed in the range; by crew those of all crews.
[[nodiscard]] QString serviceHistory(const ServiceHistory &asked);

struct Scans
{
    DateRange scanned{};
    QString units{};
    bool byTime = false; ///< sorted by time first, otherwise by unit number
};
/// The whole query: the last scan of each machine that was scanned in the range.
[[nodiscard]] QString lastScans(const Scans &asked);

struct NotScanned
{
    QDate today{};
    QString days{}; ///< digits; blank goes two days back
    bool byTime = false;
};
/// The number of days back.
[[nodiscard]] int daysBack(const NotScanned &asked);
/// The whole query: machines that have no scan since then.
[[nodiscard]] QString notScanned(const NotScanned &asked);

struct Utilization
{
    DateRange read{};
    QString types{};
    QString crews{};
};
/// Follows a condition of the query, as reorder does.
[[nodiscard]] QString utilization(const Utilization &asked);
struct SingleUtilization
{
    DateRange read{};
    QString units{};
};
/// Readings of single machines; the query has no condition before it.
[[nodiscard]] QString utilization(const SingleUtilization &asked);

struct WorkorderHistory
{
    QString units{};
    QString numbers{}; ///< of work orders, and ranges of them
    bool summary = false;
};
/// The whole query.
[[nodiscard]] QString workorderHistory(const WorkorderHistory &asked);

} // namespace filters
