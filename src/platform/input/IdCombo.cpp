#include "platform/input/IdCombo.h"

#include <QWheelEvent>

namespace input {

IdCombo::IdCombo(QWidget *parent)
    : QComboBox(parent)
{
    // Long lists must neither widen the form nor be measured item by item.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(14);
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(15);
}

void IdCombo::clear()
{
    QComboBox::clear();
    m_collection.clear();
}

void IdCombo::add(const QString &text, qint64 id)
{
    addItem(text, id);
    if (!m_collection.contains(text))
        m_collection.insert(text, QString::number(id));
}

void IdCombo::add(const QStringList &texts)
{
    addItems(texts);
}

qint64 IdCombo::id() const
{
    return currentData().toLongLong();
}

bool IdCombo::select(qint64 id)
{
    const int index = findData(id);
    if (index >= 0)
        setCurrentIndex(index);
    return index >= 0;
}

bool IdCombo::selectText(const QString &text)
{
    const int index = findText(text, Qt::MatchFixedString);
    if (index >= 0)
        setCurrentIndex(index);
    return index >= 0;
}

void IdCombo::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace input
