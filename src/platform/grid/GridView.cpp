#include "platform/grid/GridView.h"

#include "platform/grid/GridDelegate.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <iterator>

namespace grid {
namespace {

constexpr int SmallestWidth = 16;

/// Keeps the current row wholly in view when the room of the rows changes: it may have been made
/// current before its screen was laid out. A row that was scrolled away stays there.
class CurrentRowInView final : public QObject
{
public:
    explicit CurrentRowInView(QAbstractItemView &view)
        : QObject(&view)
        , m_view(view)
    {
        view.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize && m_view.currentIndex().isValid()) {
            const QRect former(QPoint(), static_cast<QResizeEvent *>(event)->oldSize());
            const QRect row = m_view.visualRect(m_view.currentIndex());
            if (!m_view.isVisible() || former.intersects(row))
                QMetaObject::invokeMethod(
                    this, [this] { show(); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void show()
    {
        const int across = m_view.horizontalScrollBar()->value();
        m_view.scrollTo(m_view.currentIndex());
        m_view.horizontalScrollBar()->setValue(across);
    }

    QAbstractItemView &m_view;
};

} // namespace

GridView::GridView(QWidget *parent)
    : QTreeView(parent)
    , m_rows(new GridModel(this))
    , m_delegate(new GridDelegate(this))
{
    setModel(m_rows);
    setItemDelegate(m_delegate);
    // Spares measuring a hundred thousand rows.
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false); // done here, by a click anywhere in the row
    setExpandsOnDoubleClick(false);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(SelectedClicked | EditKeyPressed | AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    setIndentation(18);

    QPalette colours = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        colours.setColor(group, QPalette::Base, Qt::white);
        colours.setColor(group, QPalette::AlternateBase, colours::Locked);
        colours.setColor(group, QPalette::Highlight, colours::Selection);
        colours.setColor(group, QPalette::HighlightedText, colours::SelectionText);
    }
    setPalette(colours);

    new CurrentRowInView(*this);

    header()->setSectionsMovable(true);
    header()->setFirstSectionMovable(true);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(SmallestWidth);
    header()->setContextMenuPolicy(Qt::PreventContextMenu);
    connect(header(), &QHeaderView::sectionClicked, this, &GridView::headingClicked);
    connect(header(), &QHeaderView::sectionMoved, this, &GridView::headingMoved);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int section, int, int width) { headingResized(section, width); });

    connect(m_rows, &GridModel::edited, this, &GridView::changed);
    connect(m_rows, &GridModel::columnSettingsChanged, this, &GridView::showColumns);
    connect(m_rows, &QAbstractItemModel::modelReset, this, &GridView::rowsReset);
    // The sheet's box would hang over another row.
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] {
        if (!m_verticalColumn.isEmpty())
            finishEditing();
    });
}

GridView::~GridView()
{
    // An editor that is still open loses its focus on the way down; nothing is to be stored then.
    m_delegate->forget();
}

// Columns and layout

void GridView::showColumns()
{
    // What the headings tell while they are placed was no user.
    m_placing = true;
    applyPending();
    for (int i = 0; i < m_rows->columnCount(); ++i) {
        const Column &column = m_rows->columnAt(i);
        const bool shown = column.visible && column.width > 0;
        header()->setSectionHidden(i, !shown);
        if (shown)
            header()->resizeSection(i, std::max(column.width, SmallestWidth));
    }
    placeColumns();
    const int tree = m_rows->treeColumn();
    setRootIsDecorated(tree >= 0);
    if (tree >= 0)
        setTreePosition(tree);
    showSortSign();
    m_placing = false;
    viewport()->update();
}

/// Puts the headings in order: those without a position as they were added, then the others, one
/// after the other, at theirs.
void GridView::placeColumns()
{
    std::vector<int> order;
    std::vector<int> placed;
    for (int i = 0; i < m_rows->columnCount(); ++i)
        (m_rows->columnAt(i).position < 0 ? order : placed).push_back(i);
    std::stable_sort(placed.begin(), placed.end(), [this](int left, int right) {
        return m_rows->columnAt(left).position < m_rows->columnAt(right).position;
    });
    for (const int column : placed) {
        const auto at =
            std::min<std::ptrdiff_t>(m_rows->columnAt(column).position, std::ssize(order));
        order.insert(order.begin() + at, column);
    }
    for (std::size_t i = 0; i < order.size(); ++i)
        header()->moveSection(header()->visualIndex(order[i]), static_cast<int>(i));
}

void GridView::applyPending()
{
    for (int i = 0; i < m_rows->columnCount() && !m_pendingLayout.isEmpty(); ++i) {
        const QString name = m_rows->columnAt(i).name;
        if (!m_pendingLayout.contains(name.toLower()))
            continue;
        // Once: what the user does with the column from then on counts.
        const ColumnLayout stored = m_pendingLayout.take(name.toLower());
        Column &column = m_rows->column(name);
        if (stored.width > 0)
            column.width = stored.width;
        column.position = stored.position;
        if (stored.sort != Sort::None)
            m_rows->sortBy(name, stored.sort);
    }
}

Layout GridView::layout() const
{
    Layout result;
    for (int visual = 0; visual < m_rows->columnCount(); ++visual) {
        const int i = header()->logicalIndex(visual);
        const Column &column = m_rows->columnAt(i);
        const bool sorted = i == m_rows->sortColumn();
        result.append(
            {column.name, column.width, visual, sorted ? m_rows->sortDirection() : Sort::None});
    }
    return result;
}

