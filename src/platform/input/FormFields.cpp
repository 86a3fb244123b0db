// The fields of a form, each as wide as what it takes.
#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/FormBuilder.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "platform/input/TimeInput.h"

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QToolButton>
#include <algorithm>

namespace input {
namespace {

/// Text boxes up to this length are as wide as their text, longer ones fill the row.
constexpr int narrowLength = 12;
constexpr int widestHint = 24;

int lineHeight(const QFont &font)
{
    return QFontMetrics(font).lineSpacing();
}

int charactersWide(int count)
{
    return QFontMetrics(theme::textFont()).horizontalAdvance(u'0') * count + 16;
}

} // namespace

QLineEdit *FormBuilder::textField(const QString &name, const QString &label, int maxLength)
{
    auto *edit = new QLineEdit(block().owner);
    // The toolkit would show the breaks of a pasted text as signs and store them.
    keepOnOneLine(edit);
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
    const bool narrow = maxLength > 0 && maxLength <= narrowLength;
    // A short box that filled the row would promise room that it hasn't.
    if (narrow)
        edit->setFixedWidth(charactersWide(maxLength + 2));
    else
        edit->setMinimumWidth(charactersWide(std::min(maxLength > 0 ? maxLength : 16, widestHint)));
    addField(name, label, edit, narrow ? Fill::Narrow : Fill::Wide);
    return edit;
}

QLineEdit *FormBuilder::passwordField(const QString &name, const QString &label, int maxLength)
{
    QLineEdit *edit = textField(name, label, maxLength);
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

QLineEdit *FormBuilder::digitsField(const QString &name, const QString &label, int maxLength)
{
    QLineEdit *edit = textField(name, label, maxLength);
    restrictTo(edit, TypeCheck::Int);
    return edit;
}

CurrencyInput *FormBuilder::currencyField(const QString &name, const QString &label)
{
    auto *edit = new CurrencyInput(block().owner);
    edit->setFixedWidth(charactersWide(narrowLength));
    addField(name, label, edit, Fill::Narrow);
    return edit;
}

DateInput *FormBuilder::dateField(const QString &name, const QString &label)
{
    auto *edit = new DateInput(block().owner);
    edit->setFixedWidth(charactersWide(12) + 24);
    addField(name, label, edit, Fill::Narrow);
    return edit;
}

TimeInput *FormBuilder::timeField(const QString &name, const QString &label)
{
    auto *edit = new TimeInput(block().owner);
    edit->setFixedWidth(charactersWide(8));
    addField(name, label, edit, Fill::Narrow);
    return edit;
}

PhoneInput *FormBuilder::phoneField(const QString &name, const QString &label)
{
    auto *edit = new PhoneInput(block().owner);
    edit->setFixedWidth(charactersWide(16));
    addField(name, label, edit, Fill::Narrow);
    return edit;
}

MaskedInput *FormBuilder::maskedField(const QString &name, const QString &label,
                                      const QString &pattern)
{
    auto *edit = new MaskedInput(pattern, block().owner);
    edit->setFixedWidth(charactersWide(int(pattern.size()) + 2));
    addField(name, label, edit, Fill::Narrow);
    return edit;
}

SpinInput *FormBuilder::spinField(const QString &name, const QString &label)
{
    auto *spin = new SpinInput(block().owner);
    spin->setFixedWidth(charactersWide(7) + 20);
    addField(name, label, spin, Fill::Narrow);
    return spin;
}

IdCombo *FormBuilder::comboField(const QString &name, const QString &label)
{
    auto *combo = new IdCombo(block().owner);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    addField(name, label, combo, Fill::Wide);
    return combo;
}

QPlainTextEdit *FormBuilder::memoField(const QString &name, const QString &label, int lines)
{
    auto *memo = new QPlainTextEdit(block().owner);
    // Tab goes through the form; a tab is no text of a note.
    memo->setTabChangesFocus(true);
    memo->setMinimumHeight(lineHeight(theme::textFont()) * lines + 12);
    addField(name, label, memo, Fill::Tall);
    return memo;
}

QListWidget *FormBuilder::listField(const QString &name, const QString &label, int lines)
{
    auto *list = new QListWidget(block().owner);
    list->setMinimumHeight(lineHeight(theme::listFont()) * lines + 8);
    addField(name, label, list, Fill::Tall);
    return list;
}

QLabel *FormBuilder::readOnlyField(const QString &name, const QString &label)
{
    auto *value = new QLabel(block().owner);
    value->setTextFormat(Qt::PlainText);
    // To be copied by the mouse, without a stop for Tab.
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setFrameStyle(QFrame::StyledPanel);
    value->setAutoFillBackground(true);
    value->setMargin(2);
    value->setMinimumWidth(charactersWide(8));
    QPalette colors = value->palette();
    colors.setColor(QPalette::Window, theme::panelColor());
    value->setPalette(colors);
    addField(name, label, value, Fill::Wide);
    return value;
}

LinkLabel *FormBuilder::linkField(const QString &name, const QString &label, const QString &text)
{
    auto *link = new LinkLabel(text, block().owner);
    addField(name, label, link, Fill::Narrow);
    return link;
}

QCheckBox *FormBuilder::checkBox(const QString &name, const QString &caption)
{
    auto *box = new QCheckBox(caption, block().owner);
    prepare(box, name, caption);
    place(nullptr, box, Fill::Narrow);
    return box;
}

QRadioButton *FormBuilder::optionButton(const QString &name, const QString &caption)
{
    auto *option = new QRadioButton(caption, block().owner);
    prepare(option, name, caption);
    place(nullptr, option, Fill::Narrow);
    return option;
}

void FormBuilder::field(const QString &label, QWidget *control)
{
    const bool wide = control->sizePolicy().expandingDirections() & Qt::Horizontal;
    addField(control->objectName(), label, control, wide ? Fill::Wide : Fill::Narrow);
}

QToolButton *FormBuilder::sideButton(const QString &name, const QString &tip,
                                     const QString &iconName)
{
    auto *side = new QToolButton(block().owner);
    side->setIcon(theme::icon(iconName));
    side->setToolTip(tip);
    // Tool buttons are left out by Tab otherwise.
    side->setFocusPolicy(Qt::StrongFocus);
    prepare(side, name, tip);
    // Behind the field, or the side button that was made before.
    const int position = m_lastCell->indexOf(m_lastControl) + 1;
    const bool beside = qobject_cast<QPlainTextEdit *>(m_lastControl);
    m_lastCell->insertWidget(position, side, 0, beside ? Qt::AlignTop : Qt::Alignment());
    m_lastControl = side;
    return side;
}

} // namespace input
