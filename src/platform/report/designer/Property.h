#pragma once

#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QStringList>
#include <QVariant>
#include <functional>

namespace report {

/// How the value of an attribute is edited.
enum class PropertyKind {
    Text,
    Memo,  ///< several lines
    Words, ///< words with expressions in braces
    Expression,
    Distance, ///< int, 1/100 mm
    Points,   ///< double
    Count,    ///< int
    Flag,     ///< bool
    Choice,   ///< int, the number among the choices
    Color,    ///< QColor, invalid for none
    Font,     ///< name of a family
    Format,
    Picture, ///< name of a stored picture, of a file, or an expression behind "="
    Style,   ///< name of a style, may be empty
    Action,  ///< no value; a button that does something
};

/// An attribute of what is selected.
struct Property
{
    QString section;
    QString caption;
    PropertyKind kind = PropertyKind::Text;
    QVariant value;
    bool isMixed = false; ///< several objects differ in it; value is that of the lead
    QStringList choices{};
    /// Gives it a new value, for all that is selected.
    std::function<void(Layout &layout, Selection &selection, const QVariant &value)> set{};
};

/// Every attribute of what is selected; of several objects those that all have.
[[nodiscard]] QList<Property> propertiesOf(const Layout &layout, const Selection &selection);

/// "12.5" or "12.5mm" and other units as a length in 1/100 mm; nothing for another text.
[[nodiscard]] std::optional<Length> typedLength(const QString &text);
/// A value as the list of attributes shows it.
[[nodiscard]] QString shownValue(const Property &property);

} // namespace report
