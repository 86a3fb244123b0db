// Keys, clicks and editing of the grid.
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridDelegate.h"
#include "platform/grid/GridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>

namespace grid {

// Editing

void GridView::setEditing(bool allowed)
{
    if (!allowed)
        finishEditing();
    m_editing = allowed;
    viewport()->update();
}

bool GridView::isEditable(const QModelIndex &index) const
{
    return m_editing && index.isValid() && m_rows->mayEdit(m_rows->rowOf(index), index.column());
}

bool GridView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool wanted = trigger == AllEditTriggers || editTriggers().testFlag(trigger);
    if (wanted && (!isEditable(index) || m_rows->columnAt(index.column()).editor == Editor::Check))
        return false;
    // A click in the selected row opens the cell after the time of a double click, and until then
    // the view takes no keys. What is typed behind such a click must not be lost: a double click
    // ends the waiting, and here opens nothing.
    if (trigger == AnyKeyPressed || trigger == EditKeyPressed)
        QTreeView::edit(index, DoubleClicked, nullptr);
    return QTreeView::edit(index, trigger, event);
}

bool GridView::editCell(int row, QStringView column)
{
    const QModelIndex index = m_rows->indexOf(row, m_rows->columnIndex(column));
    if (!index.isValid())
        return false;
    makeCurrent(index);
    return edit(index, AllEditTriggers, nullptr);
}

bool GridView::finishEditing()
{
    if (!m_delegate->editor())
        return true;
    const bool accepted = m_delegate->store();
    m_delegate->close();
    return accepted;
}

void GridView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (editor == m_delegate->editor())
        m_delegate->forget();
    // A message that a rule has just shown may still be the active window: the focus would then go
    // to whatever follows the editor.
    const bool hadFocus = editor && window()->focusWidget() == editor;
    QTreeView::closeEditor(editor, hint);
    if (hadFocus)
        setFocus();
}

void GridView::setVerticalEntry(QStringView column)
{
    m_verticalColumn = m_rows->column(column).name;
}

QModelIndex GridView::nextEditable(const QModelIndex &index, bool forward) const
{
    const QList<int> columns = visibleColumns();
    const int step = forward ? 1 : -1;
    qsizetype at = columns.indexOf(index.column()) + step;
    for (QModelIndex row = index; row.isValid();
         row = forward ? indexBelow(row) : indexAbove(row)) {
        for (; at >= 0 && at < columns.size(); at += step) {
            const QModelIndex cell = row.siblingAtColumn(columns[at]);
            if (m_rows->columnAt(columns[at]).editor != Editor::Check && isEditable(cell))
                return cell;
        }
        at = forward ? 0 : columns.size() - 1;
    }
    return {};
}

/// After Enter, Tab or an arrow in an editor tried to store.
void GridView::leaveEditor(const QModelIndex &index, bool stored, int key)
{
    QModelIndex next;
    if (m_verticalColumn.isEmpty()) {
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
            next = nextEditable(index, key == Qt::Key_Tab);
    } else {
        const bool up = key == Qt::Key_Up || key == Qt::Key_Backtab;
        next = up ? indexAbove(index) : indexBelow(index);
        if (!stored || !next.isValid())
            return m_delegate->startAgain();
        next = next.siblingAtColumn(index.column());
    }
    const QPersistentModelIndex cell = next;
    m_delegate->close();
    if (!cell.isValid())
        return;
    makeCurrent(cell);
    edit(cell, AllEditTriggers, nullptr);
}

void GridView::toggle(const QModelIndex &index)
{
    const int row = m_rows->rowOf(index);
    m_rows->edit(row, index.column(), !isTicked(m_rows->valueAt(row, index.column())));
}

/// Ticks the current check box, or else the first of the row.
bool GridView::toggleByKey()
{
    QList<int> columns = visibleColumns();
    columns.prepend(currentIndex().column());
    for (const int column : columns) {
        const QModelIndex cell = currentIndex().siblingAtColumn(column);
        if (m_rows->columnAt(column).editor == Editor::Check && isEditable(cell)) {
            toggle(cell);
            return true;
        }
    }
    return false;
}

/// What a click in a cell sets off, or a key on it: a button, a link, a row that opens.
bool GridView::press(const QModelIndex &index)
{
    const int row = m_rows->rowOf(index);
    const QString name = m_rows->columnAt(index.column()).name;
    if (m_rows->columnAt(index.column()).editor == Editor::Button &&
        !m_rows->textAt(row, index.column()).isEmpty()) {
        Q_EMIT buttonClicked(row, name);
        return true;
    }
    if (m_rows->isLink(row, index.column())) {
        Q_EMIT linkClicked(row, name);
        return true;
    }
    const QModelIndex first = index.siblingAtColumn(0);
    if (m_rows->treeColumn() < 0 || !m_rows->hasChildren(first))
        return false;
    setExpanded(first, !isExpanded(first));
    return true;
}

