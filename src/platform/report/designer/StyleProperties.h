#pragma once

#include "platform/report/designer/Property.h"

namespace report {

/// An attribute of a style, for objects and for the styles of the house alike.
struct StyleProperty
{
    QString section;
    QString caption;
    PropertyKind kind;
    QStringList choices;
    QVariant (*get)(const Style &style);
    void (*set)(Style &style, const QVariant &value);
    bool isOfText = true; ///< nothing that a line or a box shows
};

/// In the order in which they are listed; sections follow each other.
[[nodiscard]] const QList<StyleProperty> &styleProperties();

} // namespace report
