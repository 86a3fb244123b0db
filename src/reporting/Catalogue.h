#pragma once

#include "platform/db/Recordset.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

/// All reports of the program: what each reads, how it asks and answers, and which layout prints
/// it. One row for each layout; a procedure that prints in several layouts has several rows.
namespace catalogue {

/// A field that is summed once for each value of a key: rows of parts repeat their service's cost.
struct OnceField
{
    QString name;
    QString field;
    QString key;
};

struct Report
{
    QString layout;       ///< the layout file's name, without its ending
    QByteArray procedure; ///< by which screens and error reports know it
    QString title;        ///< of the window
    QString query{};      ///< up to the filter; empty where the caller's text is the whole query
    QString tail{};       ///< behind the filter: grouping and order
    QString empty{};      ///< what is said without rows
    QString question{};   ///< asked when the engine refuses the filter; empty: an error like others
    QString mismatchQuestion{}; ///< asked when it compares unlike kinds; empty: the same question
    QString unfiltered{};       ///< stands in the filter's place when there is none
    QString filtered{};         ///< follows a filter, before the tail
    OnceField once{};
    bool addsLabor = false;     ///< the field Labor beside the sums of a summary of orders
    bool onlyDelivered = false; ///< no layout of the customer's own takes its place
};

/// The rows, those of one menu together.
[[nodiscard]] const QList<Report> &reports();
/// The report of a layout; raises base::Error NoSuchItem for a name that the catalogue lacks.
[[nodiscard]] const Report &reportOf(const QString &layout);

/// What a report is asked for.
struct Request
{
    QString layout{};
    QString filter{}; ///< a clause with its keyword, or the whole query where the report takes one
    QString asked{};  ///< range and filter in plain words, printed as the object lblAsked
    QHash<QString, QString> texts{};    ///< of further named objects
    QHash<QString, QString> formulas{}; ///< expressions in place of the layout's, by name
    /// Answers to the parameters of the customer's own layout, by name in lower case.
    QHash<QString, QVariant> answers{};
};

/// The report's statement with this filter.
[[nodiscard]] QString statement(const Report &report, const QString &filter);
/// Its rows, read in a transaction that can't write. Data, or while a transaction is open there a
/// connection beside it; raises DbError, ReadOnly for a text that does more than read.
[[nodiscard]] db::Recordset open(const Report &report, const QString &filter);
/// The named texts that the program knows by itself: the company's name, the labels of a machine's
/// free fields, what the error report tells of the computer. Lookup.
[[nodiscard]] QHash<QString, QString> namedTexts(const Report &report);

} // namespace catalogue
