#include "scheduling/ui/OrderWarning.h"

#include "platform/base/Prompts.h"

#include <QString>

using namespace Qt::StringLiterals;

// Three texts that differ in a few words: each place keeps its own.
namespace orderwarning {

bool confirmDate()
{
    return base::askYesNo(
        u"This service is already assigned to a work order. Changing this date will not remove it "
        "from the work order.If you are using the \"Reschedule Based on Service Original "
        "Scheduled\" changing the date will change when the service on the work order will be "
        "rescheduled\" Are you sure you want to do this \"Yes\" \"No\""_s);
}

bool confirmCount()
{
    return base::askYesNo(
        u"This service is already assigned to a work order. Changing this count will not remove it "
        "from the work order.If you are using the \"Reschedule Based on Service Original "
        "Scheduled\" changing the count will change when the service on the work order will be "
        "rescheduled\" Are you sure you want to do this \"Yes\" \"No\""_s);
}

bool confirmCountInGrid()
{
    return base::askYesNo(
        u"This service is already assigned to a work order. Changing this Count will not remove it "
        "from the work order.If you are using the \"Reschedule Based on Service Original Scheduled "
        "or Work Order Completion\" changing the count will change when the service on the work "
        "order will be rescheduled\" Are you sure you want to do this \"Yes\" \"No\""_s);
}

} // namespace orderwarning
