#pragma once

#include <QLineEdit>

namespace input {

/// An amount of money with two decimals, "0.00". Takes digits and one point; a minus in front only
/// when allowed. May be empty, which counts as 0; leaving the box brings what was typed to two
/// decimals. Pasted amounts may carry a currency sign and thousands separators.
class CurrencyInput : public QLineEdit
{
    Q_OBJECT

public:
    explicit CurrencyInput(QWidget *parent = nullptr);

    /// The amount as it stands in the box, 0 for an empty one.
    [[nodiscard]] double value() const;
    /// Shows an amount with two decimals.
    void setValue(double value);
    void setNegativeAllowed(bool allowed) { m_negativeAllowed = allowed; }
    /// Whether the box may stay empty (it may unless set); otherwise leaving it empty gives 0.00.
    void setBlankAllowed(bool allowed) { m_blankAllowed = allowed; }
    /// How many digits can be typed before the point.
    void setMostDigits(int digits) { m_mostDigits = digits; }

Q_SIGNALS:
    /// The amount changed, by the user or the program.
    void valueChanged(double value);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] QString typedAmount(const QString &text) const;

    /// With two decimals an amount then fills the box, and sums of many stay within what the
    /// database can hold.
    int m_mostDigits = 12;
    bool m_negativeAllowed = false;
    bool m_blankAllowed = true;
};

/// The amount in a text, its characters other than digits, the first point and (when allowed) a
/// leading minus left out.
[[nodiscard]] QString cleanedAmount(const QString &text, bool negativeAllowed);

} // namespace input
