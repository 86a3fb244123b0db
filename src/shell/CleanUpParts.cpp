#include "shell/CleanUpParts.h"

#include "core/Session.h"
#include "platform/base/Trapped.h"

using namespace Qt::StringLiterals;

bool CleanUpParts()
{
    return base::trapped("MainForm", "CleanUpParts", false, [] {
        TransactionScope transaction;
        for (const QString &table :
             {u"tblPart"_s, u"tblEquipmentPart"_s, u"tblServicesPart"_s, u"tblServiceUsedPart"_s,
              u"tblWoPartUsed"_s, u"tblWoPartHistory"_s})
            gcnData->Execute(
                u"Delete from %1 where (Partid is Null) or (Partid = \"\")"_s.arg(table));
        transaction.commit();
        return true;
    });
}
