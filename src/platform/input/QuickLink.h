#pragma once

#include <QAbstractButton>

namespace input {

/// Picture and label as one control, for the side bar: highlighted under the mouse, reached by Tab,
/// clicked by mouse, Enter or Space. The text may hold "&" before a mnemonic and "&&" for "&".
class QuickLink : public QAbstractButton
{
    Q_OBJECT

public:
    QuickLink(const QString &text, const QIcon &icon, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
};

} // namespace input
