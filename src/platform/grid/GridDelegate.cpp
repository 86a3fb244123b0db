#include "platform/grid/GridDelegate.h"

#include "platform/grid/CellEditors.h"
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

namespace grid {
namespace {

constexpr int TextMargin = 3;
constexpr int ArrowWidth = 16;

void paintCheck(QPainter *painter, const QStyleOptionViewItem &option, bool ticked)
{
    QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    QStyleOptionViewItem box = option;
    const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                     style->pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    // Without the selection, whose colour some styles give to the box.
    box.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected);
    box.state |= ticked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
}

void paintArrow(QPainter *painter, const QRect &cell, const QColor &colour)
{
    const QPoint centre = GridDelegate::arrowRect(cell).center();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    const QPointF arrow[] = {centre + QPointF(-4, -2), centre + QPointF(4, -2),
                             centre + QPointF(0, 3)};
    painter->drawConvexPolygon(arrow, 3);
    painter->restore();
}

} // namespace

void drawLineBelow(QPainter *painter, const QRect &cell)
{
    // One pixel of the screen, however much it is enlarged.
    const qreal pixel = 1 / painter->deviceTransform().m11();
    painter->fillRect(QRectF(cell.left(), cell.top() + cell.height() - pixel, cell.width(), pixel),
                      colours::Lines);
}

void drawLineRight(QPainter *painter, const QRect &cell)
{
    const qreal pixel = 1 / painter->deviceTransform().m11();
    painter->fillRect(QRectF(cell.left() + cell.width() - pixel, cell.top(), pixel, cell.height()),
                      colours::Lines);
}

GridDelegate::GridDelegate(GridView *view)
    : QStyledItemDelegate(view)
    , m_view(view)
{}

const GridModel &GridDelegate::rows() const
{
    return *m_view->m_rows;
}

QRect GridDelegate::arrowRect(const QRect &cell)
{
    return {cell.right() - ArrowWidth, cell.top(), ArrowWidth, cell.height()};
}

// Painting

QColor GridDelegate::background(const QModelIndex &index, bool selected) const
{
    if (selected)
        return m_view->palette().color(QPalette::Highlight);
    const Style style = rows().style(rows().rowOf(index), index.column());
    if (style.background.isValid())
        return style.background;
    return rows().columnAt(index.column()).locked ? colours::Locked : QColor();
}

void GridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    const int row = rows().rowOf(index);
    const Column &column = rows().columnAt(index.column());
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const Style style = rows().style(row, index.column());
    QColor back = option.palette.color(option.features.testFlag(QStyleOptionViewItem::Alternate)
                                           ? QPalette::AlternateBase
                                           : QPalette::Base);
    if (selected)
        back = option.palette.color(QPalette::Highlight);
    else if (style.background.isValid())
        back = style.background;
    else if (column.locked)
        back = colours::Locked;
    // By hand and not by the style, which paints the selection of each cell in its own way.
    painter->fillRect(option.rect, back);

    if (column.editor == Editor::Check)
        paintCheck(painter, option, isTicked(rows().valueAt(row, index.column())));
    else if (column.editor == Editor::Button)
        paintButton(painter, option, index);
    else
        paintText(painter, option, index, style, selected);

    drawLineBelow(painter, option.rect);
    drawLineRight(painter, option.rect);
    if (m_view->hasFocus() && index == m_view->currentIndex()) {
        painter->setPen(QPen(option.palette.color(QPalette::HighlightedText), 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option.rect.adjusted(1, 1, -3, -3));
    }
}

void GridDelegate::paintText(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index, const Style &style, bool selected) const
{
    const int row = rows().rowOf(index);
    const Column &column = rows().columnAt(index.column());
    const QString text = rows().textAt(row, index.column());
    const bool link = rows().isLink(row, index.column());
    QFont font = option.font;
    font.setBold(font.bold() || style.bold);
    font.setUnderline(link);
    QColor colour = option.palette.color(QPalette::Text);
    if (selected)
        colour = option.palette.color(QPalette::HighlightedText);
    else if (style.foreground.isValid())
        colour = style.foreground;
    else if (link)
        colour = colours::Link;

    QRect room = option.rect.adjusted(TextMargin, 0, -TextMargin - 1, -1);
    const bool opensList = column.editor == Editor::DropDown || column.editor == Editor::Date;
    if (opensList && selected && column.editable && !column.locked && m_view->editing()) {
        paintArrow(painter, option.rect, colour);
        room.setRight(arrowRect(option.rect).left() - 2);
    }
    painter->setFont(font);
    painter->setPen(colour);
    const auto alignment =
        index.data(Qt::TextAlignmentRole).value<Qt::Alignment>() | Qt::TextSingleLine;
    painter->drawText(room, static_cast<int>(alignment),
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, room.width()));
}

void GridDelegate::paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QStyleOptionButton button;
    button.initFrom(m_view);
    button.rect = option.rect.adjusted(2, 1, -3, -2);
    button.text = rows().textAt(rows().rowOf(index), index.column());
    if (button.text.isEmpty())
        return;
    button.state = QStyle::State_Enabled;
    button.state |= m_view->m_pressed == index ? QStyle::State_Sunken : QStyle::State_Raised;
    painter->setFont(option.font);
    m_view->style()->drawControl(QStyle::CE_PushButton, &button, painter, m_view);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {rows().columnAt(index.column()).width, option.fontMetrics.height() + 8};
}

