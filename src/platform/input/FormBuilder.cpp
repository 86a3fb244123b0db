#include "platform/input/FormBuilder.h"

#include "platform/input/CurrencyInput.h"
#include "platform/input/DateInput.h"
#include "platform/input/IdCombo.h"
#include "platform/input/KeyFilter.h"
#include "platform/input/LinkLabel.h"
#include "platform/input/PhoneInput.h"
#include "platform/input/SpinInput.h"
#include "platform/input/Theme.h"
#include "platform/input/TimeInput.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace input {
namespace {

constexpr int formMargin = 12;
constexpr int groupMargin = 10;
constexpr int rowSpacing = 6;
constexpr int columnSpacing = 8;
constexpr int betweenColumns = 16;
constexpr int buttonWidth = 84;
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

QHBoxLayout *makeLine()
{
    auto *line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(columnSpacing);
    return line;
}

QString withoutMnemonic(const QString &caption)
{
    QString result;
    for (int i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        result += caption[i];
    }
    return result;
}

} // namespace

QString plainCaption(QString caption)
{
    caption = caption.trimmed();
    while (caption.endsWith(u':'))
        caption.chop(1);
    return withoutMnemonic(caption).trimmed();
}

FormBuilder::FormBuilder(QWidget *form)
    : m_form(form)
{
    auto *stack = new QVBoxLayout(form);
    stack->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
    beginBlock(form, stack);
}

// --- Fields
// ----------------------------------------------------------------------------------------

QLineEdit *FormBuilder::textField(const QString &name, const QString &label, int maxLength)
{
    auto *edit = new QLineEdit(block().owner);
    keepOnOneLine(edit);
    if (maxLength > 0)
        edit->setMaxLength(maxLength);
    const bool narrow = maxLength > 0 && maxLength <= narrowLength;
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
    side->setFocusPolicy(Qt::StrongFocus);
    prepare(side, name, tip);
    const int position = m_lastCell->indexOf(m_lastControl) + 1;
    const bool beside = qobject_cast<QPlainTextEdit *>(m_lastControl);
    m_lastCell->insertWidget(position, side, 0, beside ? Qt::AlignTop : Qt::Alignment());
    m_lastControl = side;
    return side;
}

// --- Across the whole width
// ------------------------------------------------------------------------

QLabel *FormBuilder::note(const QString &text, const QString &name)
{
    auto *label = new QLabel(text, block().owner);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    block().rows = nullptr;
    block().stack->addWidget(label);
    return label;
}

void FormBuilder::widget(QWidget *control, bool stretch)
{
    m_order += control;
    if (m_line) {
        m_line->addWidget(control, stretch ? 1 : 0);
        m_lineIsWide = m_lineIsWide || stretch;
        return;
    }
    block().rows = nullptr;
    block().stack->addWidget(control, stretch ? 1 : 0);
    block().stretches = block().stretches || stretch;
}

void FormBuilder::stretch()
{
    block().rows = nullptr;
    block().stack->addStretch(1);
    block().stretches = true;
}

// --- Structure
// -------------------------------------------------------------------------------------

void FormBuilder::beginBlock(QWidget *owner, QVBoxLayout *stack, QHBoxLayout *columns)
{
    stack->setSpacing(rowSpacing);
    Block next;
    next.owner = owner;
    next.stack = stack;
    next.columns = columns;
    m_blocks += next;
}

QGroupBox *FormBuilder::beginGroup(const QString &title, const QString &name)
{
    auto *group = new QGroupBox(title, block().owner);
    group->setObjectName(name);
    auto *stack = new QVBoxLayout(group);
    stack->setContentsMargins(groupMargin, groupMargin - 2, groupMargin, groupMargin);
    block().rows = nullptr;
    block().stack->addWidget(group);
    beginBlock(group, stack);
    return group;
}

void FormBuilder::endGroup()
{
    const Block group = m_blocks.takeLast();
    if (!group.stretches) {
        // Height that is left goes below the group, not into it.
        group.owner->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        return;
    }
    block().stretches = true;
    block().stack->setStretchFactor(group.owner, 1);
}

void FormBuilder::beginColumns()
{
    QHBoxLayout *columns = makeLine();
    columns->setSpacing(betweenColumns);
    block().rows = nullptr;
    block().stack->addLayout(columns);
    auto *stack = new QVBoxLayout;
    columns->addLayout(stack, 1);
    beginBlock(block().owner, stack, columns);
}

void FormBuilder::closeColumn()
{
    if (!block().stretches)
        block().stack->addStretch();
}

void FormBuilder::nextColumn(int widthFactor)
{
    closeColumn();
    const Block former = m_blocks.takeLast();
    auto *stack = new QVBoxLayout;
    former.columns->addLayout(stack, widthFactor);
    beginBlock(former.owner, stack, former.columns);
    block().earlierColumnStretches = former.stretches || former.earlierColumnStretches;
}

void FormBuilder::endColumns()
{
    closeColumn();
    const Block former = m_blocks.takeLast();
    if (!former.stretches && !former.earlierColumnStretches)
        return;
    block().stretches = true;
    block().stack->setStretchFactor(former.columns, 1);
}

void FormBuilder::beginRow(const QString &label)
{
    m_line = nullptr;
    QHBoxLayout *line = makeLine();
    QGridLayout *grid = rows();
    const int row = grid->rowCount();
    if (!label.isEmpty())
        grid->addWidget(makeLabel(label, nullptr), row, 0);
    grid->addLayout(line, row, 1);
    m_line = line;
    m_lineIsWide = false;
}

