#include "platform/report/viewer/Thumbnails.h"

#include "platform/report/render/PagePainter.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace report {
namespace {

constexpr int SheetWidth = 84;
constexpr int Margin = 8;
constexpr int MaximumPictures = 200;

} // namespace

/// The numbers of the pages that are there.
class Thumbnails::Model final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    void setPages(const PageStore *pages)
    {
        beginResetModel();
        m_pages = pages;
        m_shown = pages->count();
        endResetModel();
    }
    void addPages()
    {
        // The first page may have been a provisional one.
        if (m_shown > 0)
            Q_EMIT dataChanged(index(0), index(0));
        const int count = m_pages ? m_pages->count() : 0;
        if (count <= m_shown)
            return;
        // The store grows in another thread; the list knows only what it was told of here.
        beginInsertRows({}, m_shown, count - 1);
        m_shown = count;
        endInsertRows();
    }
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_shown;
    }
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(index.row() + 1) : QVariant();
    }
    [[nodiscard]] const Page &page(int row) const { return m_pages->page(row); }

private:
    const PageStore *m_pages = nullptr;
    int m_shown = 0; ///< pages that the list knows of
};

/// Paints a page small, and keeps the pictures made last.
class Thumbnails::Delegate final : public QStyledItemDelegate
{
public:
    Delegate(const Model *model, QObject *parent)
        : QStyledItemDelegate(parent)
        , m_model(model)
        , m_pictures(MaximumPictures)
    {}

    void setPage(const PageSetup &page)
    {
        m_page = page;
        m_pictures.clear();
    }
    void forgetFirst() { m_pictures.remove(0); }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &) const override
    {
        return {SheetWidth + 2 * Margin, sheetHeight() + 2 * Margin + option.fontMetrics.height()};
    }
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const bool selected = option.state & QStyle::State_Selected;
        if (selected)
            painter->fillRect(option.rect, option.palette.highlight());
        const QRect sheet(option.rect.center().x() - SheetWidth / 2, option.rect.top() + Margin,
                          SheetWidth, sheetHeight());
        painter->drawPixmap(sheet.topLeft(),
                            picture(index.row(), painter->device()->devicePixelRatioF()));
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawRect(sheet.adjusted(-1, -1, 0, 0));
        painter->setPen(
            option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(QRect(option.rect.left(), sheet.bottom() + Margin / 2,
                                option.rect.width(), option.fontMetrics.height()),
                          Qt::AlignHCenter | Qt::AlignTop, index.data().toString());
    }

private:
    [[nodiscard]] int sheetHeight() const
    {
        return SheetWidth * m_page.height() / qMax(1, m_page.width());
    }
    [[nodiscard]] QPixmap picture(int row, qreal ratio) const
    {
        if (const QPixmap *known = m_pictures.object(row))
            return *known;
        QPixmap picture(QSizeF(SheetWidth * ratio, sheetHeight() * ratio).toSize());
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        const double scale = double(SheetWidth) / m_page.width();
        painter.scale(scale, scale);
        m_painter.paint(m_model->page(row), painter);
        // Ended ahead of copying: a picture that is being painted on is copied whole.
        painter.end();
        m_pictures.insert(row, new QPixmap(picture));
        return picture;
    }

    const Model *m_model;
    PageSetup m_page;
    mutable PagePainter m_painter;
    mutable QCache<int, QPixmap> m_pictures;
};

Thumbnails::Thumbnails(QWidget *parent)
    : QListView(parent)
    , m_model(new Model(this))
{
    setItemDelegate(new Delegate(m_model, this));
    setModel(m_model);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFixedWidth(SheetWidth + 2 * Margin + 24);
}

void Thumbnails::setPages(const PageStore *pages, const PageSetup &page)
{
    const QScopedValueRollback following(m_following, true);
    static_cast<Delegate *>(itemDelegate())->setPage(page);
    m_model->setPages(pages);
    setCurrentPage(0);
}

void Thumbnails::addPages()
{
    static_cast<Delegate *>(itemDelegate())->forgetFirst();
    m_model->addPages();
}

void Thumbnails::setCurrentPage(int index)
{
    const QScopedValueRollback following(m_following, true);
    setCurrentIndex(m_model->index(index));
}

void Thumbnails::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (current.isValid() && !m_following)
        Q_EMIT pageChosen(current.row());
}

} // namespace report
