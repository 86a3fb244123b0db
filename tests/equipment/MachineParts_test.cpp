#include "equipment/MachineParts.h"

#include "equipment/Workshop.h"
#include "parts/PartSelection.h"

using namespace Qt::StringLiterals;

namespace {

using MachineParts = test::Workshop;

} // namespace

TEST_F(MachineParts, AreAddedByASelectionAtItsPrices)
{
    run(u"insert into tblPart(PartID,Description,Price) values('A''1','Belt',9)"_s);
    EXPECT_TRUE(machineparts::AddPartRecord(1, {}));
    EXPECT_TRUE(machineparts::AddPartRecord(
        1, parts::selectionText({{u"A'1"_s, 2, 7.5, 3}, {u"B2"_s, 1, 0, 0}})));
    const db::Recordset listed = machineparts::listed(1);
    ASSERT_EQ(listed.RecordCount(), 2);
    EXPECT_EQ(listed.row(0).text(u"Part Number"), u"A'1");
    EXPECT_EQ(listed.row(0).text(u"Description"), u"Belt");
    EXPECT_EQ(listed.row(0).real(u"Qty Req"), 2);
    EXPECT_EQ(listed.row(0).real(u"Extended Cost"), 7.5);
    EXPECT_EQ(value(u"Select SupplierID from tblEquipmentPart where PartID = 'A''1'"_s).toInt(), 3);
    EXPECT_TRUE(machineparts::DeletePartRecord(1, u"A'1"_s));
    EXPECT_EQ(count(u"tblEquipmentPart"_s), 1);
    EXPECT_FALSE(machineparts::AddPartRecord(1, u"nonsense"_s));
    EXPECT_EQ(errors.takeOne().ProcedureName, u"AddPartRecord");
}
