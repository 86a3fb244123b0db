#include "platform/report/designer/ObjectProperties.h"

#include "platform/report/designer/Fields.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/MemberPath.h"
#include "platform/report/designer/StyleProperties.h"

#include <algorithm>

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// An attribute of an object, and the kinds that have it; of all where none are named.
struct ObjectProperty
{
    QString section;
    QString caption;
    PropertyKind kind;
    QStringList choices;
    QList<ObjectKind> kinds;
    QVariant (*get)(const Object &object);
    void (*set)(Object &object, const QVariant &value);
};

const QString placeSection = u"Place and size"_s;
const QString contentSection = u"Content"_s;
const QString printSection = u"Printing"_s;
const QString chartSection = u"Chart"_s;
const QString tableSection = u"Cross-tab"_s;
const QList<ObjectKind> values{ObjectKind::Text, ObjectKind::Field};
const QList<ObjectKind> formatted{ObjectKind::Field, ObjectKind::Chart, ObjectKind::CrossTab};
const QList<ObjectKind> lined{ObjectKind::Line, ObjectKind::Box};
const QList<ObjectKind> charts{ObjectKind::Chart};
const QList<ObjectKind> tables{ObjectKind::CrossTab};

template<auto... Path>
ObjectProperty attribute(const QString &section, const QString &caption, PropertyKind kind,
                         const QList<ObjectKind> &kinds = {}, const QStringList &choices = {})
{
    return {section,
            caption,
            kind,
            choices,
            kinds,
            valueAt<Object, Path...>,
            setValueAt<Object, Path...>};
}

const QList<ObjectProperty> &objectTable()
{
    using P = PropertyKind;
    static const QList<ObjectProperty> all{
        attribute<&Object::content>(contentSection, u"Words"_s, P::Words, {ObjectKind::Text}),
        attribute<&Object::content>(contentSection, u"Expression"_s, P::Expression,
                                    {ObjectKind::Field, ObjectKind::BarCode}),
        attribute<&Object::content>(contentSection, u"Picture"_s, P::Picture,
                                    {ObjectKind::Picture}),
        attribute<&Object::format>(contentSection, u"Format"_s, P::Format, formatted),
        attribute<&Object::name>(contentSection, u"Name"_s, P::Text),
        attribute<&Object::chart, &Chart::kind>(chartSection, u"Kind"_s, P::Choice, charts,
                                                {u"Bars"_s, u"Stacked bars"_s, u"Line"_s}),
        attribute<&Object::chart, &Chart::title>(chartSection, u"Title"_s, P::Words, charts),
        attribute<&Object::chart, &Chart::category>(chartSection, u"Category"_s, P::Expression,
                                                    charts),
        attribute<&Object::chart, &Chart::categoryFormat>(chartSection, u"Category format"_s,
                                                          P::Format, charts),
        attribute<&Object::chart, &Chart::categoryTitle>(chartSection, u"Category title"_s,
                                                         P::Words, charts),
        attribute<&Object::chart, &Chart::valueTitle>(chartSection, u"Value title"_s, P::Words,
                                                      charts),
        attribute<&Object::chart, &Chart::legend>(chartSection, u"Legend"_s, P::Choice, charts,
                                                  {u"Below"_s, u"At the right"_s, u"None"_s}),
        attribute<&Object::chart, &Chart::order>(
            chartSection, u"Order"_s, P::Choice, charts,
            {u"As the rows come"_s, u"By category"_s, u"Largest first"_s}),
        attribute<&Object::chart, &Chart::most>(chartSection, u"Most categories"_s, P::Count,
                                                charts),
        attribute<&Object::chart, &Chart::others>(chartSection, u"The rest as one"_s, P::Flag,
                                                  charts),
        attribute<&Object::crossTab, &CrossTab::title>(tableSection, u"Title"_s, P::Words, tables),
        attribute<&Object::crossTab, &CrossTab::rows>(tableSection, u"Rows"_s, P::Expression,
                                                      tables),
        attribute<&Object::crossTab, &CrossTab::rowsFormat>(tableSection, u"Rows format"_s,
                                                            P::Format, tables),
        attribute<&Object::crossTab, &CrossTab::rowsTitle>(tableSection, u"Rows title"_s, P::Text,
                                                           tables),
        attribute<&Object::crossTab, &CrossTab::columns>(tableSection, u"Columns"_s, P::Expression,
                                                         tables),
        attribute<&Object::crossTab, &CrossTab::columnsFormat>(tableSection, u"Columns format"_s,
                                                               P::Format, tables),
        attribute<&Object::crossTab, &CrossTab::value>(tableSection, u"Value"_s, P::Expression,
                                                       tables),
        attribute<&Object::crossTab, &CrossTab::totals>(tableSection, u"Totals"_s, P::Flag, tables),
        attribute<&Object::x>(placeSection, u"Left"_s, P::Distance),
        attribute<&Object::y>(placeSection, u"Top"_s, P::Distance),
        attribute<&Object::width>(placeSection, u"Width"_s, P::Distance),
        attribute<&Object::height>(placeSection, u"Height"_s, P::Distance),
        attribute<&Object::lineWidth>(placeSection, u"Line width"_s, P::Distance, lined),
        attribute<&Object::visibleIf>(printSection, u"Shown when"_s, P::Expression),
        attribute<&Object::canGrow>(printSection, u"Can grow"_s, P::Flag, values),
        attribute<&Object::hideRepeated>(printSection, u"Hide repeated"_s, P::Flag, values),
    };
    return all;
}

