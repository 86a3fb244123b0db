#include "workorders/DueList.h"

#include "core/Session.h"
#include "workorders/Statements.h"

namespace workorders {

db::Recordset dueList(const WorkorderFilter &filter)
{
    // The engine would carry all texts through its sort.
    return dataConnection()
        .Open(statements::printWo(filter))
        .orderedBy({u"EquipmentId", u"WorkOrderNo"});
}

} // namespace workorders
