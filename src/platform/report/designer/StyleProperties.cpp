#include "platform/report/designer/StyleProperties.h"

#include "platform/report/designer/MemberPath.h"

namespace report {
namespace {

using namespace Qt::StringLiterals;

const QString fontSection = u"Font"_s;
const QString colorSection = u"Colors"_s;
const QString borderSection = u"Border"_s;
const QString placingSection = u"Placing of words"_s;

template<auto... Path>
StyleProperty attribute(const QString &section, const QString &caption, PropertyKind kind,
                        const QStringList &choices = {}, bool isOfText = true)
{
    return {section, caption, kind, choices, valueAt<Style, Path...>, setValueAt<Style, Path...>,
            isOfText};
}

} // namespace

const QList<StyleProperty> &styleProperties()
{
    using P = PropertyKind;
    static const QList<StyleProperty> all{
        attribute<&Style::font, &Font::family>(fontSection, u"Font"_s, P::Font),
        attribute<&Style::font, &Font::points>(fontSection, u"Size"_s, P::Points),
        attribute<&Style::font, &Font::bold>(fontSection, u"Bold"_s, P::Flag),
        attribute<&Style::font, &Font::italic>(fontSection, u"Italic"_s, P::Flag),
        attribute<&Style::font, &Font::underline>(fontSection, u"Underline"_s, P::Flag),
        attribute<&Style::color>(colorSection, u"Color"_s, P::Color, {}, false),
        attribute<&Style::fill>(colorSection, u"Fill"_s, P::Color, {}, false),
        attribute<&Style::align>(placingSection, u"Align"_s, P::Choice,
                                 {u"Left"_s, u"Center"_s, u"Right"_s}),
        attribute<&Style::verticalAlign>(placingSection, u"Vertically"_s, P::Choice,
                                         {u"Top"_s, u"Middle"_s, u"Bottom"_s}),
        attribute<&Style::padding>(placingSection, u"Padding"_s, P::Distance),
        attribute<&Style::border, &Border::left>(borderSection, u"Left border"_s, P::Flag),
        attribute<&Style::border, &Border::top>(borderSection, u"Top border"_s, P::Flag),
        attribute<&Style::border, &Border::right>(borderSection, u"Right border"_s, P::Flag),
        attribute<&Style::border, &Border::bottom>(borderSection, u"Bottom border"_s, P::Flag),
        attribute<&Style::border, &Border::width>(borderSection, u"Border width"_s, P::Distance),
        attribute<&Style::border, &Border::color>(borderSection, u"Border color"_s, P::Color),
    };
    return all;
}

} // namespace report
