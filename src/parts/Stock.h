#pragma once

#include "platform/db/Recordset.h"

#include <QList>
#include <QString>

/// The stock of parts. It is moved by what comes in and goes out, and never set to what a
/// workstation has once read: between its reading and its writing another one may have moved it.
/// Data.
namespace stock {

/// Adds to the quantity on hand of a part, below zero too; a part without a quantity had none.
/// False when there is no such part. Raises DbError, and InTheWay while another workstation holds
/// the part.
bool move(const QString &PartID, double difference);

/// The parts of the check-in: "Part Number", "Description", "Qty on Hand". atReorderPoint: only
/// those that have come down to the stock at which to order. Raises DbError.
[[nodiscard]] db::Recordset onHand(bool atReorderPoint);

/// What was received of a part; less than 0 takes from the stock.
struct Receipt
{
    QString PartID;
    double quantity = 0;
};
/// Adds what was received to the stock, all of it or nothing, in a transaction of its own or the
/// one that is open. Raises DbError, and InTheWay when a part is held or gone.
void checkIn(const QList<Receipt> &receipts);

} // namespace stock
