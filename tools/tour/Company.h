#pragma once

#include "platform/db/Connection.h"

#include <QDate>

namespace tour {

/// A service of a machine, as it stands in the machine's schedule.
struct Service
{
    qint64 id = 0; ///< ServiceUsedID
    QString name;
    QString period;  ///< the period code
    QString renewal; ///< RenewalOn
    QDate next;      ///< NextScheduledDate
    qint64 target = 0;
    qint64 interval = 0;
    qint64 crew = 0;
    bool separate = false;
    QDate lastScheduled;
    QDate lastPerformed;
    int trackedParts = 0; ///< parts that leave the stock when they are used

    /// The count type of a service by the meter, empty for one by the calendar.
    [[nodiscard]] QString meter() const;
    [[nodiscard]] bool isOneOff() const { return renewal == u"D"; }
};

/// True for a service that comes back by the meter, one that comes back by the calendar, and one
/// with parts that leave the stock.
[[nodiscard]] bool isByMeter(const Service &service);
[[nodiscard]] bool isByCalendar(const Service &service);
[[nodiscard]] bool takesParts(const Service &service);

struct Machine
{
    qint64 id = 0;
    QString unitNo;
    QString name;
    QList<Service> services; ///< those that are due

    /// One for each crew's common work, one for each service that goes alone.
    [[nodiscard]] int ordersToCome() const;
};

/// Numbers in their order, parted by commas.
[[nodiscard]] QString list(QList<qint64> numbers);

/// The machines that the tour works on: one with everything, one of which a service is skipped, and
/// one whose meter nobody reads.
struct Cast
{
    Machine serviced;
    Machine skipped;
    Machine unread;

    [[nodiscard]] QList<Machine> all() const { return {serviced, skipped, unread}; }
};

/// The company's database as another workstation sees it, by statements of the tour's own: what a
/// screen shows is held against what is stored.
class Company
{
public:
    /// Attaches by itself; raises DbError. today: the day of the tour.
    Company(const db::Target &database, QDate today);

    /// Raises DbError, as all that follows.
    [[nodiscard]] db::Recordset rows(const QString &statement, const QVariantList &parameters = {});
    /// The first value of the first row as a number; 0 without rows.
    [[nodiscard]] qint64 number(const QString &statement, const QVariantList &parameters = {});

    /// Picks the machines out of those with work that fell due in the last 30 days and is on no
    /// order. Raises a Fault when there are none of their kind.
    [[nodiscard]] Cast choose();
    /// As its schedule stands now; raises a Fault when the machine has lost it.
    [[nodiscard]] Service service(qint64 ServiceUsedID);
    /// Rows of the board: orders that are not complete, and machines with overdue work.
    [[nodiscard]] qint64 openOrders();
    /// The numbers of all orders that are not posted.
    [[nodiscard]] QStringList orderNumbers();
    [[nodiscard]] qint64 overdueMachines();
    /// The newest reading of a meter.
    [[nodiscard]] qint64 reading(qint64 EquipmentID, const QString &meter);
    /// The open orders of a machine that hold work of these services.
    [[nodiscard]] QList<qint64> ordersOf(const Machine &machine);

    [[nodiscard]] QDate today() const { return m_today; }
    [[nodiscard]] QDate boardBegin() const { return m_today.addDays(-30); }

private:
    [[nodiscard]] QList<Machine> machinesWithDueWork();

    db::Connection m_connection;
    QDate m_today;
};

} // namespace tour
