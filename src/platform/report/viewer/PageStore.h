#pragma once

#include "platform/report/paginate/PageDocument.h"

#include <QCache>
#include <QMutex>
#include <vector>

namespace report {

/// Finished pages for looking at, packed, so that a report of thousands of pages takes a few
/// megabytes. The pages looked at last are kept unpacked. Pages may come in from another thread
/// while they are looked at in the window's.
class PageStore
{
public:
    PageStore();
    /// Packs a page behind the others; takes the place of a provisional one.
    void append(const Page &page);
    /// Adds a first page that the next one takes the place of.
    void appendProvisional(const Page &page);
    void clear();

    [[nodiscard]] int count() const;
    /// A page by its index, from 0. The reference holds until the next call.
    [[nodiscard]] const Page &page(int index) const;

private:
    [[nodiscard]] QByteArray packed(const Page &page);
    [[nodiscard]] std::unique_ptr<Page> unpacked(const QByteArray &packed) const;

    mutable QMutex m_mutex; ///< of all but the unpacked pages, which are the window's alone
    bool m_isProvisional = false;
    mutable bool m_firstIsStale = false; ///< the first page has been replaced since it was unpacked
    std::vector<QByteArray> m_packed;
    QList<Style> m_styles; ///< texts share few
    QList<QByteArray> m_pictures;
    mutable QCache<int, Page> m_unpacked;
};

} // namespace report
