#pragma once

#include "platform/db/Recordset.h"

#include <QHash>
#include <QString>
#include <QStringView>
#include <span>

/// All reports of the program: what each reads, how it asks and answers, and which layout prints
/// it. One row for each layout; a procedure that prints in several layouts has several rows.
namespace catalogue {

/// Where a report's filter has its place in the query.
enum class FilterPlace {
    Behind,     ///< behind the query's text, and the tail after it
    WholeQuery, ///< the caller's text is the query
};

/// A field that is summed once for each value of a key: rows of parts repeat their service's cost.
struct OnceField
{
    QStringView name;
    QStringView field;
    QStringView key;
};

struct Report
{
    QStringView layout;    ///< the layout file's name, without its ending
    QStringView procedure; ///< by which it is known to screens and error reports
    QStringView title;     ///< of the window
    QStringView query;     ///< up to the filter
    QStringView tail;      ///< behind the filter: grouping and order
    QStringView empty;     ///< what is said without rows
    /// Asked when the engine refuses the filter; empty where a failure is reported as any other.
    QStringView question;
    /// Asked when the filter compares values of different kinds; the first one where empty.
    QStringView mismatchQuestion{};
    FilterPlace place = FilterPlace::Behind;
    QStringView unfiltered{}; ///< stands in the filter's place when there is none
    QStringView filtered{};   ///< follows a filter, before the tail
    OnceField once{};
    bool addsLabor = false;    ///< the field Labor beside the sums of a summary of orders
    bool onlyDelivered = false; ///< no layout of the customer's own takes its place
};

/// The rows in the order in which the menus offer their reports.
[[nodiscard]] std::span<const Report> reports();
/// The report of a layout; raises base::Error NoSuchItem for a name that the catalogue lacks.
[[nodiscard]] const Report &reportOf(QStringView layout);

/// What a report is asked for.
struct Request
{
    QString layout;
    QString filter{}; ///< a clause with its keyword, or the whole query where the report takes one
    QString asked{};  ///< range and filter in plain words, printed as the object lblAsked
    QHash<QString, QString> texts{};    ///< of further named objects
    QHash<QString, QString> formulas{}; ///< expressions in place of the layout's, by name
};

/// The report's statement with this filter.
[[nodiscard]] QString statement(const Report &report, const QString &filter);
/// Its rows. Data; raises DbError, also for a text that does more than read.
[[nodiscard]] db::Recordset open(const Report &report, const QString &filter);
/// The named texts that the program knows by itself: the company's name, the labels of free fields,
/// what the error report tells of the computer. Lookup.
[[nodiscard]] QHash<QString, QString> namedTexts(const Report &report);

} // namespace catalogue
