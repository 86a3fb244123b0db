#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/paginate/PageDocument.h"

#include <vector>

namespace report {

/// Objects as a page would draw them, with their expressions in place of values and samples in
/// charts. Made by the maker of the pages' bands, so that words break and stand as in print. Keeps
/// what it has made until the object changes; to move one costs nothing.
class DesignItems
{
public:
    /// Where picture files beside the layout are looked for.
    void setFolder(const QString &folder) { m_folder = folder; }
    /// The items of an object from its own upper left corner.
    [[nodiscard]] const QList<PageItem> &itemsOf(const Layout &layout, int band, int object);

private:
    struct Made
    {
        Object object; ///< standing at 0,0
        QList<PageItem> items;
        bool isMade = false;
    };

    [[nodiscard]] QList<PageItem> make(const Layout &layout, const Object &object) const;

    std::vector<std::vector<Made>> m_made; ///< by band and object
    QList<StoredPicture> m_pictures;       ///< with which they were made
    QString m_folder;
};

} // namespace report
