#pragma once

#include "platform/report/layout/Layout.h"

/// Styles of the house: what the title, the headings, the details and the totals of a report look
/// like, each said in one place.
namespace report {

/// The names of the styles that every look has.
namespace house {
inline constexpr QStringView Title = u"Title";
inline constexpr QStringView Heading = u"Heading";
inline constexpr QStringView GroupHeading = u"Group heading";
inline constexpr QStringView Detail = u"Detail";
inline constexpr QStringView Total = u"Total";
inline constexpr QStringView Note = u"Note";
inline constexpr QStringView Rule = u"Rule"; ///< lines
} // namespace house

/// A set of styles by a name: "House", "Plain", "Green".
struct Look
{
    QString name;
    QList<NamedStyle> styles;
};

/// All looks; the first is the usual one.
[[nodiscard]] const QList<Look> &looks();

/// Gives a style new values. Objects that follow it take each value that they had from it; what
/// they have of their own stays. A style that is not there is added.
void setNamedStyle(Layout &layout, const NamedStyle &style);
/// Gives all styles of a look to a layout.
void applyLook(Layout &layout, const Look &look);
/// Lets an object follow a style, with all its values; an empty name for none.
void followStyle(const Layout &layout, Object &object, const QString &style);
/// Gives a style another name, for all objects that follow it.
void renameStyle(Layout &layout, int style, const QString &name);
/// Lets all objects that follow no style yet follow the one of their band: titles and headings of
/// the page header, details, totals. Adds the styles of the usual look where they are missing.
void assignHouseStyles(Layout &layout);

} // namespace report
