#include "platform/input/LinkLabel.h"

#include "platform/input/Theme.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace input {
namespace {

/// Tells assistive tools that the label is a link and can be pressed.
class AccessibleLink : public QAccessibleWidget
{
public:
    explicit AccessibleLink(LinkLabel *link)
        : QAccessibleWidget(link, QAccessible::Link)
    {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? link()->text() : given;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction())
            link()->click();
    }

private:
    [[nodiscard]] LinkLabel *link() const { return static_cast<LinkLabel *>(widget()); }
};

QAccessibleInterface *accessibleLink(const QString &, QObject *object)
{
    auto *link = qobject_cast<LinkLabel *>(object);
    return link ? new AccessibleLink(link) : nullptr;
}

} // namespace

LinkLabel::LinkLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
    , m_normal(theme::mainColor())
    , m_highlighted(theme::accentColor())
{
    // Once for the program: the factory makes the interfaces of all links.
    static const bool announced = (QAccessible::installFactory(accessibleLink), true);
    Q_UNUSED(announced)
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
    const QColor color = m_hovered ? m_highlighted : m_normal;
    QPalette colors = palette();
    colors.setColor(QPalette::Active, QPalette::WindowText, color);
    colors.setColor(QPalette::Inactive, QPalette::WindowText, color);
    setPalette(colors);
    // Only then, since setting a font comes back here as a change of font.
    if (!font().underline()) {
        QFont underlined = font();
        underlined.setUnderline(true);
        setFont(underlined);
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
    // A press that is dragged away and let go elsewhere was a slip.
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
    if (event->type() == QEvent::FontChange && !font().underline())
        updateLook();
    if (event->type() == QEvent::EnabledChange) {
        m_hovered = false;
        setCursor(isEnabled() ? Qt::PointingHandCursor : Qt::ArrowCursor);
        updateLook();
    }
}

} // namespace input
