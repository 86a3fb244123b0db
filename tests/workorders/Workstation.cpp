#include "core/Session.h"
#include "platform/base/Environment.h"
#include "platform/base/Trapped.h"
#include "platform/settings/Registry.h"
#include "workorders/Generation.h"
#include "workorders/Posting.h"
#include "workorders/Recording.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

/// One of several workstations at one database file: as soon as it may begin, it makes an order of
/// whatever is due, completes and posts it, and tries again where another one was in its way, until
/// nothing is left. Says how many orders it has posted.
namespace {

using namespace Qt::StringLiterals;

const QDate today(2024, 3, 15);
const WorkorderFilter window{today.addDays(-30), today, {}, {}};

QList<qint64> keys(const QString &query)
{
    QList<qint64> result;
    for (const db::Row row : gcnData->Open(query))
        result.append(row[0].toLongLong());
    return result;
}

QList<qint64> dueMachines()
{
    return keys(u"Select distinct EquipmentID from tblServiceUsed where NextScheduledDate <= "
                "#03/15/2024# and Inactive = 0 and ServiceUsedID not in (Select ServiceUsedID from "
                "tblWoServiceUsed)"_s);
}

/// Posts the orders that it can, takes them off the list and tells how many.
int post(QList<qint64> &orders)
{
    int posted = 0;
    for (const qint64 order : QList(orders)) {
        QList<qint64> one{order};
        const bool done =
            base::trapped("Workstation", "post", false,
                          [&] {
                              gcnData->Execute(u"Update tblWoServiceUsed set CountValue = 500 "
                                               "where WorkorderNo = ?"_s,
                                               {order});
                              return true;
                          }) &&
            recording::UpdateWorkorder(order, today) && posting::PostWorkOrder(one);
        if (done && one.size() == 1) {
            orders.removeOne(order);
            ++posted;
        }
    }
    return posted;
}

int work()
{
    int posted = 0;
    QList<qint64> open;
    for (QList<qint64> due = dueMachines(); !due.isEmpty() || !open.isEmpty();
         due = dueMachines()) {
        for (const qint64 machine : due) {
            // A refusal has made no order; the machine is still due, or another one's.
            (void)generation::GenerateWorkorder(window, {machine}, open);
            posted += post(open);
        }
        posted += post(open);
    }
    return posted;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    base::Environment environment = base::Environment::ofProcess();
    environment.clock = [] { return base::wallClock(today, QTime(9, 30)); };
    environment.clockIsFixed = true;
    environment.applicationFolder = folder.path();
    environment.registryFile = folder.filePath(u"registry.ini"_s);
    base::setEnvironment(environment);
    base::setErrorReporter([](auto &&...) {}); // a conflict is what it is here for
    db::Target target;
    target.file = QString::fromLocal8Bit(argv[argc - 1]);
    target.forcedWrites = false;
    gsDatabasePath = target.file;
    gcnData = std::make_unique<db::Connection>(target);
    gcnLookup = std::make_unique<db::Connection>(target);
    std::puts("ready");
    std::fflush(stdout);
    (void)std::getchar();
    std::printf("%d\n", work());
    closeConnections();
    return 0;
}
