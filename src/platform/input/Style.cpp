#include "platform/input/Style.h"

#include "platform/input/Theme.h"

#include <QGroupBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QTabBar>

namespace theme {
namespace {

constexpr qreal radius = 3.0;

/// A rectangle for a line of that width, moved to the middle of its pixels.
QRectF outline(const QRect &rectangle, qreal width)
{
    const qreal half = width / 2;
    return QRectF(rectangle).adjusted(half, half, -half, -half);
}

void drawBox(QPainter *painter, const QRect &rectangle, const QColor &fill, const QColor &line,
             qreal width)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(line, width));
    painter->setBrush(fill);
    painter->drawRoundedRect(outline(rectangle, width), radius, radius);
    painter->restore();
}

/// A square frame, filled: on an enlarged screen a drawn line may end up below what lies inside.
void drawFrame(QPainter *painter, const QRect &outside, const QColor &line)
{
    const QRect inside = outside.adjusted(1, 1, -1, -1);
    for (const QRect &side : QRegion(outside) - QRegion(inside))
        painter->fillRect(side, line);
}

void drawField(QPainter *painter, const QStyleOption *option, bool readOnly)
{
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool focused = enabled && option->state & QStyle::State_HasFocus;
    const bool hovered = enabled && option->state & QStyle::State_MouseOver;
    // A box that takes nothing has the ground of its form.
    const QColor fill = enabled && !readOnly ? option->palette.color(QPalette::Base) : panelColor();
    const QColor line = focused   ? selectionColor()
                        : hovered ? mainColor()
                        : enabled ? lineColor()
                                  : lineColor().lighter(120);
    drawBox(painter, option->rect, fill, line, focused ? 2 : 1);
}

void drawButton(QPainter *painter, const QStyleOption *option)
{
    const bool enabled = option->state & QStyle::State_Enabled;
    const bool down = option->state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = enabled && option->state & QStyle::State_MouseOver;
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    // The button that Enter presses has the stronger line.
    const bool isDefault =
        enabled && button && button->features & QStyleOptionButton::DefaultButton;
    const QColor ground = option->palette.color(QPalette::Button);
    const QColor fill = !enabled  ? ground.lighter(103)
                        : down    ? ground.darker(118)
                        : hovered ? ground.lighter(107)
                                  : ground;
    const QColor line = isDefault || hovered ? mainColor()
                        : enabled            ? lineColor()
                                             : lineColor().lighter(125);
    drawBox(painter, option->rect, fill, line, isDefault ? 2 : 1);
}

void drawChevron(QPainter *painter, const QRect &rectangle, bool up, const QColor &color)
{
    // Smaller in narrow boxes, so that it stays within its button.
    const qreal reach = std::min(4.0, rectangle.height() * 0.3);
    const QPointF middle = QRectF(rectangle).center();
    const qreal rise = up ? -reach / 2 : reach / 2;
    QPainterPath path(middle + QPointF(-reach, -rise));
    path.lineTo(middle + QPointF(0, rise));
    path.lineTo(middle + QPointF(reach, -rise));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(path);
    painter->restore();
}

/// The arrow at an end of a scroll bar.
void drawScrollArrow(QPainter *painter, const QRect &rectangle, bool vertical, bool back,
                     const QColor &color)
{
    if (vertical)
        return drawChevron(painter, rectangle, back, color);
    painter->save();
    painter->translate(QRectF(rectangle).center());
    painter->rotate(-90);
    const QRect place(-rectangle.height() / 2, -rectangle.width() / 2, rectangle.height(),
                      rectangle.width());
    drawChevron(painter, place, back, color);
    painter->restore();
}

/// The title stands above the frame, not across its line.
void drawGroupFrame(QPainter *painter, const QStyleOption *option, const QWidget *widget)
{
    const auto *group = qobject_cast<const QGroupBox *>(widget);
    const bool titled = group && !group->title().isEmpty();
    const int above = titled ? option->fontMetrics.height() + 2 : 0;
    drawBox(painter, option->rect.adjusted(0, above, 0, 0), QColor(Qt::transparent),
            lineColor().lighter(118), 1);
}

