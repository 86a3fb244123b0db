#pragma once

#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <functional>
#include <span>

/// Meter readings of machines and what they change. Data; all raise DbError, so that a caller's
/// transaction is rolled back with them. The four count types are "Counts", "Hours", "Kilometers"
/// and "Miles", with the period codes C, H, K and I.
namespace readings {

/// The count type of a period code, empty for a calendar period.
[[nodiscard]] QString countType(const QString &periodCode);
/// The period code of a count type, empty for another word.
[[nodiscard]] QString periodCode(const QString &countType);

struct Reading
{
    QDateTime date; ///< the zero date when there is none
    qint64 value = 0;
};

/// The newest reading of a machine: by date, and of one date the highest.
[[nodiscard]] Reading newest(qint64 EquipmentID, const QString &countType);
/// All readings of a machine as its page lists them.
[[nodiscard]] db::Recordset list(qint64 EquipmentID);
/// True when the machine has any reading of that type.
[[nodiscard]] bool hasAny(qint64 EquipmentID, const QString &countType);
/// True while a service of that type is on an open order of the machine: no reading may then be
/// added by hand.
[[nodiscard]] bool isInProcess(qint64 EquipmentID, const QString &countType);

/// Stores a reading as it is. There is no other way by which one comes into the database.
void store(qint64 EquipmentID, const QDateTime &date, const QString &countType, qint64 value);
/// Stores a reading and gives the machine's waiting count services their dates.
void add(qint64 EquipmentID, const QDateTime &date, const QString &countType, qint64 value);
/// Takes a reading away, and those that equal it. What it has changed in services stays.
void remove(qint64 EquipmentID, const Reading &reading, const QString &countType);
/// Gives every count service of the machine that has no date yet, whatever its type, the date of
/// the reading that reached its target. Moves no date that is set, and no target.
void applyToServices(qint64 EquipmentID);

/// A count service that has no date yet.
struct Waiting
{
    qint64 ServiceUsedID = 0;
    qint64 EquipmentID = 0;
    QString countType;
    qint64 target = 0;
};
/// Those of several machines, whose keys are given as numbers with commas between them.
[[nodiscard]] QList<Waiting> waitingServices(const QString &machines);
/// The step of applyToServices for one of them.
void applyTo(const Waiting &service);

/// Asks the user for the reading at which a service was last performed. Returns True when one was
/// saved; the count type may have been changed by then.
using FirstReadingAsker = std::function<bool(qint64 EquipmentID, qint64 ServiceUsedID,
                                             const QString &ServiceName, QString &CountType)>;
/// Set by the screen that asks. Without one nobody is asked.
void setFirstReadingAsker(FirstReadingAsker asker);
/// Makes sure that a machine has a reading to count from: asks, and when none is given stores 0 as
/// of today. Changes the count type as the user did.
void addFirst(qint64 EquipmentID, qint64 ServiceUsedID, const QString &ServiceName,
              QString &CountType);

/// Days without a reading after which a meter is asked for (option COUNT_READING_DELAY).
[[nodiscard]] int delay();
/// The meters that have not been read for that many days: EquipmentID, UnitNo, "Equipment Name",
/// CountType, "Last Date", "Last Count", by UnitNo. A machine never read is not among them, and
/// every type that a machine was ever read in is.
[[nodiscard]] db::Recordset due(int delayDays);
/// The statement of these rows.
[[nodiscard]] QString dueStatement(int delayDays);

/// A row of the batch sheet.
struct Entry
{
    qint64 EquipmentID = 0;
    QString CountType;
    qint64 Value = 0;
};
/// Stores a batch dated today. A row whose type is in process is told to the user and passed over.
/// Joins or opens the shared transaction and commits it; nothing is stored when a row fails.
void saveBatch(std::span<const Entry> entries);

/// What the user is told about a reading that isInProcess refuses.
[[nodiscard]] QString inProcessMessage();

} // namespace readings
