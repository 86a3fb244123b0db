#pragma once

#include "core/Mode.h"
#include "core/RecordFields.h"
#include "platform/db/Recordset.h"

#include <QDateTime>
#include <QString>
#include <optional>

/// An employee, whose key is the number that the office gives.
struct clsEmployee
{
    QString OldEmployeeID; ///< the number the row is stored under; not a column
    QString EmployeeID;
    QString FirstName;
    QString Lastname;
    QString InitialName;
    QDateTime BirthDate;
    QString Gender = QStringLiteral("0"); ///< "0" blank, "1" male, "2" female
    QString Address;
    QString City;
    QString State = QStringLiteral("0");   ///< an item of the country's states
    QString Country = QStringLiteral("0"); ///< an item of list 1
    QString Zip;
    QString Phone; ///< masked "(###) ###-####", as the next two
    QString CellPhone;
    QString Email;
    QString Pager;
    QString SS; ///< social security number, digits
    QString LicenseNo;
    qint64 Site = 0;
    QString Skills;
    qint64 Crew = 0;
    qint64 EmpPosition = 0;
    double LaborCost = 0;                        ///< per hour, what the employee costs
    double LaborRate = 0;                        ///< per hour, what the employee is charged out at
    QString Inactive = QStringLiteral("0");      ///< "0" or "1"
    QString IncludeWoList = QStringLiteral("0"); ///< "0" or "1": counts in the crew's average

    bool operator==(const clsEmployee &) const = default;
    [[nodiscard]] static clsEmployee fromRow(const db::Row &row);
    /// Its columns and members.
    [[nodiscard]] static std::span<const record::Field<clsEmployee>> fields();
};

/// Employees in the database. Data.
class clsEmployee_Manager
{
public:
    /// A changed number is written too; the row is found by the old one.
    [[nodiscard]] bool SaveRecord(const clsEmployee &Employee, Mode Mode,
                                  const std::optional<clsEmployee> &Shown = {}) const;
    /// No usage test stands before this. A failure is reported as "Deletion not allowed.".
    [[nodiscard]] bool DeleteRecord(const QString &EmployeeID) const;
    /// All employees, sites and crews, by their numbers. A failure is reported, and gives no rows.
    [[nodiscard]] db::Recordset GetEmployeeInfo() const;
    [[nodiscard]] db::Recordset GetSiteInfo() const;
    [[nodiscard]] db::Recordset GetCrewInfo() const;
};