void FormBuilder::endRow()
{
    if (!m_lineIsWide)
        m_line->addStretch();
    m_line = nullptr;
}

QPushButton *FormBuilder::inlineButton(const QString &name, const QString &caption,
                                       const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_order += made;
    place(nullptr, made, Fill::Narrow);
    return made;
}

// --- The button row
// --------------------------------------------------------------------------------

QPushButton *FormBuilder::makeButton(const QString &name, const QString &caption, const QIcon &icon)
{
    auto *made = new QPushButton(icon, caption, block().owner);
    made->setObjectName(name);
    made->setAccessibleName(plainCaption(caption));
    // Enter in a field must not press whatever button comes first.
    made->setAutoDefault(false);
    made->setMinimumWidth(buttonWidth);
    return made;
}

QPushButton *FormBuilder::button(const QString &name, const QString &caption, const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_rightButtons += made;
    return made;
}

QPushButton *FormBuilder::leftButton(const QString &name, const QString &caption, const QIcon &icon)
{
    QPushButton *made = makeButton(name, caption, icon);
    m_leftButtons += made;
    return made;
}

QToolButton *FormBuilder::toolButton(const QString &name, const QString &tip, const QIcon &icon)
{
    auto *made = new QToolButton(m_form);
    made->setObjectName(name);
    made->setAccessibleName(plainCaption(tip));
    made->setToolTip(plainCaption(tip));
    made->setIcon(icon);
    made->setIconSize({18, 18});
    made->setFocusPolicy(Qt::StrongFocus);
    m_leftButtons += made;
    return made;
}

FormBuilder::Navigation FormBuilder::navigation(const QString &first, const QString &previous,
                                                const QString &next, const QString &last)
{
    const auto make = [this](const QString &name, const QString &tip, const QString &picture) {
        return toolButton(name, tip, theme::icon(picture));
    };
    Navigation made{};
    made.first = make(first, QStringLiteral("First record"), QStringLiteral("first"));
    made.previous = make(previous, QStringLiteral("Previous record"), QStringLiteral("previous"));
    made.next = make(next, QStringLiteral("Next record"), QStringLiteral("next"));
    made.last = make(last, QStringLiteral("Last record"), QStringLiteral("last"));
    return made;
}

void FormBuilder::addButtonRow()
{
    if (m_leftButtons.isEmpty() && m_rightButtons.isEmpty())
        return;
    QHBoxLayout *line = makeLine();
    line->setContentsMargins(0, rowSpacing, 0, 0);
    for (QWidget *left : std::as_const(m_leftButtons))
        line->addWidget(left);
    line->addStretch();
    for (QWidget *right : std::as_const(m_rightButtons))
        line->addWidget(right);
    block().stack->addLayout(line);
    m_order += m_leftButtons;
    m_order += m_rightButtons;
}

void FormBuilder::finish()
{
    if (!block().stretches)
        block().stack->addStretch(1);
    addButtonRow();
    for (int i = 1; i < m_order.size(); ++i)
        QWidget::setTabOrder(m_order[i - 1], m_order[i]);
    theme::ApplyFormColors(m_form);
}

// --- Placing
// ---------------------------------------------------------------------------------------

QGridLayout *FormBuilder::rows()
{
    if (!block().rows) {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(columnSpacing);
        grid->setVerticalSpacing(rowSpacing);
        grid->setColumnStretch(1, 1);
        block().stack->addLayout(grid);
        block().rows = grid;
    }
    return block().rows;
}

void FormBuilder::prepare(QWidget *control, const QString &name, const QString &caption)
{
    control->setObjectName(name);
    control->setAccessibleName(plainCaption(caption));
    m_order += control;
}

QLabel *FormBuilder::makeLabel(const QString &text, QWidget *buddy)
{
    const bool reachable = buddy && buddy->focusPolicy() & Qt::TabFocus;
    auto *label = new QLabel(reachable ? text : withoutMnemonic(text), block().owner);
    label->setTextFormat(Qt::PlainText);
    if (reachable)
        label->setBuddy(buddy);
    return label;
}

void FormBuilder::addField(const QString &name, const QString &label, QWidget *control, Fill fill)
{
    prepare(control, name, label);
    place(label.isEmpty() ? nullptr : makeLabel(label, control), control, fill);
}

void FormBuilder::place(QLabel *label, QWidget *control, Fill fill)
{
    m_lastLabel = label;
    m_lastControl = control;
    if (m_line) {
        // The first label of a line stands in the column of labels when that is free.
        QGridLayout *grid = rows();
        const int row = grid->rowCount() - 1;
        if (label && m_line->count() == 0 && !grid->itemAtPosition(row, 0))
            grid->addWidget(label, row, 0);
        else if (label)
            m_line->addWidget(label);
        m_line->addWidget(control, fill == Fill::Narrow ? 0 : 1);
        m_lineIsWide = m_lineIsWide || fill != Fill::Narrow;
        m_lastCell = m_line;
        return;
    }
    QGridLayout *grid = rows();
    const int row = grid->rowCount();
    if (label)
        grid->addWidget(label, row, 0, fill == Fill::Tall ? Qt::AlignTop : Qt::AlignVCenter);
    QHBoxLayout *cell = makeLine();
    cell->setSpacing(columnSpacing / 2);
    cell->addWidget(control, fill == Fill::Narrow ? 0 : 1);
    if (fill == Fill::Narrow)
        cell->addStretch();
    grid->addLayout(cell, row, 1);
    m_lastCell = cell;
    if (fill == Fill::Tall) {
        grid->setRowStretch(row, 1);
        block().stack->setStretchFactor(grid, 1);
        block().stretches = true;
    }
}

} // namespace input
