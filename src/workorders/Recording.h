#pragma once

#include "parts/PartSelection.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>
#include <optional>

/// Recording work on open orders, cell by cell: each operation is a write of its own that commits
/// at once. Data. False means that nothing was written, and the error has been reported.
///
/// Several workstations record on one order. What another one has posted, removed or deleted, or
/// holds at this moment, raises InTheWay inside a whole (see core/ui/Telling.h), with a sentence
/// that names it. Where it is given what a cell showed, a cell that holds something else by now
/// raises record::Conflict. Outside of a whole both are reported like any error.
namespace recording {

/// What was shown of a column before it was changed. Nothing: it is written whatever it holds.
using Shown = std::optional<QVariant>;

/// Marks an order complete with a date, or, without one, open again. Unless its services are left
/// alone, they follow: all but the skipped ones are completed with their parts used, or all are
/// opened with their parts unused.
[[nodiscard]] bool UpdateWorkorder(qint64 WorkorderNo, const std::optional<QDate> &date,
                                   bool withServices = true, const Shown &shownDate = {});
/// The same as a step of something larger, on an order that is there. Raises DbError.
void writeCompletion(qint64 WorkorderNo, const std::optional<QDate> &date, bool withServices);
/// Writes one column of an order.
[[nodiscard]] bool UpdateWorkorder2(qint64 WorkorderNo, const QString &Column,
                                    const QVariant &Value);
/// Writes one column of an order's service.
[[nodiscard]] bool UpdateWorkorderService(qint64 NServiceUsedID, const QString &Column,
                                          const QVariant &Value, const Shown &shown = {});
/// Marks a service completed or not, its parts used or not.
[[nodiscard]] bool UpdateWorkorderServiceComplete(qint64 NServiceUsedID, bool completed);
/// Completes a service, which may have been skipped, or opens it again. Its order, if it was
/// complete, is so no longer; the other services stay as they are.
[[nodiscard]] bool completeService(qint64 NServiceUsedID, bool completed = true);
/// Skips a service for a reason, which becomes its note: it is not completed, its parts not used,
/// and its order, if it was complete, is so no longer.
[[nodiscard]] bool skipService(qint64 NServiceUsedID, const QString &reason);
/// Skips all services of an order for one reason, which replaces all their notes.
[[nodiscard]] bool skipAll(qint64 WorkorderNo, const QString &reason);
/// Writes one column of a part on an order's service.
[[nodiscard]] bool UpdateWorkorderPart(const QString &PartID, qint64 NServiceUsedID,
                                       const QString &Column, const QVariant &Value,
                                       const Shown &shown = {});
/// Writes the note of an order's service; the schedule's own note stays.
[[nodiscard]] bool updateNote(qint64 NServiceUsedID, const QString &note, const Shown &shown = {});
/// Writes the note of a machine's service, ahead of any order.
[[nodiscard]] bool updateScheduleNote(qint64 ServiceUsedID, const QString &note,
                                      const Shown &shown = {});
/// The note of an order's service, and of a machine's; empty without one. Raise DbError.
[[nodiscard]] QString noteOf(qint64 NServiceUsedID);
[[nodiscard]] QString scheduleNoteOf(qint64 ServiceUsedID);
/// True while an order, or an order's service, is there. Raise DbError.
[[nodiscard]] bool isOpen(qint64 WorkorderNo);
[[nodiscard]] bool isOnOpenOrder(qint64 NServiceUsedID);
/// True when a service of an open order is skipped; False also when it is there no more.
[[nodiscard]] bool IsServiceSkiped(qint64 NServiceUsedID);

/// Gives a service to another crew. The budgeted hours, not the hours worked, price it anew: the
/// new labour cost, nothing when it was not stored.
[[nodiscard]] std::optional<double> changeCrew(qint64 NServiceUsedID, qint64 CrewID,
                                               const Shown &shown = {});
/// The hours that are budgeted for a service of an open order; 0 when it is there no more.
[[nodiscard]] double GetBudgetedHrs(qint64 NServiceUsedID);

/// What follows from the times that were entered for a service.
struct WorkSpan
{
    QTime end;
    QTime hours;
};
/// An end before the start lies in the next morning when that makes at most twelve hours; a longer
/// time is no night's work but an end that still has to be entered, and becomes the start. Midnight
/// is an end only when it was given as one.
[[nodiscard]] WorkSpan workSpan(QTime start, QTime end, bool endIsGiven);

/// Where the times of a service are written: on an open order or in history.
enum class TimesOf { OpenOrder, History };
/// When work on a service began and ended, and how long it took; midnight where nothing was given.
struct Times
{
    QTime start;
    QTime end;
    QTime hours;
    bool operator==(const Times &) const = default;
};
/// As rows hold them, "h:mm" with one or two digits of hours.
[[nodiscard]] Times timesOf(const QString &start, const QString &end, const QString &hours);
/// "08:00 to 10:30, 2:30 hours", for the user.
[[nodiscard]] QString inWords(const Times &times);
/// Writes the times, and the cost that the crew's rate makes of the hours. Inside a whole
/// raises record::Conflict, with start, end and hours as its differences, when the service holds
/// neither these nor those that were shown.
[[nodiscard]] bool saveTimes(qint64 id, TimesOf where, const Times &times,
                             const std::optional<Times> &shown = {});

/// Adds parts to an order's service, used or not.
[[nodiscard]] bool AddPartRecord(const QList<parts::Chosen> &chosen, qint64 NServiceUsedID,
                                 bool used);
/// Takes a part off an order's service. One that is gone already counts as taken off.
[[nodiscard]] bool DeletePartRecord(qint64 NServiceUsedID, const QString &PartID);

/// Adds catalogue services to an order, without any schedule behind them, or a machine's services
/// with theirs; dated today. One that stands on the order already is passed over in silence.
/// partsUsed: whether their parts are marked as used.
enum class ServiceSource { Catalogue, Machine };
[[nodiscard]] bool AddServiceRecord(const QList<qint64> &ids, qint64 WorkorderNo,
                                    qint64 EquipmentID, ServiceSource source, bool completed,
                                    bool partsUsed = false);
/// True when one of these catalogue services needs parts. Raises DbError.
[[nodiscard]] bool needParts(const QList<qint64> &ServiceIDs);
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
/// The limits are days after the next date, which itself is day 0; a limit of 0 is none. A service
/// without a date is on time.
[[nodiscard]] Lateness lateness(const QDate &nextServiceDate, QDate today, int lateYellow,
                                int lateRed);
