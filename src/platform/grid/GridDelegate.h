#pragma once

#include "platform/grid/GridTypes.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

namespace grid {

class GridModel;
class GridView;

/// Colours of grids.
namespace colours {
inline constexpr QColor Selection{49, 101, 255};
inline constexpr QColor SelectionText{255, 255, 255};
inline constexpr QColor Locked{240, 240, 240}; ///< locked columns and every other row
inline constexpr QColor Lines{208, 208, 208};
inline constexpr QColor Link{0, 70, 190};
} // namespace colours

/// The lines between cells, along the inner edges of a cell. One pixel of the screen wide, also on
/// an enlarged one, where a pen of width 1 comes out as one pixel here and two there.
void drawLineBelow(QPainter *painter, const QRect &cell);
void drawLineRight(QPainter *painter, const QRect &cell);

/// Paints the cells of a grid and edits them, one at a time.
class GridDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit GridDelegate(GridView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// The open editor, null when none is.
    [[nodiscard]] QWidget *editor() const { return m_editor; }
    [[nodiscard]] QModelIndex editedIndex() const { return m_index; }
    /// Stores what stands in the open editor; false when the value was refused, or while another
    /// call is still storing.
    bool store();
    /// Puts the cell's value back into the open editor, all of it selected.
    void startAgain();
    /// Closes the open editor without storing.
    void close();
    /// The view has closed the editor, or is about to be gone with it.
    void forget() { m_editor = nullptr; }
    /// True while a refused editor is about to take the focus back.
    [[nodiscard]] bool isHolding() const { return m_holding; }
    /// Colour behind a cell that differs from the row's, invalid otherwise.
    [[nodiscard]] QColor background(const QModelIndex &index, bool selected) const;
    /// The part of a drop-down or date cell that opens its list.
    [[nodiscard]] static QRect arrowRect(const QRect &cell);

private:
    [[nodiscard]] const GridModel &rows() const;
    /// A key in the open editor; True when it is used up.
    [[nodiscard]] bool keyPressed(const QKeyEvent &event);
    /// Stores and closes the editor; in a sheet a refused value takes the focus back.
    void focusLost();
    void paintText(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                   const Style &style, bool selected) const;
    void paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                     const QModelIndex &index) const;

    GridView *m_view;
    // Remembered where the base class creates the editor, which it does in a const function.
    mutable QPointer<QWidget> m_editor;
    mutable QPersistentModelIndex m_index;
    bool m_storing = false;
    bool m_holding = false;
};

} // namespace grid
