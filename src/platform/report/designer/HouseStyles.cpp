#include "platform/report/designer/HouseStyles.h"

#include "platform/report/designer/Normalised.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

/// From so many points on, a text of a header is its title.
constexpr double TitlePoints = 12;
constexpr Length CellPadding = 80;

struct Tones
{
    QColor main, onMain, second, quiet;
};

Style textStyle(double points, bool bold, const QColor &color)
{
    Style style;
    style.font.points = points;
    style.font.bold = bold;
    style.color = color;
    return style;
}

QList<NamedStyle> stylesOf(const Tones &tones)
{
    Style heading = textStyle(9, true, tones.onMain);
    heading.fill = tones.main;
    heading.padding = CellPadding;
    // Without colours headings have no ground: their words would vanish on it.
    if (tones.onMain == tones.main)
        heading.fill = QColor();
    Style group = textStyle(11, true, tones.main);
    group.border.bottom = true;
    group.border.color = tones.second;
    Style detail = textStyle(9, false, Qt::black);
    detail.padding = CellPadding;
    Style total = textStyle(9, true, Qt::black);
    total.padding = CellPadding;
    total.border.top = true;
    total.border.color = tones.main;
    return {{house::Title.toString(), textStyle(15, true, tones.main)},
            {house::Heading.toString(), heading},
            {house::GroupHeading.toString(), group},
            {house::Detail.toString(), detail},
            {house::Total.toString(), total},
            {house::Note.toString(), textStyle(8, false, tones.quiet)},
            {house::Rule.toString(), textStyle(9, false, tones.second)}};
}

/// An object knows no list of what is its own: what differs from its style is.
/// Takes the values of a style over in which a former one and the object agree.
void follow(Style &own, const Style &former, const Style &now)
{
    const auto take = [](auto &value, const auto &then, const auto &present) {
        if (value == then)
            value = present;
    };
    take(own.font.family, former.font.family, now.font.family);
    take(own.font.points, former.font.points, now.font.points);
    take(own.font.bold, former.font.bold, now.font.bold);
    take(own.font.italic, former.font.italic, now.font.italic);
    take(own.font.underline, former.font.underline, now.font.underline);
    take(own.color, former.color, now.color);
    take(own.fill, former.fill, now.fill);
    take(own.align, former.align, now.align);
    take(own.verticalAlign, former.verticalAlign, now.verticalAlign);
    take(own.border.left, former.border.left, now.border.left);
    take(own.border.top, former.border.top, now.border.top);
    take(own.border.right, former.border.right, now.border.right);
    take(own.border.bottom, former.border.bottom, now.border.bottom);
    take(own.border.width, former.border.width, now.border.width);
    take(own.border.color, former.border.color, now.border.color);
    take(own.padding, former.padding, now.padding);
}

/// Names of styles count in any case.
bool isFollowing(const Object &object, const QString &style)
{
    return !style.isEmpty() && object.styleName.compare(style, Qt::CaseInsensitive) == 0;
}

/// The style that an object's place in the report suggests.
QStringView roleOf(const Band &band, const Object &object)
{
    if (object.kind == ObjectKind::Line)
        return house::Rule;
    switch (band.kind) {
    case BandKind::ReportHeader:
    case BandKind::PageHeader:
        return object.style.font.points >= TitlePoints ? house::Title : house::Heading;
    case BandKind::GroupHeader:
    case BandKind::SubHeader:
        return house::GroupHeading;
    case BandKind::Detail:
    case BandKind::SubDetail:
        return house::Detail;
    case BandKind::SubFooter:
    case BandKind::GroupFooter:
    case BandKind::ReportFooter:
        return house::Total;
    case BandKind::PageFooter:
        break;
    }
    return house::Note;
}

} // namespace

const QList<Look> &looks()
{
    static const QList<Look> all{
        {u"House"_s, stylesOf({QColor(0x24, 0x47, 0x6d), Qt::white, QColor(0xc8, 0x69, 0x1e),
                               QColor(0x50, 0x58, 0x60)})},
        {u"Plain"_s, stylesOf({Qt::black, Qt::black, Qt::black, QColor(0x50, 0x50, 0x50)})},
        {u"Green"_s, stylesOf({QColor(0x2e, 0x5e, 0x34), Qt::white, QColor(0x8a, 0xa8, 0x3c),
                               QColor(0x55, 0x60, 0x55)})},
        {u"Slate"_s, stylesOf({QColor(0x4a, 0x55, 0x60), Qt::white, QColor(0xa0, 0xa8, 0xb0),
                               QColor(0x60, 0x66, 0x6c)})}};
    return all;
}

void setNamedStyle(Layout &layout, const NamedStyle &style)
{
    const int index = layout.styleIndex(style.name);
    if (index < 0) {
        layout.styles.append(style);
        return;
    }
    // Noted before it is changed: by it an object's own values are told from followed ones.
    const Style former = layout.styles[index].style;
    layout.styles[index].style = style.style;
    for (Band &band : layout.bands)
        for (Object &object : band.objects)
            if (isFollowing(object, style.name))
                follow(object.style, former, style.style);
}

void applyLook(Layout &layout, const Look &look)
{
    for (const NamedStyle &style : look.styles)
        setNamedStyle(layout, style);
}

void followStyle(const Layout &layout, Object &object, const QString &style)
{
    const int index = layout.styleIndex(style);
    object.styleName = index < 0 ? QString() : layout.styles[index].name;
    if (index < 0)
        return;
    // On which side its words stand hangs on what it shows.
    const Align side = object.style.align;
    object.style = layout.styles[index].style;
    object.style.align = side;
}

void renameStyle(Layout &layout, int style, const QString &name)
{
    const QString former = layout.styles[style].name;
    QStringList taken;
    for (int other = 0; other < layout.styles.size(); ++other)
        if (other != style)
            taken.append(layout.styles[other].name);
    layout.styles[style].name = freeName(name.trimmed().isEmpty() ? former : name.trimmed(), taken);
    for (Band &band : layout.bands)
        for (Object &object : band.objects)
            if (isFollowing(object, former))
                object.styleName = layout.styles[style].name;
}

void assignHouseStyles(Layout &layout)
{
    // Styles of these names that the report has already are the user's and stay.
    for (const NamedStyle &style : looks().first().styles)
        if (layout.styleIndex(style.name) < 0)
            layout.styles.append(style);
    for (Band &band : layout.bands)
        for (Object &object : band.objects)
            // What follows a style already was decided by somebody.
            if (object.styleName.isEmpty() &&
                (object.kind == ObjectKind::Text || object.kind == ObjectKind::Field ||
                 object.kind == ObjectKind::Line))
                followStyle(layout, object, roleOf(band, object).toString());
}

} // namespace report
