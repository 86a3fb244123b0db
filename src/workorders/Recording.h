#pragma once

#include "parts/PartSelection.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>
#include <optional>

/// Recording work on open orders, cell by cell: each operation is a write of its own that commits
/// at once. Data. No error crosses them; False means that nothing was written.
namespace recording {

/// Marks an order complete with a date, or, without one, open again. Unless its services are left
/// alone, they follow: all but the skipped ones are completed with their parts used, or all are
/// opened with their parts unused.
[[nodiscard]] bool UpdateWorkorder(qint64 WorkorderNo, const std::optional<QDate> &date,
                                   bool withServices = true);
/// Writes one column of an order.
[[nodiscard]] bool UpdateWorkorder2(qint64 WorkorderNo, const QString &Column,
                                    const QVariant &Value);
/// Writes one column of an order's service.
[[nodiscard]] bool UpdateWorkorderService(qint64 NServiceUsedID, const QString &Column,
                                          const QVariant &Value);
/// Marks a service completed or not, its parts used or not.
[[nodiscard]] bool UpdateWorkorderServiceComplete(qint64 NServiceUsedID, bool completed);
/// Completes a service that may have been skipped.
[[nodiscard]] bool completeService(qint64 NServiceUsedID);
/// Skips a service for a reason, which becomes its note: it is not completed, its parts not used.
[[nodiscard]] bool skipService(qint64 NServiceUsedID, const QString &reason);
/// Skips all services of an order for one reason, which replaces all their notes.
[[nodiscard]] bool skipAll(qint64 WorkorderNo, const QString &reason);
/// Writes one column of a part on an order's service.
[[nodiscard]] bool UpdateWorkorderPart(const QString &PartID, qint64 NServiceUsedID,
                                       const QString &Column, const QVariant &Value);
/// Writes the note of an order's service; the schedule's own note stays.
[[nodiscard]] bool updateNote(qint64 NServiceUsedID, const QString &note);
[[nodiscard]] bool IsServiceSkiped(qint64 NServiceUsedID);

/// Gives a service to another crew. The budgeted hours, not the hours worked, price it anew.
[[nodiscard]] bool changeCrew(qint64 NServiceUsedID, qint64 CrewID);
[[nodiscard]] double GetBudgetedHrs(qint64 NServiceUsedID);

/// Where the times of a service are written: on an open order or in history.
enum class TimesOf { OpenOrder, History };
/// Writes start, end and hours worked, and the cost that the crew's rate makes of the hours.
[[nodiscard]] bool saveTimes(qint64 id, TimesOf where, const QTime &start, const QTime &end,
                             const QTime &workHours);

/// Adds parts to an order's service, used or not.
[[nodiscard]] bool AddPartRecord(const QList<parts::Chosen> &chosen, qint64 NServiceUsedID,
                                 bool used);
[[nodiscard]] bool DeletePartRecord(qint64 NServiceUsedID, const QString &PartID);

/// Adds catalogue services to an order, without any schedule behind them, or a machine's services
/// with theirs; dated today. One that stands on the order already is passed over in silence.
enum class ServiceSource { Catalogue, Machine };
[[nodiscard]] bool AddServiceRecord(const QList<qint64> &ids, qint64 WorkorderNo,
                                    qint64 EquipmentID, ServiceSource source, bool completed);
/// Takes a service with its parts off an order.
[[nodiscard]] bool DeleteServiceRecord(qint64 NServiceUsedID);
/// An empty order for each of these machines, all or none; the number of the first, 0 for none.
[[nodiscard]] qint64 addUnscheduled(const QList<qint64> &equipmentIDs);
/// Marks orders as printed. Nothing for an empty list.
[[nodiscard]] bool UpdatePrintColInWorkOrder(const QList<qint64> &orders);

/// True when at least two services of an order are late, by the smaller of the two options; an
/// option of 0 means never.
[[nodiscard]] bool ISWorkOrderLate(qint64 WorkorderNo, QDate today);

} // namespace recording

/// How late a service's row is shown. Yellow is asked for only when no red is set: with both
/// options a service never turns yellow.
enum class Lateness { OnTime, Yellow, Red };
[[nodiscard]] Lateness lateness(const QDate &nextServiceDate, QDate today, int lateYellow,
                                int lateRed);
