#pragma once

#include "platform/report/paginate/PageDocument.h"

#include <QCache>
#include <vector>

namespace report {

/// Finished pages for looking at, packed, so that a report of thousands of pages takes a few
/// megabytes. The pages looked at last are kept unpacked.
class PageStore
{
public:
    PageStore();
    void append(const Page &page);
    void clear();

    [[nodiscard]] int count() const { return static_cast<int>(m_packed.size()); }
    /// A page by its index, from 0. The reference holds until the next call.
    [[nodiscard]] const Page &page(int index) const;

private:
    std::vector<QByteArray> m_packed;
    QList<Style> m_styles; ///< texts share few
    QList<QByteArray> m_pictures;
    mutable QCache<int, Page> m_unpacked;
};

} // namespace report
