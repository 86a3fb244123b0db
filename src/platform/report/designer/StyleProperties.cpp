#include "platform/report/designer/StyleProperties.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QString fontSection = u"Font"_s;
const QString colorSection = u"Colors"_s;
const QString borderSection = u"Border"_s;
const QString placingSection = u"Placing of words"_s;

template<class Kind>
Kind choiceOf(const QVariant &value)
{
    return static_cast<Kind>(value.toInt());
}

} // namespace

const QList<StyleProperty> &styleProperties()
{
    static const QList<StyleProperty> all{
        {fontSection,
         u"Font"_s,
         PropertyKind::Font,
         {},
         [](const Style &s) { return QVariant(s.font.family); },
         [](Style &s, const QVariant &v) { s.font.family = v.toString(); }},
        {fontSection,
         u"Size"_s,
         PropertyKind::Points,
         {},
         [](const Style &s) { return QVariant(s.font.points); },
         [](Style &s, const QVariant &v) { s.font.points = v.toDouble(); }},
        {fontSection,
         u"Bold"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.font.bold); },
         [](Style &s, const QVariant &v) { s.font.bold = v.toBool(); }},
        {fontSection,
         u"Italic"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.font.italic); },
         [](Style &s, const QVariant &v) { s.font.italic = v.toBool(); }},
        {fontSection,
         u"Underline"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.font.underline); },
         [](Style &s, const QVariant &v) { s.font.underline = v.toBool(); }},
        {colorSection,
         u"Color"_s,
         PropertyKind::Color,
         {},
         [](const Style &s) { return QVariant(s.color); },
         [](Style &s, const QVariant &v) { s.color = v.value<QColor>(); },
         false},
        {colorSection,
         u"Fill"_s,
         PropertyKind::Color,
         {},
         [](const Style &s) { return QVariant(s.fill); },
         [](Style &s, const QVariant &v) { s.fill = v.value<QColor>(); },
         false},
        {placingSection,
         u"Align"_s,
         PropertyKind::Choice,
         {u"Left"_s, u"Center"_s, u"Right"_s},
         [](const Style &s) { return QVariant(static_cast<int>(s.align)); },
         [](Style &s, const QVariant &v) { s.align = choiceOf<Align>(v); }},
        {placingSection,
         u"Vertically"_s,
         PropertyKind::Choice,
         {u"Top"_s, u"Middle"_s, u"Bottom"_s},
         [](const Style &s) { return QVariant(static_cast<int>(s.verticalAlign)); },
         [](Style &s, const QVariant &v) { s.verticalAlign = choiceOf<VerticalAlign>(v); }},
        {placingSection,
         u"Padding"_s,
         PropertyKind::Distance,
         {},
         [](const Style &s) { return QVariant(s.padding); },
         [](Style &s, const QVariant &v) { s.padding = v.toInt(); }},
        {borderSection,
         u"Left border"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.border.left); },
         [](Style &s, const QVariant &v) { s.border.left = v.toBool(); }},
        {borderSection,
         u"Top border"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.border.top); },
         [](Style &s, const QVariant &v) { s.border.top = v.toBool(); }},
        {borderSection,
         u"Right border"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.border.right); },
         [](Style &s, const QVariant &v) { s.border.right = v.toBool(); }},
        {borderSection,
         u"Bottom border"_s,
         PropertyKind::Flag,
         {},
         [](const Style &s) { return QVariant(s.border.bottom); },
         [](Style &s, const QVariant &v) { s.border.bottom = v.toBool(); }},
        {borderSection,
         u"Border width"_s,
         PropertyKind::Distance,
         {},
         [](const Style &s) { return QVariant(s.border.width); },
         [](Style &s, const QVariant &v) { s.border.width = v.toInt(); }},
        {borderSection,
         u"Border color"_s,
         PropertyKind::Color,
         {},
         [](const Style &s) { return QVariant(s.border.color); },
         [](Style &s, const QVariant &v) { s.border.color = v.value<QColor>(); }}};
    return all;
}

} // namespace report