// Editing

QWidget *GridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &index) const
{
    const Column &column = rows().columnAt(index.column());
    auto *self = const_cast<GridDelegate *>(this);
    QWidget *made = nullptr;
    if (column.editor == Editor::DropDown) {
        auto *list = new ChoiceCellEditor(column, parent);
        connect(list, &QComboBox::activated, self, [self] {
            if (self->store())
                self->close();
        });
        // Not before the editor stands in its cell.
        QTimer::singleShot(0, list, &QComboBox::showPopup);
        made = list;
    } else if (holdsDates(column)) {
        auto *box = new DateCellEditor(column, parent);
        connect(box, &DateCellEditor::chosen, self, [self] {
            if (self->store())
                self->close();
        });
        made = box;
    } else {
        made = new TextCellEditor(column, parent);
    }
    if (auto *box = qobject_cast<QLineEdit *>(made)) {
        connect(box, &QLineEdit::textEdited, self, [self](const QString &text) {
            const QModelIndex edited = self->m_index;
            if (edited.isValid())
                Q_EMIT self->m_view->typing(self->rows().rowOf(edited),
                                            self->rows().columnAt(edited.column()).name, text);
        });
    }
    made->setAutoFillBackground(true);
    // The view makes one editor at a time.
    m_editor = made;
    m_index = index;
    return made;
}

void GridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::EditRole);
    const Column &column = rows().columnAt(index.column());
    if (auto *list = qobject_cast<ChoiceCellEditor *>(editor))
        list->select(value);
    else if (auto *box = qobject_cast<QLineEdit *>(editor))
        box->setText(editText(value, column));
}

void GridDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &) const
{
    if (editor == m_editor)
        const_cast<GridDelegate *>(this)->store();
}

void GridDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &) const
{
    QRect room = option.rect.adjusted(0, 0, -1, -1);
    // A narrow column still gets a box in which a date and its button fit.
    if (qobject_cast<DateCellEditor *>(editor))
        room.setWidth(std::max(room.width(), option.fontMetrics.horizontalAdvance(u'0') * 10 + 34));
    editor->setGeometry(room);
}

bool GridDelegate::store()
{
    // A rule may show a message; the editor then loses the focus, which must not store once more.
    if (m_storing || !m_editor || !m_index.isValid())
        return false;
    const int row = rows().rowOf(m_index);
    const int columnNumber = m_index.column();
    const Column &column = rows().columnAt(columnNumber);
    std::optional<QVariant> value;
    QString text;
    if (auto *list = qobject_cast<ChoiceCellEditor *>(m_editor.data())) {
        // Nothing chosen, as for an id whose entry is gone, changes nothing.
        if (list->currentIndex() < 0)
            return true;
        value = list->id();
    } else if (auto *box = qobject_cast<QLineEdit *>(m_editor.data())) {
        text = box->text();
        // Left as it was opened: a value that the box shows rounded stays in full.
        if (text == editText(m_index.data(Qt::EditRole), column))
            return true;
        value = typedValue(text, column);
    }
    m_storing = true;
    bool accepted = false;
    if (value)
        accepted = m_view->m_rows->edit(row, columnNumber, *value);
    else
        Q_EMIT m_view->entryRefused(row, column.name, text);
    m_storing = false;
    return accepted;
}

void GridDelegate::startAgain()
{
    if (!m_editor || !m_index.isValid())
        return;
    setEditorData(m_editor, m_index);
    if (auto *box = qobject_cast<QLineEdit *>(m_editor.data()))
        box->selectAll();
    m_editor->setFocus();
}

void GridDelegate::close()
{
    if (m_editor)
        Q_EMIT closeEditor(m_editor, NoHint);
}

bool GridDelegate::keyPressed(const QKeyEvent &event)
{
    const QModelIndex index = m_index;
    const bool vertical = !m_view->m_verticalColumn.isEmpty();
    switch (event.key()) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!vertical || event.modifiers().testFlag(Qt::AltModifier))
            return false;
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        break;
    default:
        return false;
    }
    const bool accepted = store();
    // The rule may have loaded other rows: then there is nothing left to move on from.
    if (m_editor && m_index.isValid())
        m_view->leaveEditor(index, accepted, event.key());
    return true;
}

void GridDelegate::focusLost()
{
    // While a rule asks, and while the editor's own calendar or list is open, it isn't left.
    if (m_storing)
        return;
    for (QObject *focused = QApplication::focusWidget(); focused; focused = focused->parent()) {
        if (focused == m_editor)
            return;
    }
    const bool accepted = store();
    if (!accepted && m_editor && !m_view->m_verticalColumn.isEmpty()) {
        m_holding = true;
        // Not before the click that took the focus has come to its end.
        QTimer::singleShot(0, this, [this] {
            m_holding = false;
            startAgain();
        });
        return;
    }
    close();
}

bool GridDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_editor)
        return false;
    if (event->type() == QEvent::ShortcutOverride) {
        // Escape closes the editor, not the window around it.
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress) {
        return keyPressed(*static_cast<QKeyEvent *>(event));
    } else if (event->type() == QEvent::FocusOut) {
        switch (static_cast<QFocusEvent *>(event)->reason()) {
        case Qt::PopupFocusReason:
        case Qt::ActiveWindowFocusReason:
        case Qt::MenuBarFocusReason:
            return false;
        default:
            focusLost();
            return false;
        }
    }
    return false;
}

} // namespace grid
