#include "equipment/ui/EquipmentTabs.h"

#include "platform/input/Theme.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct Tab
{
    QStringView name;
    QStringView caption;
    int key;
    QStringView picture;
};

constexpr Tab Tabs[] = {
    {u"Equipment", u"Equipment (Ctrl+E)", Qt::Key_E, u"equipment"},
    {u"Service", u"Service (Ctrl+S)", Qt::Key_S, u"service"},
    {u"History", u"History (Ctrl+H)", Qt::Key_H, u"history"},
    {u"Notes", u"Notes (Ctrl+N)", Qt::Key_N, u"note"},
    {u"Fields", u"Fields (Ctrl+F)", Qt::Key_F, u"list"},
    {u"Engine", u"Engine (Ctrl+G)", Qt::Key_G, u"settings"},
    {u"Vehicle", u"Vehicle (Ctrl+V)", Qt::Key_V, u"truck"},
    {u"Parts", u"Parts (Ctrl+P)", Qt::Key_P, u"part"},
    {u"Purchase", u"Purchase (Ctrl+B)", Qt::Key_B, u"cost-center"},
    {u"Counts", u"Counts (Ctrl+C)", Qt::Key_C, u"reading"},
    {u"Pictures", u"Pictures (Ctrl+I)", Qt::Key_I, u"picture"},
    {u"Documents", u"Documents (Ctrl+O)", Qt::Key_O, u"document"},
    {u"Depreciation", u"Depreciation (Ctrl+D)", Qt::Key_D, u"depreciation"},
};
static_assert(std::size(Tabs) == EquipmentTabs::Count);

/// Dark enough to be read on a button, and unlike the captions of empty pages.
constexpr QRgb MarkRgb = qRgb(158, 62, 0);
constexpr QRgb PlainRgb = qRgb(70, 76, 84);

/// True for a text that the user can change, an editor in a grid's cell among them.
bool isEditableText(const QWidget *widget)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        return !line->isReadOnly();
    if (const auto *memo = qobject_cast<const QPlainTextEdit *>(widget))
        return !memo->isReadOnly();
    if (const auto *list = qobject_cast<const QComboBox *>(widget))
        return list->isEditable();
    const auto *spin = qobject_cast<const QAbstractSpinBox *>(widget);
    return spin && !spin->isReadOnly();
}

/// Cut, copy, paste and undo, which a text needs for itself.
bool isTextKey(int key)
{
    return key == Qt::Key_X || key == Qt::Key_C || key == Qt::Key_V || key == Qt::Key_Z;
}

} // namespace

EquipmentTabs::EquipmentTabs(QWidget *parent)
    : QWidget(parent)
{
    auto *stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(3);
    auto *group = new QButtonGroup(this);
    for (const Tab &tab : Tabs) {
        auto *button =
            new QPushButton(theme::icon(tab.picture.toString()), tab.caption.toString(), this);
        button->setObjectName(u"tab"_s + tab.name.toString());
        button->setAccessibleName(tab.name.toString());
        button->setCheckable(true);
        button->setAutoDefault(false);
        // The style centres captions, and a column of centred ones can't be read down.
        button->setStyleSheet(u"text-align:left"_s);
        const int index = static_cast<int>(m_buttons.size());
        group->addButton(button, index);
        connect(button, &QPushButton::clicked, this, [this, index] { Q_EMIT chosen(index); });
        stack->addWidget(button);
        m_buttons.append(button);
        m_marked.append(false);
    }
    stack->addStretch();
    ChangeButtonState(0);
    // Shortcuts would come too late: a text box takes some of these keys for itself.
    qApp->installEventFilter(this);
}

void EquipmentTabs::ChangeButtonState(int index)
{
    // The group releases the button that was pushed before.
    m_buttons[index]->setChecked(true);
}

void EquipmentTabs::setMarked(int index, bool marked)
{
    m_marked[index] = marked;
    QPushButton *button = m_buttons[index];
    QPalette colors = button->palette();
    colors.setColor(QPalette::Active, QPalette::ButtonText, marked ? MarkRgb : PlainRgb);
    colors.setColor(QPalette::Inactive, QPalette::ButtonText, marked ? MarkRgb : PlainRgb);
    button->setPalette(colors);
    // Colour alone says nothing to a screen reader.
    button->setAccessibleDescription(marked ? u"Has something in it"_s : u"Empty"_s);
}

int EquipmentTabs::indexOfKey(const QObject *target, const QEvent *event) const
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return -1;
    const auto *key = static_cast<const QKeyEvent *>(event);
    // Exactly Ctrl: with Shift or Alt it is another shortcut.
    if (key->modifiers() != Qt::ControlModifier)
        return -1;
    const auto *widget = qobject_cast<const QWidget *>(target);
    // The filter sees the keys of the whole program, also those of dialogs in front of this window.
    if (!widget || widget->window() != window() || !isVisible() || !isEnabled())
        return -1;
    // Two pages share their letter with copy and paste, which the user means while he types.
    if (isTextKey(key->key()) && isEditableText(widget))
        return -1;
    // In a box of notes it is the stamp of date and time.
    if (key->key() == Qt::Key_D)
        for (const QWidget *noteBox : m_noteBoxes)
            if (noteBox == widget)
                return -1;
    for (int index = 0; index < Count; ++index)
        if (Tabs[index].key == key->key())
            return index;
    return -1;
}

bool EquipmentTabs::eventFilter(QObject *watched, QEvent *event)
{
    const int index = indexOfKey(watched, event);
    if (index < 0)
        return QWidget::eventFilter(watched, event);
    event->accept();
    // Accepting says that the key is wanted here; the press follows, and turns the page.
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    // Ctrl+C also copies what only can be read, since a selection would be lost with its page.
    if (Tabs[index].key == Qt::Key_C && watched->metaObject()->indexOfMethod("copy()") >= 0)
        QMetaObject::invokeMethod(watched, "copy");
    Q_EMIT chosen(index);
    return true;
}
