#include "platform/report/layout/Layout.h"

#include <utility>

namespace report {
namespace {

struct Paper
{
    QStringView name;
    Length width;
    Length height;
};
constexpr Paper Papers[] = {
    {u"Letter", 21590, 27940}, {u"A4", 21000, 29700}, {u"Legal", 21590, 35560}};

const Paper &paperOf(QStringView name)
{
    for (const Paper &paper : Papers)
        if (paper.name.compare(name, Qt::CaseInsensitive) == 0)
            return paper;
    // Readers refuse unknown paper; a layout made in memory still gets a sheet.
    return Papers[0];
}

template<class Named>
int indexByName(const QList<Named> &list, QStringView name)
{
    for (int index = 0; index < list.size(); ++index)
        if (name.compare(list[index].name, Qt::CaseInsensitive) == 0)
            return index;
    return -1;
}

} // namespace

QStringList PageSetup::papers()
{
    QStringList names;
    for (const Paper &paper : Papers)
        names.append(paper.name.toString());
    return names;
}

Length PageSetup::width() const
{
    return landscape ? paperOf(paper).height : paperOf(paper).width;
}

Length PageSetup::height() const
{
    return landscape ? paperOf(paper).width : paperOf(paper).height;
}

int Layout::groupIndex(QStringView group) const
{
    return indexByName(groups, group);
}

int Layout::rowSetIndex(QStringView set) const
{
    return indexByName(rowSets, set);
}

int Layout::styleIndex(QStringView style) const
{
    return indexByName(styles, style);
}

int Layout::pictureIndex(QStringView picture) const
{
    return indexByName(pictures, picture);
}

const Object *Layout::find(QStringView object) const
{
    for (const Band &band : bands)
        for (const Object &candidate : band.objects)
            if (object.compare(candidate.name, Qt::CaseInsensitive) == 0)
                return &candidate;
    return nullptr;
}

Object *Layout::find(QStringView object)
{
    return const_cast<Object *>(std::as_const(*this).find(object));
}

} // namespace report
