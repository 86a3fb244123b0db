#include "platform/report/designer/Property.h"

#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/ObjectProperties.h"
#include "platform/report/designer/Structure.h"
#include "platform/report/designer/StyleProperties.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

using P = PropertyKind;

/// A member of a part as a property; the part is found anew in the layout that is changed.
template<class Part, class Value, class Find>
Property member(const QString &section, const QString &caption, P kind, const Part &part,
                Value Part::*value, Find find)
{
    return {section,
            caption,
            kind,
            QVariant::fromValue(part.*value),
            false,
            {},
            [value, find](Layout &layout, Selection &, const QVariant &given) {
                find(layout).*value = given.value<Value>();
            }};
}

QList<Property> reportProperties(const Layout &layout)
{
    const auto whole = [](Layout &changed) -> Layout & { return changed; };
    const auto page = [](Layout &changed) -> PageSetup & { return changed.page; };
    const QString report = u"Report"_s;
    const QString sheet = u"Page"_s;
    return {member(report, u"Title"_s, P::Text, layout, &Layout::title, whole),
            member(report, u"Name"_s, P::Text, layout, &Layout::name, whole),
            {sheet, u"Paper"_s, P::Choice,
             static_cast<int>(PageSetup::papers().indexOf(layout.page.paper)), false,
             PageSetup::papers(),
             [](Layout &changed, Selection &, const QVariant &value) {
                 changed.page.paper = PageSetup::papers().value(value.toInt());
             }},
            member(sheet, u"Landscape"_s, P::Flag, layout.page, &PageSetup::landscape, page),
            member(sheet, u"Left margin"_s, P::Distance, layout.page, &PageSetup::left, page),
            member(sheet, u"Top margin"_s, P::Distance, layout.page, &PageSetup::top, page),
            member(sheet, u"Right margin"_s, P::Distance, layout.page, &PageSetup::right, page),
            member(sheet, u"Bottom margin"_s, P::Distance, layout.page, &PageSetup::bottom, page)};
}

QList<Property> sortProperties(const Layout &layout, int index)
{
    return {{u"Sort order"_s,
             u"Sort by"_s,
             P::Expression,
             layout.sort[index],
             false,
             {},
             // An emptied one goes.
             [index](Layout &changed, Selection &, const QVariant &value) {
                 changed.sort[index] = value.toString();
             }}};
}

QList<Property> queryProperties(const Layout &layout)
{
    const auto whole = [](Layout &changed) -> Layout & { return changed; };
    return {member(u"Query"_s, u"Statement"_s, P::Memo, layout, &Layout::query, whole)};
}

QList<Property> bandProperties(const Layout &layout, int index)
{
    const Band &band = layout.bands[index];
    const auto find = [index](Layout &changed) -> Band & { return changed.bands[index]; };
    const QString section = bandName(band);
    QList<Property> properties{
        member(section, u"Height"_s, P::Distance, band, &Band::height, find),
        member(section, u"Printed when"_s, P::Expression, band, &Band::printIf, find),
        member(section, u"New page before"_s, P::Flag, band, &Band::newPageBefore, find),
        member(section, u"New page after"_s, P::Flag, band, &Band::newPageAfter, find)};
    if (band.kind == BandKind::GroupFooter || band.kind == BandKind::ReportFooter)
        properties.append(
            member(section, u"At the page's foot"_s, P::Flag, band, &Band::atBottom, find));
    return properties;
}

QList<Property> groupProperties(const Layout &layout, int index)
{
    const Group &group = layout.groups[index];
    const auto find = [index](Layout &changed) -> Group & { return changed.groups[index]; };
    const QString section = u"Group %1"_s.arg(group.name);
    return {{section,
             u"Name"_s,
             P::Text,
             group.name,
             false,
             {},
             [index](Layout &changed, Selection &, const QVariant &value) {
                 // Its bands go by the name.
                 renameGroup(changed, index, value.toString());
             }},
            member(section, u"Group by"_s, P::Expression, group, &Group::by, find),
            member(section, u"New page each"_s, P::Flag, group, &Group::newPage, find),
            member(section, u"Keep together"_s, P::Flag, group, &Group::keepTogether, find),
            member(section, u"Repeat header"_s, P::Flag, group, &Group::repeatHeader, find),
            member(section, u"Pages from 1"_s, P::Flag, group, &Group::resetPageNumber, find)};
}

QList<Property> formulaProperties(const Layout &layout, int index)
{
    const Formula &formula = layout.formulas[index];
    const auto find = [index](Layout &changed) -> Formula & { return changed.formulas[index]; };
    const QString section = u"Formula"_s;
    return {member(section, u"Name"_s, P::Text, formula, &Formula::name, find),
            member(section, u"Expression"_s, P::Expression, formula, &Formula::expression, find)};
}

