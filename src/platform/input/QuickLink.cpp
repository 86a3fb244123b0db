#include "platform/input/QuickLink.h"

#include "platform/input/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace input {
namespace {

constexpr int padding = 8;
constexpr int gap = 10;

} // namespace

QuickLink::QuickLink(const QString &text, const QIcon &icon, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(text);
    setIcon(icon);
    setIconSize({28, 28});
    setFont(theme::labelFont());
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize QuickLink::sizeHint() const
{
    const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {padding + iconSize().width() + gap + label.width() + padding,
            std::max(iconSize().height(), label.height()) + 2 * padding};
}

bool QuickLink::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void QuickLink::keyPressEvent(QKeyEvent *event)
{
    // A button of the toolkit takes Space alone; links are followed by Enter too.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void QuickLink::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lit = isEnabled() && (underMouse() || isDown());
    if (lit || isChecked()) {
        QColor ground = theme::mainColor();
        ground.setAlpha(isDown() ? 60 : 28);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
    }
    QRect picture(padding, (height() - iconSize().height()) / 2, iconSize().width(),
                  iconSize().height());
    QRect label = rect().adjusted(padding + iconSize().width() + gap, 0, -padding, 0);
    if (layoutDirection() == Qt::RightToLeft) {
        picture = QStyle::visualRect(layoutDirection(), rect(), picture);
        label = QStyle::visualRect(layoutDirection(), rect(), label);
    }
    icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(!isEnabled() ? theme::disabledColor()
                   : lit        ? theme::accentColor()
                                : theme::mainColor());
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace input
