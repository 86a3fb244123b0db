#include "platform/input/IdCombo.h"

#include <QApplication>
#include <QKeyEvent>
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
    // An id without an item is only shown for as long as the user chooses none.
    const auto chosen = [this] { m_unlisted = 0; };
    connect(this, &QComboBox::currentIndexChanged, this, chosen);
    connect(this, &QComboBox::activated, this, chosen);
}

void IdCombo::clear()
{
    QComboBox::clear();
    m_collection.clear();
    m_unlisted = 0;
}

void IdCombo::add(const QString &text, qint64 id)
{
    addItem(text, id);
    // Of two equal texts the first one counts, as the list finds it.
    if (!m_collection.contains(text))
        m_collection.insert(text, QString::number(id));
}

void IdCombo::add(const QStringList &texts)
{
    addItems(texts);
}

qint64 IdCombo::id() const
{
    // A record whose item has been deleted keeps its id when it is saved unchanged.
    return m_unlisted != 0 ? m_unlisted : currentData().toLongLong();
}

bool IdCombo::isItemChosen() const
{
    return currentData().toLongLong() != 0;
}

bool IdCombo::display(qint64 id)
{
    if (select(id))
        return true;
    // Shown as nothing chosen.
    select(0);
    m_unlisted = id;
    return false;
}

bool IdCombo::select(qint64 id)
{
    const int index = findData(id);
    if (index < 0)
        return false;
    setCurrentIndex(index);
    m_unlisted = 0;
    return true;
}

bool IdCombo::selectText(const QString &text)
{
    const int index = findText(text, Qt::MatchFixedString);
    if (index >= 0)
        setCurrentIndex(index);
    return index >= 0;
}

void IdCombo::keyPressEvent(QKeyEvent *event)
{
    // The toolkit stays on the first item when the letter comes again quickly.
    if (!isEditable() && isLetterAgain(event->text()))
        chooseNext(event->text());
    else
        QComboBox::keyPressEvent(event);
}

bool IdCombo::isLetterAgain(const QString &letter)
{
    if (letter.size() != 1 || !letter.at(0).isLetterOrNumber())
        return false;
    if (!m_sinceTyped.isValid() || m_sinceTyped.hasExpired(QApplication::keyboardInputInterval()))
        m_typed.clear();
    m_sinceTyped.start();
    m_typed += letter;
    return m_typed.size() > 1 && m_typed.count(letter, Qt::CaseInsensitive) == m_typed.size() &&
           findText(m_typed, Qt::MatchStartsWith) < 0;
}

void IdCombo::chooseNext(const QString &beginning)
{
    // From the one behind the current item round to the one before it.
    for (int step = 1; step < count(); ++step) {
        const int index = (currentIndex() + step) % count();
        if (itemText(index).startsWith(beginning, Qt::CaseInsensitive)) {
            setCurrentIndex(index);
            // It was the user who chose.
            Q_EMIT activated(index);
            return;
        }
    }
}

void IdCombo::wheelEvent(QWheelEvent *event)
{
    // The wheel scrolls the form that the pointer happens to stand over, and changes no field on
    // its way.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace input
