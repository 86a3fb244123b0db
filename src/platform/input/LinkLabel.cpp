#include "platform/input/LinkLabel.h"

#include "platform/input/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace input {

LinkLabel::LinkLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
    , m_normal(theme::mainColor())
    , m_highlighted(theme::accentColor())
{
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setContentsMargins(2, 1, 2, 1);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    updateLook();
}

void LinkLabel::setColors(const QColor &normal, const QColor &highlighted)
{
    m_normal = normal;
    m_highlighted = highlighted;
    updateLook();
}

void LinkLabel::click()
{
    if (isEnabled())
        Q_EMIT clicked();
}

void LinkLabel::updateLook()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Active, QPalette::WindowText, m_hovered ? m_highlighted : m_normal);
    colors.setColor(QPalette::Inactive, QPalette::WindowText, m_hovered ? m_highlighted : m_normal);
    setPalette(colors);
    QFont shown = font();
    if (shown.underline() != (m_hovered || hasFocus())) {
        shown.setUnderline(m_hovered || hasFocus());
        setFont(shown);
    }
}

void LinkLabel::enterEvent(QEnterEvent *event)
{
    m_hovered = isEnabled();
    updateLook();
    QLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent *event)
{
    m_hovered = false;
    updateLook();
    QLabel::leaveEvent(event);
}

void LinkLabel::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->accept();
}

void LinkLabel::mouseReleaseEvent(QMouseEvent *event)
{
    const bool clickedHere = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    event->accept();
    if (clickedHere)
        click();
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        click();
        return;
    default:
        QLabel::keyPressEvent(event);
    }
}

void LinkLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(backgroundRole());
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        m_hovered = false;
        setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
        updateLook();
    }
}

} // namespace input
