#include "Cycle.h"

#include "core/Session.h"
#include "platform/base/Environment.h"
#include "workorders/OrderServices.h"
#include "workorders/Recording.h"

#include <ctime>

namespace cycle {

using namespace Qt::StringLiterals;

QList<qint64> completedOrders(int orders)
{
    QList<qint64> made;
    qint64 machine = 0;
    QList<qint64> services;
    const auto makeOrder = [&] {
        made.append(orderservices::addOrder(machine));
        (void)recording::AddServiceRecord(services, made.last(), machine,
                                          recording::ServiceSource::Machine, false);
        services.clear();
    };
    for (const db::Row row :
         gcnData->Open(u"Select EquipmentID, ServiceUsedID from tblServiceUsed where Inactive = 0 "
                       "and ServiceUsedID not in (Select ServiceUsedID from tblWoServiceUsed) "
                       "order by EquipmentID, ServiceUsedID"_s)) {
        if (row.integer(u"EquipmentID") != machine)
            services.clear();
        machine = row.integer(u"EquipmentID");
        services.append(row.integer(u"ServiceUsedID"));
        if (services.size() == servicesOfOrder)
            makeOrder();
        if (made.size() == orders)
            break;
    }
    gcnData->Execute(u"Update tblWoServiceUsed set CountValue = 100000 where CountValue is Null"_s);
    for (const qint64 order : made)
        (void)recording::UpdateWorkorder(order, base::today());
    return made;
}

double processorTime(const std::function<void()> &job)
{
    const std::clock_t begin = std::clock();
    job();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

} // namespace cycle
