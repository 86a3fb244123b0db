#include "workorders/PostingSteps.h"

#include "workorders/NumberList.h"
#include "workorders/OrderNames.h"

namespace posting {

using namespace Qt::StringLiterals;

QStringList listsOf(const QList<qint64> &numbers)
{
    QStringList lists;
    for (qsizetype at = 0; at < numbers.size(); at += LongestList)
        lists.append(numberList(numbers.mid(at, LongestList)));
    return lists;
}

bool concernsOneOrder(const base::Error &error)
{
    switch (error.number()) {
    case db::ErrorNumber::LockConflict:
    case base::ErrorNumber::InvalidCall:
    case base::ErrorNumber::InvalidUseOfNull:
    case base::ErrorNumber::Overflow:
        return true;
    default:
        return false;
    }
}

Obstacle obstacle(const base::Error &error, qint64 order, const QString &reason)
{
    return {error.number(), order,
            ordernames::sentence(ordernames::order(order), u"can't be posted: "_s + reason)};
}

void raiseObstacle(const Posted &service, const base::Error &error)
{
    if (error.number() != db::ErrorNumber::LockConflict)
        throw obstacle(error, service.order,
                       u"the schedule of its service \"%1\" can't be moved on (%2)."_s.arg(
                           service.name, error.description()));
    throw Obstacle(
        error.number(), service.order,
        ordernames::sentence(
            ordernames::order(service.order),
            u"can't be posted now: another workstation is changing the schedule or a part of its "
            "service \"%1\". Please try again in a moment."_s.arg(service.name)));
}

void raiseObstacle(qint64 order, const db::DbError &error)
{
    throw Obstacle(error.number(), order,
                   ordernames::sentence(ordernames::order(order),
                                        u"can't be posted now: another workstation is changing "
                                        "it. Please try again in a moment."_s));
}

} // namespace posting
