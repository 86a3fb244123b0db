#include "workorders/Board.h"

#include "workorders/Workshop.h"

using namespace Qt::StringLiterals;

namespace {

struct Board : test::Workshop
{
    static QString shown()
    {
        QStringList lines;
        for (const board::Entry &entry : board::entries())
            lines.append(u"%1|%2|%3|%4"_s.arg(entry.text)
                             .arg(entry.WorkOrderNo)
                             .arg(entry.since.toString(Qt::ISODate))
                             .arg(entry.services));
        return lines.join(u'\n');
    }
};

} // namespace

TEST_F(Board, ListsMachinesByNameWithTheirOldestServiceAndOrdersOnce)
{
    machine(2, u"m1"_s, {{u"EquipmentName"_s, u"MOWER M1"_s}}); // case makes no other machine
    machine(3, u"A1"_s);
    machine(4, u"Z1"_s, {{u"EquipmentName"_s, QVariant()}});
    service();
    service({{u"NextScheduledDate"_s, day(3, 1)}});
    service({{u"EquipmentID"_s, 2}, {u"NextScheduledDate"_s, day(2, 20)}});
    service({{u"EquipmentID"_s, 3}, {u"NextScheduledDate"_s, day(3, 16)}});
    service({{u"EquipmentID"_s, 3}, {u"Inactive"_s, 1}});
    service({{u"EquipmentID"_s, 4}});
    machine(5, u"M1"_s);
    service({{u"EquipmentID"_s, 5}});
    const qint64 empty = order({{u"EquipmentID"_s, 3}});
    const qint64 full = order();
    orderService(full, {{u"ServiceUsedID"_s, service({{u"NextScheduledDate"_s, day(3, 2)}})},
                        {u"NextScheduledDate"_s, day(3, 2)}});
    orderService(full, {{u"NextScheduledDate"_s, day(3, 3)}});
    order({{u"CompletedDate"_s, day(3, 12)}});
    EXPECT_EQ(shown(), u"|0|2024-03-10|1\n"
                       "A1 - Mower A1|%1||0\n"
                       "M1 - Mower M1|0|2024-02-20|4\n"
                       "M1 - Mower M1|%2|2024-03-02|2"_s.arg(empty)
                           .arg(full));
}
