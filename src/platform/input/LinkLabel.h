#pragma once

#include <QLabel>

namespace input {

/// A label that acts: highlighted under the mouse, reached by Tab, clicked by mouse, Enter or
/// Space.
class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(const QString &text = {}, QWidget *parent = nullptr);

    /// Acts as if clicked.
    void click();
    /// The colours at rest and under the mouse, where those of a light ground don't suit.
    void setColors(const QColor &normal, const QColor &highlighted);

Q_SIGNALS:
    /// By a click, Enter, Space or an assistive tool.
    void clicked();

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void updateLook();

    QColor m_normal;
    QColor m_highlighted;
    bool m_hovered = false;
    bool m_pressed = false;
};

} // namespace input