QList<const Object *> objectsOf(const Layout &layout, const Selection &selection)
{
    QList<const Object *> objects;
    for (const Place &place : selection.objects)
        objects.append(&layout.bands[place.band].objects[place.object]);
    return objects;
}

/// Puts a property together from what each object has.
template<class Get, class Set>
Property shared(const QList<const Object *> &objects, const Object &lead, Property property,
                Get get, Set set)
{
    // The lead's value is shown and edited where they differ; the mark beside it says that they do.
    property.value = get(lead);
    property.isMixed = std::any_of(objects.cbegin(), objects.cend(), [&](const Object *object) {
        return get(*object) != property.value;
    });
    property.set = [set](Layout &layout, Selection &selection, const QVariant &value) {
        for (const Place &place : std::as_const(selection.objects))
            set(layout, layout.bands[place.band].objects[place.object], value);
    };
    return property;
}

/// True when each of the objects is of one of these kinds; no kinds stand for all.
bool allAre(const QList<const Object *> &objects, const QList<ObjectKind> &kinds)
{
    return kinds.isEmpty() || std::all_of(objects.cbegin(), objects.cend(),
                                          [&](const Object *o) { return kinds.contains(o->kind); });
}

Object &leadOf(Layout &layout, const Selection &selection)
{
    return layout.bands[selection.lead.band].objects[selection.lead.object];
}

using Rules = QList<ConditionalStyle>;

/// Changes the rules of each object that is selected.
template<class Change>
auto changingRules(Change change)
{
    return [change](Layout &layout, Selection &selection, const QVariant &value) {
        for (const Place &place : std::as_const(selection.objects))
            change(layout.bands[place.band].objects[place.object].conditionalStyles, value);
    };
}

void addRule(QList<Property> &properties, int number, const ConditionalStyle &rule)
{
    const QString section = u"Rule %1"_s.arg(number + 1);
    const auto add = [&](const QString &caption, PropertyKind kind, auto member) {
        properties.append({section,
                           caption,
                           kind,
                           QVariant::fromValue(rule.*member),
                           false,
                           {},
                           changingRules([number, member](Rules &rules, const QVariant &value) {
                               auto &changed = rules[number].*member;
                               changed = value.value<std::decay_t<decltype(changed)>>();
                           })});
    };
    add(u"When"_s, PropertyKind::Expression, &ConditionalStyle::when);
    add(u"Color"_s, PropertyKind::Color, &ConditionalStyle::color);
    add(u"Fill"_s, PropertyKind::Color, &ConditionalStyle::fill);
    add(u"Bold"_s, PropertyKind::Flag, &ConditionalStyle::bold);
    properties.append(
        {section,
         u"Remove this rule"_s,
         PropertyKind::Action,
         {},
         false,
         {},
         changingRules([number](Rules &rules, const QVariant &) { rules.removeAt(number); })});
}

