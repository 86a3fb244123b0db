#pragma once

#include <QWidget>

namespace report {

class CanvasGeometry;
class DesignCanvas;

/// The ruler above a canvas; zero is the left margin.
class Ruler final : public QWidget
{
    Q_OBJECT

public:
    explicit Ruler(DesignCanvas &canvas);
    static constexpr int Thickness = 20;
    void setInches(bool inInches);
    /// Where the pointer and the selection are, in pixels of the viewport.
    void setMarks(int pointer, int from, int to);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    DesignCanvas &m_canvas;
    bool m_inInches = false;
    int m_pointer = -1, m_from = 0, m_to = 0;
};

/// The side of a canvas: the names of its bands, and a ruler for each that begins at its top. A
/// click selects a band, its lower edge draws its height.
class BandStrip final : public QWidget
{
    Q_OBJECT

public:
    explicit BandStrip(DesignCanvas &canvas);
    static constexpr int NameWidth = 108;
    static constexpr int RulerWidth = 24; ///< for numbers of three digits
    static constexpr int Width = NameWidth + RulerWidth;
    void setInches(bool inInches);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// A band's name at the side, marked while it or something in it is selected.
    void paintName(QPainter &painter, int band, const QRect &slot);

    DesignCanvas &m_canvas;
    bool m_inInches = false;
};

} // namespace report
