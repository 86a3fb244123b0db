#pragma once

#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// The sheets on which machines get new dates of one kind: those of their inspection and those on
/// which their licence is renewed.
namespace datesheet {

/// What the sheets differ in.
struct Sheet
{
    QString form;       ///< name of the screen
    QString title;      ///< of the screen
    QString column;     ///< of tblEquipment
    QString grid;       ///< names of controls
    QString dateFrom;   ///< likewise
    QString dateTo;     ///< likewise
    QString optionFrom; ///< where a workstation keeps the range
    QString optionTo;   ///< likewise
    QString oldCaption;
    QString newCaption; ///< also the name of the column in the grid
    QString refusal;    ///< of a date that isn't later; "%1" is the old one
    QString report;     ///< procedure that prints it
    const char *module; ///< label of its errors
    const char *rule;   ///< label of errors of its change rule
    const char *button; ///< procedure of its buttons, for errors
};

[[nodiscard]] const Sheet &inspection();
[[nodiscard]] const Sheet &license();

/// The machines, inactive ones too, whose date lies in the range, each with the caption of its
/// button in [Select]. Data. Raises DbError.
[[nodiscard]] db::Recordset machines(const Sheet &sheet, QDate from, QDate to);
/// The filter of the same machines for the report.
[[nodiscard]] QString filterText(const Sheet &sheet, QDate from, QDate to);

/// The same day of the next year, 28 February after a 29th.
[[nodiscard]] QDateTime oneYearLater(const QDateTime &date);
/// Why a new date is refused; empty when it is later than the old one.
[[nodiscard]] QString refusalOf(const Sheet &sheet, const QDateTime &oldDate,
                                const QDateTime &newDate);

struct NewDate
{
    qint64 EquipmentID = 0;
    QString unitNo{};
    QDateTime shown{}; ///< the date that the new one follows
    QDateTime date{};
};
/// Stores the new dates of the machines that still have the date that was shown. A line for each of
/// the others comes back, with both dates. Raises InTheWay when another workstation holds a
/// machine, and DbError; none is stored then. Data.
[[nodiscard]] QStringList save(const Sheet &sheet, const QList<NewDate> &dates);

} // namespace datesheet
