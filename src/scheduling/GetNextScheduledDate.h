#pragma once

#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QString>

/// When an assigned service falls due next, by its row of tblServiceUsed and, for a meter service,
/// the machine's newest reading. Writes nothing: storing the date is the caller's job. Data, so
/// that it sees what an open transaction has written.
///
/// With UseGivenDate the given date stands for both the last scheduled and the last performed
/// date. The result is the date; the zero date for a meter service whose target isn't reached;
/// tomorrow, after a message, for a calendar service whose months, weeks or days are missing; today
/// when there is no such row. As a step of a whole it passes its error on.
[[nodiscard]] QDateTime GetNextScheduledDate(qint64 ServiceUsedID, bool UseGivenDate = false,
                                             const QDateTime &GivenDate = {});

/// The columns of tblServiceUsed that make up a schedule, as a select lists them.
[[nodiscard]] QString scheduleColumns();
/// GetNextScheduledDate of a schedule that has been read already, as if the service had just been
/// scheduled and performed on these dates. The row holds scheduleColumns. Raises what an
/// incomplete schedule raises. Data.
[[nodiscard]] QDateTime nextDateAfter(const db::Row &schedule, const QDateTime &scheduled,
                                      const QDateTime &performed);

/// The date of the machine's newest reading of a kind when it has reached the target, otherwise
/// (also without any reading) the zero date. Data.
void CheckMeterLogic(qint64 EquipmentID, const QString &CountType, qint64 NextScheduledCount,
                     QDateTime &Result);
