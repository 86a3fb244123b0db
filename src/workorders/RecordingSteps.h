#pragma once

#include "core/InTheWay.h"
#include "core/RecordStore.h"
#include "core/Session.h"
#include "platform/base/Trapped.h"
#include "workorders/OrderNames.h"

/// How each operation of recording runs: as a whole that commits at once, on an order or a service
/// that is held for it.
namespace recording {

/// What an error is reported under: the procedure, and the module that it counts to.
struct Label
{
    constexpr Label(const char *name, const char *moduleName = "Workorder")
        : procedure(name)
        , module(moduleName)
    {}
    const char *procedure;
    const char *module;
};

/// Runs a change as a whole that commits at once. What another workstation holds is told with the
/// name that the second function gives.
template<class Body, class Name>
bool together(Label label, Body &&body, Name &&name)
{
    return base::trapped(label.module, label.procedure, false, [&] {
        TransactionScope transaction;
        orInTheWay(body, [&] { return ordernames::beingChanged(name()); });
        transaction.commit();
        return true;
    });
}

/// Runs a change of an order, which is held for it and must be open. The body gets its row.
template<class Body>
bool onOrder(Label label, qint64 order, Body &&body)
{
    return together(
        label,
        [&] {
            try {
                body(record::hold(*gcnData, u"tblWorkorder", u"WorkorderNo", order).current());
            } catch (const record::Conflict &conflict) {
                if (conflict.isGone())
                    throw ordernames::gone(order);
                throw;
            }
        },
        [&] { return ordernames::order(order); });
}

/// Runs a change of an order's service, or of its parts; it is held for it and must be there. The
/// body gets its row.
template<class Body>
bool onService(Label label, qint64 id, Body &&body)
{
    return together(
        label,
        [&] {
            try {
                body(record::hold(*gcnData, u"tblWoServiceUsed", u"NServiceUsedID", id).current());
            } catch (const record::Conflict &conflict) {
                if (conflict.isGone())
                    throw ordernames::serviceGone();
                throw;
            }
        },
        [&] { return ordernames::orderOfService(id); });
}

} // namespace recording