// Keys

QModelIndex GridView::neighbour(const QModelIndex &index, int step) const
{
    const QList<int> columns = visibleColumns();
    const qsizetype at = columns.indexOf(index.column()) + step;
    return at >= 0 && at < columns.size() ? index.siblingAtColumn(columns[at]) : index;
}

QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return QTreeView::moveCursor(action, modifiers);
    if (action == MoveLeft || action == MoveRight)
        return neighbour(current, action == MoveLeft ? -1 : 1);
    const QModelIndex target = QTreeView::moveCursor(action, modifiers);
    return target.isValid() ? target.siblingAtColumn(current.column()) : target;
}

void GridView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    if (event->matches(QKeySequence::Copy)) {
        copyRow();
        return;
    }
    if (!current.isValid())
        return QTreeView::keyPressEvent(event);
    const bool tree = m_rows->treeColumn() >= 0;
    const QModelIndex first = current.siblingAtColumn(0);
    switch (event->key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
        if (!m_verticalColumn.isEmpty())
            editCell(currentRow(), m_verticalColumn);
        else if (!press(current))
            Q_EMIT rowActivated(currentRow());
        return;
    case Qt::Key_Space:
        if (event->modifiers() == Qt::NoModifier && (toggleByKey() || press(current)))
            return;
        break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!m_verticalColumn.isEmpty()) {
            editCell(currentRow(), m_verticalColumn);
            return;
        }
        break;
    case Qt::Key_Left:
        if (tree && isExpanded(first))
            return collapse(first);
        if (tree && first.parent().isValid())
            return makeCurrent(first.parent().siblingAtColumn(current.column()));
        break;
    case Qt::Key_Right:
        if (tree && m_rows->hasChildren(first) && !isExpanded(first))
            return expand(first);
        break;
    default:
        break;
    }
    // Typed characters go to the sheet's column, wherever in the row the cursor stands.
    if (!m_verticalColumn.isEmpty() && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        const QModelIndex cell = current.siblingAtColumn(m_rows->columnIndex(m_verticalColumn));
        makeCurrent(cell);
    }
    QTreeView::keyPressEvent(event);
}

// Mouse

void GridView::mousePressEvent(QMouseEvent *event)
{
    // A refused entry keeps the focus: the click that would have left it goes nowhere.
    if (m_delegate->isHolding())
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    m_pressed = event->button() == Qt::LeftButton ? index : QModelIndex();
    QTreeView::mousePressEvent(event);
    if (m_pressed.isValid())
        update(m_pressed);
}

void GridView::mouseMoveEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool link = index.isValid() && m_rows->isLink(m_rows->rowOf(index), index.column());
    viewport()->setCursor(link ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QTreeView::mouseMoveEvent(event);
}

void GridView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressed, QPersistentModelIndex());
    const QPoint place = event->position().toPoint();
    QTreeView::mouseReleaseEvent(event);
    if (!pressed.isValid())
        return;
    update(pressed);
    if (indexAt(place) != pressed)
        return;
    const int row = m_rows->rowOf(pressed);
    const Column &column = m_rows->columnAt(pressed.column());
    const QString name = column.name;
    const bool opensList = column.editor == Editor::DropDown || column.editor == Editor::Date;
    const QPointer<GridView> self = this;
    if (!m_verticalColumn.isEmpty())
        editCell(row, m_verticalColumn);
    else if (column.editor == Editor::Check && isEditable(pressed))
        toggle(pressed);
    else if (opensList && GridDelegate::arrowRect(visualRect(pressed)).contains(place))
        edit(pressed, AllEditTriggers, nullptr);
    else
        press(pressed);
    // What the click set off may have loaded other rows.
    if (self && pressed.isValid())
        Q_EMIT cellClicked(row, name);
}

void GridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (m_delegate->isHolding() || !index.isValid() || event->button() != Qt::LeftButton)
        return;
    const Column &column = m_rows->columnAt(index.column());
    const int row = m_rows->rowOf(index);
    const bool opens = m_rows->treeColumn() >= 0 && m_rows->hasChildren(index.siblingAtColumn(0));
    // On these a double click is two clicks.
    if ((column.editor == Editor::Check && isEditable(index)) || column.editor == Editor::Button ||
        m_rows->isLink(row, index.column()) || opens || !m_verticalColumn.isEmpty())
        return mousePressEvent(event);
    QTreeView::mouseDoubleClickEvent(event);
    Q_EMIT rowActivated(row);
}

} // namespace grid
