#include "equipment/MachineRows.h"

#include "core/CompanySession.h"

using namespace Qt::StringLiterals;

namespace {

/// Machines with numbers in any case, equal ones among them, and without one.
struct MachineRows : test::CompanySession
{
    MachineRows()
    {
        const QVariant none;
        for (const auto &[key, unit] : {std::pair<int, QVariant>{5, u"B2"_s},
                                        {3, u"a1"_s},
                                        {9, u"A1"_s},
                                        {1, u"C"_s},
                                        {4, none},
                                        {8, u"b2"_s},
                                        {2, u""_s},
                                        {7, none},
                                        {6, u"B10"_s}})
            add(key, unit);
    }
    static void add(int key, const QVariant &unit)
    {
        gcnData->Execute(u"insert into tblEquipment(EquipmentID,UnitNo) values(?,?)"_s,
                         {key, unit});
    }
    static QList<qint64> keys(const db::Recordset &rows)
    {
        QList<qint64> list;
        for (const db::Row row : rows)
            list.append(row.integer(u"EquipmentID"));
        return list;
    }
    static qint64 keyAt(Place place, qint64 from)
    {
        return machinerows::at(place, from).current().integer(u"EquipmentID");
    }
};

} // namespace

TEST_F(MachineRows, AreWalkedInTheOrderOfTheirUnitNumbersBothWays)
{
    // Without a number, an empty one, A1 in either case, B10, B2 in either case, C.
    const QList<qint64> order{4, 7, 2, 3, 9, 6, 5, 8, 1};
    EXPECT_EQ(keyAt(Place::First, 6), order.first());
    EXPECT_EQ(keyAt(Place::Last, 6), order.last());
    for (int at = 0; at < order.size(); ++at) {
        SCOPED_TRACE(at);
        const db::Recordset rows = machinerows::at(Place::This, order[at]);
        EXPECT_EQ(keys(rows), order.mid(qMax(at - 1, 0), at == 0 ? 2 : 3));
        EXPECT_EQ(rows.Position(), at == 0 ? 0 : 1);
        EXPECT_EQ(keyAt(Place::Next, order[at]), order[qMin<qsizetype>(at + 1, 8)]);
        EXPECT_EQ(keyAt(Place::Previous, order[at]), order[qMax(at - 1, 0)]);
    }
}

TEST_F(MachineRows, SeenFromNoMachineTheFirstIsShown)
{
    EXPECT_EQ(keyAt(Place::This, 4711), 4);
    EXPECT_EQ(keyAt(Place::Next, 4711), 4);
    gcnData->Execute(u"Delete from tblEquipment where UnitNo is Null"_s);
    EXPECT_EQ(keyAt(Place::This, 0), 2);
    EXPECT_EQ(keyAt(Place::Previous, 2), 2);
    gcnData->Execute(u"Delete from tblEquipment where UnitNo is not Null"_s);
    EXPECT_TRUE(machinerows::at(Place::This, 0).isEmpty());
    EXPECT_TRUE(machinerows::at(Place::Last, 0).isEmpty());
    add(4, {});
    EXPECT_EQ(keyAt(Place::Last, 0), 4);
}
