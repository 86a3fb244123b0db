#pragma once

#include "platform/grid/GridModel.h"

#include <QHash>
#include <QTreeView>

namespace grid {

class GridDelegate;

/// The one grid of the system, over a model of its own (rows()). One row is selected at a time,
/// and one of its cells is current. Headings can be dragged, widened, and clicked to sort.
///
/// Keys: arrows, Home, End, Page Up and Down move; F2 or typing edits the cell; Enter stores and
/// stays, or activates the row; Tab stores and goes to the next cell that can be edited; Escape
/// gives up; Space ticks the current check box or else the row's first; Ctrl+C copies the row.
class GridView : public QTreeView
{
    Q_OBJECT
public:
    explicit GridView(QWidget *parent = nullptr);
    ~GridView() override;

    /// The rows and columns that are shown.
    [[nodiscard]] GridModel &rows() { return *m_rows; }
    [[nodiscard]] const GridModel &rows() const { return *m_rows; }

    /// The number of the current row, -1 when there is none.
    [[nodiscard]] int currentRow() const;
    /// The name of the current cell's column, empty when there is none.
    [[nodiscard]] QString currentColumn() const;
    /// Makes a row current and scrolls to it; -1 as clearCurrent.
    void selectRow(int row);
    /// Makes a cell current; nothing happens when there is none such. clearCurrent leaves the grid
    /// without a current row.
    void selectCell(int row, QStringView column);
    void clearCurrent();
    [[nodiscard]] QList<int> displayedOrder() const { return m_rows->displayedOrder(); }

    /// Allows or forbids all editing, whatever the columns say. Allowed at first.
    void setEditing(bool allowed);
    [[nodiscard]] bool editing() const { return m_editing; }
    /// Opens the editor of a cell; false when it can't be edited.
    bool editCell(int row, QStringView column);
    /// Stores what stands in an open editor and closes it; false when the value was refused.
    bool finishEditing();
    /// Makes the grid a sheet for entering one column: a click in a row, Enter, Delete or
    /// Backspace edits its cell; Enter and Down store and go to the next row, Up to the one
    /// before. A refused value keeps the editor open on what the cell then holds.
    void setVerticalEntry(QStringView column);

    /// Shows or hides the rows below a row of a tree.
    void setRowExpanded(int row, bool expanded);
    [[nodiscard]] bool isRowExpanded(int row) const;

    /// Field, width, position and sort of every column, by position.
    [[nodiscard]] Layout layout() const;
    /// Restores these. A field that no column has yet is kept for when it comes; the names of
    /// these fields are returned.
    QStringList applyLayout(const Layout &layout);
    /// Sorts and shows the sign in the heading.
    void sortBy(QStringView column, Sort direction);

    /// The row's texts as Ctrl+C copies them: visible columns from left to right, by tabs.
    [[nodiscard]] QString rowText(int row) const;
    /// Rectangle of a cell in the viewport.
    [[nodiscard]] QRect cellRect(int row, QStringView column) const;

    using QTreeView::edit;

Q_SIGNALS:
    /// Another row is current, whoever made it so; -1 for none.
    void currentRowChanged(int row);
    /// A double click on a row, or Enter.
    void rowActivated(int row);
    void buttonClicked(int row, const QString &column);
    void linkClicked(int row, const QString &column);
    void cellClicked(int row, const QString &column);
    /// After a change by the user was accepted.
    void changed(int row, const QString &column);
    /// The user typed in an open editor, which now holds the text.
    void typing(int row, const QString &column, const QString &text);
    /// A typed text was given up because it is no value of the column (below a mask's range, no
    /// date); the cell keeps its old value.
    void entryRefused(int row, const QString &column, const QString &text);

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void drawBranches(QPainter *painter, const QRect &rect,
                      const QModelIndex &index) const override;

private:
    friend class GridDelegate;

    /// Brings the headings in line with the settings of the columns.
    void showColumns();
    void rowsReset();
    void headingClicked(int section);
    void headingMoved();
    void headingResized(int section, int width);
    void showSortSign();
    /// Gives columns that have come by now the layout that was kept for them.
    void applyPending();
    void placeColumns();

    [[nodiscard]] QList<int> visibleColumns() const;
    /// The visible cell so many steps beside one; the same one at the edge.
    [[nodiscard]] QModelIndex neighbour(const QModelIndex &index, int step) const;
    /// Where Tab goes, over the ends of rows; invalid when there is no such cell.
    [[nodiscard]] QModelIndex nextEditable(const QModelIndex &index, bool forward) const;
    [[nodiscard]] bool isEditable(const QModelIndex &index) const;
    void makeCurrent(const QModelIndex &index);
    bool press(const QModelIndex &index);
    void toggle(const QModelIndex &index);
    bool toggleByKey();
    void copyRow() const;
    void leaveEditor(const QModelIndex &index, bool stored, int key);

    GridModel *m_rows;
    GridDelegate *m_delegate;
    bool m_editing = true;
    QString m_verticalColumn;
    int m_lastRow = -1;
    bool m_placing = false; ///< columns are being placed by the program
    QPersistentModelIndex m_pressed;
    QHash<QString, ColumnLayout> m_pendingLayout; ///< by field in lower case
};

} // namespace grid