/// Rules are lists; several objects share them only when they are alike.
void addRules(QList<Property> &properties, const QList<const Object *> &objects, const Object &lead)
{
    const bool areAlike = std::all_of(objects.cbegin(), objects.cend(), [&](const Object *object) {
        return object->conditionalStyles == lead.conditionalStyles;
    });
    for (int number = 0; areAlike && number < lead.conditionalStyles.size(); ++number)
        addRule(properties, number, lead.conditionalStyles[number]);
    properties.append({u"Rules"_s,
                       u"Add a rule"_s,
                       PropertyKind::Action,
                       {},
                       false,
                       {},
                       changingRules([](Rules &rules, const QVariant &) {
                           rules.append({u"false"_s, QColor(0xb0, 0, 0), {}, false});
                       })});
}

template<class Member>
Property seriesProperty(int number, const QString &caption, PropertyKind kind, const Series &series,
                        Member member)
{
    return {u"Series %1"_s.arg(number + 1),
            caption,
            kind,
            QVariant::fromValue(series.*member),
            false,
            {},
            [number, member](Layout &layout, Selection &selection, const QVariant &value) {
                Series &changed = leadOf(layout, selection).chart.series[number];
                changed.*member = value.value<std::decay_t<decltype(changed.*member)>>();
            }};
}

void addSeries(QList<Property> &properties, const Object &chart)
{
    for (int number = 0; number < chart.chart.series.size(); ++number) {
        const Series &series = chart.chart.series[number];
        const auto add = [&](const QString &caption, PropertyKind kind, auto member) {
            properties.append(seriesProperty(number, caption, kind, series, member));
        };
        add(u"Name"_s, PropertyKind::Text, &Series::name);
        add(u"Value"_s, PropertyKind::Expression, &Series::value);
        add(u"One for each"_s, PropertyKind::Expression, &Series::by);
        add(u"Name's format"_s, PropertyKind::Format, &Series::byFormat);
        add(u"Color"_s, PropertyKind::Color, &Series::color);
        if (chart.chart.series.size() > 1)
            properties.append({u"Series %1"_s.arg(number + 1),
                               u"Remove this series"_s,
                               PropertyKind::Action,
                               {},
                               false,
                               {},
                               [number](Layout &layout, Selection &selection, const QVariant &) {
                                   leadOf(layout, selection).chart.series.removeAt(number);
                               }});
    }
    properties.append(
        {u"Series"_s,
         u"Add a series"_s,
         PropertyKind::Action,
         {},
         false,
         {},
         [](Layout &layout, Selection &selection, const QVariant &) {
             leadOf(layout, selection).chart.series.append({{}, u"count(*)"_s, {}, {}, {}});
         }});
}

} // namespace

QList<Property> objectProperties(const Layout &layout, const Selection &selection)
{
    const QList<const Object *> objects = objectsOf(layout, selection);
    const Object &lead = layout.bands[selection.lead.band].objects[selection.lead.object];
    QList<Property> properties;
    for (const ObjectProperty &entry : objectTable())
        if (allAre(objects, entry.kinds))
            properties.append(shared(
                objects, lead, {entry.section, entry.caption, entry.kind, {}, false, entry.choices},
                entry.get,
                [set = entry.set](const Layout &, Object &object, const QVariant &value) {
                    set(object, value);
                }));
    const bool haveText = std::none_of(objects.cbegin(), objects.cend(), [](const Object *object) {
        return lined.contains(object->kind);
    });
    properties.append(shared(
        objects, lead, {u"Style"_s, u"Follows"_s, PropertyKind::Style, {}, false, {}},
        [](const Object &object) { return QVariant(object.styleName); },
        [](const Layout &whole, Object &object, const QVariant &value) {
            followStyle(whole, object, value.toString());
        }));
    for (const StyleProperty &entry : styleProperties())
        if (haveText || !entry.isOfText)
            properties.append(shared(
                objects, lead, {entry.section, entry.caption, entry.kind, {}, false, entry.choices},
                [get = entry.get](const Object &object) { return get(object.style); },
                [set = entry.set](const Layout &, Object &object, const QVariant &value) {
                    set(object.style, value);
                }));
    // Series are numbered within their chart; those of two charts have nothing to do with each
    // other.
    if (objects.size() == 1 && lead.kind == ObjectKind::Chart)
        addSeries(properties, lead);
    addRules(properties, objects, lead);
    return properties;
}

} // namespace report
