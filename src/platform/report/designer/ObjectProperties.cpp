#include "platform/report/designer/ObjectProperties.h"

#include "platform/report/designer/Fields.h"
#include "platform/report/designer/HouseStyles.h"
#include "platform/report/designer/StyleProperties.h"

#include <algorithm>
#include <initializer_list>

namespace report {
namespace {

using namespace Qt::StringLiterals;

using Kinds = std::initializer_list<ObjectKind>;

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

template<auto Member>
QVariant get(const Object &object)
{
    return QVariant(object.*Member);
}
template<auto Member>
void set(Object &object, const QVariant &value)
{
    object.*Member = value.value<std::decay_t<decltype(object.*Member)>>();
}
template<auto Member>
QVariant getChart(const Object &object)
{
    return QVariant(object.chart.*Member);
}
template<auto Member>
void setChart(Object &object, const QVariant &value)
{
    object.chart.*Member = value.value<std::decay_t<decltype(object.chart.*Member)>>();
}
template<auto Member>
QVariant getChartChoice(const Object &object)
{
    return QVariant(static_cast<int>(object.chart.*Member));
}
template<auto Member>
void setChartChoice(Object &object, const QVariant &value)
{
    object.chart.*Member = static_cast<std::decay_t<decltype(object.chart.*Member)>>(value.toInt());
}
template<auto Member>
QVariant getTable(const Object &object)
{
    return QVariant(object.crossTab.*Member);
}
template<auto Member>
void setTable(Object &object, const QVariant &value)
{
    object.crossTab.*Member = value.value<std::decay_t<decltype(object.crossTab.*Member)>>();
}

const QList<ObjectProperty> &objectTable()
{
    using P = PropertyKind;
    static const QList<ObjectProperty> all{
        {contentSection,
         u"Words"_s,
         P::Words,
         {},
         {ObjectKind::Text},
         get<&Object::content>,
         set<&Object::content>},
        {contentSection,
         u"Expression"_s,
         P::Expression,
         {},
         {ObjectKind::Field, ObjectKind::BarCode},
         get<&Object::content>,
         set<&Object::content>},
        {contentSection,
         u"Picture"_s,
         P::Picture,
         {},
         {ObjectKind::Picture},
         get<&Object::content>,
         set<&Object::content>},
        {contentSection,
         u"Format"_s,
         P::Format,
         {},
         formatted,
         get<&Object::format>,
         set<&Object::format>},
        {contentSection, u"Name"_s, P::Text, {}, {}, get<&Object::name>, set<&Object::name>},
        {chartSection,
         u"Kind"_s,
         P::Choice,
         {u"Bars"_s, u"Stacked bars"_s, u"Line"_s},
         charts,
         getChartChoice<&Chart::kind>,
         setChartChoice<&Chart::kind>},
        {chartSection,
         u"Title"_s,
         P::Words,
         {},
         charts,
         getChart<&Chart::title>,
         setChart<&Chart::title>},
        {chartSection,
         u"Category"_s,
         P::Expression,
         {},
         charts,
         getChart<&Chart::category>,
         setChart<&Chart::category>},
        {chartSection,
         u"Category format"_s,
         P::Format,
         {},
         charts,
         getChart<&Chart::categoryFormat>,
         setChart<&Chart::categoryFormat>},
        {chartSection,
         u"Category title"_s,
         P::Words,
         {},
         charts,
         getChart<&Chart::categoryTitle>,
         setChart<&Chart::categoryTitle>},
        {chartSection,
         u"Value title"_s,
         P::Words,
         {},
         charts,
         getChart<&Chart::valueTitle>,
         setChart<&Chart::valueTitle>},
        {chartSection,
         u"Legend"_s,
         P::Choice,
         {u"Below"_s, u"At the right"_s, u"None"_s},
         charts,
         getChartChoice<&Chart::legend>,
         setChartChoice<&Chart::legend>},
        {chartSection,
         u"Order"_s,
         P::Choice,
         {u"As the rows come"_s, u"By category"_s, u"Largest first"_s},
         charts,
         getChartChoice<&Chart::order>,
         setChartChoice<&Chart::order>},
        {chartSection,
         u"Most categories"_s,
         P::Count,
         {},
         charts,
         getChart<&Chart::most>,
         setChart<&Chart::most>},
        {chartSection,
         u"The rest as one"_s,
         P::Flag,
         {},
         charts,
         getChart<&Chart::others>,
         setChart<&Chart::others>},
        {tableSection,
         u"Title"_s,
         P::Words,
         {},
         tables,
         getTable<&CrossTab::title>,
         setTable<&CrossTab::title>},
        {tableSection,
         u"Rows"_s,
         P::Expression,
         {},
         tables,
         getTable<&CrossTab::rows>,
         setTable<&CrossTab::rows>},
        {tableSection,
         u"Rows format"_s,
         P::Format,
         {},
         tables,
         getTable<&CrossTab::rowsFormat>,
         setTable<&CrossTab::rowsFormat>},
        {tableSection,
         u"Rows title"_s,
         P::Text,
         {},
         tables,
         getTable<&CrossTab::rowsTitle>,
         setTable<&CrossTab::rowsTitle>},
        {tableSection,
         u"Columns"_s,
         P::Expression,
         {},
         tables,
         getTable<&CrossTab::columns>,
         setTable<&CrossTab::columns>},
        {tableSection,
         u"Columns format"_s,
         P::Format,
         {},
         tables,
         getTable<&CrossTab::columnsFormat>,
         setTable<&CrossTab::columnsFormat>},
        {tableSection,
         u"Value"_s,
         P::Expression,
         {},
         tables,
         getTable<&CrossTab::value>,
         setTable<&CrossTab::value>},
        {tableSection,
         u"Totals"_s,
         P::Flag,
         {},
         tables,
         getTable<&CrossTab::totals>,
         setTable<&CrossTab::totals>},
        {placeSection, u"Left"_s, P::Distance, {}, {}, get<&Object::x>, set<&Object::x>},
        {placeSection, u"Top"_s, P::Distance, {}, {}, get<&Object::y>, set<&Object::y>},
        {placeSection, u"Width"_s, P::Distance, {}, {}, get<&Object::width>, set<&Object::width>},
        {placeSection,
         u"Height"_s,
         P::Distance,
         {},
         {},
         get<&Object::height>,
         set<&Object::height>},
        {placeSection,
         u"Line width"_s,
         P::Distance,
         {},
         lined,
         get<&Object::lineWidth>,
         set<&Object::lineWidth>},
        {printSection,
         u"Shown when"_s,
         P::Expression,
         {},
         {},
         get<&Object::visibleIf>,
         set<&Object::visibleIf>},
        {printSection,
         u"Can grow"_s,
         P::Flag,
         {},
         values,
         get<&Object::canGrow>,
         set<&Object::canGrow>},
        {printSection,
         u"Hide repeated"_s,
         P::Flag,
         {},
         values,
         get<&Object::hideRepeated>,
         set<&Object::hideRepeated>}};
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

bool allAre(const QList<const Object *> &objects, const QList<ObjectKind> &kinds)
{
    return kinds.isEmpty() || std::all_of(objects.cbegin(), objects.cend(),
                                          [&](const Object *o) { return kinds.contains(o->kind); });
}

Object &leadOf(Layout &layout, const Selection &selection)
{
    return layout.bands[selection.lead.band].objects[selection.lead.object];
}

/// Rules are lists; several objects share them only when they are alike.
void addRules(QList<Property> &properties, const QList<const Object *> &objects, const Object &lead)
{
    const bool areAlike = std::all_of(objects.cbegin(), objects.cend(), [&](const Object *object) {
        return object->conditionalStyles == lead.conditionalStyles;
    });
    const auto changing = [](auto change) {
        return [change](Layout &layout, Selection &selection, const QVariant &value) {
            for (const Place &place : std::as_const(selection.objects))
                change(layout.bands[place.band].objects[place.object].conditionalStyles, value);
        };
    };
    using Rules = QList<ConditionalStyle>;
    for (int rule = 0; areAlike && rule < lead.conditionalStyles.size(); ++rule) {
        const ConditionalStyle &given = lead.conditionalStyles[rule];
        const QString section = u"Rule %1"_s.arg(rule + 1);
        properties.append({section,
                           u"When"_s,
                           PropertyKind::Expression,
                           given.when,
                           false,
                           {},
                           changing([rule](Rules &rules, const QVariant &value) {
                               rules[rule].when = value.toString();
                           })});
        properties.append({section,
                           u"Color"_s,
                           PropertyKind::Color,
                           given.color,
                           false,
                           {},
                           changing([rule](Rules &rules, const QVariant &value) {
                               rules[rule].color = value.value<QColor>();
                           })});
        properties.append({section,
                           u"Fill"_s,
                           PropertyKind::Color,
                           given.fill,
                           false,
                           {},
                           changing([rule](Rules &rules, const QVariant &value) {
                               rules[rule].fill = value.value<QColor>();
                           })});
        properties.append({section,
                           u"Bold"_s,
                           PropertyKind::Flag,
                           given.bold,
                           false,
                           {},
                           changing([rule](Rules &rules, const QVariant &value) {
                               rules[rule].bold = value.toBool();
                           })});
        properties.append(
            {section,
             u"Remove this rule"_s,
             PropertyKind::Action,
             {},
             false,
             {},
             changing([rule](Rules &rules, const QVariant &) { rules.removeAt(rule); })});
    }
    properties.append({u"Rules"_s,
                       u"Add a rule"_s,
                       PropertyKind::Action,
                       {},
                       false,
                       {},
                       changing([](Rules &rules, const QVariant &) {
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
    if (objects.size() == 1 && lead.kind == ObjectKind::Chart)
        addSeries(properties, lead);
    addRules(properties, objects, lead);
    return properties;
}

} // namespace report
