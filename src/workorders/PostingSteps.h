#pragma once

#include "platform/db/DbError.h"
#include "workorders/Posting.h"

#include <QList>
#include <QString>
#include <QStringList>

/// What the steps of a posting share: how their statements are cut, and how a failure names the
/// order that it concerns.
namespace posting {

/// How many numbers a list holds at most: few, since the database compares each row that it finds
/// with the numbers one after the other.
constexpr qsizetype LongestList = 25;

/// Numbers as lists for "in (...)". No list is empty.
[[nodiscard]] QStringList listsOf(const QList<qint64> &numbers);

/// A service on its way into history, as messages name it.
struct Posted
{
    qint64 id = 0; ///< NServiceUsedID
    qint64 order = 0;
    QString name;
};

/// True when leaving one order out is a way round the error.
[[nodiscard]] bool concernsOneOrder(const base::Error &error);
/// What is told of an order that can't be posted as it stands. error: what is in the way.
[[nodiscard]] Obstacle obstacle(const base::Error &error, qint64 order, const QString &reason);
/// Raises the Obstacle that an error in a service's step is, and a row of an order that another
/// workstation holds.
[[noreturn]] void raiseObstacle(const Posted &service, const base::Error &error);
[[noreturn]] void raiseObstacle(qint64 order, const db::DbError &error);

/// Runs the step of a service. What goes wrong in it is said of that service.
template<class Step>
auto stepOf(const Posted &service, Step &&step)
{
    try {
        return step();
    } catch (const Obstacle &) {
        throw;
    } catch (const base::Error &error) {
        if (!concernsOneOrder(error))
            throw;
        raiseObstacle(service, error);
    }
}

/// Runs the step of an order. A row that another workstation holds is said of that order.
template<class Step>
void stepOf(qint64 order, Step &&step)
{
    try {
        step();
    } catch (const db::DbError &error) {
        if (error.number() != db::ErrorNumber::LockConflict)
            throw;
        raiseObstacle(order, error);
    }
}

} // namespace posting