/// The tab in front joins its page; a bar of the second colour marks it.
void drawTab(QPainter *painter, const QStyleOptionTab &tab)
{
    const bool inFront = tab.state & QStyle::State_Selected;
    const bool hovered = tab.state & QStyle::State_Enabled && tab.state & QStyle::State_MouseOver;
    const QRect shape = tab.rect.adjusted(0, inFront ? 0 : 2, -1, inFront ? 1 : -1);
    painter->save();
    painter->setPen(Qt::NoPen);
    painter->setBrush(inFront ? formColor() : hovered ? panelColor().lighter(104) : panelColor());
    painter->drawRect(shape.adjusted(0, 0, 1, 0));
    painter->setPen(lineColor());
    painter->drawLine(shape.topLeft(), shape.bottomLeft());
    painter->drawLine(shape.topRight(), shape.bottomRight());
    painter->drawLine(shape.topLeft(), shape.topRight());
    if (inFront)
        painter->fillRect(QRect(shape.left(), shape.top(), shape.width() + 1, 2), accentColor());
    painter->restore();
}

void drawHeading(QPainter *painter, const QRect &rectangle)
{
    painter->fillRect(rectangle, panelColor());
    painter->setPen(lineColor().lighter(115));
    painter->drawLine(rectangle.topRight(), rectangle.bottomRight());
    painter->drawLine(rectangle.bottomLeft(), rectangle.bottomRight());
}

QColor chevronColor(const QStyleOption *option)
{
    return option->state & QStyle::State_Enabled ? mainColor() : disabledColor();
}

} // namespace

