#include "core/HeldRow.h"

#include "core/Gone.h"
#include "core/RecordStore.h"

using namespace Qt::StringLiterals;

db::Recordset heldRow(QStringView table, QStringView keyColumn, qint64 key, QStringView what,
                      const QString &whenGone)
{
    try {
        return orInTheWay([&] { return record::hold(*gcnData, table, keyColumn, key); },
                          [&] {
                              return u"Another workstation is changing this %1. Please try again "
                                     "in a moment."_s.arg(what);
                          });
    } catch (const record::Conflict &) {
        throw Gone(whenGone);
    }
}
