#pragma once

#include "platform/db/Recordset.h"

/// Holds the row of a key on Data, as record::hold does, for a change that names what is in its
/// way. what: the kind of row, as "service". Raises InTheWay with a sentence of its own while
/// another workstation holds the row, and Gone with the given one.
[[nodiscard]] db::Recordset heldRow(QStringView table, QStringView keyColumn, qint64 key,
                                    QStringView what, const QString &whenGone);
