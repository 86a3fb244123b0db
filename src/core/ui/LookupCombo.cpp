#include "core/ui/LookupCombo.h"

#include "core/Tables.h"
#include "core/ui/Combos.h"
#include "platform/base/Prompts.h"

using namespace Qt::StringLiterals;

void loadLookupList(input::IdCombo &combo, qint64 list)
{
    LoadItemWithIdToCombo(combo, GetIndicatorInfo(list, false, true), u"ItemID"_s, u"ItemName"_s,
                          true);
}

void loadAllStates(input::IdCombo &combo)
{
    LoadItemWithIdToCombo(combo,
                          GetTableInfoWithIndicator(
                              u"tblindicator"_s, u"itemname"_s,
                              u"parentid in(select itemid from tblindicator where parentid=1)"_s),
                          u"ItemID"_s, u"ItemName"_s, true);
}

void loadSites(input::IdCombo &combo, const QString &order)
{
    LoadItemWithIdToCombo(combo, GetTableInfoWithIndicator(u"tblSite"_s, order), u"SiteID"_s,
                          u"SiteName"_s, true);
}

void loadCrews(input::IdCombo &combo)
{
    LoadItemWithIdToCombo(combo, GetCrewInfo(), u"CrewID"_s, u"CrewNumber"_s, true);
}

void showLookup(input::IdCombo &combo, qint64 id)
{
    if (!combo.display(id) && id != 0)
        base::showMessage(u"One of lookup item has been deleted\nmanually from database"_s);
}
