#pragma once

#include "core/CompanySession.h"

#include <QVariant>

namespace test {

/// A company with machines on which work has been posted.
struct Workshop : CompanySession
{
    static void run(const QString &statement, const QVariantList &values = {})
    {
        gcnData->Execute(statement, values);
    }
    static void addMachine(qint64 id, const QString &unit)
    {
        insert(QStringLiteral("tblEquipment"),
               QStringLiteral("EquipmentID,UnitNo,EquipmentName,Inactive"),
               {id, unit, QStringLiteral("Mower ") + unit, 0});
    }
    /// A posted service of order 70.
    static void addHistory(qint64 machine, qint64 service, QDate completed,
                           const QString &name = QStringLiteral("Oil change"))
    {
        run(QStringLiteral(
                "insert into tblWOServiceUsedHistory(WorkorderNo,ServiceUsedID,"
                "EquipmentID,ServiceName,CompleteDate,LaborEstimate,CostEstimate,[Note]) "
                "values(70,?,?,?,?,2,30,'as found')"),
            {service, machine, name, base::wallClock(completed)});
    }
    static void addPartHistory(qint64 service, const QString &part, double quantity, double price)
    {
        run(QStringLiteral("insert into tblWoPartHistory(ServiceusedID,partID,Description,"
                           "QuantityUsed,Price) values(?,?,'a part',?,?)"),
            {service, part, quantity, price});
    }
    /// A crew whose one counted employee costs this an hour.
    static void addCrew(qint64 id, int number, double hourly)
    {
        run(QStringLiteral("insert into tblCrew(CrewID,CrewNumber,Description) values(?,?,'Crew')"),
            {id, number});
        run(QStringLiteral("insert into tblEmployee(EmployeeID,Crew,LaborCost,Inactive,"
                           "IncludeWoList) values(?,?,?,'0','1')"),
            {QString::number(id), id, hourly});
    }
};

} // namespace test
