#pragma once

#include "platform/db/Recordset.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QTime>
#include <QVariant>
#include <optional>

/// What has been done on a machine: its posted services with their parts and notes, and how these
/// are corrected afterwards. A correction changes the past only: next dates, meters and the stock
/// stay as they are.
///
/// All work is done on Data, inside the transaction of whoever holds one. No error crosses the
/// writing functions; False means that nothing was written. The reading ones raise DbError.
///
/// Several workstations may correct the same service. Inside a whole (see core/ui/Telling.h) a
/// correction raises InTheWay for a service that another one holds or has deleted, and
/// record::Conflict for a column that holds something else by now than was shown.
namespace history {

/// What was shown of a column before it was corrected. Nothing: it is written whatever it holds.
using Shown = std::optional<QVariant>;

/// A period of days, both ends included; an invalid date leaves that end open.
struct Period
{
    QDate from{};
    QDate to{};
};

/// The services of a machine that were completed in a period.
[[nodiscard]] db::Recordset services(qint64 EquipmentID, const Period &period);
/// What the parts of these services cost, by ServiceUsedID; services without parts are missing.
[[nodiscard]] QHash<qint64, double> SetAllPastCost(qint64 EquipmentID, const Period &period);
/// What the parts of one service cost, rounded to two decimals; 0 without any.
[[nodiscard]] double SetPastCost(qint64 ServiceUsedID);
/// The parts that were used in a service.
[[nodiscard]] db::Recordset parts(qint64 ServiceUsedID);
/// The note of a service of an order.
[[nodiscard]] QString note(qint64 ServiceUsedID, qint64 WorkorderNo);

/// Writes one column of a service; Null for an empty value.
[[nodiscard]] bool UpdateEquipmentServiceHistory(qint64 ServiceUsedID, const QString &Column,
                                                 const QVariant &Value, const Shown &shown = {});
/// Gives a service to another crew, at what this crew costs today for the budgeted hours; the new
/// labour cost, nothing when it was not written.
[[nodiscard]] std::optional<double> changeCrew(qint64 ServiceUsedID, qint64 CrewID,
                                               double budgetedHours, const Shown &shown = {});
/// Writes one column of a part of a service.
[[nodiscard]] bool UpdatePartHistory(qint64 ServiceUsedID, const QString &PartID,
                                     const QString &Column, const QVariant &Value,
                                     const Shown &shown = {});
/// Writes a service's note in place of the one before.
[[nodiscard]] bool updateNote(qint64 ServiceUsedID, const QString &note, const Shown &shown = {});
/// Deletes a service and its parts.
[[nodiscard]] bool DeleteServiceHistoryRecord(qint64 ServiceUsedID);

/// The time of day that a text spells, "13:05", "1:5 pm" or "1:05P". An invalid one when none was
/// given, which a blank text and "00:00" mean; nothing when the text is no time.
[[nodiscard]] std::optional<QTime> timeOf(const QString &text);

/// What a typed time does to its service: the reason for which it is refused, or what to store.
struct TimeCorrection
{
    QString refusal{};
    QString stored{};                 ///< the time as rows hold it, empty for none
    std::optional<QString> WorkHrs{}; ///< the hours worked, where they follow from the times
};
/// A start lies before the end, where there is one; an end needs a start before it. Texts as rows
/// and cells hold them; both say what they do to the hours worked.
[[nodiscard]] TimeCorrection correctStart(const QString &typed, const QString &end);
[[nodiscard]] TimeCorrection correctEnd(const QString &typed, const QString &start);
/// Hours worked may be typed in spite of the times.
[[nodiscard]] TimeCorrection correctWorkHrs(const QString &typed);
/// Corrects StartTime, EndTime or WorkHrs to what was typed, by the other times as the service has
/// them now, and writes it unless it is refused. Nothing when it could not be written.
[[nodiscard]] std::optional<TimeCorrection> correctTime(qint64 ServiceUsedID, const QString &Column,
                                                        const QString &typed,
                                                        const Shown &shown = {});

} // namespace history
