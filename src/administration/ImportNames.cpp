#include "administration/ImportNames.h"

#include "core/FirstNumber.h"
#include "core/RecordFields.h"
#include "organisation/clsCrew.h"
#include "organisation/clsIndicator.h"
#include "organisation/clsLocation.h"
#include "organisation/clsSite.h"
#include "organisation/clsSupplier.h"
#include "platform/base/Error.h"

namespace administration {
namespace {

using namespace Qt::StringLiterals;

/// Where a list of names stands.
struct Source
{
    QStringView table;
    QStringView key;
    QStringView name;
    QStringView parent; ///< empty without one
};

constexpr std::array sources{
    Source{u"tblIndicator", u"ItemID", u"ItemName", u"ParentID"},
    Source{u"tblSite", u"SiteID", u"SiteName", {}},
    Source{u"tblLocation", u"LocationID", u"LocationName", u"Site"},
    Source{u"tblCrew", u"CrewID", u"CrewNumber", {}},
    Source{u"tblSupplier", u"SupplierID", u"Name", {}},
    Source{u"tblEquipment", u"EquipmentID", u"UnitNo", {}},
};

constexpr const Source &sourceOf(NameList list)
{
    return sources[static_cast<std::size_t>(list)];
}

template<class Record>
qint64 insert(db::Connection &connection, NameList list, const Record &record)
{
    const Source &source = sourceOf(list);
    return connection.Insert(record::insertStatement(source.table, Record::fields()),
                             record::values(record, Record::fields()), source.key.toString());
}

} // namespace

QString NewEntry::nameAndPlace() const
{
    return under.isEmpty() ? name : name + u", under "_s + under;
}

QString NewEntry::text() const
{
    return list + u": "_s + nameAndPlace();
}

void ImportNames::read(NameList list, Names &names)
{
    const Source &source = sourceOf(list);
    const QString parent = source.parent.isEmpty() ? u"0"_s : source.parent.toString();
    const QString second = list == NameList::Crews ? u", Description as [Second]"_s : QString();
    for (const db::Row row : m_connection.Open(
             u"Select %1 as [Key], %2 as [Name], %3 as [Parent]%4 from %5 order by %1"_s.arg(
                 source.key.toString(), source.name.toString(), parent, second,
                 source.table.toString()))) {
        const QString name = row.text(u"Name").trimmed();
        if (list == NameList::Crews)
            m_crews.insert(row.integer(u"Key"), {name, row.text(u"Second")});
        // Of two that read alike the older one counts.
        const Key key{row.integer(u"Parent"), name.toUpper()};
        if (!names.contains(key))
            names.insert(key, row.integer(u"Key"));
    }
}

ImportNames::Names &ImportNames::namesOf(NameList list)
{
    auto &names = m_names[static_cast<std::size_t>(list)];
    if (!names)
        read(list, names.emplace());
    return *names;
}

int ImportNames::longestName(NameList list)
{
    const Source &source = sourceOf(list);
    return m_connection.schema().find(source.table)->find(source.name)->length;
}

std::optional<qint64> ImportNames::number(const ImportColumn &column, const QString &name,
                                          qint64 under, const QString &underName)
{
    const qint64 parent = column.below.isEmpty() ? column.list : under;
    Names &names = namesOf(column.names);
    const Key key{parent, name.toUpper()};
    if (const auto found = names.constFind(key); found != names.constEnd())
        return *found;
    // A machine is more than a name: it is entered, or imported, by itself.
    if (column.names == NameList::Machines)
        return {};
    if (column.names == NameList::Crews) {
        bool isNumber = false;
        if (name.toInt(&isNumber) <= 0 || !isNumber)
            throw base::Error(base::ErrorNumber::TypeMismatch,
                              u"\"%1\" is not the number of a crew."_s.arg(name));
    } else if (name.size() > longestName(column.names)) {
        throw base::Error(base::ErrorNumber::TypeMismatch,
                          u"The text has %1 characters, and %2 fit."_s.arg(name.size())
                              .arg(longestName(column.names)));
    }
    m_added.push_back({column.heading.toString(), name, underName});
    const qint64 number =
        m_adding == Adding::Write ? write(column.names, parent, name) : --m_pretended;
    if (column.names == NameList::Crews)
        m_crews.insert(number, {name, {}});
    names.insert(key, number);
    return number;
}

qint64 ImportNames::write(NameList list, qint64 parent, const QString &name)
{
    switch (list) {
    case NameList::Items: {
        clsIndicator item;
        item.ParentID = parent;
        item.ItemName = name;
        item.Show = 1;
        return insert(m_connection, list, item);
    }
    case NameList::Sites: {
        clsSite site;
        site.SiteName = name;
        return insert(m_connection, list, site);
    }
    case NameList::Locations: {
        clsLocation location;
        location.LocationName = name;
        location.Site = parent;
        return insert(m_connection, list, location);
    }
    case NameList::Crews: {
        clsCrew crew;
        crew.CrewNumber = name;
        return insert(m_connection, list, crew);
    }
    case NameList::Suppliers: {
        clsSupplier supplier;
        supplier.SupplierID =
            firstNumber(m_connection, u"Select max(SupplierID) from tblSupplier"_s) + 1;
        supplier.Name = name;
        m_connection.Execute(record::insertStatement(u"tblSupplier", clsSupplier::fields()),
                             record::values(supplier, clsSupplier::fields()));
        return supplier.SupplierID;
    }
    case NameList::Machines:
        break;
    }
    return 0;
}

std::pair<QString, QString> ImportNames::crew(qint64 number) const
{
    return m_crews.value(number);
}

} // namespace administration
