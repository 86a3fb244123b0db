#include "equipment/ui/ThumbnailColumn.h"

#include "equipment/ui/PictureView.h"
#include "platform/grid/GridView.h"

#include <QPainter>

ThumbnailColumn::ThumbnailColumn(grid::GridView *grid, const QString &column,
                                 const QString &nameColumn,
                                 std::function<QByteArray(const QString &)> fetch)
    : QStyledItemDelegate(grid)
    , m_grid(grid)
    , m_nameColumn(nameColumn)
    , m_fetch(std::move(fetch))
{
    grid->setItemDelegateForColumn(grid->rows().columnIndex(column), this);
    // One picture at a time between two events, so that the list can be scrolled while they come.
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ThumbnailColumn::makeNext);
}

void ThumbnailColumn::forget()
{
    m_made.clear();
    m_wanted.clear();
}

void ThumbnailColumn::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    m_grid->itemDelegate()->paint(painter, option, index);
    const QString name = m_grid->rows().text(m_grid->rows().rowOf(index), m_nameColumn);
    const auto made = m_made.constFind(name);
    if (made == m_made.cend()) {
        // Painted again and again until it is there, but fetched once.
        if (!m_wanted.contains(name))
            m_wanted.append(name);
        m_next.start(0);
        return;
    }
    const QSizeF size = made->deviceIndependentSize();
    const QRectF room = option.rect;
    painter->drawPixmap(room.center() - QPointF(size.width() / 2, size.height() / 2), *made);
}

QSize ThumbnailColumn::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Side + 8, Side + 6};
}

void ThumbnailColumn::makeNext()
{
    if (m_wanted.isEmpty())
        return;
    // Last wanted first: that is what the user has scrolled to.
    const QString name = m_wanted.takeLast();
    const qreal ratio = m_grid->devicePixelRatioF();
    QPixmap picture =
        QPixmap::fromImage(decodedPicture(m_fetch(name), static_cast<int>(Side * ratio)));
    picture.setDevicePixelRatio(ratio);
    // One that can't be decoded is kept too, empty, and not tried again.
    m_made.insert(name, picture);
    m_grid->viewport()->update();
    if (!m_wanted.isEmpty())
        m_next.start(0);
}
