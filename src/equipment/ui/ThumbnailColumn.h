#pragma once

#include <QHash>
#include <QPixmap>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTimer>
#include <functional>

namespace grid {
class GridView;
}

/// Small pictures in a column of a grid. A picture is fetched and decoded once its row is painted,
/// one between two events, so that a list of any length opens at once.
class ThumbnailColumn final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int Side = 48; ///< of a picture, in pixels

    /// column: where the pictures stand; nameColumn: whose text fetch gets and answers with the
    /// bytes of the picture.
    ThumbnailColumn(grid::GridView *grid, const QString &column, const QString &nameColumn,
                    std::function<QByteArray(const QString &)> fetch);

    /// Forgets all pictures, since the rows are others now.
    void forget();

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;

private:
    /// Makes one of the pictures that painting has missed.
    void makeNext();

    grid::GridView *m_grid;
    QString m_nameColumn;
    std::function<QByteArray(const QString &)> m_fetch;
    QHash<QString, QPixmap> m_made;
    mutable QStringList m_wanted; // filled while painting, which Qt does in a const function
    mutable QTimer m_next;
};
