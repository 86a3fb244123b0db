#include "core/Labour.h"

#include "core/Session.h"
#include "platform/base/Decimal.h"
#include "platform/base/Format.h"
#include "platform/base/Trapped.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

} // namespace

double SetLaborCost(qint64 CrewID)
{
    return trapped(Module, "SetLaborCost", 0.0, [&] {
        const db::Recordset rows = dataConnection().Open(
            u"SELECT Sum(tblEmployee.LaborCost)/Count(tblEmployee.EmployeeID) AS Expr1 FROM "
            u"tblEmployee LEFT JOIN tblCrew ON tblEmployee.Crew = tblCrew.CrewID where  "
            u"tblCrew.CrewID="_s +
            QString::number(CrewID) + u" and (Inactive = '0' and IncludeWoList = '1')"_s);
        if (rows.isEmpty() || rows.isNull(0, 0))
            return 0.0;
        return base::roundedDecimals(rows.value(0, 0).toDouble(), 2);
    });
}

bool ChangeServiceLabourEstimate(qint64 CrewID)
{
    return trapped(Module, "ChangeServiceLabourEstimate", false, [&] {
        const QString rate = base::twoDecimals(SetLaborCost(CrewID));
        for (const QString &table : {u"tblServiceUsed"_s, u"tblWoServiceUsed"_s}) {
            dataConnection().Execute(u"update "_s + table +
                                     // In cents, as everywhere else that a cost is worked out.
                                     u" set CostEstimate = Round(CCur(LaborEstimate * "_s + rate +
                                     u"), 2) where crewID = "_s + QString::number(CrewID));
        }
        return true;
    });
}

bool ChangeCrew(qint64 EquipmentID, const QString &CrewNumber, const QString &CrewDescription)
{
    return trapped(Module, "ChangeCrew", false, [&] {
        dataConnection().Execute(
            u"Insert into tblEquipmentCrewHistory(EquipmentID,CrewNumber,CrewDescription) "
            "values(?,?,?)"_s,
            {EquipmentID, CrewNumber, CrewDescription});
        return true;
    });
}
