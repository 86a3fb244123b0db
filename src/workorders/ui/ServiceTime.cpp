#include "workorders/ui/ServiceTime.h"

#include "workorders/ui/frmServiceTime.h"

void joinServiceTime()
{
    screenCalls().ShowServiceTimeForm = frmServiceTime::ShowServiceTimeForm;
}
