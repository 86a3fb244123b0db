#pragma once

#include "platform/report/designer/CanvasGeometry.h"
#include "platform/report/designer/DesignDocument.h"
#include "platform/report/designer/DesignItems.h"
#include "platform/report/designer/Fields.h"
#include "platform/report/designer/Snap.h"
#include "platform/report/render/PagePainter.h"

#include <QAbstractScrollArea>
#include <optional>

class QPlainTextEdit;

namespace report {

class BandStrip;
class Ruler;

/// The sheet on which a report is drawn: its bands below each other, with names and rulers at the
/// side. Shows a document and changes it with mouse and keys.
class DesignCanvas final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    static constexpr int SmallestZoom = 25;
    static constexpr int LargestZoom = 400;

    DesignCanvas(DesignDocument &document, QWidget *parent = nullptr);

    /// In percent; 100 shows the size on paper.
    void setZoom(int percent);
    [[nodiscard]] int zoom() const { return m_zoom; }
    /// So that the sheet is as wide as the canvas.
    void zoomToWidth();
    /// The rulers' unit.
    void setInches(bool inInches);
    /// Edges come to rest on the grid, which is shown then.
    void setGridShown(bool isShown);
    /// Edges come to rest where those of other objects stand.
    void setLiningUp(bool liningUp) { m_linesUp = liningUp; }
    /// Where picture files beside the layout are looked for.
    void setFolder(const QString &folder) { m_items.setFolder(folder); }
    /// What stands below a sheet without any object.
    void setEmptyHint(const QString &words) { m_emptyHint = words; }
    /// True while no band has an object.
    [[nodiscard]] bool isEmpty() const;

    /// The next frame that is drawn, or the next Enter, makes an object of this kind.
    void insert(ObjectKind kind);
    [[nodiscard]] std::optional<ObjectKind> inserting() const { return m_inserting; }
    /// The band into which new and pasted objects go: that of the selection, else the detail.
    [[nodiscard]] int targetBand() const;
    /// Opens the selected object's words for editing in their place; one without words asks for
    /// what is edited instead.
    void editInPlace();
    /// Takes what is typed in place.
    void endEditing() { finishEditing(true); }
    /// Scrolls to what is selected.
    void showSelection();

    [[nodiscard]] const CanvasGeometry &geometry() const { return m_geometry; }
    /// Where a place of a band stands in the viewport.
    [[nodiscard]] QPoint toViewport(int band, QPoint units) const;
    /// Paints a band's objects as the pages do; the painter stands at the upper left corner of
    /// what lies between the margins, a unit of it is 1/100 mm.
    void paintObjects(QPainter &painter, const Layout &layout, int band);

Q_SIGNALS:
    void zoomChanged(int percent);
    /// The kind that the next frame makes has changed.
    void insertingChanged();
    /// An object is to be edited that has no words.
    void editAsked(report::ObjectKind kind);
    /// Somebody asks for a menu at a place of the screen.
    void menuAsked(QPoint global);
    /// Fields were dropped onto a band, the corner of the first at a place of it.
    void fieldsDropped(const QList<DesignField> &fields, int band, QPoint at);
    /// Words for the status bar: where the pointer is, what a drag does.
    void told(const QString &words);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class BandStrip;
    enum class Action { None, Press, Drag, Rubber, Height, Insert };

    /// Shows the document as it is; a drag and what is typed in place are given up.
    void refresh();
    void updateScrollBars();
    void layOutSides();
    [[nodiscard]] QPoint scrolled() const;
    /// A place of the viewport, counted from the upper left corner of all that can be scrolled.
    [[nodiscard]] QPoint contentPoint(QPoint viewport) const { return viewport + scrolled(); }

    void paintSheet(QPainter &painter, const QRect &visible);
    void paintEmptyHint(QPainter &painter);
    void paintBand(QPainter &painter, int band, const QRect &visible);
    void paintGrid(QPainter &painter, int band, const QRect &visible);
    void paintFrames(QPainter &painter, int band);
    void paintSelection(QPainter &painter);
    void paintGuides(QPainter &painter);

    /// What a press begins, by what lies there: a handle, an object, a bar, or nothing.
    void pressAt(QPoint content, Qt::KeyboardModifiers modifiers);
    /// The bar of a band begins to draw its height, anything else a rubber band.
    void pressEmpty(QPoint content, Qt::KeyboardModifiers modifiers);
    void beginHeight(int band, QPoint content);
    /// Selects what the rubber band touches; with Ctrl or Shift beside what was selected.
    void endRubber(Qt::KeyboardModifiers modifiers);
    /// Selects an object; with Ctrl it comes or goes, with Shift it comes.
    void pickAt(Place place, Qt::KeyboardModifiers modifiers);
    /// Goes on with what the press has begun; with Alt nothing lines up.
    void dragTo(QPoint content, Qt::KeyboardModifiers modifiers);
    /// Ways in pixels from where the button was pressed.
    void moveObjects(QPoint by, bool isSnapping);
    void moveInto(int band, QPoint by, bool isSnapping);
    /// The lead's place and size in millimetres, for the status bar.
    void tellFrame();
    /// The same as a drag beyond the viewport's edge scrolls.
    void scrollAlong(QPoint viewport);
    void resizeObjects(QPoint by, bool isSnapping);
    void dragHeight(QPoint by);
    /// What lines up now, by the switches for the grid and for other edges.
    [[nodiscard]] SnapRules snapRules(bool isSnapping) const;
    /// The edges and middles of all objects but those that move.
    [[nodiscard]] SnapLines linesFor(const QList<Place> &moved, int band) const;
    /// Shows a change that becomes one of the document only when the drag ends, by commit().
    void preview(const QString &name, DesignDocument::Change change);
    /// Makes what the drag has shown a change of the document.
    void commit();
    /// Gives up a drag or an insertion; the document stays as it is.
    void cancelAction();
    void updateCursor(QPoint content);
    /// Makes the object that is being inserted, in the frame that was drawn; a click gives it the
    /// usual size.
    void insertFrame(const QRect &content);
    void insertByKey();

    void escape();
    /// True when the key was one that moves or sizes what is selected.
    [[nodiscard]] bool arrowKey(QKeyEvent *event);
    /// Goes so many bands down, or up for less than 0.
    void selectBand(int step);
    /// Closes the box for words, if one is open, and takes them or leaves them.
    void finishEditing(bool isTaken);

    DesignDocument &m_document;
    CanvasGeometry m_geometry;
    DesignItems m_items;
    QString m_emptyHint;
    PagePainter m_painter;
    Layout m_shown;             ///< the document's layout, or how it would be after the drag
    Selection m_shownSelection; ///< the same of the selection
    int m_zoom = 100;
    bool m_inInches = false;
    bool m_showsGrid = true;
    bool m_linesUp = true;

    std::optional<ObjectKind> m_inserting;
    Action m_action = Action::None;
    QPoint m_pressed, m_now; ///< content pixels
    Edges m_edges;           ///< that the drag moves
    int m_bandPressed = -1;
    std::optional<Place> m_picked; ///< becomes the only one selected when no drag follows
    QList<Guide> m_guides;
    int m_guideBand = -1;
    QString m_pendingName;
    DesignDocument::Change m_pending;

    Ruler *m_ruler;
    BandStrip *m_strip;
    QPlainTextEdit *m_editor = nullptr;
};

} // namespace report