QList<Property> parameterProperties(const Layout &layout, int index)
{
    const Parameter &parameter = layout.parameters[index];
    const auto find = [index](Layout &changed) -> Parameter & { return changed.parameters[index]; };
    const QString section = u"Parameter"_s;
    return {member(section, u"Name"_s, P::Text, parameter, &Parameter::name, find),
            {section,
             u"Type"_s,
             P::Choice,
             static_cast<int>(parameter.type),
             false,
             {u"Text"_s, u"Number"_s, u"Date"_s, u"Yes or no"_s},
             [index](Layout &changed, Selection &, const QVariant &value) {
                 changed.parameters[index].type = static_cast<ParameterType>(value.toInt());
             }},
            member(section, u"Prompt"_s, P::Text, parameter, &Parameter::prompt, find),
            member(section, u"Default"_s, P::Expression, parameter, &Parameter::usual, find),
            member(section, u"List"_s, P::Memo, parameter, &Parameter::list, find),
            member(section, u"May be empty"_s, P::Flag, parameter, &Parameter::isOptional, find)};
}

QList<Property> rowsProperties(const Layout &layout, int index)
{
    const RowSet &set = layout.rowSets[index];
    const auto find = [index](Layout &changed) -> RowSet & { return changed.rowSets[index]; };
    const QString section = u"Further rows"_s;
    return {{section,
             u"Name"_s,
             P::Text,
             set.name,
             false,
             {},
             [index](Layout &changed, Selection &, const QVariant &value) {
                 // The bands of these rows go by it.
                 renameRows(changed, index, value.toString());
             }},
            member(section, u"Key of them"_s, P::Text, set, &RowSet::key, find),
            member(section, u"Is that of the row"_s, P::Expression, set, &RowSet::of, find),
            member(section, u"Query"_s, P::Memo, set, &RowSet::query, find)};
}

QList<Property> namedStyleProperties(const Layout &layout, int index)
{
    const NamedStyle &style = layout.styles[index];
    QList<Property> properties{{u"Style"_s,
                                u"Name"_s,
                                P::Text,
                                style.name,
                                false,
                                {},
                                [index](Layout &changed, Selection &, const QVariant &value) {
                                    // Not the member alone: objects follow a style by its name.
                                    renameStyle(changed, index, value.toString());
                                }}};
    for (const StyleProperty &entry : styleProperties())
        properties.append(
            {entry.section, entry.caption, entry.kind, entry.get(style.style), false, entry.choices,
             [index, set = entry.set](Layout &changed, Selection &, const QVariant &value) {
                 // Put back as a whole, so that the objects that follow the style change with it.
                 NamedStyle named = changed.styles[index];
                 set(named.style, value);
                 setNamedStyle(changed, named);
             }});
    return properties;
}

} // namespace

QList<Property> propertiesOf(const Layout &layout, const Selection &selection)
{
    switch (selection.part) {
    case Selection::Part::Report:
        break;
    case Selection::Part::Band:
        return bandProperties(layout, selection.index);
    case Selection::Part::Objects:
        return objectProperties(layout, selection);
    case Selection::Part::Group:
        return groupProperties(layout, selection.index);
    case Selection::Part::Sort:
        return sortProperties(layout, selection.index);
    case Selection::Part::Query:
        return queryProperties(layout);
    case Selection::Part::Formula:
        return formulaProperties(layout, selection.index);
    case Selection::Part::Parameter:
        return parameterProperties(layout, selection.index);
    case Selection::Part::Rows:
        return rowsProperties(layout, selection.index);
    case Selection::Part::Style:
        return namedStyleProperties(layout, selection.index);
    }
    return reportProperties(layout);
}

std::optional<Length> typedLength(const QString &text)
{
    const QString trimmed = text.trimmed();
    bool isNumber = false;
    // A number alone means millimetres, in which all lengths are shown.
    (void)trimmed.toDouble(&isNumber);
    return parseLength(isNumber ? trimmed + u"mm"_s : trimmed);
}

QString shownValue(const Property &property)
{
    if (property.isMixed)
        return u"(several)"_s;
    switch (property.kind) {
    case P::Distance:
        return lengthText(property.value.toInt()).replace(u"mm"_s, u" mm"_s);
    case P::Points:
        return u"%1 pt"_s.arg(property.value.toDouble());
    case P::Choice:
        return property.choices.value(property.value.toInt());
    case P::Flag:
        return property.value.toBool() ? u"Yes"_s : u"No"_s;
    case P::Color: {
        const auto color = property.value.value<QColor>();
        return color.isValid() ? color.name() : u"None"_s;
    }
    case P::Count:
        // The file writes "as many as there are" as 0.
        return property.value.toInt() == 0 ? u"All"_s : property.value.toString();
    case P::Action:
        return {};
    case P::Style:
        return property.value.toString().isEmpty() ? u"(none)"_s : property.value.toString();
    case P::Text:
    case P::Memo:
    case P::Words:
    case P::Expression:
    case P::Font:
    case P::Format:
    case P::Picture:
        break;
    }
    return property.value.toString();
}

} // namespace report
