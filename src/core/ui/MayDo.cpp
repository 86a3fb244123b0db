#include "core/ui/MayDo.h"

#include "platform/base/Prompts.h"

bool mayDo(bool Rights::*right)
{
    if (rights::isGranted(right))
        return true;
    base::showInformation(rights::refusal(right));
    return false;
}
