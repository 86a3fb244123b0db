#pragma once

#include "platform/report/designer/Fields.h"
#include "platform/report/designer/Selection.h"
#include "platform/report/layout/Layout.h"

#include <QHash>

namespace report {

/// A layout whose objects all have names, so that what is remarked on one can be traced to it.
struct Labelled
{
    Layout layout;
    QHash<QString, Selection> parts; ///< by label
    /// Bands by their conditions and objects by the files of their pictures, of which remarks tell
    /// no more than a piece.
    QList<std::pair<QString, Selection>> conditions, pictures;
};

/// Names each object that has no name by what it shows and its band: "Field "Cost" in Detail".
[[nodiscard]] Labelled labelled(const Layout &layout);
/// The part that a remark of a report speaks of; nothing for one on the whole.
[[nodiscard]] std::optional<Selection> partOf(const Labelled &layout, const QString &remark);

/// What is wrong with an expression in a place of a layout: it can't be read, or names what neither
/// the fields nor the layout know. Empty when it is right. Without any fields all names may be one.
[[nodiscard]] QString faultOf(const QString &text, bool isWords, const Layout &layout,
                              const Selection &place, const QList<DesignField> &fields);

} // namespace report
