#include "parts/Stock.h"

#include "core/InTheWay.h"
#include "core/RecordStore.h"

namespace stock {

using namespace Qt::StringLiterals;

bool move(const QString &PartID, double difference)
{
    // Four places are what quantities are kept in; without the rounding the binary fractions of
    // 0.3 - 0.1 would stay in the stock.
    return orInTheWay(
        [&] {
            return gcnData->Execute(
                       u"Update tblPart set Quantity = Round(Nz(Quantity,0) + ?,4) where PartID = ?"_s,
                       {difference, PartID}) > 0;
        },
        [&] {
            return u"Another workstation is changing part \"%1\". Nothing was stored. Please try "
                   "again in a moment."_s.arg(PartID);
        });
}

db::Recordset onHand(bool atReorderPoint)
{
    QString statement = u"SELECT tblPart.PartID as [Part Number], tblPart.Description, "
                        "tblPart.Quantity as [Qty on Hand] FROM tblPart"_s;
    if (atReorderPoint)
        statement += u" where  Quantity<=QtyMin"_s;
    return gcnData->Open(statement + u" order by PartID"_s);
}

void checkIn(const QList<Receipt> &receipts)
{
    record::ShortTransaction transaction(*gcnData);
    for (const Receipt &receipt : receipts) {
        if (receipt.quantity != 0 && !move(receipt.PartID, receipt.quantity))
            throw InTheWay(u"Part \"%1\" has been deleted or renumbered on another workstation. "
                           "Nothing was stored."_s.arg(receipt.PartID));
    }
    transaction.commit();
}

} // namespace stock