Style::Style()
    : QProxyStyle(QStringLiteral("Fusion"))
{}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        drawButton(painter, option);
        return;
    case PE_PanelLineEdit:
        // Boxes without a frame, as those in grids and lists, keep their ground.
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
            frame && frame->lineWidth > 0) {
            drawField(painter, option, option->state & State_ReadOnly);
            return;
        }
        break;
    case PE_FrameLineEdit:
        drawField(painter, option, option->state & State_ReadOnly);
        return;
    case PE_FrameFocusRect:
        // In a grid the selected row is the mark already; a thin line tells the cell.
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(
            QPen(option->state & State_Selected ? selectionTextColor() : selectionColor(), 1));
        painter->drawRoundedRect(outline(option->rect, 1), 2, 2);
        painter->restore();
        return;
    case PE_FrameGroupBox:
        drawGroupFrame(painter, option, widget);
        return;
    case PE_FrameTabWidget:
        painter->fillRect(option->rect, formColor());
        drawFrame(painter, option->rect, lineColor());
        return;
    case PE_Frame:
        // Square, for what scrolls inside reaches into the corners.
        if (widget && widget->inherits("QAbstractScrollArea")) {
            drawFrame(painter, option->rect,
                      option->state & State_HasFocus ? selectionColor() : lineColor());
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                               QPainter *painter, const QWidget *widget) const
{
    if (control == CC_ComboBox) {
        const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
        if (combo && combo->frame) {
            drawField(painter, option, false);
            drawChevron(painter, subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget),
                        false, chevronColor(option));
            return;
        }
    }
    if (control == CC_SpinBox) {
        const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
        if (spin && spin->frame && spin->buttonSymbols != QAbstractSpinBox::NoButtons) {
            drawField(painter, option, false);
            for (const SubControl arrow : {SC_SpinBoxUp, SC_SpinBoxDown}) {
                const bool up = arrow == SC_SpinBoxUp;
                const QRect place = subControlRect(CC_SpinBox, option, arrow, widget);
                const bool possible = spin->stepEnabled & (up ? QAbstractSpinBox::StepUpEnabled
                                                              : QAbstractSpinBox::StepDownEnabled);
                if (possible && option->activeSubControls == arrow &&
                    option->state & (State_Sunken | State_MouseOver))
                    painter->fillRect(place.adjusted(0, 1, -2, -1), option->state & State_Sunken
                                                                        ? panelColor().darker(115)
                                                                        : panelColor());
                drawChevron(painter, place, up, possible ? chevronColor(option) : disabledColor());
            }
            return;
        }
    }
    if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
        bar && control == CC_ScrollBar)
        return drawScrollBar(painter, *bar, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

/// The slider is darker than its groove: a paler one would be taken for the groove, and the bar
/// read the wrong way round.
void Style::drawScrollBar(QPainter *painter, const QStyleOptionSlider &bar,
                          const QWidget *widget) const
{
    const bool vertical = bar.orientation == Qt::Vertical;
    const bool possible = bar.state & State_Enabled && bar.maximum > bar.minimum;
    painter->fillRect(bar.rect, panelColor());
    for (const SubControl arrow : {SC_ScrollBarSubLine, SC_ScrollBarAddLine}) {
        const bool back = arrow == SC_ScrollBarSubLine;
        const bool ended = back ? bar.sliderValue <= bar.minimum : bar.sliderValue >= bar.maximum;
        drawScrollArrow(painter, subControlRect(CC_ScrollBar, &bar, arrow, widget), vertical, back,
                        possible && !ended ? mainColor() : disabledColor());
    }
    if (!possible)
        return;
    const bool held = bar.activeSubControls == SC_ScrollBarSlider && bar.state & State_Sunken;
    const QRect slider = subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
    const QRect body = vertical ? slider.adjusted(3, 0, -3, 0) : slider.adjusted(0, 3, 0, -3);
    const QColor fill = lineColor();
    drawBox(painter, body, held ? fill.darker(115) : fill, fill.darker(115), 1);
}

void Style::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const
{
    switch (element) {
    case CE_TabBarTabShape:
        if (const auto *tab = qstyleoption_cast<const QStyleOptionTab *>(option);
            tab && tab->shape == QTabBar::RoundedNorth) {
            drawTab(painter, *tab);
            return;
        }
        break;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        drawHeading(painter, option->rect);
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                     QStyleHintReturn *data) const
{
    switch (hint) {
    case SH_SpinBox_ClickAutoRepeatRate:
        return 50;
    case SH_SpinBox_ClickAutoRepeatThreshold:
        return 300;
    // A list below the box, which scrolls, rather than one laid over it.
    case SH_ComboBox_Popup:
        return 0;
    // Half the menus have no letter to be opened with.
    case SH_MenuBar_AltKeyNavigation:
        return 1;
    // No shadow behind disabled text, which is hard to read; no pictures on the buttons of boxes;
    // and a click in a list only selects, a double click opens.
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    // A pressed button darkens and doesn't move.
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_MessageBoxIconSize:
        return 40;
    case PM_ButtonIconSize:
        return 18;
    case PM_SmallIconSize:
        return 16;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption *option,
                          const QWidget *widget) const
{
    switch (picture) {
    case SP_MessageBoxInformation:
        return icon(QStringLiteral("information"));
    case SP_MessageBoxQuestion:
        return icon(QStringLiteral("question"));
    case SP_MessageBoxWarning:
        return icon(QStringLiteral("warning"));
    case SP_MessageBoxCritical:
        return icon(QStringLiteral("error"));
    default:
        return QProxyStyle::standardIcon(picture, option, widget);
    }
}

QPalette palette()
{
    QPalette colors(panelColor(), formColor());
    colors.setColor(QPalette::WindowText, mainColor());
    colors.setColor(QPalette::Text, textColor());
    colors.setColor(QPalette::ButtonText, mainColor());
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::AlternateBase, lockedColor());
    colors.setColor(QPalette::Highlight, selectionColor());
    colors.setColor(QPalette::HighlightedText, selectionTextColor());
    colors.setColor(QPalette::ToolTipBase, QColor(255, 252, 240));
    colors.setColor(QPalette::ToolTipText, textColor());
    colors.setColor(QPalette::PlaceholderText, disabledColor());
    colors.setColor(QPalette::Link, selectionColor().darker(120));
    colors.setColor(QPalette::LinkVisited, mainColor());
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, disabledColor());
    colors.setColor(QPalette::Disabled, QPalette::Base, panelColor());
    colors.setColor(QPalette::Disabled, QPalette::Highlight, lineColor());
    return colors;
}

} // namespace theme
