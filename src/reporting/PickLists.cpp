#include "reporting/PickLists.h"

#include "organisation/clsIndicator.h"
#include "reporting/FilterText.h"

namespace picklists {

using namespace Qt::StringLiterals;

namespace {

const QString Text = u"VARCHAR"_s;
const QString Number = u"INT"_s;

/// The items of one lookup list; its query has a condition already.
PickList lookupList(qint64 list, const QString &title)
{
    return {.query =
                u"SELECT tblIndicator.ItemName AS [%1] FROM tblIndicator where ParentID = %2"_s.arg(
                    title, QString::number(list)),
            .title = title,
            .column = u"tblIndicator.ItemName"_s,
            .keyword = u" and "_s,
            .key = title,
            .keyType = Text,
            .second = title,
            .order = u"tblIndicator.ItemName"_s};
}

} // namespace

const PickList &units()
{
    static const PickList list{
        .query = u"SELECT tblEquipment.UnitNo, tblEquipment.EquipmentName FROM tblEquipment "_s,
        .title = u" UnitNo/Equipment Name"_s,
        .column = u"tblEquipment.UnitNo"_s,
        .keyword = u" where  "_s,
        .key = u"UnitNo"_s,
        .keyType = Text,
        .second = u"EquipmentName"_s,
        .order = u"tblEquipment.UnitNo"_s};
    return list;
}

const PickList &equipmentNames()
{
    static const PickList list = [] {
        PickList names = units();
        names.column = u"tblEquipment.EquipmentName"_s;
        // The same rows: names are picked, and units tell machines of one name apart.
        std::swap(names.key, names.second);
        return names;
    }();
    return list;
}

const PickList &equipmentTypes()
{
    static const PickList list = lookupList(LookupList::EquipmentType, u"Equipment Type"_s);
    return list;
}

const PickList &crews()
{
    static const PickList list{
        .query = u"SELECT tblCrew.CrewNumber as  [Crew], tblCrew.Description FROM tblCrew "_s,
        .title = u"Crew Number/Description"_s,
        .column = u"tblCrew.CrewNumber"_s,
        .keyword = u" where  "_s,
        .key = u"Crew"_s,
        .keyType = Number,
        .second = u"Description"_s,
        .order = u"tblCrew.CrewNumber"_s};
    return list;
}

const PickList &sites()
{
    static const PickList list{
        .query = u"SELECT tblSite.SiteName AS [Site], tblSite.City FROM tblSite "_s,
        .title = u"Site"_s,
        .column = u"tblSite.SiteName"_s,
        .keyword = u" where  "_s,
        .key = u"Site"_s,
        .keyType = Text,
        .second = u"City"_s,
        .order = u"tblSite.SiteName"_s};
    return list;
}

const PickList &suppliers()
{
    static const PickList list{
        .query = u"SELECT tblSupplier.Name AS [Supplier], tblSupplier.City FROM tblSupplier "_s,
        .title = u"Supplier"_s,
        .column = u"tblSupplier.Name"_s,
        .keyword = u" where  "_s,
        .key = u"Supplier"_s,
        .keyType = Text,
        .second = u"City"_s,
        .order = u"tblSupplier.Name"_s};
    return list;
}

const PickList &partCategories()
{
    static const PickList list = lookupList(LookupList::PartCategory, u"Part Category"_s);
    return list;
}

const PickList &parts()
{
    static const PickList list{
        .query = u"SELECT tblPart.PartID as [PartNo], tblPart.Description FROM tblPart "_s,
        .title = u" PartNo/Description"_s,
        .column = u"tblPart.PartID"_s,
        .keyword = u" where  "_s,
        .key = u"PartNo"_s,
        .keyType = Text,
        .second = u"Description"_s,
        .order = u"tblPart.PartID"_s};
    return list;
}

QString condition(const PickList &list, const QString &values)
{
    const QString order = u" order by "_s + list.order;
    if (values.trimmed().isEmpty())
        return order;
    return list.keyword + list.column + u" not in ("_s + filters::QuoteValueList(values) + u')' +
           order;
}

QString withPicked(const QString &values, const QString &picked)
{
    if (picked.isEmpty())
        return values;
    return values.trimmed().isEmpty() ? picked : values + u',' + picked;
}

} // namespace picklists
