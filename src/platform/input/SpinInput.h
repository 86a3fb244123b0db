#pragma once

#include <QSpinBox>

namespace input {

/// A whole number from 1 to 99999 with arrow buttons, which repeat every 50 milliseconds when held.
/// Takes digits; arrow keys, plus and minus step by 1; blank or a number below 1 becomes 1.
class SpinInput : public QSpinBox
{
    Q_OBJECT

public:
    explicit SpinInput(QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user typed or stepped.
    void edited();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void stepBy(int steps) override;
    [[nodiscard]] QValidator::State validate(QString &text, int &position) const override;
    [[nodiscard]] int valueFromText(const QString &text) const override;
    void fixup(QString &text) const override;
};

} // namespace input
