#include "platform/input/MaskedInput.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>

namespace input {

MaskedInput::MaskedInput(const QString &pattern, QWidget *parent)
    : QLineEdit(parent)
    , m_mask(pattern)
{
    setText(emptyText());
    setCursorPosition(0);
    widenBlanks();
    connect(this, &QLineEdit::textChanged, this, &MaskedInput::fitProgramText);
}

QSize MaskedInput::sizeHint() const
{
    ensurePolished();
    QString widest = emptyText();
    // A full box is the widest: blanks are narrower than digits until they are widened.
    widest.replace(u' ', u'0');
    const QMargins margins = textMargins();
    const QFontMetrics metrics = fontMetrics();
    const QSize contents(metrics.horizontalAdvance(widest + QStringLiteral("00")) + margins.left() +
                             margins.right(),
                         QLineEdit::sizeHint().height());
    return {contents.width() + 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 6,
            contents.height()};
}

void MaskedInput::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        widenBlanks();
}

/// Makes a blank as wide as a digit, so that the fixed characters stay in place while one types.
void MaskedInput::widenBlanks()
{
    QFont wide = font();
    // From its own width, and not from what an earlier font has made of it.
    wide.setWordSpacing(0);
    const QFontMetricsF metrics(wide);
    wide.setWordSpacing(metrics.horizontalAdvance(u'0') - metrics.horizontalAdvance(u' '));
    // Setting a font tells of a change of font, which comes back here.
    if (!qFuzzyCompare(1 + wide.wordSpacing(), 1 + font().wordSpacing()))
        setFont(wide);
}

void MaskedInput::fitProgramText()
{
    // Dropped text and that of the context menu's Paste come this way too.
    const auto fitting = broughtIn(text());
    if (!fitting || *fitting == text())
        return;
    const int caret = cursorPosition();
    setText(*fitting);
    setCursorPosition(std::min(caret, m_mask.length()));
}

void MaskedInput::showText(const QString &newText)
{
    const bool whole = hasSelectedText() && selectedText() == text();
    setText(newText);
    if (whole)
        selectAll();
    else
        setCursorPosition(0);
}

void MaskedInput::applyEdit(const QString &newText, int caret)
{
    if (newText != text()) {
        // Replacing through the selection keeps the line's own undo, and announces a user's edit.
        selectAll();
        insert(newText);
    }
    deselect();
    setCursorPosition(caret);
}

std::optional<QString> MaskedInput::broughtIn(const QString &text) const
{
    return m_mask.fitted(text);
}

std::optional<Mask::Edit> MaskedInput::typedInto(const QString &current, int caret,
                                                 QChar character) const
{
    return m_mask.typed(current, caret, character);
}

void MaskedInput::typeText(const QString &characters)
{
    Mask::Edit edit{text(), cursorPosition()};
    if (hasSelectedText()) {
        edit.caret = selectionStart();
        edit.text = m_mask.cleared(edit.text, edit.caret, edit.caret + selectionLength());
    }
    // At the end of an empty box, where a click may have put the caret, the first place is meant.
    if (edit.text == emptyText() && m_mask.placeFrom(edit.caret) == m_mask.length())
        edit.caret = 0;
    // Characters that fit nowhere are passed over: a pasted number may be written in another form.
    bool taken = false;
    for (const QChar character : characters) {
        if (const auto next = typedInto(edit.text, edit.caret, character)) {
            edit = *next;
            taken = true;
        }
    }
    if (taken)
        applyEdit(edit.text, edit.caret);
}

bool MaskedInput::eraseKey(QKeyEvent *event)
{
    const bool back = event->key() == Qt::Key_Backspace;
    int start = cursorPosition();
    int end = start;
    if (hasSelectedText()) {
        start = selectionStart();
        end = start + selectionLength();
    } else if (event->modifiers() & Qt::ControlModifier) {
        // With Ctrl everything before or behind the caret goes, as in any box.
        (back ? start : end) = back ? 0 : m_mask.length();
    } else if (back) {
        // Over fixed characters to the place before them.
        start = m_mask.placeBefore(start);
        if (start < 0)
            return true;
    } else {
        end = m_mask.placeFrom(start) + 1;
    }
    applyEdit(m_mask.cleared(text(), start, end), start);
    return true;
}

void MaskedInput::keyPressEvent(QKeyEvent *event)
{
    // A stored text that is none of the pattern is edited as in a plain box.
    if (isReadOnly() || !m_mask.fits(text())) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        const QString pasted = QGuiApplication::clipboard()->text().trimmed();
        // A whole value replaces the old one wherever the caret stands.
        if (const auto whole = broughtIn(pasted);
            whole && m_mask.cleared(*whole, 0, m_mask.length()) != *whole &&
            (pasted.size() == m_mask.length() || hasSelectedText() || isEmptyMask()))
            applyEdit(*whole, m_mask.length());
        else
            typeText(pasted);
        return;
    }
    if (event->matches(QKeySequence::Cut)) {
        copy();
        if (hasSelectedText())
            eraseKey(event);
        return;
    }
    if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete) {
        eraseKey(event);
        return;
    }
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString typed = event->text();
    if (!(event->modifiers() & commands) && !typed.isEmpty() && typed.front().isPrint()) {
        typeText(typed);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void MaskedInput::inputMethodEvent(QInputMethodEvent *event)
{
    if (isReadOnly() || !m_mask.fits(text()) || event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    // What input methods and dead keys put together comes here and not as a key.
    typeText(event->commitString());
    event->accept();
}

void MaskedInput::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    if (isEmptyMask() && !hasSelectedText())
        setCursorPosition(0);
}

void MaskedInput::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    // A click into an empty box means its first place.
    if (event->button() == Qt::LeftButton && isEmptyMask() && !hasSelectedText())
        setCursorPosition(m_mask.placeFrom(0));
}

} // namespace input
