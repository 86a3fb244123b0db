#include "platform/input/CurrencyInput.h"

#include "platform/base/Format.h"
#include "platform/input/KeyFilter.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace input {

QString cleanedAmount(const QString &text, bool negativeAllowed)
{
    QString result;
    for (const QChar character : text) {
        // A minus counts at the beginning alone, and only one point.
        const bool minus = character == u'-' && negativeAllowed && result.isEmpty();
        const bool secondPoint = character == u'.' && result.contains(u'.');
        if (minus || (!secondPoint &&
                      Type_Check(character.unicode(), TypeCheck::Double, KeyEvent::KeyPress)))
            result += character;
    }
    return result;
}

/// What may be typed: an amount without the digits that are too many.
QString CurrencyInput::typedAmount(const QString &text) const
{
    QString amount = cleanedAmount(text, m_negativeAllowed);
    const qsizetype first = amount.startsWith(u'-') ? 1 : 0;
    const qsizetype point = amount.indexOf(u'.');
    const qsizetype digits = (point < 0 ? amount.size() : point) - first;
    if (digits > m_mostDigits)
        amount.remove(first + m_mostDigits, digits - m_mostDigits);
    return amount;
}

CurrencyInput::CurrencyInput(QWidget *parent)
    : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    // Twelve digits, the point and two decimals.
    setMaxLength(15);
    connect(this, &QLineEdit::textEdited, this, [this](const QString &text) {
        const QString cleaned = typedAmount(text);
        if (cleaned == text)
            return;
        // The caret keeps its distance from the end.
        const int behind = int(text.size()) - cursorPosition();
        setText(cleaned);
        setCursorPosition(std::max(0, int(cleaned.size()) - behind));
    });
    connect(this, &QLineEdit::textChanged, this, [this] { Q_EMIT valueChanged(value()); });
}

double CurrencyInput::value() const
{
    return cleanedAmount(text(), true).toDouble();
}

void CurrencyInput::setValue(double value)
{
    setText(base::twoDecimals(value));
}

void CurrencyInput::keyPressEvent(QKeyEvent *event)
{
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString typed = event->text();
    if (!isReadOnly() && !(event->modifiers() & commands) && typed.size() == 1 &&
        typed.front().isPrint()) {
        QString result = text();
        int caret = cursorPosition();
        if (hasSelectedText()) {
            caret = selectionStart();
            result.remove(caret, selectionLength());
        }
        result.insert(caret, typed);
        // Refused before it is typed, so that undo never shows it.
        if (typedAmount(result) != result)
            return;
    }
    QLineEdit::keyPressEvent(event);
}

void CurrencyInput::focusOutEvent(QFocusEvent *event)
{
    // A box may be left empty where Null is a value of its own; it is no 0.00 then.
    const bool blank = text().trimmed().isEmpty();
    // The context menu takes the focus for a moment, and its Paste goes on in the text as it was.
    if (!isReadOnly() && event->reason() != Qt::PopupFocusReason && (!blank || !m_blankAllowed)) {
        if (const QString shown = base::twoDecimals(value()); shown != text())
            setText(shown);
    }
    QLineEdit::focusOutEvent(event);
}

} // namespace input
