#include "platform/grid/CellEditors.h"

#include "platform/base/Environment.h"
#include "platform/base/Format.h"
#include "platform/grid/CellFormat.h"
#include "platform/grid/GridColumns.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QValidator>

namespace grid {
namespace {

using namespace Qt::StringLiterals;

class CellValidator final : public QValidator
{
public:
    CellValidator(Column column, QObject *parent)
        : QValidator(parent)
        , m_column(std::move(column))
    {}

    State validate(QString &text, int &position) const override
    {
        // A pasted text may bring line breaks, which no cell shows.
        text = base::onOneLine(text);
        position = std::min(position, int(text.size()));
        if (!mayBecomeValue(text, m_column))
            return Invalid;
        return typedValue(text, m_column) ? Acceptable : Intermediate;
    }

private:
    Column m_column;
};

/// A little calendar page, drawn so that it takes any text colour.
QIcon calendarIcon(const QColor &colour)
{
    QPixmap page(32, 32);
    page.fill(Qt::transparent);
    QPainter painter(&page);
    painter.setPen(QPen(colour, 2));
    painter.drawRect(5, 7, 22, 20);
    painter.fillRect(QRect(5, 7, 22, 6), colour);
    for (int y = 17; y <= 22; y += 5) {
        for (int x = 9; x <= 21; x += 6)
            painter.fillRect(QRect(x, y, 3, 3), colour);
    }
    return QIcon(page);
}

} // namespace

TextCellEditor::TextCellEditor(const Column &column, QWidget *parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setAlignment(alignmentOf(column));
    setTextMargins(2, 0, 2, 0);
    setAccessibleName(column.caption);
    if (column.maxLength > 0)
        setMaxLength(column.maxLength);
    setValidator(new CellValidator(column, this));
}

DateCellEditor::DateCellEditor(const Column &column, QWidget *parent)
    : TextCellEditor(column, parent)
{
    QAction *action = addAction(calendarIcon(palette().text().color()), TrailingPosition);
    action->setText(tr("Calendar"));
    action->setToolTip(tr("Calendar (Alt+Down)"));
    connect(action, &QAction::triggered, this, &DateCellEditor::showCalendar);
}

void DateCellEditor::showCalendar()
{
    if (!m_calendar) {
        m_calendar = new QCalendarWidget(this);
        // A child of the box, so that the focus in it is no leaving of the editor.
        m_calendar->setWindowFlags(Qt::Popup);
        m_calendar->setGridVisible(true);
        m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        connect(m_calendar, &QCalendarWidget::clicked, this, &DateCellEditor::take);
        connect(m_calendar, &QCalendarWidget::activated, this, &DateCellEditor::take);
    }
    const auto date = base::parseMonthFirst(text());
    m_calendar->setSelectedDate(date ? date->date() : base::environment().clock().date());
    m_calendar->adjustSize();
    QPoint place = mapToGlobal(rect().bottomLeft());
    const QRect room = screen()->availableGeometry();
    place.setX(std::min(place.x(), room.right() - m_calendar->width()));
    if (place.y() + m_calendar->height() > room.bottom())
        place.setY(mapToGlobal(QPoint()).y() - m_calendar->height());
    m_calendar->move(place);
    m_calendar->show();
    m_calendar->setFocus();
}

void DateCellEditor::take(QDate date)
{
    // One double click comes as a click and an activation.
    if (!m_calendar->isVisible())
        return;
    m_calendar->hide();
    setText(date.toString(u"MM/dd/yyyy"));
    Q_EMIT chosen();
}

void DateCellEditor::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier))
        showCalendar();
    else
        TextCellEditor::keyPressEvent(event);
}

ChoiceCellEditor::ChoiceCellEditor(const Column &column, QWidget *parent)
    : QComboBox(parent)
{
    setAccessibleName(column.caption);
    setFrame(false);
    setMaxVisibleItems(16);
    for (const Choice &choice : column.choices)
        addItem(choice.text, choice.id);
    // A list wider than its column shows its texts in full.
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 24);
}

void ChoiceCellEditor::select(const QVariant &id)
{
    setCurrentIndex(id.isNull() ? -1 : findData(id.toLongLong()));
}

} // namespace grid
