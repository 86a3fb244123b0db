#pragma once

#include "platform/db/Recordset.h"

#include <QString>
#include <QVariant>
#include <span>

/// The shared procedures that screens and managers call: identifiers, row tests, recordset
/// getters, options, registry values and small conversions. No error crosses one of them: it goes
/// to ErrorHandler, and the procedure returns its default. "Data" and "Lookup" name the connection
/// that a procedure uses, gcnData or gcnLookup.

/// Reports an error and waits until its form is closed; False without one (number 0), else True.
bool ErrorHandler(const QString &ModuleName, const QString &ProcedureName, int ErrNumber,
                  const QString &ErrDescription, const QString &ExtraText = {}, int LineNumber = 0);

// --- Identifiers and row tests -------------------------------------------------------------------

/// Highest value of a column plus one, 1 for an empty table. Data.
[[nodiscard]] qint64 GenerateID(const QString &Table, const QString &Column);
/// The same on Lookup.
[[nodiscard]] qint64 GenerateIDWithIndicator(const QString &Table, const QString &Column);
/// The current time as the digits MMddHHmmss; two calls in one second are equal.
[[nodiscard]] qint64 GenrateUniqueID();
/// 32 upper-case hexadecimal digits of a new GUID.
[[nodiscard]] QString GetGUID();
/// Number of rows that meet the SQL condition Where; a blank one counts all. Data.
[[nodiscard]] qint64 GetRecordCount(const QString &Table, const QString &Where);
/// True when a row has Value in Field. Type "S" compares text, "N" a number; any other is an
/// error. Data.
[[nodiscard]] bool IsRecordUsed(const QString &Table, const QString &Field, const QString &Value,
                                const QString &Type);
/// True when NewValue differs from OldValue (trimmed, without regard to case) and a row has it.
/// Data.
[[nodiscard]] bool IsDuplicate(const QString &Table, const QString &Column,
                               const QVariant &OldValue, const QString &NewValue, bool Numeric);
/// True when the assignment stands on an open work order. Data.
[[nodiscard]] bool ServiceInWorkOrder(qint64 ServiceUsedID);
/// True when the country list holds this name in exactly this case. Lookup.
[[nodiscard]] bool ChkCountryExist(const QString &Name);

// --- Recordset getters ---------------------------------------------------------------------------

/// All columns of a table; Order and Where are SQL texts without their keyword, or empty. Data.
/// An unknown table is reported as "Invalid Table Name", an unknown column as "Invalid Column
/// Name".
[[nodiscard]] db::Recordset GetTableInfo(const QString &Table, const QString &Order = {},
                                         const QString &Where = {});
/// The same on Lookup.
[[nodiscard]] db::Recordset GetTableInfoWithIndicator(const QString &Table,
                                                      const QString &Order = {},
                                                      const QString &Where = {});
/// The members of a lookup list; without ShowAll only those offered. Lookup.
[[nodiscard]] db::Recordset GetIndicatorInfo(qint64 ParentID, bool ShowAll, bool OrderByName);
/// CrewID, and as CrewNumber the number, three blanks and the description. Lookup.
[[nodiscard]] db::Recordset GetCrewInfo();
/// The crew of a row of a service table, 0 without one. Data.
[[nodiscard]] qint64 GetCrewIDByService(qint64 Id, const QString &Table);

// --- Options, registry, readings -----------------------------------------------------------------

/// An option's text, "" when it is missing or the workstation has no GUID. Lookup.
[[nodiscard]] QString GetOption(const QString &Key, bool PerWorkstation);
/// The date that the workstation keeps under an option, Fallback without one. Lookup.
[[nodiscard]] QDate dateOption(const QString &Key, QDate Fallback);
/// Writes an option. One of the workstation's own that another program holds locked keeps its
/// former value, without a word. Lookup.
void SetOption(const QString &Key, const QVariant &Value, bool PerWorkstation);
/// The newest reading of a kind ("Counts", "Hours", "Kilometers", "Miles"), 0 without one. Data.
[[nodiscard]] qint64 GetEquipmentCount(qint64 EquipmentID, const QString &CountType);
/// The same by period code; a code outside the list is taken as it stands.
[[nodiscard]] qint64 GetEquipmentCountByCode(qint64 EquipmentID, const QString &PeriodCode);
/// The word of a period code: "D" gives "Days"; another text is given back.
[[nodiscard]] QString PeriodWord(const QString &PeriodCode);

/// The program's version, dotted.
[[nodiscard]] QString GetVersionNo();
[[nodiscard]] QString GetRegistryValue(const QString &Name);
void SetRegistryValue(const QString &Name, const QString &Value);
[[nodiscard]] QString GetMakerRegistryValue(const QString &Name);

// --- Small conversions ---------------------------------------------------------------------------

/// True when an element from index 1 on is 1.
[[nodiscard]] bool CheckArray(std::span<const int> Values);
/// "h:mm" of a number of minutes.
[[nodiscard]] QString ChangeMinuteInHour(int Minutes);
/// Starts a program and waits until it has ended, however long that takes.
void RunAndWait(const QString &CommandLine);
/// The system's folder chooser; empty on cancel.
[[nodiscard]] QString BrowseForFolder(const QString &Title);
/// True for an address in order; otherwise Message says what is wrong.
[[nodiscard]] bool ValidateEmail(const QString &Address, QString &Message);

// --- Labour --------------------------------------------------------------------------------------

/// Mean hourly labour cost of a crew's counted employees, two decimals, 0 without any. Data.
[[nodiscard]] double SetLaborCost(qint64 CrewID);
/// Recomputes the labour estimates of a crew's assigned and ordered services. Data.
[[nodiscard]] bool ChangeServiceLabourEstimate(qint64 CrewID);
/// Adds a row to a machine's crew history. Data.
[[nodiscard]] bool ChangeCrew(qint64 EquipmentID, const QString &CrewNumber,
                              const QString &CrewDescription);
