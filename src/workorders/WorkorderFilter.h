#pragma once

#include <QDate>
#include <QString>

/// What narrows the lists of the work-order screen.
struct WorkorderFilter
{
    QDate from; ///< first and last day of the window, both within it
    QDate to;
    QString crewRange;  ///< service crews: "1,3-5"; blank for all
    QString assignCrew; ///< the machines' crews, in the same form
};

/// The condition of a filter for a WHERE clause. The numbers go into it as they were typed: a
/// token such as "-5" gives a condition that the database refuses. A blank token ends a list, a
/// range without an end is dropped, and a second hyphen ends the list behind its range.
/// crewColumn: the column of the service crew's number, empty for "tblCrew.CrewNumber".
[[nodiscard]] QString BuildFilterExpression(const WorkorderFilter &filter,
                                            const QString &crewColumn = {},
                                            bool withAssignedCrew = false);

/// The same for a query that is about to run: a list that the database would refuse raises
/// base::Error in the user's words.
[[nodiscard]] QString filterCondition(const WorkorderFilter &filter, const QString &crewColumn = {},
                                      bool withAssignedCrew = false);

/// What follows a condition on services of machines (tblServiceUsed), to leave out those that are
/// on an order.
[[nodiscard]] QString onNoOrder();

/// The condition of what is due: within the filter, as above, and on no order. For statements on
/// tblServiceUsed.
[[nodiscard]] QString dueCondition(const WorkorderFilter &filter, const QString &crewColumn = {},
                                   bool withAssignedCrew = false);
