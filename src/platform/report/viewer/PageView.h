#pragma once

#include "platform/report/layout/Layout.h"
#include "platform/report/render/PagePainter.h"
#include "platform/report/viewer/PageSearch.h"
#include "platform/report/viewer/PageSelection.h"

#include <QAbstractScrollArea>

namespace report {

/// How large pages are shown.
enum class ZoomMode { Percent, FullWidth, WholePage };

/// Shows pages below each other, as large as asked for; 100 percent is the size on paper. The arrow
/// keys, Page Up and Down, Home and End move through them, Ctrl with the wheel zooms. Texts are
/// selected with the mouse or Ctrl+A and copied with Ctrl+C or the menu.
class PageView final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    static constexpr int SmallestZoom = 10;
    static constexpr int LargestZoom = 400;

    explicit PageView(QWidget *parent = nullptr);

    /// Shows these pages, which must outlive the view, from the first on.
    void setPages(const PageStore *pages, const PageSetup &page);
    /// More pages have come; the first may have changed.
    void addPages();

    /// In percent, within the bounds above; ends a zoom by width or page.
    void setZoom(int percent);
    /// By width or page the zoom follows the window's size from now on.
    void setZoomMode(ZoomMode mode);
    [[nodiscard]] int zoom() const { return m_zoom; }
    [[nodiscard]] ZoomMode zoomMode() const { return m_mode; }

    /// The page that was asked for or, after scrolling, stands in the middle; from 0.
    [[nodiscard]] int currentPage() const { return m_current; }
    /// From 0; one beyond the ends is the nearest there is.
    void showPage(int index);
    /// Marks a place and brings it into view; nothing takes the mark away.
    void setMark(const std::optional<Found> &found);
    /// Marks a text lightly wherever it stands; an empty one takes the marks away.
    void setSearched(const QString &text);

    /// The texts of all pages that have come so far.
    void selectAll();
    [[nodiscard]] bool hasSelection() const { return m_selection && !m_selection->isEmpty(); }
    /// Puts the selected text into the clipboard.
    void copy() const;

Q_SIGNALS:
    void currentPageChanged(int index);
    /// The zoom or its mode is another one.
    void zoomChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    [[nodiscard]] PagePoint pointAt(QPoint viewport) const;
    void setSelection(const std::optional<PageSelection> &selection);
    void paintPage(QPainter &painter, int index, const QRect &sheet);
    [[nodiscard]] double scale() const; ///< pixels for each 1/100 mm
    [[nodiscard]] QSize pageSize() const;
    [[nodiscard]] int topOf(int index) const;
    [[nodiscard]] int leftOfPages() const;
    void applyMode();
    void changeZoom(int percent);
    void updateScrollBars();
    [[nodiscard]] int middlePage() const;
    void setCurrentPage(int index);

    const PageStore *m_pages = nullptr;
    PageSetup m_page;
    PagePainter m_painter;
    int m_zoom = 100;
    ZoomMode m_mode = ZoomMode::Percent;
    std::optional<Found> m_mark;
    QString m_searched;
    std::optional<PageSelection> m_selection;
    int m_current = 0;
    int m_toldPage = -1;
};

} // namespace report
