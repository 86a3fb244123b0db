#include "platform/input/SpinInput.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>

namespace input {

SpinInput::SpinInput(QWidget *parent)
    : QSpinBox(parent)
{
    setRange(1, 99999);
    setGroupSeparatorShown(false);
    setFocusPolicy(Qt::StrongFocus);
    // Five digits reach the largest number.
    lineEdit()->setMaxLength(5);
    connect(lineEdit(), &QLineEdit::textEdited, this, &SpinInput::edited);
}

void SpinInput::keyPressEvent(QKeyEvent *event)
{
    if (!isReadOnly() && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus)) {
        stepBy(event->key() == Qt::Key_Plus ? 1 : -1);
        return;
    }
    QSpinBox::keyPressEvent(event);
}

void SpinInput::wheelEvent(QWheelEvent *event)
{
    // As in IdCombo: the wheel scrolls the form.
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void SpinInput::stepBy(int steps)
{
    const int before = value();
    QSpinBox::stepBy(steps);
    if (value() != before)
        Q_EMIT edited();
}

QValidator::State SpinInput::validate(QString &text, int &) const
{
    const bool digits = std::ranges::all_of(
        text, [](QChar character) { return character >= u'0' && character <= u'9'; });
    if (!digits || text.toLongLong() > maximum())
        return QValidator::Invalid;
    // An empty box or a 0 may be on its way to a number.
    return text.toInt() < minimum() ? QValidator::Intermediate : QValidator::Acceptable;
}

int SpinInput::valueFromText(const QString &text) const
{
    return std::max(text.toInt(), minimum());
}

void SpinInput::fixup(QString &text) const
{
    text = QString::number(valueFromText(text));
}

} // namespace input
