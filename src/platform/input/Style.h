#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;

namespace theme {

/// The look of the controls: flat boxes and buttons with thin lines, and a clear mark of the
/// focus, on the measures of the Fusion style.
class Style final : public QProxyStyle
{
public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option,
                       const QWidget *widget) const override;

private:
    void drawScrollBar(QPainter *painter, const QStyleOptionSlider &bar,
                       const QWidget *widget) const;
};

/// Colours by role, of all controls.
[[nodiscard]] QPalette palette();

} // namespace theme
