#include "core/Meters.h"

#include "core/FirstNumber.h"
#include "core/Periods.h"
#include "core/Session.h"
#include "platform/base/Trapped.h"

using base::trapped;
using namespace Qt::StringLiterals;

namespace {

constexpr char Module[] = "General Function";

} // namespace

qint64 GetEquipmentCount(qint64 EquipmentID, const QString &CountType)
{
    return trapped(Module, "GetEquipmentCount", qint64(0), [&] {
        return firstNumber(
            dataConnection(),
            u"Select top 1 countvalue from tblequipmentcount where equipmentid = "_s +
                QString::number(EquipmentID) + u" and counttype = '"_s + CountType +
                u"' order by changedate desc,countvalue desc"_s);
    });
}

qint64 GetEquipmentCountByCode(qint64 EquipmentID, const QString &PeriodCode)
{
    return GetEquipmentCount(EquipmentID, PeriodWord(PeriodCode));
}