QStringList GridView::applyLayout(const Layout &layout)
{
    QStringList unknown;
    for (const ColumnLayout &stored : layout) {
        // A layout may come before the rows that bring its columns.
        m_pendingLayout.insert(stored.field.toLower(), stored);
        if (!m_rows->hasColumn(stored.field))
            unknown.append(stored.field);
    }
    showColumns();
    return unknown;
}

void GridView::sortBy(QStringView column, Sort direction)
{
    m_rows->sortBy(column, direction);
    showSortSign();
}

void GridView::showSortSign()
{
    const bool sorted = m_rows->sortColumn() >= 0 && m_rows->sortDirection() != Sort::None;
    header()->setSortIndicatorShown(sorted);
    if (sorted)
        header()->setSortIndicator(m_rows->sortColumn(), m_rows->sortDirection() == Sort::Ascending
                                                             ? Qt::AscendingOrder
                                                             : Qt::DescendingOrder);
}

void GridView::headingClicked(int section)
{
    finishEditing();
    const bool again =
        section == m_rows->sortColumn() && m_rows->sortDirection() == Sort::Ascending;
    sortBy(m_rows->columnAt(section).name, again ? Sort::Descending : Sort::Ascending);
    if (currentIndex().isValid())
        scrollTo(currentIndex());
}

void GridView::headingMoved()
{
    if (m_placing)
        return;
    for (int i = 0; i < m_rows->columnCount(); ++i)
        m_rows->column(m_rows->columnAt(i).name).position = header()->visualIndex(i);
}

void GridView::headingResized(int section, int width)
{
    if (!m_placing && width > 0)
        m_rows->column(m_rows->columnAt(section).name).width = width;
}

void GridView::rowsReset()
{
    m_delegate->forget();
    showColumns();
    if (m_lastRow < 0)
        return;
    m_lastRow = -1;
    Q_EMIT currentRowChanged(-1);
}

void GridView::showEvent(QShowEvent *event)
{
    showColumns();
    QTreeView::showEvent(event);
}

QList<int> GridView::visibleColumns() const
{
    QList<int> columns;
    for (int visual = 0; visual < header()->count(); ++visual) {
        const int i = header()->logicalIndex(visual);
        if (!header()->isSectionHidden(i))
            columns.append(i);
    }
    return columns;
}

// The current row

int GridView::currentRow() const
{
    return m_rows->rowOf(currentIndex());
}

QString GridView::currentColumn() const
{
    return currentIndex().isValid() ? m_rows->columnAt(currentIndex().column()).name : QString();
}

void GridView::makeCurrent(const QModelIndex &index)
{
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

void GridView::selectRow(int row)
{
    if (row < 0 || row >= m_rows->rowCount())
        return clearCurrent();
    const QList<int> columns = visibleColumns();
    // The user stays in the column in which he is.
    int column = currentIndex().column();
    if (!columns.contains(column))
        column = columns.value(0, 0);
    makeCurrent(m_rows->indexOf(row, column));
}

void GridView::selectCell(int row, QStringView column)
{
    const QModelIndex index = m_rows->indexOf(row, m_rows->columnIndex(column));
    if (index.isValid())
        makeCurrent(index);
}

void GridView::clearCurrent()
{
    selectionModel()->clear();
}

void GridView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    const int row = m_rows->rowOf(current);
    // Another cell of the row is no other row.
    if (row == m_lastRow)
        return;
    m_lastRow = row;
    Q_EMIT currentRowChanged(row);
}

void GridView::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    // The base class makes a row current on the first focus, but doesn't select it.
    if (currentIndex().isValid() && !selectionModel()->hasSelection())
        makeCurrent(currentIndex());
}

void GridView::setRowExpanded(int row, bool expanded)
{
    setExpanded(m_rows->indexOf(row), expanded);
}

bool GridView::isRowExpanded(int row) const
{
    return isExpanded(m_rows->indexOf(row));
}

QRect GridView::cellRect(int row, QStringView column) const
{
    return visualRect(m_rows->indexOf(row, m_rows->columnIndex(column)));
}

QString GridView::rowText(int row) const
{
    QStringList texts;
    for (const int column : visibleColumns())
        texts.append(m_rows->textAt(row, column));
    return texts.join(u'\t');
}

void GridView::copyRow() const
{
    if (currentRow() >= 0)
        QGuiApplication::clipboard()->setText(rowText(currentRow()));
}

void GridView::drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    const bool selected = selectionModel()->isSelected(index);
    const QModelIndex cell = index.siblingAtColumn(std::max(0, m_rows->treeColumn()));
    const QColor back = m_delegate->background(cell, selected);
    if (back.isValid())
        painter->fillRect(rect, back);
    drawLineBelow(painter, rect);
    if (!m_rows->hasChildren(index.siblingAtColumn(0)))
        return;
    QRect box(0, 0, 9, 9);
    box.moveCenter(QPoint(rect.right() - indentation() / 2, rect.center().y()));
    painter->save();
    painter->setPen(QColor(110, 110, 110));
    painter->setBrush(Qt::white);
    painter->drawRect(box.adjusted(0, 0, -1, -1));
    painter->setPen(Qt::black);
    const QPoint centre = box.center();
    painter->drawLine(centre.x() - 2, centre.y(), centre.x() + 2, centre.y());
    if (!isExpanded(index.siblingAtColumn(0)))
        painter->drawLine(centre.x(), centre.y() - 2, centre.x(), centre.y() + 2);
    painter->restore();
}

} // namespace grid
