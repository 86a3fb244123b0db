#include "core/ui/ScreenCalls.h"

ScreenCalls &screenCalls()
{
    static ScreenCalls calls;
    return calls;
}
